#include "platform/files/profile.h"

#include <QStringConverter>
#include <cstring>

#include "platform/windows1252.h"

namespace korvane {
namespace {

constexpr QByteArrayView kUtf8Mark("\xEF\xBB\xBF", 3);
constexpr QByteArrayView kUtf16Mark("\xFF\xFE", 2);

bool blank(char c) {
  return c == ' ' || c == '\t';
}
char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

QByteArrayView withoutLeadingBlanks(QByteArrayView bytes) {
  while (!bytes.isEmpty() && blank(bytes.front())) bytes = bytes.sliced(1);
  return bytes;
}
QByteArrayView withoutTrailingBlanks(QByteArrayView bytes) {
  while (!bytes.isEmpty() && blank(bytes.back())) bytes.chop(1);
  return bytes;
}
QByteArrayView trimmed(QByteArrayView bytes) {
  return withoutTrailingBlanks(withoutLeadingBlanks(bytes));
}

// QString::fromUtf8() would drop a byte order mark, which belongs to the value here.
QString decoded(QByteArrayView bytes) {
  if (!bytes.isValidUtf8()) return fromWindows1252(bytes);
  const QString text = QString::fromUtf8(bytes);
  return bytes.startsWith(kUtf8Mark) ? QChar(QChar::ByteOrderMark) + text : text;
}

QByteArray encoded(QStringView text, QByteArrayView file) {
  const QByteArray utf8 = text.toUtf8();
  if (utf8.size() == text.size() || file.isValidUtf8() || !isWindows1252(text)) return utf8;
  const QByteArray bytes = toWindows1252(text);
  return bytes.isValidUtf8() ? utf8 : bytes;
}

// A name that is looked for, compared with names in a file without a copy.
class Name {
 public:
  explicit Name(QStringView text)
      : text_(text.trimmed()), ascii_(text_.toUtf8().size() == text_.size()) {}

  bool is(QByteArrayView bytes) const {
    if (!ascii_) return decoded(bytes).compare(text_, Qt::CaseInsensitive) == 0;
    if (bytes.size() != text_.size()) return false;
    for (qsizetype i = 0; i < bytes.size(); ++i)
      if (lower(bytes[i]) != lower(static_cast<char>(text_[i].unicode()))) return false;
    return true;
  }
  // Where the '=' of a "name = value" line stands; -1 when the line is of another name.
  qsizetype equalsSignAfter(QByteArrayView line) const {
    if (ascii_ && (line.size() <= text_.size() || !is(line.first(text_.size())))) return -1;
    const qsizetype equals = line.indexOf('=', ascii_ ? text_.size() : 0);
    return equals >= 0 && is(withoutTrailingBlanks(line.first(equals))) ? equals : -1;
  }
  QStringView text() const { return text_; }

 private:
  QStringView text_;
  bool ascii_;
};

// Positions in a file, -1 for what is not there.
struct Place {
  qsizetype sectionEnd =
      -1;                // after the section's last line that is not blank, its line break included
  qsizetype value = -1;  // what follows the key's '=' and the blanks after it
  qsizetype valueEnd = -1;  // the end of the key's line, its line break not included
};

struct Line {
  QByteArrayView text;  // trimmed, without the line break
  qsizetype end;        // without the line break
  qsizetype next;       // where the next line begins
};

Line lineAt(QByteArrayView file, qsizetype begin) {
  const void* found =
      std::memchr(file.data() + begin, '\n', static_cast<size_t>(file.size() - begin));
  qsizetype end = found ? static_cast<const char*>(found) - file.data() : file.size();
  const qsizetype next = found ? end + 1 : end;
  while (end > begin && file[end - 1] == '\r') --end;
  return {trimmed(file.sliced(begin, end - begin)), end, next};
}

// The section name of a "[name]" line; null for another line.
QByteArrayView sectionName(QByteArrayView line) {
  const qsizetype close = line.startsWith('[') ? line.indexOf(']') : -1;
  return close < 0 ? QByteArrayView() : trimmed(line.sliced(1, close - 1));
}

Place find(QByteArrayView file, const Name& section, const Name& key) {
  Place place;
  bool inside = false;
  for (qsizetype at = file.startsWith(kUtf8Mark) ? 3 : 0; at < file.size();) {
    const Line line = lineAt(file, at);
    at = line.next;
    if (line.text.isEmpty()) continue;
    if (line.text[0] == '[') {
      const QByteArrayView name = sectionName(line.text);
      if (name.isNull()) continue;
      if (inside) break;
      inside = section.is(name);
    }
    if (!inside) continue;
    place.sectionEnd = line.next;
    if (line.text[0] == '[' || line.text[0] == ';' || line.text[0] == '#') continue;
    const qsizetype equals = key.equalsSignAfter(line.text);
    if (equals < 0) continue;
    place.value = line.text.data() - file.data() + equals + 1;
    place.valueEnd = line.end;
    while (place.value < place.valueEnd && blank(file[place.value])) ++place.value;
    break;
  }
  return place;
}

bool quoted(QByteArrayView value) {
  return value.size() >= 2 && value.front() == value.back() &&
         (value.front() == '"' || value.front() == '\'');
}

// What stands in the file for a value.
QByteArray stored(QStringView value, QByteArrayView file) {
  QString text = value.toString();
  for (QChar& c : text)
    if (c == u'\n' || c == u'\r' || c == u'\0') c = u' ';
  const QByteArray bytes = encoded(text, file);
  const bool plain =
      bytes.isEmpty() || (!blank(bytes.front()) && !quoted(withoutTrailingBlanks(bytes)));
  return plain ? bytes : '"' + bytes + '"';
}

bool holdable(QStringView name, QLatin1StringView forbidden) {
  return !name.isEmpty() && name[0] != u'[' && name[0] != u';' && name[0] != u'#' &&
         std::none_of(name.begin(), name.end(), [&](QChar c) {
           return c == u'\n' || c == u'\r' || c == u'\0' || forbidden.contains(c);
         });
}

QByteArray joined(std::initializer_list<QByteArrayView> parts) {
  QByteArray all;
  for (const QByteArrayView part : parts) all.append(part);
  return all;
}

// The mark of a UTF-16 file is not part of its text, but a second one is.
constexpr auto kKeepsMarks = QStringConverter::Flag::ConvertInitialBom;

QByteArray utf8OfUtf16(QByteArrayView file) {
  QByteArray units = file.sliced(kUtf16Mark.size()).toByteArray();
  if (units.size() % 2) units.append('\0');
  const QString text = QStringDecoder(QStringDecoder::Utf16LE, kKeepsMarks).decode(units);
  return text.toUtf8();
}

QByteArray utf16OfUtf8(const QByteArray& text) {
  const QString decoded = QStringDecoder(QStringDecoder::Utf8, kKeepsMarks).decode(text);
  const QByteArray units = QStringEncoder(QStringEncoder::Utf16LE).encode(decoded);
  return joined({kUtf16Mark, units});
}

}  // namespace

std::optional<QString> profileValue(QByteArrayView file, QStringView section, QStringView key) {
  if (file.startsWith(kUtf16Mark)) return profileValue(utf8OfUtf16(file), section, key);
  const Place place = find(file, Name(section), Name(key));
  if (place.value < 0) return std::nullopt;
  const QByteArrayView value = file.sliced(place.value, place.valueEnd - place.value);
  const QByteArrayView core = withoutTrailingBlanks(value);
  return decoded(quoted(core) ? core.sliced(1, core.size() - 2) : value);
}

QByteArray withProfileValue(QByteArrayView file, QStringView section, QStringView key,
                            QStringView value) {
  if (file.startsWith(kUtf16Mark))
    return utf16OfUtf8(withProfileValue(utf8OfUtf16(file), section, key, value));
  const Name sectionIs(section), keyIs(key);
  if (!holdable(sectionIs.text(), "]"_L1) || !holdable(keyIs.text(), "="_L1))
    return file.toByteArray();

  const Place place = find(file, sectionIs, keyIs);
  const QByteArray bytes = stored(value, file);
  if (place.value >= 0)
    return joined({file.first(place.value), bytes, file.sliced(place.valueEnd)});

  const QByteArrayView newline = file.contains("\r\n") ? "\r\n" : "\n";
  const qsizetype at = place.sectionEnd >= 0 ? place.sectionEnd : file.size();
  const bool open = at > 0 && file[at - 1] != '\n' && !(at == 3 && file.startsWith(kUtf8Mark));
  QByteArray header;
  if (place.sectionEnd < 0) header = joined({"[", encoded(sectionIs.text(), file), "]", newline});
  return joined({file.first(at), open ? newline : QByteArrayView(), header,
                 encoded(keyIs.text(), file), "=", bytes, newline, file.sliced(at)});
}

}  // namespace korvane
