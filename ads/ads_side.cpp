#include "ads/ads_side.h"

namespace korvane {

AdsSide::AdsSide(Desk& d)
    : desk_(d),
      directory_(d.settings.home() + u"/ADDS"_s),
      ads_(d.settings, d.system.clock),
      log_(d.system.files, d.system.clock, d.settings.home()),
      viewAdds({d.dialogs, ads_, d.settings, d.screen, d.frmMain,
                PictureLoader::Uses{d.system.imaging, d.system.pump, d.log}, log_,
                [this] { return plays(); }}),
      adds({d.dialogs, d.state, ads_, d.settings, d.system.files, directory_,
            [this] { setupAds(); }}),
      idle({d.frmMain, d.state, ads_, d.settings, d.system.clock, d.host, d.screen, d.addTimer,
            viewAdds, [this] { return plays(); }}) {
  ads_.addsStart = d.settings.number(key::ADDSTART);
  ads_.addsBetween = d.settings.number(key::ADDSBETWEEN);
  d.on(u"AddTimer", Event::Tick, [this](int) { idle.AddTimer_Timer(); });
  d.on(u"addsResetTimer", Event::Tick, [this](int) { idle.addsResetTimer_Timer(); });
  d.on(u"BlackTimer", Event::Tick, [this](int) { idle.BlackTimer_Timer(); });
  d.host.touches.changed = [this] { return idle.touched(); };
  // What is more important takes the screen: a message, a use that begins, the end.
  d.host.modalComes = [this](Form& form) {
    if (&form != &viewAdds.form()) viewAdds.leave();
  };
  d.addTimer.begun = [this] { viewAdds.leave(); };
  d.steps.at(Step::ReleasePhotos, [this] { viewAdds.leave(); });
  d.steps.at(Step::MainPage, [this] { idle.start(); });
  d.steps.at(Step::Ads, [this] { setupAds(); });
  d.setupDoors.add({"cmdAddDir", 5, [this] { adds.open(); }});
}

// Between two songs nothing is heard, and the state says that music plays. A show counts while it
// is paused too.
bool AdsSide::plays() const {
  const Player* heard = desk_.players.heard();
  const Player* shown = desk_.tabs.openTab().player();
  return desk_.state.gMusicState == MusicState::Play ||
         (heard && heard->mode() == PlayMode::Playing) ||
         (shown && shown->silent() && shown->mode() != PlayMode::Stopped);
}

void AdsSide::setupAds() {
  ads_.loading = true;
  const int round = ++*round_;
  const auto found = std::make_shared<AdsFound>();
  desk_.system.pump.aside(
      [found, &files = desk_.system.files, directory = directory_, standard = ads_.addsBetween] {
        *found = findAds(files, directory, standard);
      },
      [this, found, round, last = std::weak_ptr<int>(round_)] {
        const auto now = last.lock();
        if (now && *now == round) take(std::move(*found));
      });
}

void AdsSide::take(AdsFound found) {
  if (desk_.settings.flag(key::AdHours))
    for (const QString& complaint : found.complaints) desk_.log.logIt(complaint);
  ads_.loading = false;
  ads_.adsList.open(std::move(found.ads));
  if (desk_.state.gAddsOn && ads_.adsList.RecordCount() == 0) {
    desk_.state.gAddsOn = false;
    desk_.log.logIt(u"No ads are in "_s + directory_ + u": they are off"_s);
  }
  desk_.addTimer.apply();
}

}  // namespace korvane
