#include "movies/movies_side.h"

#include <QStandardPaths>

namespace korvane {
namespace {

constexpr int kResumeMs = 8000;

QString stillsDirectory() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
         u"/korvane/stills"_s;
}

}  // namespace

MoviesSide::MoviesSide(Desk& d, ListenerSide& listener, PlaybackSide& playback)
    : settings_(d.settings),
      MovieList_(controlOf<Grid>(d.frmMain, u"MovieList")),
      presenter_(d.frmMain),
      marks_(d.system.files, d.log, d.settings.home()),
      posters_({d.system.files, d.system.pump, d.system.stills, stillsDirectory(),
                [this] { MovieList_.picturesCame(); }}),
      directories(d.settings),
      catalogue({d.state, d.settings, d.palette, d.messages, d.log, d.system.pump, d.system.files,
                 MovieList_, directories, *this}),
      dvd({d.frmMain, d.state, d.system.dvd, presenter_,
           [this, &d] { return d.players.shows(transport); }}),
      movies(d.system.video, controlOf<Surface>(d.frmMain, u"MoviePic")),
      transport({d.main, d.state, d.tabs, d.players, d.awake, listener.movies, catalogue, dvd,
                 listener.level, presenter_, d.addTimer}),
      local({d.frmMain, d.state, d.settings, listener.movies, movies, d.system.video, d.system.dvd,
             listener.level, presenter_, marks_, d.system.pump,
             [this, &d] { return d.players.shows(transport); }}),
      source({d.frmMain, d.state, d.settings, d.messages, listener.movies, catalogue, dvd}),
      full({d.frmMain, d.state, transport, listener.movies}),
      says(d.frmMain),
      controls(
          {d.frmMain, d.state, d.settings, d.players, transport, full, d.system.video, dvd, says}),
      tab({d.parts, transport, source, listener.movies, full}),
      setup({d.dialogs, d.chooser, directories, d.settings}) {
  d.players.add(transport);
  d.tabs.setTab(kMoviesTab, tab);
  connectPlaying(d, listener, playback);
  connectControls(d);
  connectSteps(d);
  addWords(d);
}

void MoviesSide::connectPlaying(Desk& desk, ListenerSide& listener, PlaybackSide& playback) {
  listener.movies.shows = [this, &desk] { return desk.players.shows(transport); };
  listener.movies.volumeTold = [this, &playback] { playback.volume.volumeTold(transport); };
  local.levelSet = [&listener] { listener.music.tellLevel(); };
  local.resumed = [this](double seconds) { offerTheStart(seconds); };
  local.moved = transport.moved = [this] { controls.update(); };
  movies.setFullScreen = [this](bool on) { full.set(on); };
  movies.isFullScreen = [this] { return full.on(); };
  transport.screenIsLarge = [this] { full.listenerIsLarge(); };
  transport.changed.push_back([this] {
    if (!transport.showsFile() && !transport.showsDisc()) {
      full.set(false);
      says.hide();
    }
    tab.showPage();
    controls.update();
  });
  full.changed = [this] { controls.fullScreenChanged(); };
  source.changed = [this] { tab.showPage(); };
  catalogue.rowsChanged = [this] {
    posters_.forgetWishes();
    tab.showPage();
  };
  marks_.changed = [this] { MovieList_.rowsChanged(); };
}

void MoviesSide::connectControls(Desk& desk) {
  desk.on(u"lblMovieType", Event::Click, [this](int i) { source.lblMovieType_Click(i); });
  desk.on(u"lblMoviesPlay", Event::Click, [this](int i) { source.lblMoviesPlay_Click(i); });
  desk.on(u"MovieList", Event::DblClick, [this, &desk](int) {
    if (desk.screen.busy()) return;
    const Busy busy(desk.screen, Screen::Custom);
    transport.playActive();
  });
  desk.on(u"MovieList", Event::Click, [this, &desk](int) { desk.paging.follow(MovieList_); });
  desk.on(u"lblCurrentPlay", Event::DblClick, [this, &desk](int) {
    if (desk.players.heard() == &transport) desk.openTab(kMoviesTab);
  });
  desk.on(u"cmdRemoteDVD", Event::Click, [this](int i) { tab.cmdRemoteDVD_Click(i); });
  desk.on(u"cmdMenuforDVD", Event::Click, [this](int) { dvd.cmdMenuforDVD_Click(); });
  desk.on(u"cmdMovieFullScreen", Event::Click, [this, &desk](int) {
    if (desk.tabs.open(kMoviesTab)) full.cmdMovieFullScreen_Click();
  });
  desk.on(u"MoviePic", Event::Click, [this](int) { controls.picture_Click(); });
  desk.on(u"MSWebDVD1", Event::Click, [this](int) { controls.picture_Click(); });
  desk.on(u"cmdMovie", Event::Click, [this](int i) { controls.cmdMovie_Click(i); });
  desk.on(u"movieTimer", Event::Tick, [this](int) { local.movieTimer_Timer(); });
  desk.frmMain.on(Event::DblClick, [this](Control&, const Event&) { movies.ResizeWindow(); });
  for (const char* name : {"lblMoviesPlay", "lblMovieType"})
    desk.guard(desk.frmMain, QString::fromLatin1(name), Event::Click);
  // A movie that begins ends the song of the jukebox.
  desk.guard(desk.frmMain, u"MovieList", Event::DblClick);
  desk.frmMain.around(
      u"cmdControls", Event::Click,
      [this, &desk](Control& control, const Event&, const std::function<void()>& go) {
        const bool begins = control.index == static_cast<int>(TransportButton::Play) &&
                            desk.players.meant() == &transport &&
                            transport.mode() != PlayMode::Playing;
        if (!begins || desk.admits()) go();
      });
}

void MoviesSide::connectSteps(Desk& desk) {
  desk.steps.at(Step::SetUpLists, [this] { catalogue.setUpList(); });
  desk.steps.at(Step::MovieRole, [this] {
    if (transport.mode() != PlayMode::Stopped) transport.press(TransportButton::Stop);
    controls.applyFit();
    source.settleRole();
  });
  desk.steps.at(Step::CloseMovieLink, [this] {
    posters_.stop();
    local.close();
  });
  desk.setupDoors.add({"cmdAddDir", 1, [this, &desk] {
                         setup.open();
                         if (desk.tabs.open(kMoviesTab)) source.fillList();
                       }});
}

void MoviesSide::addWords(Desk& desk) {
  desk.addTabWord(kMoviesTab, u"MOVIES"_s, u"btnmovies"_s, u"open the Movies tab"_s);
}

void MoviesSide::offerTheStart(double seconds) {
  says.offer(
      u"Goes on at "_s + minutesAndSeconds(seconds), u"From the start"_s,
      [this] { transport.moveTo(0); }, kResumeMs);
}

std::optional<Picture> MoviesSide::poster(const MovieRow& row) const {
  return posters_.poster(row);
}

QString MoviesSide::length(const MovieRow& row) const {
  const double seconds = posters_.seconds(row.path);
  return seconds > 0 ? minutesAndSeconds(seconds) : QString();
}

QString MoviesSide::seen(const MovieRow& row) const {
  return marks_.seen(row.path);
}

}  // namespace korvane
