#include "ads/ad_hours.h"

#include <array>

namespace korvane {
namespace {

constexpr int kDays = 7, kDay = 24 * 60;
constexpr unsigned kAllDays = (1U << kDays) - 1;

std::optional<int> dayOf(QStringView name) {
  constexpr std::array<QLatin1StringView, kDays> names = {
      QLatin1StringView("Mon"), QLatin1StringView("Tue"), QLatin1StringView("Wed"),
      QLatin1StringView("Thu"), QLatin1StringView("Fri"), QLatin1StringView("Sat"),
      QLatin1StringView("Sun")};
  for (int day = 0; day < kDays; ++day)
    if (name.compare(names[static_cast<size_t>(day)], Qt::CaseInsensitive) == 0) return day;
  return {};
}

// A part of the list of days, one or a range.
std::optional<unsigned> daysOf(QStringView part) {
  const qsizetype dash = part.indexOf(u'-');
  const auto first = dayOf(dash < 0 ? part : part.first(dash));
  const auto last = dash < 0 ? first : dayOf(part.sliced(dash + 1));
  if (!first || !last) return {};
  unsigned days = 0;
  for (int day = *first;; day = (day + 1) % kDays) {
    days |= 1U << day;
    if (day == *last) return days;
  }
}

std::optional<unsigned> listOfDays(QStringView text) {
  unsigned days = 0;
  for (const QStringView part : text.split(u',')) {
    const auto more = daysOf(part);
    if (!more) return {};
    days |= *more;
  }
  return days;
}

// HH:MM, or H:MM, in minutes.
std::optional<int> timeOf(QStringView text) {
  const qsizetype colon = text.indexOf(u':');
  if (colon < 1 || colon > 2 || text.size() != colon + 3) return {};
  int number[2] = {};
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (i == colon) continue;
    const int digit = text[i].unicode() - u'0';
    if (digit < 0 || digit > 9) return {};
    int& part = number[i > colon];
    part = part * 10 + digit;
  }
  const int minutes = number[0] * 60 + number[1];
  if (number[1] > 59 || minutes > kDay) return {};
  return minutes;
}

bool readTimes(QStringView text, AdHours& into) {
  const qsizetype dash = text.indexOf(u'-');
  if (dash < 0) return false;
  const auto from = timeOf(text.first(dash)), to = timeOf(text.sliced(dash + 1));
  if (!from || !to || *from == *to || *from == kDay) return false;
  into.from = *from;
  into.to = *to;
  return true;
}

}  // namespace

bool AdHours::contains(const QDateTime& when) const {
  const int minute = when.time().hour() * 60 + when.time().minute();
  const int today = when.date().dayOfWeek() - 1, yesterday = (today + kDays - 1) % kDays;
  const auto begins = [this](int day) { return (days >> day & 1U) != 0; };
  if (from < to) return begins(today) && minute >= from && minute < to;
  return (begins(today) && minute >= from) || (begins(yesterday) && minute < to);
}

std::optional<AdHours> adHours(QStringView line) {
  const QString text = line.toString().simplified();
  AdHours hours{kAllDays, 0, kDay};
  const qsizetype blank = text.indexOf(u' ');
  const QStringView first = blank < 0 ? QStringView(text) : QStringView(text).first(blank);
  const bool timesAlone = first.contains(u':');
  if (!timesAlone) {
    const auto days = listOfDays(first);
    if (!days) return {};
    hours.days = *days;
    if (blank < 0) return hours;
  } else if (blank >= 0) {
    return {};
  }
  if (!readTimes(timesAlone ? first : QStringView(text).sliced(blank + 1), hours)) return {};
  return hours;
}

}  // namespace korvane
