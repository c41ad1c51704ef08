#include "listener/listener_record.h"

#include <QLocale>
#include <QTime>

#include "platform/windows1252.h"

namespace korvane {
namespace {

constexpr double kLongestSeconds = 1e9;
constexpr qsizetype kLongestNumber = 40;

QString withoutSeparators(QString text) {
  return text.replace(QLatin1Char(kFieldEnd), u' ').replace(QLatin1Char(kRecordEnd), u' ');
}

}  // namespace

WireText wireTextOf(QStringView setting) {
  return setting.compare("UTF-8"_L1, Qt::CaseInsensitive) == 0 ? WireText::Utf8
                                                               : WireText::Windows1252;
}

QByteArray encode(QStringView text, WireText encoding) {
  return encoding == WireText::Utf8 ? text.toUtf8() : toWindows1252(text);
}

QString decode(QByteArrayView bytes, WireText encoding) {
  return encoding == WireText::Utf8 ? QString::fromUtf8(bytes) : fromWindows1252(bytes);
}

std::optional<QString> ListenerRecord::text(int index) const {
  if (index >= count_) return std::nullopt;
  return decode(field(index).first(std::min(field(index).size(), kLongestText)), encoding_);
}

std::optional<double> ListenerRecord::number(int index) const {
  return index < count_ ? numberOf(field(index)) : std::nullopt;
}

std::optional<double> ListenerRecord::whole(int index) const {
  const std::optional<double> read = number(index);
  return read ? std::optional(std::nearbyint(*read)) : std::nullopt;
}

QString commandRecord(const QString& target, const QString& command, const QString& argument1,
                      const QString& argument2) {
  QString record = withoutSeparators(target);
  if (!command.isEmpty()) {
    record += QLatin1Char(kFieldEnd) + withoutSeparators(command);
    if (argument1.isEmpty()) record += QLatin1Char(kRecordEnd);
  }
  if (!argument1.isEmpty()) {
    record += QLatin1Char(kFieldEnd) + withoutSeparators(argument1);
    if (argument2.isEmpty()) record += QLatin1Char(kRecordEnd);
  }
  if (!argument2.isEmpty())
    record += QLatin1Char(kFieldEnd) + withoutSeparators(argument2) + QLatin1Char(kRecordEnd);
  return record;
}

QString blanksTrimmed(const QString& text) {
  qsizetype from = 0, to = text.size();
  while (from < to && text[from] == u' ') ++from;
  while (to > from && text[to - 1] == u' ') --to;
  return text.mid(from, to - from);
}

bool isAnswered(const QString& command) {
  return command == "STATUS"_L1 || command == "PLAY"_L1 || command == "STOP"_L1 ||
         command == "DURATION"_L1;
}

QString replyRecord(std::initializer_list<QString> fields) {
  QString record;
  for (const QString& field : fields) {
    if (!record.isEmpty()) record += QLatin1Char(kFieldEnd);
    record += withoutSeparators(field);
  }
  return record + QLatin1Char(kRecordEnd);
}

QString numberText(double number) {
  return QString::number(number, 'g', 15).replace(u'.', QLocale().decimalPoint());
}

std::optional<double> numberOf(QByteArrayView field) {
  field = field.trimmed();
  if (field.isEmpty() || field.size() > kLongestNumber) return std::nullopt;
  bool ok = false;
  const double number = field.toByteArray().replace(',', '.').toDouble(&ok);
  return ok && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

bool isTime(double seconds) {
  return seconds >= -1 && seconds < kLongestSeconds;
}

QString minutesAndSeconds(double seconds) {
  const auto whole = static_cast<qint64>(std::clamp(seconds, 0.0, kLongestSeconds));
  return u"%1:%2"_s.arg(whole / 60).arg(whole % 60, 2, 10, QChar(u'0'));
}

QString fileTimes(double position, double length) {
  return u"Current= "_s + minutesAndSeconds(position) + u" -- Remaining= "_s +
         minutesAndSeconds(length - position);
}

QString discTimes(int chapter, int chapters, int position, int length) {
  const auto clock = [](int seconds) {
    return QTime::fromMSecsSinceStartOfDay(1000 * std::clamp(seconds, 0, 86'399))
        .toString(u"hh:mm:ss"_s);
  };
  return u"Chapter %1 of %2  Time:%3 Total:%4"_s.arg(chapter).arg(chapters).arg(clock(position),
                                                                                clock(length));
}

}  // namespace korvane
