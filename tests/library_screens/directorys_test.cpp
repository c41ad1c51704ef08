#include "tests/library_screens/import_world.h"

namespace korvane {
namespace {

struct Directorys : ImportWorld {
  std::optional<QString> opens(const DirectoryRequest& request, FakeFormHost::Script script) {
    host.onModal(u"frmDirectorys"_s, std::move(script));
    return directorys.open(request);
  }
  DirectoryRequest at(const QString& mode) const {
    DirectoryRequest request;
    request.mode = mode;
    request.path = music();
    return request;
  }
};

TEST_F(Directorys, GoesOneFolderAtATime) {
  opens(at(u"DIR"_s), [&](Form& form) {
    EXPECT_EQ(rows(form, u"Dir1"_s), QStringList({u".."_s, u"Abba"_s, u"zz top"_s}));
    EXPECT_EQ(textOf(form, u"lblfiles"_s), u"Files found = 0"_s);
    tap(form, u"Dir1"_s, u"Abba"_s);
    tap(form, u"Dir1"_s, u"Gold"_s);
    EXPECT_EQ(rows(form, u"File1"_s), QStringList({u"01-Waterloo.mp3"_s, u"b.WMA"_s}));
    EXPECT_EQ(textOf(form, u"lblfiles"_s), u"Files found = 2"_s);
    EXPECT_EQ(textOf(form, u"lblPath"_s), music(u"/Abba/Gold"_s));
    tap(form, u"Dir1"_s, u".."_s);
    EXPECT_EQ(rows(form, u"Dir1"_s), QStringList({u".."_s, u"Gold"_s}));
    auto* drives = dynamic_cast<Grid*>(form.find(u"Drive1"));
    ASSERT_GT(drives->maxRows(), 0);
    const QString drive = drives->cell(1, 1);
    tap(form, u"Drive1"_s, drive);
    EXPECT_EQ(textOf(form, u"lblPath"_s), drive);
  });
}

TEST_F(Directorys, ScansByItsMode) {
  EXPECT_FALSE(opens(at(u"DIR"_s), [&](Form& form) {
    messages.typed = {u"M"_s};
    press(form, u"txtListenerDrive"_s);
    press(form, u"cmdok"_s);
    EXPECT_EQ(textOf(form, u"txtStatus"_s), u"Finished, 1 could not be read (see log.txt)"_s);
    EXPECT_EQ(textOf(form, u"lblRate"_s), u"10 songs, 8 new, 20 songs a second"_s);
    EXPECT_TRUE(form.shown());
  }));
  EXPECT_FALSE(opens(at(u"MP3"_s), [&](Form& form) {
    EXPECT_FALSE(canPress(form, u"txtListenerDrive"_s));
    press(form, u"cmdok"_s);
  }));
  EXPECT_EQ(import.calls,
            QStringList({u"dofiles "_s + music() + u"|M"_s, u"scanTagged "_s + music()}));
  EXPECT_EQ(messages.texts, QStringList{u"Listener Drive Letter"_s});
  EXPECT_EQ(news.heard, QStringList({u"songs"_s, u"songs"_s}));
  EXPECT_EQ(settings.raw(key::MusicRoot), music());  // where the next scan begins
}

TEST_F(Directorys, AScanShowsItsProgressAndCanBeStopped) {
  opens(at(u"MP3"_s), [&](Form& form) {
    import.during = [&] { EXPECT_EQ(textOf(form, u"txtStatus"_s), u"Title; Artist; Album"_s);
    EXPECT_EQ(textOf(form, u"lblRate"_s), u"5 songs, 3 new, 2500 songs a second"_s);
    EXPECT_TRUE(screen.busy());
    EXPECT_FALSE(canPress(form, u"cmdok"_s));
    EXPECT_EQ(textOf(form, u"cmdCancel"_s), u"Stop"_s);
    tap(form, u"Dir1"_s, u"Abba"_s);  // the place stays while it is scanned
    EXPECT_EQ(textOf(form, u"lblPath"_s), music());
    press(form, u"cmdCancel"_s);
    };
    press(form, u"cmdok"_s);
    EXPECT_TRUE(import.stopped);
    EXPECT_TRUE(form.shown());  // what was found until then is told
    EXPECT_TRUE(textOf(form, u"txtStatus"_s).startsWith("Stopped"_L1));
    EXPECT_FALSE(screen.busy());
    EXPECT_EQ(textOf(form, u"cmdCancel"_s), u"Cancel"_s);
    press(form, u"cmdCancel"_s);
    EXPECT_FALSE(form.shown());
});
}

TEST_F(Directorys, AFailedScanSaysWhyAndTheScreenGoesOn) {
  import.failure = "The database is locked";
  opens(at(u"DIR"_s), [&](Form& form) {
    press(form, u"cmdok"_s);
    EXPECT_TRUE(canPress(form, u"cmdok"_s));
  });
  EXPECT_EQ(messages.texts, QStringList{u"The database is locked"_s});
  EXPECT_FALSE(screen.busy());
}

TEST_F(Directorys, StoresTheChosenDirectory) {
  const struct {
    DirectoryRequest::Store store;
    const SettingKey& key;
    QStringList heard;
  } cases[] = {
      {DirectoryRequest::Movies, key::MDirectory, {u"movies"_s}},
      {DirectoryRequest::Playlist, key::PLDirectory, {}},
      {DirectoryRequest::Photos, key::PDirectory, {u"photos"_s}},
  };
  for (const auto& it : cases) {
    DirectoryRequest request = at({});
    request.store = it.store;
    news.heard.clear();
    EXPECT_FALSE(opens(request, [](Form& form) { press(form, u"cmdCancel"_s); }));
    EXPECT_EQ(settings.raw(it.key), u"NO"_s);
    EXPECT_TRUE(news.heard.isEmpty());
    const auto chosen = opens(request, [this](Form& form) {
      tap(form, u"Dir1"_s, u"Abba"_s);
      diskCalls.full = true;
      press(form, u"cmdok"_s);
      EXPECT_TRUE(form.shown() && messages.texts.last().contains("The disk is full"_L1));
      EXPECT_TRUE(news.heard.isEmpty());
      diskCalls.full = false;
      press(form, u"cmdok"_s);
    });
    EXPECT_EQ(chosen, music(u"/Abba/"_s));
    EXPECT_EQ(settings.raw(it.key), music(u"/Abba/"_s));
    EXPECT_EQ(news.heard, it.heard);
    request.path.clear();  // the next time begins there
    opens(request, [&](Form& form) { EXPECT_EQ(textOf(form, u"lblPath"_s), music(u"/Abba"_s)); });
  }
  EXPECT_EQ(state.gPlaylistDir, music(u"/Abba/"_s));
}

TEST_F(Directorys, TakesOneFile) {
  DirectoryRequest request = at(u"SINGLE"_s);
  request.path = music(u"/Abba/Gold"_s);
  request.pattern = u"*.mp3"_s;
  const auto chosen = opens(request, [](Form& form) {
    press(form, u"cmdok"_s);
    EXPECT_TRUE(form.shown());  // none is chosen yet
    EXPECT_EQ(rows(form, u"File1"_s), QStringList{u"01-Waterloo.mp3"_s});
    tap(form, u"File1"_s, u"01-Waterloo.mp3"_s);
    press(form, u"cmdok"_s);
  });
  EXPECT_EQ(chosen, music(u"/Abba/Gold/01-Waterloo.mp3"_s));
  EXPECT_EQ(messages.texts, QStringList{u"Select a file first"_s});
}

TEST_F(Directorys, RunsAtOnceWhenAsked) {
  DirectoryRequest request = at(u"DIR"_s);
  request.runAtLoad = true;
  directorys.open(request);
  EXPECT_TRUE(host.opened.isEmpty());
  EXPECT_EQ(import.calls, QStringList{u"dofiles "_s + music() + u'|'});
}

TEST_F(Directorys, APlaceThatIsGoneIsNoPlaceToBegin) {
  DirectoryRequest request = at(u"DIR"_s);
  request.path = u"/nowhere/at all"_s;
  settings.write(key::MusicRoot, music());
  opens(request, [&](Form& form) { EXPECT_EQ(textOf(form, u"lblPath"_s), music()); });
}

}  // namespace
}  // namespace korvane
