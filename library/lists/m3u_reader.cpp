#include "library/lists/m3u_reader.h"

#include <QStringDecoder>

#include "platform/file_system.h"
#include "platform/path_text.h"
#include "platform/windows1252.h"

namespace korvane {
namespace {

constexpr char kUtf8Mark[] = "\xEF\xBB\xBF";

QByteArray asBytes(QByteArray file) {
  if (file.startsWith("\xFF\xFE") || file.startsWith("\xFE\xFF")) {
    const auto order = file[0] == '\xFF' ? QStringConverter::Utf16LE : QStringConverter::Utf16BE;
    QStringDecoder decode(order);
    const QString text = decode(QByteArrayView(file).sliced(2));
    return text.toUtf8();
  }
  return file;
}

bool isDrive(QStringView path) {
  return path.size() > 2 && path[0].isLetter() && path[1] == u':' &&
         (path[2] == u'/' || path[2] == u'\\');
}

bool isAbsolute(QStringView path) {
  return path.startsWith(u'/') || isDrive(path);
}

// Without "." and "..", and one '/' between names.
QString cleaned(const QString& path) {
  QStringList kept;
  for (const QString& name : path.split(u'/', Qt::SkipEmptyParts)) {
    if (name == "."_L1) continue;
    if (name == ".."_L1) {
      if (!kept.isEmpty()) kept.removeLast();
    } else {
      kept << name;
    }
  }
  return (path.startsWith(u'/') ? u"/"_s : QString()) + kept.join(u'/');
}

// The path of a file:// address (RFC 8089), still with its %-escapes; nothing for other text.
std::optional<QByteArrayView> addressPath(QByteArrayView line) {
  constexpr QByteArrayView scheme = "file:";
  if (line.size() < scheme.size() ||
      line.first(scheme.size()).compare(scheme, Qt::CaseInsensitive) != 0)
    return {};
  QByteArrayView path = line.sliced(scheme.size());
  if (path.startsWith("//")) {
    const qsizetype slash = path.sliced(2).indexOf('/');
    if (slash < 0) return {};
    path = path.sliced(2 + slash);
  }
  const bool drive = path.size() > 3 && path[0] == '/' && path[2] == ':' && path[3] == '/';
  return drive ? path.sliced(1) : path;
}

// An address other than file:, as of a station (RFC 3986: a scheme of letters, digits, + - .).
bool isOtherAddress(QStringView text) {
  const qsizetype colon = text.indexOf("://"_L1);
  if (colon < 2) return false;
  const QStringView scheme = text.first(colon);
  const bool plain = std::all_of(scheme.begin(), scheme.end(), [](QChar c) {
    return c.isLetterOrNumber() || QStringView(u"+-.").contains(c);
  });
  return plain && scheme.compare("file"_L1, Qt::CaseInsensitive) != 0;
}

class Meanings {
 public:
  explicit Meanings(const QString& folder) : folder_(folder) {}
  void add(const QString& path) {
    if (!path.isEmpty() && !found_.contains(path)) found_ << path;
  }
  // The path as it stands and with the list's folder in front of a relative one.
  void place(const QString& path) {
    const QString slashed = FileSystem::slashed(path);
    if (isAbsolute(slashed)) {
      add(slashed);
      add(cleaned(slashed));
    } else {
      add(cleaned(folder_ + u'/' + path));
      add(cleaned(folder_ + u'/' + slashed));
    }
  }
  QStringList found() const { return found_; }

 private:
  const QString& folder_;
  QStringList found_;
};

}  // namespace

M3uReader::M3uReader(QByteArray file) : file_(asBytes(std::move(file))), rest_(file_) {
  if (rest_.startsWith(kUtf8Mark)) rest_ = rest_.sliced(3);
}

bool M3uReader::next() {
  while (!rest_.isEmpty()) {
    const auto end = std::find_if(rest_.begin(), rest_.end(),
                                  [](char c) { return c == '\n' || c == '\r' || c == '\0'; });
    line_ = rest_.first(end - rest_.begin());
    rest_ = rest_.sliced(std::min(line_.size() + 1, rest_.size()));
    if (line_.size() > kLongest || line_.startsWith('#') || line_.trimmed().isEmpty()) continue;
    text_ = line_.isValidUtf8() ? QString::fromUtf8(line_) : fromWindows1252(line_);
    if (!text_.trimmed().isEmpty()) return true;  // a lone byte order mark is no text
  }
  return false;
}

bool M3uReader::ambiguous() const {
  return !text_.startsWith(u'/') || text_.contains(u'\\') || text_.contains(u'%') ||
         text_.contains("/."_L1) || text_.contains("//"_L1) || text_.endsWith(u'/') ||
         text_.back().isSpace() || toPath(line_) != text_;
}

QStringList M3uReader::meanings(const QString& folder) const {
  Meanings all(folder);
  all.add(text_);
  if (isOtherAddress(text_)) return all.found();
  if (const auto address = addressPath(line_.trimmed())) {
    all.place(toPath(QByteArray::fromPercentEncoding(address->toByteArray())));
    all.place(toPath(*address));
    return all.found();
  }
  const QByteArrayView bare = line_.trimmed();
  all.place(toPath(line_));
  all.place(text_);
  all.place(text_.trimmed());
  if (bare.contains('%')) all.place(toPath(QByteArray::fromPercentEncoding(bare.toByteArray())));
  return all.found();
}

QByteArray playlistLine(const QString& path) {
  const QByteArray disk = fromPath(path);
  const bool breaks = std::any_of(disk.begin(), disk.end(),
                                  [](char c) { return c == '\n' || c == '\r' || c == '\0'; });
  return breaks ? path.toUtf8() : disk;
}

}  // namespace korvane
