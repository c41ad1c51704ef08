#include "services/lights/light_table.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QStringDecoder>

namespace korvane {
namespace {

constexpr qsizetype kLongestLine = 1000, kLongestTopic = 200, kLongestPayload = 400;
constexpr int kMostFull = 65535, kMostSteps = 100;

// Reads line by line; the first thing wrong ends it.
class TableReader {
 public:
  bool line(QString text, int number);
  bool end();
  QString error;
  QList<TableLamp> lamps;

 private:
  bool wrong(const QString& what) {
    error = u"line %1: %2"_s.arg(line_).arg(what);
    return false;
  }
  bool begin(QStringView name);
  bool set(const QString& key, const QString& value);
  bool number(const QString& value, int low, int high, int* to);
  bool topic(const QString& value, QString* to);

  int line_ = 0, begun_ = 0;  // begun_: where the last lamp begins
  QSet<QString> keys_, names_;
};

bool TableReader::line(QString text, int number) {
  line_ = number;
  if (text.size() > kLongestLine) return wrong(u"it is too long"_s);
  text = text.trimmed();
  if (text.isEmpty() || text[0] == u';' || text[0] == u'#') return true;
  if (text[0] == u'[')
    return text.endsWith(u']') ? begin(QStringView(text).sliced(1).chopped(1).trimmed())
                               : wrong(u"a section ends with ]"_s);
  const qsizetype sign = text.indexOf(u'=');
  if (sign < 1) return wrong(u"it is no section and no key = value"_s);
  if (lamps.isEmpty()) return wrong(u"a section as [A1] comes first"_s);
  return set(text.first(sign).trimmed().toLower(), text.sliced(sign + 1).trimmed());
}

bool TableReader::begin(QStringView name) {
  if (!end()) return false;
  const QChar house = name.isEmpty() ? QChar() : name[0].toUpper();
  bool isNumber = false;
  const int unit = name.isEmpty() ? 0 : name.sliced(1).toInt(&isNumber);
  if (house < u'A' || house > u'P' || !isNumber || unit < 1 || unit > kMostUnit)
    return wrong(
        u"a lamp is a house from A to P and a unit from 1 to %1, as [A1]"_s.arg(kMostUnit));
  if (lamps.size() == kMostLamps) return wrong(u"there are more than %1 lamps"_s.arg(kMostLamps));
  TableLamp lamp;
  lamp.house = house;
  lamp.unit = unit;
  if (names_.contains(lamp.name())) return wrong(u"%1 stands there twice"_s.arg(lamp.name()));
  names_ << lamp.name();
  lamps << lamp;
  keys_.clear();
  begun_ = line_;
  return true;
}

bool TableReader::number(const QString& value, int low, int high, int* to) {
  bool isNumber = false;
  *to = value.toInt(&isNumber);
  return (isNumber && *to >= low && *to <= high) ||
         wrong(u"it takes a number from %1 to %2"_s.arg(low).arg(high));
}

bool TableReader::topic(const QString& value, QString* to) {
  *to = value;
  const bool good =
      !value.isEmpty() && value.size() <= kLongestTopic && std::ranges::none_of(value, [](QChar c) {
        return c == u'+' || c == u'#' || c.unicode() < 32 || !c.isPrint();
      });
  return good ||
         wrong(u"it takes a topic of up to %1 characters, without + and #"_s.arg(kLongestTopic));
}

bool TableReader::set(const QString& key, const QString& value) {
  TableLamp& lamp = lamps.last();
  if (keys_.contains(key)) return wrong(u"%1 stands there twice"_s.arg(key));
  keys_ << key;
  if (key == "topic"_L1) return topic(value, &lamp.topic);
  if (key == "state"_L1) return topic(value, &lamp.state);
  if (key == "steps"_L1) return number(value, 1, kMostSteps, &lamp.steps);
  if (key == "full"_L1) return number(value, 1, kMostFull, &lamp.full);
  if (value.size() > kLongestPayload) return wrong(u"it is too long"_s);
  if (key == "description"_L1) {
    lamp.description = value;
    return true;
  }
  if (key == "dims"_L1) {
    lamp.dims = value.toLower() == "yes"_L1;
    return lamp.dims || value.toLower() == "no"_L1 || wrong(u"it takes yes or no"_s);
  }
  QByteArray* payload = key == "on"_L1      ? &lamp.on
                        : key == "off"_L1   ? &lamp.off
                        : key == "level"_L1 ? &lamp.level
                                            : nullptr;
  if (!payload) return wrong(u"%1 is not understood"_s.arg(key.left(40)));
  *payload = value.toUtf8();
  return key != "level"_L1 || value.contains(u'%') || wrong(u"it needs a % for the number"_s);
}

bool TableReader::end() {
  if (lamps.isEmpty() || !lamps.last().topic.isEmpty()) return true;
  line_ = begun_;
  return wrong(u"%1 has no topic"_s.arg(lamps.last().name()));
}

int percentOf(const TableLamp& lamp, double number) {
  if (number <= 0) return 0;
  return std::clamp(static_cast<int>(std::lround(100 * std::min(number / lamp.full, 1.0))), 1, 100);
}

std::optional<int> levelOfText(const TableLamp& lamp, const QByteArray& payload) {
  if (payload == lamp.on) return 100;
  if (payload == lamp.off) return 0;
  bool isNumber = false;
  const double number = payload.toDouble(&isNumber);
  return isNumber && std::isfinite(number) ? std::optional(percentOf(lamp, number)) : std::nullopt;
}

}  // namespace

std::optional<QList<TableLamp>> readLightTable(const QByteArray& bytes, QString* error) {
  if (bytes.size() > kLongestTable) {
    *error = u"it has more than %1 bytes"_s.arg(kLongestTable);
    return std::nullopt;
  }
  TableReader reader;
  int number = 0;
  for (const QByteArray& line : bytes.split('\n')) {
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = utf8(line);
    ++number;
    if (utf8.hasError())
      reader.error = u"line %1: it is no UTF-8"_s.arg(number);
    else if (reader.line(text, number))
      continue;
    *error = reader.error;
    return std::nullopt;
  }
  if (reader.end() && !reader.lamps.isEmpty()) return reader.lamps;
  *error = reader.lamps.isEmpty() ? u"it names no lamp"_s : reader.error;
  return std::nullopt;
}

QByteArray payloadOf(const TableLamp& lamp, int percent) {
  if (percent <= 0) return lamp.off;
  if (!lamp.dims) return lamp.on;
  const int number = std::max(1, (percent * lamp.full + 50) / 100);
  return QByteArray(lamp.level).replace('%', QByteArray::number(number));
}

std::optional<int> levelTold(const TableLamp& lamp, const QByteArray& payload) {
  if (payload.size() > kLongestPayload) return std::nullopt;
  const QByteArray text = payload.trimmed();
  if (!text.startsWith('{') || text == lamp.on || text == lamp.off) return levelOfText(lamp, text);
  const QJsonObject object = QJsonDocument::fromJson(text).object();
  const QJsonValue state = object["state"_L1], brightness = object["brightness"_L1];
  const std::optional<int> reported =
      state.isString() ? levelOfText(lamp, state.toString().toUtf8()) : std::nullopt;
  if (reported == 0 || !brightness.isDouble()) return reported;
  return percentOf(lamp, brightness.toDouble());
}

}  // namespace korvane
