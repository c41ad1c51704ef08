#include <thread>

#include "tests/library_screens/import_world.h"

namespace korvane {
namespace {

// A disk whose copies go on until they are stopped, or that is full.
struct BadDisk : DiskFileSystem {
  bool full = false;
  bool copyInPieces(const QString& from, const QString&, const CopyWatch& watch,
                    QString* error) override {
    constexpr int kLongest = 10'000;  // ms
    for (int ms = 0; !full && ms < kLongest && watch(size(from) / 2); ++ms)
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    *error = u"The disk is full."_s;
    return false;
  }
};

struct MusicSetup : ImportWorld {
  void opens(FakeFormHost::Script script) {
    host.onModal(u"frmMp3Setup"_s, std::move(script));
    setup.open();
  }
  // Presses a button of the setup that asks for a file, and gives that one.
  void opensFile(const QString& button, const QString& file) {
    opens([&](Form& form) {
      host.onModal(u"frmDirectorys"_s, [&](Form& places) {
        tap(places, u"File1"_s, file);
        press(places, u"cmdok"_s);
      });
      press(form, button);
    });
  }
  // Copies music/Abba/Gold to "zz top" as artist and album.
  void copies(
      SingleSongForm& copier, const QString& artist, const QString& album,
      const FakeFormHost::Script& after = [](Form&) {}) {
    host.onModal(u"frmSingleSong"_s, [=, this](Form& form) {
      const auto folder = [&](const QString& button, const QString& path) {
        host.onModal(u"frmDirectorys"_s, [path](Form& places) {
          for (const QString& each : path.split(u'/')) tap(places, u"Dir1"_s, each);
          press(places, u"cmdok"_s);
        });
        press(form, button);
      };
      folder(u"cmdSource"_s, u"Abba/Gold"_s);
      folder(u"cmdDestination"_s, u"zz top"_s);
      messages.typed = {artist, album};
      press(form, u"txtArtist"_s);
      press(form, u"txtAlbum"_s);
      press(form, u"cmdCopy"_s);
      after(form);
    });
    settings.write(key::MusicRoot, music());
    copier.open();
  }
};

TEST_F(MusicSetup, CommandsOfLaterStepsAreHidden) {
  opens([](Form& form) {
    for (int i = 0; i < 4; ++i) EXPECT_EQ(canPress(form, u"cmdMp3"_s, i), i >= 2) << i;
  });
  bool opened = false;
  setup.setDoors({{{"cmdMp3", 0, [&] { opened = true; }}}});
  opens([](Form& form) { press(form, u"cmdMp3"_s, 0); });
  EXPECT_TRUE(opened);
}

TEST_F(MusicSetup, ScansByFoldersUnlessTagsAreReadInFull) {
  for (const bool full : {false, true}) {
    settings.write(key::Tags, full ? u"full"_s : u"NO"_s);
    settings.write(key::MusicRoot, music());
    for (int i = 0; i < 2; ++i)
      host.onModal(u"frmDirectorys"_s, [](Form& places) { press(places, u"cmdok"_s); });
    opens([&](Form& form) {
      press(form, u"cmdMp3"_s, 2);
      press(form, u"optScan"_s, full ? 1 : 0);
      press(form, u"cmdMp3"_s, 2);
    });
  }
  const QString folders = u"dofiles "_s + music() + u'|', tags = u"scanTagged "_s + music();
  EXPECT_EQ(import.calls, QStringList({folders, tags, tags, folders}));
}

TEST_F(MusicSetup, OneFileByHand) {
  settings.write(key::MusicRoot, music(u"/Abba/Gold"_s));
  opensFile(u"cmdaddfile"_s, u"01-Waterloo.mp3"_s);
  EXPECT_EQ(import.calls, QStringList{u"AddOneSong "_s + music(u"/Abba/Gold/01-Waterloo.mp3"_s) +
                                      u"|01-Waterloo.mp3"_s});
  EXPECT_EQ(news.heard, QStringList{u"songs"_s});
  import.failure = "no such file";
  messages.texts.clear();
  opensFile(u"cmdaddfile"_s, u"01-Waterloo.mp3"_s);
  EXPECT_EQ(messages.texts, QStringList{u"Error in frmsetup,cmdaddfile.click  \nno such file"_s});
}

TEST_F(MusicSetup, CopiesSongsIntoTheTree) {
  copies(single, u"AC/DC"_s, u"Live"_s, [](Form& form) {
    EXPECT_EQ(textOf(form, u"txtStatus"_s), u"Free space 1,234,567\nFinished !!"_s);
    press(form, u"cmdCancel"_s);
    EXPECT_FALSE(form.shown());
  });
  const QString folder = music(u"/zz top/AC_DC/Live/"_s);
  EXPECT_EQ(import.calls,
            QStringList({u"AC/DC|Live|01-Waterloo.mp3|"_s + folder + u"01-Waterloo.mp3"_s,
                         u"AC/DC|Live|b.WMA|"_s + folder + u"b.WMA"_s}));
  EXPECT_EQ(home.get(u"music/zz top/AC_DC/Live/b.WMA"_s), "music/Abba/Gold/b.WMA");
  EXPECT_FALSE(files.FileExists(folder + u"cover.jpg"_s));
  EXPECT_EQ(news.heard, QStringList{u"songs"_s});
}

TEST_F(MusicSetup, AFileThatIsThereStays) {
  home.put(u"music/zz top/New/Live/b.WMA"_s, "older");
  copies(single, u"New"_s, u"Live"_s);
  EXPECT_EQ(home.get(u"music/zz top/New/Live/b.WMA"_s), "older");
}

TEST_F(MusicSetup, ACopyShowsItsProgressAndCanBeStopped) {
  BadDisk disk;
  SingleSongForm slow({dialog, chooser, settings, disk, pump, screen, import, news});
  const std::function<void()> stopWhenUnderWay = [&] {
    if (!textOf(slow.form(), u"txtStatus"_s).contains("48 %"_L1)) {
      pump.duringYield = stopWhenUnderWay;
      return;
    }
    EXPECT_EQ(textOf(slow.form(), u"txtStatus"_s),
              u"Loading..  01-Waterloo.mp3\n48 % of 31 bytes"_s);
    EXPECT_EQ(textOf(slow.form(), u"cmdCancel"_s), u"Stop"_s);
    pressKey(slow.form(), 27);
  };
  pump.duringYield = stopWhenUnderWay;
  copies(slow, u"A"_s, u"B"_s, [](Form& form) {
    EXPECT_EQ(textOf(form, u"txtStatus"_s), u"Stopped"_s);
    EXPECT_EQ(textOf(form, u"cmdCancel"_s), u"Cancel"_s);
    EXPECT_TRUE(form.shown());
  });
  EXPECT_TRUE(import.calls.isEmpty());
  EXPECT_FALSE(screen.busy());
}

TEST_F(MusicSetup, ADiskWithoutRoomIsSaidBeforeAndDuringACopy) {
  import.space = 40;
  const auto heard = [&] { return std::exchange(messages.texts, {}).last(); };
  copies(single, u"A"_s, u"B"_s);
  EXPECT_TRUE(heard().contains("they have 52 bytes, and 40 are free"_L1));
  EXPECT_FALSE(files.FolderExists(music(u"/zz top/A"_s)));
  import.space = 4000;
  BadDisk disk;
  disk.full = true;
  SingleSongForm full({dialog, chooser, settings, disk, pump, screen, import, news});
  copies(full, u"A"_s, u"B"_s, [](Form& form) { EXPECT_TRUE(form.shown()); });
  EXPECT_EQ(heard(), u"The disk is full."_s);
  EXPECT_TRUE(import.calls.isEmpty());
}

TEST_F(MusicSetup, AListingGivesArtists) {
  home.put(u"music/list.txt"_s, "[Abba]\n[zz top]\n");
  settings.write(key::MusicRoot, music());
  opensFile(u"cmdListing"_s, u"list.txt"_s);
  EXPECT_EQ(messages.texts, QStringList{u"2 artists came from "_s + music(u"/list.txt."_s)});
  EXPECT_EQ(import.calls, QStringList{u"listing [Abba]\n[zz top]\n"_s});
  EXPECT_EQ(news.heard, QStringList{u"songs"_s});
  import.failure = "The database is locked";
  opensFile(u"cmdListing"_s, u"list.txt"_s);
  EXPECT_EQ(messages.texts.last(), u"The database is locked"_s);
}

TEST_F(MusicSetup, CopyingSaysWhatItMisses) {
  host.onModal(u"frmSingleSong"_s, [&](Form& form) {
    const auto refusal = [&] {
      messages.texts.clear();
      press(form, u"cmdCopy"_s);
      return messages.texts.value(0);
    };
    EXPECT_EQ(refusal(), u"Select a directory first"_s);
    form.find(u"lblSource")->caption = home / u"gone"_s;
    EXPECT_EQ(refusal(), u"That folder does not exist"_s);
    form.find(u"lblSource")->caption = music(u"/Abba/Gold"_s);
    form.find(u"lblDestination")->caption = music();
    type(form, u"txtArtist"_s, u"Abba"_s);
    EXPECT_EQ(refusal(), u"You must enter a Album and an Artist name "_s);
  });
  single.open();
  EXPECT_TRUE(import.calls.isEmpty());
}

}  // namespace
}  // namespace korvane
