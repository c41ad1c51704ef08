#include "ripper/names/xmcd_record.h"

#include <QStringDecoder>
#include <limits>

#include "platform/windows1252.h"

namespace korvane {
namespace {

constexpr int kTracks = 99, kMostIds = 99;
constexpr int kMostSeconds = 100 * 60;  // a disc's addresses end at 99:59:74
constexpr int kHuge = std::numeric_limits<int>::max();

// The values as they stand, put together of all their lines.
struct Raw {
  QByteArray discIds, title, year, genre;
  std::vector<QByteArray> titles;
};

// A value's text: its escapes are "\n", "\t" and "\\", and what breaks a line is a blank.
QString text(const QByteArray& value) {
  const auto isPlain = [](char c) { return c >= ' ' && c < 0x7F && c != '\\'; };
  if (std::all_of(value.begin(), value.end(), isPlain)) return QString::fromLatin1(value).trimmed();
  QByteArray plain;
  plain.reserve(value.size());
  for (qsizetype i = 0; i < value.size(); ++i) {
    const char next = value[i] == '\\' && i + 1 < value.size() ? value[i + 1] : '\0';
    const bool escape = next == 'n' || next == 't' || next == '\\';
    plain += !escape ? value[i] : next == '\\' ? '\\' : ' ';
    i += escape;
  }
  QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  QString read = utf8(plain);
  if (utf8.hasError()) read = fromWindows1252(plain);
  for (QChar& c : read)
    if (c.category() == QChar::Other_Control) c = u' ';
  return read.trimmed();
}

// The number at the beginning of `digits`: -1 when there is none, kHuge when it has over 9 digits.
int number(QByteArrayView digits) {
  qsizetype length = 0;
  while (length < digits.size() && digits[length] >= '0' && digits[length] <= '9') ++length;
  if (length == 0) return -1;
  return length <= 9 ? digits.first(length).toInt() : kHuge;
}

// The comments, which come before the values.
class Comments {
 public:
  explicit Comments(XmcdRecord& record) : record_(record) {}
  void read(QByteArrayView line) {
    const QByteArrayView said = line.sliced(1).trimmed();
    constexpr QByteArrayView length = "Disc length:";
    if (said.startsWith("Track frame offsets")) {
      listing_ = true;
    } else if (said.startsWith(length)) {
      const int seconds = number(said.sliced(length.size()).trimmed());
      record_.seconds = seconds <= kMostSeconds ? std::max(seconds, 0) : 0;
      listing_ = false;
    } else if (listing_ && !said.isEmpty()) {
      place(number(said));
    }
  }

 private:
  void place(int frames) {
    if (frames < 0) {
      listing_ = false;  // another comment
      return;
    }
    QList<int>& all = record_.offsets;
    if (frames > kMostSeconds * 75 || all.size() == kTracks ||
        (!all.isEmpty() && frames <= all.last()))
      broken_ = true;
    broken_ ? all.clear() : all.append(frames);
  }

  XmcdRecord& record_;
  bool listing_ = false, broken_ = false;
};

void readValue(QByteArrayView line, Raw& raw) {
  constexpr QByteArrayView track = "TTITLE";
  const qsizetype sign = line.indexOf('=');
  if (sign < 0) return;
  const QByteArrayView key = line.first(sign), value = line.sliced(sign + 1);
  if (key == "DISCID") {
    if (!raw.discIds.isEmpty()) raw.discIds += ',';
    raw.discIds += value;
  } else if (key == "DTITLE") {
    raw.title += value;
  } else if (key == "DYEAR") {
    raw.year += value;
  } else if (key == "DGENRE") {
    raw.genre += value;
  } else if (key.startsWith(track)) {
    const int index = number(key.sliced(track.size()));
    if (index < 0 || index >= kTracks) return;
    if (raw.titles.size() <= static_cast<size_t>(index))
      raw.titles.resize(static_cast<size_t>(index) + 1);
    raw.titles[static_cast<size_t>(index)] += value;
  }
}

QStringList discIds(const QByteArray& value) {
  QStringList ids;
  for (const QByteArray& part : value.split(',')) {
    const QByteArray id = part.trimmed().toLower();
    const bool good = id.size() == 8 && std::all_of(id.begin(), id.end(), [](char c) {
                        return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f');
                      });
    if (good && !ids.contains(QLatin1StringView(id))) ids << QString::fromLatin1(id);
    if (ids.size() == kMostIds) break;
  }
  return ids;
}

void splitTitle(const QString& title, XmcdRecord& record) {
  const qsizetype sign = title.indexOf(" / "_L1);
  record.artist = sign < 0 ? title : title.first(sign).trimmed();
  record.album = sign < 0 ? title : title.sliced(sign + 3).trimmed();
}

}  // namespace

std::optional<XmcdRecord> readXmcd(QByteArrayView bytes) {
  XmcdRecord record;
  Comments comments(record);
  Raw raw;
  while (!bytes.isEmpty()) {
    const auto end =
        std::find_if(bytes.begin(), bytes.end(), [](char c) { return c == '\n' || c == '\r'; });
    const QByteArrayView line = bytes.first(end - bytes.begin());
    bytes = bytes.sliced(std::min(line.size() + 1, bytes.size()));
    line.startsWith('#') ? comments.read(line) : readValue(line, raw);
  }
  const QString title = text(raw.title);
  if (title.isEmpty()) return {};
  splitTitle(title, record);
  record.discIds = discIds(raw.discIds);
  record.genre = text(raw.genre);
  if (const int year = number(raw.year.trimmed()); year >= 1000 && year <= 9999)
    record.year = QString::number(year);
  for (const QByteArray& one : raw.titles) record.titles << text(one);
  return record;
}

}  // namespace korvane
