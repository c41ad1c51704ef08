#include "tests/library_screens/import_world.h"

namespace korvane {
namespace {

struct DirectoryScanTest : ImportWorld {
  DirectoryScanTest() { settings.write(key::MusicRoot, music()); }
  void opens(DirectoryScan::Way way, FakeFormHost::Script script) {
    host.onModal(u"frmDirectorys"_s, std::move(script));
    scan.open(way);
  }
};

TEST_F(DirectoryScanTest, ScansByItsWay) {
  opens(DirectoryScan::ByFolders, [&](Form& form) {
    messages.typed = {u"M"_s};
    press(form, u"txtListenerDrive"_s);
    press(form, u"cmdok"_s);
    EXPECT_EQ(textOf(form, u"txtStatus"_s), u"Finished, 1 could not be read (see log.txt)"_s);
    EXPECT_EQ(textOf(form, u"lblRate"_s), u"10 songs, 8 new, 20 songs a second"_s);
    EXPECT_TRUE(form.shown());
  });
  opens(DirectoryScan::ByTags, [&](Form& form) {
    EXPECT_FALSE(canPress(form, u"txtListenerDrive"_s));
    tap(form, u"Dir1"_s, u"Abba"_s);
    press(form, u"cmdok"_s);
  });
  EXPECT_EQ(import.calls,
            QStringList({u"dofiles "_s + music() + u"|M"_s, u"scanTagged "_s + music(u"/Abba"_s)}));
  EXPECT_EQ(messages.texts, QStringList{u"Listener Drive Letter"_s});
  EXPECT_EQ(news.heard, QStringList({u"songs"_s, u"songs"_s}));
  EXPECT_EQ(settings.raw(key::MusicRoot), music(u"/Abba"_s));  // where the next scan begins
}

TEST_F(DirectoryScanTest, ShowsItsProgressAndCanBeStopped) {
  opens(DirectoryScan::ByTags, [&](Form& form) {
    import.during = [&] { EXPECT_EQ(textOf(form, u"txtStatus"_s), u"Title; Artist; Album"_s);
    EXPECT_EQ(textOf(form, u"lblRate"_s), u"5 songs, 3 new, 2500 songs a second"_s);
    EXPECT_TRUE(screen.busy());
    press(form, u"cmdCancel"_s);
    };
    press(form, u"cmdok"_s);
    EXPECT_TRUE(import.stopped);
    EXPECT_TRUE(form.shown());  // what was found until then is shown
    EXPECT_TRUE(textOf(form, u"txtStatus"_s).startsWith("Stopped"_L1));
    EXPECT_FALSE(screen.busy());
});
}

TEST_F(DirectoryScanTest, AFailureSaysWhyAndShowsWhatWasAdded) {
  import.failure = "The database is locked";
  opens(DirectoryScan::ByFolders, [&](Form& form) {
    press(form, u"cmdok"_s);
    EXPECT_TRUE(canPress(form, u"cmdok"_s));
  });
  EXPECT_EQ(messages.texts, QStringList{u"The database is locked"_s});
  EXPECT_EQ(news.heard, QStringList{u"songs"_s});
  EXPECT_FALSE(screen.busy());
}

TEST_F(DirectoryScanTest, RunsAtOnceWhereThereIsMusic) {
  scan.dofiles(music());
  scan.dofiles(u"/nowhere/at all"_s);
  EXPECT_TRUE(host.opened.isEmpty());
  EXPECT_EQ(import.calls, QStringList{u"dofiles "_s + music() + u'|'});
  EXPECT_EQ(messages.texts, QStringList{u"Go to setup and set the MP3 directory"_s});
  EXPECT_EQ(settings.raw(key::MusicRoot), music());
}

}  // namespace
}  // namespace korvane
