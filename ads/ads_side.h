// Ads: the pictures that cover the console when it stands idle, and their maintenance.
#pragma once

#include "ads/idle_watch.h"
#include "ads/screens/adds_form.h"
#include "core/desk.h"

namespace korvane {

class AdsSide {
 public:
  explicit AdsSide(Desk& desk);

 private:
  Desk& desk_;
  const QString directory_;
  AdsState ads_;
  AdLog log_;
  const std::shared_ptr<int> round_ = std::make_shared<int>(0);  // of setupAds; the last one counts

 public:
  ViewAddsForm viewAdds;
  AddsForm adds;
  IdleWatch idle;

 private:
  // Loads adsList, off the event loop. Without an ad the ads are off in this run, and the setting
  // stays.
  void setupAds();
  void take(AdsFound found);
  bool plays() const;
};

}  // namespace korvane
