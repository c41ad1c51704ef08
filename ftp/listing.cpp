#include "ftp/listing.h"

#include <QTimeZone>

#include "platform/net/ftp_replies.h"

namespace korvane {
namespace {

constexpr int kMonths = 12, kPivot = 70;  // "69" is 2069, "70" is 1970
constexpr char kMonthNames[] = "janfebmaraprmayjunjulaugsepoctnovdec";

bool blank(char c) {
  return c == ' ' || c == '\t';
}
bool digit(char c) {
  return c >= '0' && c <= '9';
}

// Takes the next word of a line, and the blanks before it.
QByteArrayView word(QByteArrayView& line) {
  while (!line.isEmpty() && blank(line.front())) line = line.sliced(1);
  qsizetype length = 0;
  while (length < line.size() && !blank(line[length])) ++length;
  const QByteArrayView taken = line.first(length);
  line = line.sliced(length);
  return taken;
}

// A whole number of decimal digits; -1 for anything else, and for what is too large to be a size.
qint64 number(QByteArrayView text) {
  constexpr qsizetype kMostDigits = 18;
  if (text.isEmpty() || text.size() > kMostDigits) return -1;
  qint64 value = 0;
  for (const char c : text) {
    if (!digit(c)) return -1;
    value = value * 10 + (c - '0');
  }
  return value;
}

int monthOf(QByteArrayView text) {
  if (text.size() != 3) return 0;
  const QByteArray lower = text.toByteArray().toLower();
  for (int month = 0; month < kMonths; ++month)
    if (lower == QByteArrayView(kMonthNames + 3 * month, 3)) return month + 1;
  return 0;
}

// "hh:mm", with or without seconds, and with AM or PM behind in the form of DOS.
QTime timeOf(QByteArrayView text) {
  const QByteArray upper = text.toByteArray().toUpper();
  const bool twelve = upper.endsWith("AM") || upper.endsWith("PM");
  const QList<QByteArray> parts = (twelve ? upper.chopped(2) : upper).split(':');
  if (parts.size() < 2 || parts.size() > 3) return {};
  qint64 hour = number(parts[0]);
  const qint64 minute = number(parts[1]), second = parts.size() > 2 ? number(parts[2]) : 0;
  if (twelve && (hour < 1 || hour > 12)) return {};
  if (twelve) hour = hour % 12 + (upper.endsWith("PM") ? 12 : 0);
  if (hour < 0 || hour > 23 || minute < 0 || second < 0) return {};
  return {static_cast<int>(hour), static_cast<int>(minute), static_cast<int>(second)};
}

class Reader {
 public:
  explicit Reader(const QDateTime& now) : now_(now) {}

  bool facts(QByteArrayView line) {
    const qsizetype end = line.indexOf(' ');
    if (end < 0) return false;
    cDirItem item;
    item.attributes = 0;
    bool folder = false, known = false, writable = true;
    for (const QByteArray& fact : line.first(end).toByteArray().split(';')) {
      const qsizetype equals = fact.indexOf('=');
      if (equals < 0) continue;
      const QByteArray name = fact.left(equals).toLower(), value = fact.mid(equals + 1);
      if (name == "type") {
        const QByteArray type = value.toLower();
        if (type == "cdir" || type == "pdir") return true;
        folder = type == "dir";
        item.link = type.startsWith("os.unix=s");
        known = true;
      } else if (name == "size" || name == "sizd") {
        item.size = std::max<qint64>(number(value), 0);
      } else if (name == "modify") {
        item.modified = item.accessed = factTime(value);
      } else if (name == "create") {
        item.created = factTime(value);
      } else if (name == "perm") {
        const QByteArray may = value.toLower();
        writable = may.contains('w') || may.contains('c') || may.contains('a') || may.contains('m');
      } else if (name == "win32.ea") {
        windowsBits(item, value);
      }
    }
    if (!known) return false;
    return add(std::move(item), line.sliced(end + 1), folder, writable);
  }

  // "-rw-r--r-- 1 owner group 1234 Jan 12 14:03 name"; some servers leave the group out.
  bool unixLine(QByteArrayView line) {
    constexpr QByteArrayView kTypes = "-dlbcps";
    if (line.size() < 10 || !kTypes.contains(line.front())) return false;
    const QByteArrayView mode = word(line);
    if (mode.size() < 10) return false;
    std::vector<QByteArrayView> before;
    for (int words = 0; words < 8; ++words) {
      QByteArrayView rest = line;
      const QByteArrayView next = word(rest);
      if (next.isEmpty()) return false;
      cDirItem item;
      if (!before.empty() && number(before.back()) >= 0 && unixDate(line, item))
        return unixName(line, item, mode, number(before.back()));
      before.push_back(next);
      line = rest;
    }
    return false;
  }

  // "01-12-20  02:03PM       <DIR>          name"
  bool dosLine(QByteArrayView line) {
    if (line.size() < 8 || !digit(line.front())) return false;
    const QByteArrayView date = word(line), time = word(line), size = word(line);
    const QList<QByteArray> parts = date.toByteArray().replace('/', '-').split('-');
    if (parts.size() != 3) return false;
    const bool folder = size.compare("<DIR>", Qt::CaseInsensitive) == 0;
    const bool link = size.startsWith("<");
    if (!link && number(size.toByteArray().replace(",", "")) < 0) return false;
    cDirItem item;
    item.link = link && !folder;
    if (!link) item.size = number(size.toByteArray().replace(",", ""));
    const bool yearFirst = parts[0].size() == 4;
    qint64 year = number(parts[yearFirst ? 0 : 2]);
    if (year >= 0 && year < 100) year += year < kPivot ? 2000 : 1900;
    const QDate day(static_cast<int>(year), static_cast<int>(number(parts[yearFirst ? 1 : 0])),
                    static_cast<int>(number(parts[yearFirst ? 2 : 1])));
    const QTime at = timeOf(time);
    if (!at.isValid()) return false;
    setTime(item, day, at, date);
    while (!line.isEmpty() && blank(line.front())) line = line.sliced(1);
    return add(std::move(item), line, folder, true);
  }

  Listing listing;

 private:
  bool unixName(QByteArrayView line, cDirItem& item, QByteArrayView mode, qint64 size) {
    if (!line.isEmpty()) line = line.sliced(1);  // one blank; further ones are the name's
    item.link = mode.front() == 'l';
    if (item.link)
      if (const qsizetype arrow = line.indexOf(" -> "); arrow > 0) line = line.first(arrow);
    const bool folder = mode.front() == 'd';
    item.size = folder ? 0 : size;
    const bool device = mode.front() != '-' && !folder && !item.link;
    if (device) item.attributes |= cDirItem::System;
    return add(std::move(item), line, folder, mode[2] == 'w');
  }

  // "Jan 12 14:03", "Jan 12  2020" or "2020-01-12 14:03"; takes it off the line.
  bool unixDate(QByteArrayView& line, cDirItem& item) {
    QByteArrayView rest = line;
    const QByteArrayView first = word(rest), second = word(rest);
    const QList<QByteArray> iso = first.toByteArray().split('-');
    if (iso.size() == 3 && iso[0].size() == 4) {
      const QTime at = timeOf(second);
      if (!at.isValid() || number(iso[0]) < 0) return false;
      setTime(item,
              {static_cast<int>(number(iso[0])), static_cast<int>(number(iso[1])),
               static_cast<int>(number(iso[2]))},
              at, first);
      line = rest;
      return true;
    }
    // Some write the day first.
    const bool dayFirst = monthOf(second) > 0;
    const int month = monthOf(dayFirst ? second : first);
    const qint64 day = number(dayFirst ? first : second);
    const QByteArrayView third = word(rest);
    if (!month || day < 1 || third.isEmpty()) return false;
    const QTime at = third.contains(':') ? timeOf(third) : QTime(0, 0);
    qint64 year = number(third);
    if (third.contains(':')) {
      year = now_.date().year();
      // A date without a year is of the last twelve months; a clock may be a day ahead.
      if (QDate(static_cast<int>(year), month, static_cast<int>(std::min<qint64>(day, 28))) >
          now_.date().addDays(1))
        --year;
    }
    // What is no year may be the day of a date that begins with the word before.
    if (!at.isValid() || year < 1900 || year > 9999) return false;
    setTime(item, {static_cast<int>(year), month, static_cast<int>(std::min<qint64>(day, 99))}, at,
            line.first(std::min<qsizetype>(line.size(), 16)));
    line = rest;
    return true;
  }

  void setTime(cDirItem& item, QDate day, QTime at, QByteArrayView text) {
    if (day.isValid())
      item.modified = item.accessed = QDateTime(day, at);
    else
      bad(text);
  }

  QDateTime factTime(const QByteArray& value) {
    const QDateTime time =
        QDateTime::fromString(QString::fromLatin1(value.left(14)), u"yyyyMMddHHmmss"_s);
    if (!time.isValid()) {
      bad(value);
      return {};
    }
    return QDateTime(time.date(), time.time(), Qt::UTC).toLocalTime();
  }

  void bad(QByteArrayView value) {
    if (listing.badTime.isEmpty()) listing.badTime = ftpText(value).trimmed();
  }

  // FILE_ATTRIBUTE_ of Windows, as servers there write them.
  static void windowsBits(cDirItem& item, const QByteArray& value) {
    constexpr struct {
      uint bit;
      cDirItem::Attribute attribute;
    } kBits[] = {{0x1, cDirItem::ReadOnly},     {0x2, cDirItem::Hidden},
                 {0x4, cDirItem::System},       {0x20, cDirItem::Archive},
                 {0x80, cDirItem::Normal},      {0x100, cDirItem::Temporary},
                 {0x800, cDirItem::Compressed}, {0x1000, cDirItem::Offline}};
    const uint bits = value.toUInt(nullptr, 0);
    for (const auto& [bit, attribute] : kBits)
      if (bits & bit) item.attributes |= attribute;
  }

  bool add(cDirItem item, QByteArrayView name, bool folder, bool writable) {
    item.bytes = name.first(std::max<qsizetype>(
                                0, name.indexOf('\0') < 0 ? name.size() : name.indexOf('\0')))
                     .toByteArray();
    if (item.bytes.isEmpty()) return false;
    if (item.bytes == "." || item.bytes == "..") return true;
    item.fileName = ftpText(item.bytes);
    if (folder) item.attributes |= cDirItem::Directory;
    if (!writable) item.attributes |= cDirItem::ReadOnly;
    if (item.bytes.startsWith('.')) item.attributes |= cDirItem::Hidden;
    if (item.attributes == 0) item.attributes = cDirItem::Normal;  // it stands alone
    listing.items.push_back(std::move(item));
    return true;
  }

  QDateTime now_;
};

bool fits(QStringView name, QStringView filter) {
  // On a mismatch behind a star, the star takes one character more.
  qsizetype n = 0, f = 0, star = -1, taken = 0;
  while (n < name.size()) {
    if (f < filter.size() && filter[f] == u'*') {
      star = f++;
      taken = n;
    } else if (f < filter.size() &&
               (filter[f] == u'?' || filter[f].toCaseFolded() == name[n].toCaseFolded())) {
      ++f;
      ++n;
    } else if (star >= 0) {
      f = star + 1;
      n = ++taken;
    } else {
      return false;
    }
  }
  while (f < filter.size() && filter[f] == u'*') ++f;
  return f == filter.size();
}

}  // namespace

Listing parseListing(QByteArrayView text, bool facts, const QDateTime& now) {
  Reader reader(now);
  while (!text.isEmpty()) {
    const qsizetype end = text.indexOf('\n');
    QByteArrayView line = end < 0 ? text : text.first(end);
    text = end < 0 ? QByteArrayView() : text.sliced(end + 1);
    if (line.endsWith('\r')) line.chop(1);
    if (facts)
      reader.facts(line);
    else if (!reader.unixLine(line))
      reader.dosLine(line);
  }
  return std::move(reader.listing);
}

bool fitsFilter(QStringView name, QStringView filter) {
  return filter == "*.*"_L1 || filter == "*"_L1 || fits(name, filter);
}

QString nameRefusal(const QByteArray& name) {
  constexpr qsizetype kMostBytes = 200;  // with what a partial file adds
  const auto refused = [&](const QString& why) {
    return u"The server has a file named “%1”. It was left there, since %2."_s.arg(
        ftpText(name.left(kMostBytes)).replace(u'\n', u' ').replace(u'\r', u' ').remove(QChar(0)),
        why);
  };
  if (name.isEmpty()) return refused(u"that is no name"_s);
  if (name == "." || name == ".." || name.contains('/') || name.contains('\\'))
    return refused(u"that name leads out of the folder you have chosen"_s);
  if (std::ranges::any_of(name, [](char c) { return static_cast<unsigned char>(c) < ' '; }))
    return refused(u"that name holds characters that a name must not have"_s);
  if (name.size() > kMostBytes) return refused(u"that name is too long"_s);
  return {};
}

}  // namespace korvane
