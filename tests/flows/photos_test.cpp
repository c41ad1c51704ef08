#include <QDir>

#include "tests/flows/cabin.h"

namespace korvane {
namespace {

using enum TransportButton;

class Photos : public CabinTest {
 protected:
  // Two folders of pictures, of which "Alps" has 01.jpg to 05.jpg, and a picture beside them; the
  // page is open. A picture is known by its colour, which is its number.
  void open(const QByteArray& photos = {}, const QByteArray& startup = {}) {
    for (int i = 1; i <= 5; ++i) give(u"Alps/0%1.jpg"_s.arg(i), i);
    give(u"Lake/07.jpg"_s, 7);
    home.put(u"Photos/Lake/notes.txt"_s, "x");
    home.put(u"Photos/Lake/THUMBS/07.JPG"_s, "x");
    home.folder(u"Photos/Lake/Empty"_s);
    give(u"root.jpg"_s, 8);
    home.put(u"Photos/Thumbs.DB"_s, "x");
    home.folder(u"Photos/thumbs"_s);
    setting(startup + "[Photos]\nPDirectory=" + home.path().toUtf8() + "/Photos/\n" + photos);
    start();
    press(u"imgTabs"_s, kPhotosTab);
  }
  // A picture of 400 x 300 pixels, or on its side; the file's number is its colour.
  void give(const QString& name, int number, bool upright = false) {
    FakeImaging::File& file = system().imaging.files[home.put(u"Photos/"_s + name, "x")];
    if (upright) std::swap(file.width, file.height);
    file.colour = 0xff000000U + static_cast<quint32>(number);
  }
  void remove(const QString& folder) { QDir(home / folder).removeRecursively(); }

  Grid& list() { return dynamic_cast<Grid&>(control(u"PhotoList"_s)); }
  QStringList names() { return column(list(), 2); }
  void touch(int row) {
    EXPECT_TRUE(form().fire(list(), {Event::Click, 2, row}));
    system().pump.settle();
  }
  void touch(const QString& cell) { touch(static_cast<int>(names().indexOf(cell)) + 1); }
  void openAlps() { touch(u"Alps (5)"_s); }
  PictureArea& area() { return dynamic_cast<PictureArea&>(control(u"picTransition"_s)); }
  Timer& timer() { return dynamic_cast<Timer&>(control(u"pictimer"_s)); }
  static int number(const Picture& of) {
    return of.pixels ? of.pixels->bits[0] : 0;  // the lowest byte of its first pixel
  }
  int seen() { return number(area().picture()); }
  int beside() { return number(area().beside()); }
  void tick() { fire(u"pictimer"_s, Event::Tick); }
  void adsOn() {
    console().desk.state.gAddsOn = true;
    console().desk.addTimer.apply();
  }
  bool idleCounts() { return control(u"AddTimer"_s).enabled(); }
  void transport(TransportButton button) { press(u"cmdControls"_s, static_cast<int>(button)); }
  QString lit() {  // the one of play, pause and stop that is
    for (int i : {1, 2, 3})
      if (const QString name = picture(u"cmdControls"_s, i); name.endsWith(u'b')) return name;
    return {};
  }
  // Presses and ticks, a letter each, and what is seen behind each of them.
  QString run(const QString& presses) {
    QString shown;
    for (const QChar each : presses) {
      if (each == u't')
        tick();
      else
        transport(each == u'n' ? Next : Previous);
      shown += QString::number(seen());
      if (beside() > 0) shown += u'+' + QString::number(beside());
      shown += u' ';
    }
    return shown.trimmed();
  }
};

TEST_F(Photos, TheAlbumIsWalkedDownAndUp) {
  open("PhotoSort=NAME\n");
  const QString root = home / u"Photos"_s;
  const QStringList folders{root, u"Alps (5)"_s, u"Lake (2)"_s};
  EXPECT_EQ(names(), folders) << "files of the root come when somebody comes back to it";
  EXPECT_EQ(list().rows().picture(1, 1), Picture());
  EXPECT_EQ(list().rows().picture(1, 2)->name, u"folderclosed"_s);
  EXPECT_EQ(list().cell(3, 3), root + u"/Lake"_s);
  EXPECT_TRUE(list().columns()[2].hidden);
  touch(1);
  EXPECT_EQ(names(), folders) << "nothing lies above the root";

  list().topRow = 2;
  touch(3);
  EXPECT_EQ(names(), (QStringList{root + u"/Lake"_s, u"Empty (0)"_s, u"07.jpg"_s, u"notes.txt"_s}));
  EXPECT_EQ(list().rows().picture(1, 1)->name, u"UpDirectory"_s);
  EXPECT_EQ(list().rows().picture(1, 3), Picture());
  touch(2);
  EXPECT_EQ(names(), QStringList{root + u"/Lake/Empty"_s});
  adsOn();
  touch(1);
  EXPECT_EQ(names().first(), root + u"/Lake"_s);
  EXPECT_TRUE(idleCounts());
  touch(1);
  EXPECT_EQ(names(), folders + QStringList{u"root.jpg"_s});
  EXPECT_EQ(list().row(), 2) << "the row that stood at the top";
  for (const bool byTouch : {false, true}) {
    console().desk.settings.write(key::IdleByTouch, byTouch ? u"YES"_s : u"NO"_s);
    touch(3);
    EXPECT_TRUE(idleCounts());
    touch(1);
    EXPECT_EQ(idleCounts(), byTouch) << "at the root it rests, and with the key goes on";
    press(u"imgTabs"_s, kMusicTab);
    EXPECT_TRUE(idleCounts()) << "not longer than the tab is open";
    press(u"imgTabs"_s, kPhotosTab);
  }

  console().desk.state.moveControlsMode = true;
  touch(2);
  EXPECT_EQ(names().size(), 4) << "a list that is being moved stays as it is";
}

TEST_F(Photos, AListHasEightHundredRowsOrAsManyAsItsOwnerSays) {
  for (int i = 0; i < 900; ++i) home.put(u"Photos/Many/%1.txt"_s.arg(i), "");
  open();
  touch(u"Many (900)"_s);
  EXPECT_EQ(list().maxRows(), 800);
  console().desk.settings.write(key::PhotoRows, u"2000"_s);
  press(u"imgTabs"_s, kPhotosTab);
  EXPECT_EQ(list().maxRows(), 901);
}

TEST_F(Photos, FilesStandByNameOrByTheDayTheyWereTaken) {
  open("PhotoSort=DATE\n");
  const QDateTime day(QDate(2020, 1, 1), QTime(12, 0));
  for (int i = 1; i <= 5; ++i)
    system().imaging.files[home / u"Photos/Alps/0%1.jpg"_s.arg(i)].taken = day.addDays(i * 7 % 5);
  openAlps();
  EXPECT_EQ(names().sliced(1),
            (QStringList{u"05.jpg"_s, u"03.jpg"_s, u"01.jpg"_s, u"04.jpg"_s, u"02.jpg"_s}));
  touch(4);
  tick();
  EXPECT_EQ(seen(), 4) << "the fourth of the show too";
  console().desk.settings.write(key::PhotoSort, u"NAME"_s);
  transport(Stop);
  press(u"imgTabs"_s, kPhotosTab);
  EXPECT_EQ(names()[1], u"01.jpg"_s);
}

TEST_F(Photos, ADiskThatDoesNotAnswerLeavesThePageAlive) {
  open();
  system().pump.holdBackground = true;
  touch(2);
  EXPECT_EQ(list().columns()[1].title, u"Looking for photos..."_s);
  fire(u"PhotoListTimer"_s, Event::Tick);
  EXPECT_EQ(list().columns()[1].title, u"This folder does not answer"_s);
  touch(1);  // away from it
  system().pump.runBackground();
  system().pump.settle();
  EXPECT_TRUE(names().contains(u"root.jpg"_s)) << "what the first look has brought came too late";
  EXPECT_FALSE(control(u"PhotoListTimer"_s).enabled());

  system().pump.holdBackground = true;
  touch(u"root.jpg"_s);
  EXPECT_FALSE(shown(u"picTransition"_s));
}

TEST_F(Photos, WhatIsGoneIsSaidInTheList) {
  open("PhotoSort=NAME\n");
  for (const char* gone : {"Photos/Alps", "Photos"}) {
    remove(QString::fromLatin1(gone));
    if (list().maxRows() > 1) touch(2);
  }
  EXPECT_EQ(names(), QStringList{home / u"Photos/Alps"_s});
  EXPECT_EQ(list().columns()[1].title, u"This folder is not there any more"_s);
  home.put(u"Photos"_s, "a file has its name");
  answer(u"Photos directory has not be set up or is INVALID"_s);
  answer(u"Could not create photo directory "_s);
  touch(1);
  EXPECT_TRUE(host->allDone());
  EXPECT_EQ(list().maxRows(), 0);
}

TEST_F(Photos, AShowBeginsARowTooFarAndAnIntervalLate) {
  const struct {
    int row;
    QString seen;
  } table[] = {{2, u"2 3 4 5 1 2"_s}, {5, u"5 1 2 3 4 5"_s}, {6, u"1 2 3 4 5 1"_s}};
  open("PhotoSort=NAME\n");
  openAlps();
  adsOn();
  for (const auto& [row, shows] : table) {
    EXPECT_TRUE(idleCounts());
    touch(row);
    EXPECT_TRUE(shown(u"picTransition"_s) && timer().enabled());
    for (const char* name : {"PhotoList", "VscrollAllSongs", "cmdPhotoSetup"})
      EXPECT_FALSE(shown(QString::fromLatin1(name))) << name;
    EXPECT_FALSE(shown(u"cmdOneSong"_s, 0) || shown(u"cmdOneSong"_s, 1));
    EXPECT_FALSE(idleCounts());
    EXPECT_EQ(lit(), u"playb"_s);
    EXPECT_EQ(seen(), 0);
    EXPECT_EQ(run(u"tttttt"_s), shows) << row;
    transport(Stop);
    EXPECT_FALSE(shown(u"picTransition"_s) || timer().enabled());
    EXPECT_TRUE(shown(u"PhotoList"_s) && shown(u"VscrollAllSongs"_s) && shown(u"cmdOneSong"_s, 0));
    EXPECT_TRUE(idleCounts());
    EXPECT_EQ(lit(), u"stopb"_s);
  }
  touch(1);
  touch(u"Lake (2)"_s);
  touch(u"Empty (0)"_s);
  home.put(u"Photos/Lake/Empty/a.txt"_s, "x");
  press(u"imgTabs"_s, kPhotosTab);
  touch(u"a.txt"_s);
  EXPECT_FALSE(shown(u"picTransition"_s) || idleCounts()) << "no picture, no show";
}

TEST_F(Photos, StepsGoFromThePositionOrFromWhatIsSeen) {
  const struct {
    QByteArray keys;
    QString presses, seen;
  } table[] = {
      {"", u"tntptppppp"_s, u"2 4 4 4 4 4 3 2 1 5"_s},
      {"StartAtTouched=YES\n", u"ntpppt"_s, u"2 3 2 1 5 1"_s},
      {"StartAtTouched=YES\nShowFade=400\n", u"ntpppt"_s, u"2 3 2 1 5 1"_s},
  };
  for (const auto& [keys, presses, seen] : table) {
    open("PhotoSort=NAME\n" + keys);
    openAlps();
    touch(2);
    EXPECT_EQ(this->seen(), keys.isEmpty() ? 0 : 1) << "the touched one, at once";
    EXPECT_EQ(run(presses), seen) << keys.toStdString();
    EXPECT_TRUE(timer().enabled());
    transport(Pause);
    EXPECT_FALSE(timer().enabled());
    EXPECT_EQ(lit(), u"pauseb"_s);
    transport(Play);
    EXPECT_TRUE(timer().enabled());
  }
}

TEST_F(Photos, PortraitsStandBesideEachOtherAndTheNextOneIsReady) {
  open("PhotoSort=NAME\nStartAtTouched=YES\nShowFade=400\n");
  for (const int upright : {2, 3, 5}) give(u"Alps/0%1.jpg"_s.arg(upright), upright, true);
  form().scale = 2;
  openAlps();
  touch(2);
  EXPECT_EQ(area().fade(), 400);
  EXPECT_EQ(system().imaging.readings.back().width, 2 * area().rect().width);
  EXPECT_EQ(run(u"ttttppnp"_s), u"2+3 4 5 1 5 4 5 4"_s);
  EXPECT_EQ(run(u"pt"_s), u"2+3 4"_s);
  system().pump.holdBackground = true;
  tick();
  EXPECT_EQ(seen(), 5) << "decoded ahead";
  EXPECT_TRUE(timer().enabled());
  tick();
  EXPECT_FALSE(timer().enabled()) << "it rests while a picture is awaited";
  EXPECT_EQ(seen(), 5);
  system().pump.runBackground();
  system().pump.settle();
  EXPECT_EQ(seen(), 1);
  EXPECT_TRUE(timer().enabled());
}

TEST_F(Photos, APictureThatCannotBeReadLeavesTheOneBefore) {
  open("PhotoSort=NAME\nStartAtTouched=YES\n");
  const QString broken = home / u"Photos/Alps/02.jpg"_s;
  system().imaging.files[broken].error = u"it is cut off"_s;
  openAlps();
  touch(2);
  EXPECT_EQ(run(u"tt"_s), u"1 3"_s);
  EXPECT_TRUE(home.get(u"log.txt"_s)
                  .contains("Error loading Imagefile '" + broken.toUtf8() + "'\nit is cut off"));
  remove(u"Photos/Alps"_s);
  for (auto& [path, file] : system().imaging.files) file.error = u"it is gone"_s;
  EXPECT_EQ(run(u"tttt"_s), u"3 3 3 3"_s);
  EXPECT_TRUE(timer().enabled());
}

TEST_F(Photos, TheDelayIsKeptInSeconds) {
  open();
  auto& delay = dynamic_cast<Slider&>(control(u"scrollDelay"_s));
  EXPECT_EQ(delay.value(), delay.minimum());
  EXPECT_EQ(timer().interval(), 1000);
  EXPECT_TRUE(timer().enabled());
  tick();
  EXPECT_TRUE(timer().enabled() && !shown(u"picTransition"_s));
  const struct {
    double value;
    int interval;
    QString caption;
  } table[] = {{7, 7000, u"Interval = 7 seconds"_s},
               {3.5678, 3567, u"Interval = 4 seconds"_s},
               {60, 60000, u"Interval = 60 seconds"_s}};
  for (const auto& [value, interval, caption] : table) {
    delay.moveTo(value);
    EXPECT_EQ(timer().interval(), interval);
    EXPECT_EQ(delay.text(), caption);
  }
  press(u"imgTabs"_s, kMusicTab);
  EXPECT_TRUE(home.get(u"Morvanta.INI"_s).contains("Delay=60"));
  EXPECT_FALSE(timer().enabled() || shown(u"scrollDelay"_s) || shown(u"lblDelay"_s));
}

TEST_F(Photos, AShowGoesOnOverTheWholeScreenAndBack) {
  open("PhotoSort=NAME\nDelay=5\n");
  openAlps();
  touch(2);
  tick();
  for (const bool button : {true, false}) {
    host->onModal(u"frmViewFullScreen"_s, [this](Form& large) {
      auto& picture = dynamic_cast<PictureArea&>(*large.find(u"picTransition"));
      auto& tools = *large.find(u"tools");
      const auto now = [&] {
        system().pump.settle();
        return number(picture.picture());
      };
      const auto does = [&](const char* name, int index = -1) {
        korvane::press(large, QString::fromLatin1(name), index);
        return now();
      };
      auto& ticks = dynamic_cast<Timer&>(*large.find(u"pictimer"));
      const int first = seen();
      EXPECT_EQ(number(picture.picture()), first);
      EXPECT_FALSE(timer().enabled() || tools.visible());
      EXPECT_EQ(ticks.interval(), 5000);
      EXPECT_TRUE(ticks.enabled());
      EXPECT_FALSE(system().screenPower.screenSaverActive);
      EXPECT_EQ(system().imaging.readings.back().width, large.width());

      large.fire(picture, {Event::Click, 0, 0, 0, {}, 900, 700});
      EXPECT_TRUE(tools.visible());
      EXPECT_EQ(tools.rect().right(), large.width());
      EXPECT_EQ(tools.rect().top, 700);
      large.fire(ticks, {Event::Tick});
      EXPECT_EQ(now(), first + 1);
      EXPECT_EQ(does("cmdTools", 1), first + 1) << "the position stands behind what is seen";
      EXPECT_EQ(does("cmdTools", 0), first + 2);
      large.fire(picture, {Event::Swipe, -1});
      EXPECT_EQ(now(), first + 1);
      large.fire(picture, {Event::Swipe, 1});
      EXPECT_EQ(now(), first + 2);
      does("cmdTools", 2);
      EXPECT_FALSE(ticks.enabled());
      does("cmdTools", 3);
      EXPECT_TRUE(ticks.enabled());

      does("cmdTools", 6);
      EXPECT_EQ(large.find(u"cmdTools", 6)->caption(), u"Controls on"_s);
      EXPECT_TRUE(textOf(large, u"lblPosition"_s).contains(u"%1 of 5"_s.arg(first + 2)));
      does("cmdTools", 5);
      EXPECT_FALSE(tools.visible());
      large.fire(picture, {Event::Click, 0, 0, 0, {}, 10, 700});
      EXPECT_LE(tools.rect().bottom(), large.height()) << "tools that stay do so in view";
      does("mnuPauses");
      EXPECT_FALSE(ticks.enabled());
      does("mnuPlay");
      EXPECT_TRUE(ticks.enabled());
      does("cmdTools", 6);
      EXPECT_EQ(large.find(u"cmdTools", 6)->caption(), u"Controls off"_s);
      pressKey(large, 27);
      EXPECT_FALSE(large.shown());
    });
    const int before = seen();
    button ? press(u"cmdMovieFullScreen"_s) : fire(u"picTransition"_s, Event::DblClick);
    EXPECT_TRUE(host->allDone());
    EXPECT_EQ(seen(), before + 2) << "what the large one has shown last";
    EXPECT_TRUE(shown(u"picTransition"_s) && timer().enabled() && !shown(u"PhotoList"_s));
    EXPECT_EQ(lit(), u"playb"_s);
    transport(Stop);
    touch(2);
    tick();
  }
  transport(Stop);
  press(u"cmdMovieFullScreen"_s);  // no show, and no movie
  EXPECT_EQ(host->opened.count(u"frmViewFullScreen"_s), 2);
}

TEST_F(Photos, MusicPlaysOnUnderAShow) {
  givenDays();
  open("PhotoSort=NAME\nStartAtTouched=YES\n", "LOCALLISTENER=1\nFollowSound=YES\nShowMute=1\n");
  openAlbum(1, 1);
  playRow(1, 1);
  press(u"imgTabs"_s, kPhotosTab);
  EXPECT_EQ(lit(), u"playb"_s) << "of what is heard";
  openAlps();
  touch(2);
  transport(Pause);
  EXPECT_EQ(player.playState(), MediaPlayer::Playing);
  songEnds();
  EXPECT_EQ(playing(), u"002-Noon"_s);
  EXPECT_TRUE(shown(u"picTransition"_s));
  EXPECT_EQ(lit(), u"pauseb"_s) << "of the show";
  press(u"mute"_s);
  EXPECT_TRUE(player.calls.contains(u"mute"_s));
  transport(Next);
  EXPECT_EQ(seen(), 2);
  EXPECT_EQ(playing(), u"002-Noon"_s);
  transport(Stop);
  EXPECT_EQ(player.playState(), MediaPlayer::Playing);
  EXPECT_EQ(lit(), u"playb"_s);
  transport(Pause);
  EXPECT_EQ(player.playState(), MediaPlayer::Paused) << "without a show what is heard is meant";

  touch(2);
  press(u"imgTabs"_s, kMusicTab);
  EXPECT_EQ(lit(), u"pauseb"_s);
  transport(Play);
  EXPECT_EQ(player.playState(), MediaPlayer::Playing);
  press(u"imgTabs"_s, kPhotosTab);
  EXPECT_TRUE(shown(u"PhotoList"_s) && !shown(u"picTransition"_s)) << "who leaves ends the show";
}

TEST_F(Photos, TheProgramMayEndWhilePicturesAndFoldersAreAwaited) {
  open("PhotoSort=NAME\nStartAtTouched=YES\nShowFade=400\n");
  openAlps();
  touch(2);
  system().pump.holdBackground = true;
  tick();
  console().photos.album.refresh();
  EXPECT_EQ(seen(), 2);
  console().desk.startup.closeit();
  EXPECT_FALSE(timer().enabled());
  start();
  system().pump.runBackground();
  system().pump.settle();
  press(u"imgTabs"_s, kPhotosTab);
  EXPECT_EQ(seen(), 0) << "of a console that is gone";

  host->onModal(u"frmViewPic"_s, [this](Form& pic) {
    system().pump.holdBackground = false;
    system().pump.runBackground();
    system().pump.holdBackground = true;
    system().pump.settle();
    EXPECT_TRUE(canPress(pic, u"cmdStop"_s)) << "thumbnails are being made";
    console().desk.startup.closeit();
    korvane::press(pic, u"imgExit"_s);
  });
  press(u"cmdPhotoSetup"_s);
  start();
  system().pump.runBackground();
  system().pump.settle();
  EXPECT_EQ(home.get(u"Photos/thumbs/root.JPG"_s), "JPEG 60x45 at 60") << "what was at work ends";
}

// The folder of a show is read by the sheet too, while setup has another root already.
TEST_F(Photos, TheSheetAndAnotherRootComeAmidAShow) {
  home.put(u"Other/Sea/s.jpg"_s, "x");
  open("PhotoSort=NAME\nStartAtTouched=YES\nShowFade=400\n");
  openAlps();
  touch(2);
  system().pump.holdBackground = true;
  tick();  // and the third one is being decoded
  host->onModal(u"frmViewPic"_s, [this](Form& pic) {
    system().pump.runBackground();
    system().pump.settle();
    console().desk.settings.write(key::PDirectory, home / u"Other"_s);
    system().pump.holdBackground = false;
    system().pump.runBackground();
    system().pump.settle();
    EXPECT_EQ(controlOf<Sheet>(pic, u"picSlide").cells().count(), 5);
    korvane::press(pic, u"imgExit"_s);
  });
  console().desk.words.find(u"PICTUREEDIT"_s)->act();
  EXPECT_EQ(QDir(home / u"Photos/Alps/thumbs"_s).entryList(QDir::Files).size(), 5);
  EXPECT_TRUE(shown(u"PhotoList"_s) && !shown(u"picTransition"_s));
  EXPECT_EQ(names().size(), 6) << "thumbnails are no pictures of the list";
  touch(2);
  EXPECT_EQ(run(u"tt"_s), u"2 3"_s) << "a show keeps what it has";

  system().pump.holdBackground = true;
  tick();
  host->onModal(u"frmSetup"_s, [this](Form& setup) {
    host->onModal(u"frmDirectorys"_s, [](Form& chooser) { korvane::press(chooser, u"cmdok"_s); });
    korvane::press(setup, u"cmdAddDir"_s, 0);
  });
  console().custom.setup.open();
  system().pump.holdBackground = false;
  system().pump.runBackground();
  system().pump.settle();
  EXPECT_FALSE(shown(u"picTransition"_s)) << "another directory is chosen, and the show is over";
  EXPECT_EQ(names(), (QStringList{home / u"Other"_s, u"Sea (1)"_s}));
}

TEST_F(Photos, TheSheetOpensOnTheDirectoryThatIsShown) {
  open("PhotoSort=NAME\n");
  openAlps();
  timer().enabled = true;
  host->onModal(u"frmViewPic"_s, [this](Form& pic) {
    EXPECT_EQ(textOf(pic, u"lblPhotoFolder"_s), u"Pictue folder = "_s + home / u"Photos/Alps"_s);
    EXPECT_FALSE(timer().enabled());
    system().pump.settle();
    EXPECT_EQ(controlOf<Sheet>(pic, u"picSlide").cells().count(), 5);
    korvane::press(pic, u"imgExit"_s);
  });
  press(u"cmdPhotoSetup"_s);
  console().desk.settings.write(key::PDirectory, u"NO"_s);
  answer(u"You must set up the photos directory before using this."_s);
  press(u"cmdPhotoSetup"_s);
}

}  // namespace
}  // namespace korvane
