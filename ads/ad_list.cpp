#include "ads/ad_list.h"

#include <algorithm>

namespace korvane {
namespace {

bool isAd(QStringView name) {
  return name.last(std::min<qsizetype>(3, name.size())).compare(u"JPG", Qt::CaseInsensitive) == 0;
}

bool before(const Ad& a, const Ad& b) {
  const int order = a.aName.compare(b.aName, Qt::CaseInsensitive);
  return order != 0 ? order < 0 : a.aName < b.aName;
}

}  // namespace

bool Ad::due(const QDateTime& when) const {
  return hours.empty() ||
         std::ranges::any_of(hours, [&](const AdHours& each) { return each.contains(when); });
}

void AdList::open(std::vector<Ad> ads) {
  ads_ = std::move(ads);
  at_ = 0;
}

const Ad* AdList::take(const std::optional<QDateTime>& hour) {
  for (int passed = 0; passed < RecordCount(); ++passed) {
    if (EndOfFile()) MoveFirst();
    const Ad& ad = ads_[static_cast<size_t>(at_)];
    if (!hour || ad.due(*hour)) return &ad;
    MoveNext();
  }
  return nullptr;
}

bool AdList::anyDue(const std::optional<QDateTime>& hour) const {
  return std::ranges::any_of(ads_, [&](const Ad& ad) { return !hour || ad.due(*hour); });
}

AdsFound findAds(const FileSystem& files, const QString& directory, int standardSeconds) {
  AdsFound found;
  for (const QString& name : files.Files(directory)) {
    if (!isAd(name)) continue;
    Ad ad{name, FileSystem::BuildPath(directory, name), standardSeconds, {}};
    const QString timing = ad.aPath.chopped(3) + u"tim"_s;
    if (const auto bytes = files.read(timing, AdTiming::kMostBytes)) {
      AdTiming says = adTiming(*bytes, standardSeconds);
      ad.aTime = says.seconds;
      ad.hours = std::move(says.hours);
      if (!says.understood) found.complaints << timing + u" has a line that says no hours"_s;
    }
    found.ads.push_back(std::move(ad));
  }
  std::ranges::sort(found.ads, before);
  return found;
}

}  // namespace korvane
