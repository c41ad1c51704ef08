// Discs become songs, over drives in the test's hand and the real library.
#include <QFile>

#include "ripper/names/my_cddb.h"
#include "tests/flows/cabin.h"

namespace korvane {
namespace {

const QString kDrive = u"/dev/sr0"_s, kOther = u"/dev/sr1"_s;
using Tracks = QList<std::pair<int, QString>>;

class RipperTest : public CabinTest {
 protected:
  FakeCdRipper& drives() { return system().ripper; }
  Form& ripper() { return console().ripper.form.form(); }
  Grid& list() { return dynamic_cast<Grid&>(*ripper().find(u"ss")); }
  QString status() { return textOf(ripper(), u"StatusBar"_s); }

  // A disc of tracks that long; its table of contents as a drive answers.
  void put(const Tracks& tracks, const QString& drive = kDrive) {
    QByteArray toc{"\0\0\1", 3};
    toc += static_cast<char>(tracks.size());
    int at = 150;
    const auto add = [&](int track) {
      for (const int each : {0, 0x10, track, 0, 0, at / 4500, at / 75 % 60, at % 75})
        toc += static_cast<char>(each);
    };
    for (int track = 1; track <= tracks.size(); ++track) {
      add(track);
      at += tracks[track - 1].first * kSectorsPerSecond;
    }
    add(0xaa);
    system().packets.answer = toc;
    drives().put(drive, tracks);
  }
  void startWith(const QByteArray& ripKeys, const Tracks& tracks = {{65, {}}, {130, {}}}) {
    setting("LOCALLISTENER=1\nShowExit=1\nSetup=4711\nDisplayVolume=1\n[Ripper]\n" + ripKeys);
    if (drives().known.empty()) drives().drive(kDrive, u"CD 1"_s);
    start();
    put(tracks);
  }
  // `unknown`: nobody knows the disc, which is said first.
  void inRipper(const std::function<void(Form&)>& does, bool unknown = true) {
    if (unknown) answer(u"No records for your disk found."_s);
    host->onModal(u"frmRipper"_s, [this, does](Form& form) {
      system().pump.settle();
      does(form);
      system().pump.settle();
    });
    console().ripper.form.open();
    system().pump.settle();
  }
  void pressIn(const QString& name) {
    korvane::press(ripper(), name);
    system().pump.settle();
  }
  void typeIn(const QString& name, const QString& text) {
    korvane::press(ripper(), name);
    type(ripper(), name, text);
    ripper().fire(*ripper().find(name), {Event::Change});
  }
  void typeTitle(int row, const QString& text) {
    ripper().fire(list(), {Event::Click, 2, row});
    typeIn(u"txtTitle"_s, text);
  }
  void tickRow(int row) { ripper().fire(list(), {Event::ButtonClicked, 1, row}); }
  void name(const QString& artist, const QString& album, const QStringList& titles) {
    typeIn(u"lblArtist"_s, artist);
    typeIn(u"lblAlbum"_s, album);
    for (int row = 1; row <= titles.size(); ++row) typeTitle(row, titles[row - 1]);
  }
  void begin(const QList<int>& rows) {
    for (const int row : rows) tickRow(row);
    pressIn(u"cmdExtract"_s);
  }
  void track(int job, RipResult result = {}) {
    const QString output = drives().queued.at(static_cast<size_t>(job)).output;
    QFile file(output + u".mp3"_s);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << output.toStdString();
    file.write("x");
    file.close();
    drives().begin(job);
    drives().end(job, std::move(result));
    system().pump.settle();
  }
  // Artist, album, title, path and year of every row.
  QStringList library() {
    OpenedDatabase db(console().library.database);
    sql::Run run = db->run("select artist, album, songtitle, songpath, year from songs");
    QStringList rows;
    while (run.step())
      rows << QStringList{run.text(0), run.text(1), run.text(2),
                          run.text(3).replace(home.path(), u"~"_s), run.text(4)}
                  .join(u'|');
    return rows;
  }
};

TEST_F(RipperTest, TheOrderInWhichADiscIsLookedUp) {
  enum Known { Nowhere, Cddata, Mine };
  const struct {
    Known known;
    bool cddata, always, text;
    const char *status, *artist, *first;
  } cases[] = {
      {Cddata, true, false, false, "Data Found in local DB", "Lumen Quay", "Tide: 1"},
      {Mine, true, false, false, "Data Found in mydb", "Lumen Quay", "Tide: 1"},
      {Mine, false, false, false, "No disk data found", "Artist Name here", "Track 01"},
      {Mine, false, true, false, "Data Found in mydb", "Lumen Quay", "Tide: 1"},
      {Nowhere, true, true, true, "Names found on the disc", "Artist Name here", "Low Tide"},
      {Nowhere, true, false, true, "No disk data found", "Artist Name here", "Track 01"},
  };
  const QString mine = home / u"mycddb.mdb"_s, shipped = home / u"cddata1.mdb"_s;
  for (const auto& c : cases) {
    QFile::remove(mine);
    QFile::remove(shipped);
    startWith(c.always ? "CddbAlways=YES\n" : "",
              {{65, c.text ? u"Low Tide"_s : QString()}, {130, {}}});
    DiskFileSystem files;
    QString error;
    ASSERT_TRUE(makeMyCddb(files, home.path(), &error)) << error.toStdString();
    ASSERT_TRUE(QFile::copy(mine, shipped));
    ASSERT_TRUE(c.known == Nowhere ||
                insertMyDisc(home.path(), clscddb::figureid(u"150 5025 14775"_s), u"Lumen Quay"_s,
                             u"Harbour"_s, {u"Tide: 1"_s, u"Ebb"_s}, &error));
    if (c.known == Cddata) {
      QFile::remove(shipped);
      QFile::rename(mine, shipped);
    }
    if (!c.cddata) QFile::remove(shipped);
    inRipper(
        [&](Form& form) {
          EXPECT_EQ(status(), QString::fromLatin1(c.status));
          EXPECT_EQ(textOf(form, u"lblArtist"_s), QString::fromLatin1(c.artist)) << c.status;
          EXPECT_EQ(list().cell(2, 1), QString::fromLatin1(c.first)) << c.status;
          EXPECT_EQ(list().cell(3, 2), u"2:10"_s);
          EXPECT_EQ(textOf(form, u"lblID"_s).size(), 8);
        },
        QByteArray(c.status) == "No disk data found");
  }
}

TEST_F(RipperTest, TheServerIsAskedLastAndALateAnswerIsOfNoUse) {
  startWith("CddbServer=cddb.test\n", {{65, {}}, {130, {}}, {20, {}}});
  const auto answerWith = [this](const QByteArray& body) {
    EXPECT_TRUE(system().http.answer({200, body, {}}));
    system().pump.settle();
  };
  const QByteArray found = "200 rock 00000003 Lumen Quay / Harbour\r\n";
  const QByteArray record =
      "210 rock 00000003 entry\r\n# xmcd\r\nDTITLE=Lumen Quay / "
      "Harbour\r\nDYEAR=1999\r\nTTITLE0=A.C/D\r\n"
      "TTITLE1=Two\r\nTTITLE2=Three\r\n.\r\n";
  inRipper(
      [&](Form& form) {
        EXPECT_EQ(list().maxRows(), 3) << "before any answer";
        EXPECT_EQ(status(), u"Checking internet.."_s);
        const auto asked = system().http.asked.size();
        put({{61, {}}});
        system().pump.settle();
        EXPECT_TRUE(system().http.asked[asked - 1]->cancelled) << "another disc";
        answerWith(found);
        answerWith(record);
        EXPECT_EQ(status(), u"Data found on internet"_s);
        EXPECT_EQ(list().cell(2, 1), u"A C D"_s);
        EXPECT_EQ(textOf(form, u"lblAlbum"_s), u"Harbour"_s);
        put({{62, {}}});
        system().pump.settle();
        typeTitle(1, u"Mine"_s);
        answerWith(found);
        answerWith(record);
        EXPECT_EQ(list().cell(2, 1), u"Mine"_s) << "typed meanwhile";
        put({{63, {}}});
        system().pump.settle();
      },
      false);
  EXPECT_TRUE(system().http.asked.back()->cancelled) << "left";
}

TEST_F(RipperTest, TickedTracksBecomeSongsAndTheSecondTimeTheirPathsChange) {
  startWith("", {{65, {}}, {130, {}}, {20, {}}});
  inRipper([&](Form& form) {
    pressIn(u"cmdSelectAll"_s);
    EXPECT_EQ(column(list(), 1), QStringList(3, u"\u2713"_s));
    pressIn(u"cmdDeselect"_s);
    answer(u"You did not select any tracks to rip"_s);
    pressIn(u"cmdExtract"_s);
    name(u" Lumen Quay "_s, u"Harbour"_s, {u"Ferryman's Tide"_s, {}, u"Noon"_s});
    EXPECT_EQ(list().cell(2, 2), u"Track 02"_s);
    begin({1, 3});
    EXPECT_FALSE(canPress(form, u"cmdEnd"_s) || canPress(form, u"cmdExtract"_s) ||
                 canPress(form, u"cmdFilename"_s));
    EXPECT_EQ(drives().encoder.bitRate, 192000);
    EXPECT_EQ(drives().encoder.quality, 0.75);
    drives().begin(0);
    EXPECT_EQ(status(), u"Ripping Track..."_s);
    drives().progress(50, 25);
    EXPECT_EQ(dynamic_cast<Progress&>(*form.find(u"prgTotal")).value(), 25);
    track(0);
    EXPECT_EQ(column(list(), 1), (QStringList{{}, {}, u"\u2713"_s}));
    EXPECT_EQ(column(list(), 4), (QStringList{u"\u2713"_s, {}, {}}));
    EXPECT_TRUE(textOf(form, u"txtStatus"_s).startsWith(u"Finished track 1\n"_s));
    track(1);
    EXPECT_EQ(drives().ejected, QStringList{kDrive}) << "and not at the start";
    EXPECT_EQ(list().maxRows(), 0);
    EXPECT_TRUE(canPress(form, u"cmdExtract"_s) && canPress(form, u"cmdSelectAll"_s));
    pressIn(u"cmdEnd"_s);
  });
  const QString rows[] = {
      u"Lumen Quay|Harbour|01 - Ferryman''s Tide|~/Arips/Lumen Quay/Harbour/01 - Ferryman's Tide.mp3|"_s,
      u"Lumen Quay|Harbour|03 - Noon|~/Arips/Lumen Quay/Harbour/03 - Noon.mp3|"_s};
  EXPECT_EQ(library(), (QStringList{rows[0], rows[1]}));
  EXPECT_EQ(column(grid(0), 1), QStringList{u"Lumen Quay"_s}) << "refreshed";

  // A favourite that is in the running list, ripped again to another place
  openAlbum(1, 1);
  playRow(1, 1);
  press(u"cmdFavoriateAdd"_s);
  put({{65, {}}, {130, {}}, {20, {}}});
  inRipper([&](Form&) {
    type(ripper(), u"txtFilename"_s, home / u"Elsewhere"_s);
    name(u"Lumen Quay"_s, u"Harbour"_s, {u"Ferryman's Tide"_s});
    begin({1});
    track(0);
    pressIn(u"cmdEnd"_s);
  });
  EXPECT_EQ(library().size(), 2);
  EXPECT_EQ(library()[0], QString(rows[0]).replace(u"Arips"_s, u"Elsewhere"_s) + u"-1"_s);
  songEnds();
  EXPECT_EQ(playing(), u"03 - Noon"_s) << "the list that runs goes on";
}

TEST_F(RipperTest, WhatNamesBecome) {
  const struct {
    QString artist, album, title;
    const char *plainFile, *plainStored, *safeFile;  // below the rip path; "x..." for 300
  } cases[] = {
      {u"Ada"_s, u"Days"_s, u"What? A/B: \"C\"."_s, "Ada/Days/01 - What A B   C  ",
       "Ada/Days/01 - What? A/B: \"C\"..mp3", "Ada/Days/01 - What A B C"},
      {u"AC\\DC"_s, u"T/N"_s, u"One"_s, "AC/DC/T/N/01 - One", "AC/DC/T/N/01 - One.mp3",
       "AC DC/T N/01 - One"},
      {u".."_s, u"../.."_s, u".."_s, nullptr, nullptr,
       "Unknown artist/Unknown album/01 - Track 01"},
      {u"A"_s + QChar(0) + u"b"_s, u"  "_s, u"x"_s + QChar(0), nullptr, nullptr,
       "A b/Unknown album/01 - x"},
      {u"שלום"_s, u"D"_s, QString(300, u'x'), nullptr, nullptr, "שלום/D/01 - x..."},
  };
  for (const bool safe : {false, true}) {
    startWith(safe ? "RipNames=YES\n" : "", {{65, {}}});
    for (const auto& c : cases) {
      if (!safe && !c.plainFile) continue;
      put({{65, {}}});
      inRipper([&](Form&) {
        name(c.artist, c.album, {c.title});
        begin({1});
        QString file = drives().queued.at(0).output.mid((home / u"Arips/"_s).size());
        file.replace(QString(200, u'x'), u"x..."_s);
        EXPECT_EQ(file, QString::fromUtf8(safe ? c.safeFile : c.plainFile));
        drives().end(0);
        system().pump.settle();
      });
      const QString stored = u"~/Arips/"_s + QString::fromUtf8(c.plainStored);
      EXPECT_TRUE(safe || library().last().contains(stored));
    }
  }
}

TEST_F(RipperTest, ARunThatCannotBeIsRefusedInWords) {
  Tracks many(60, {10, {}});
  startWith("CddbAlways=YES\nRipFormat=FLAC\n", many);
  const auto refused = [&](const QString& words) {
    answer(words);
    pressIn(u"cmdExtract"_s);
    EXPECT_TRUE(drives().queued.empty()) << words.toStdString();
  };
  inRipper([&](Form& form) {
    pressIn(u"cmdSelectAll"_s);
    refused(u"60 tracks are chosen, and 50 is the most"_s);
    pressIn(u"cmdDeselect"_s);
    type(form, u"txtFilename"_s, u" "_s);
    refused(u"Enter a rip path first"_s);
    tickRow(1);
    type(form, u"txtFilename"_s, home.put(u"full"_s, "a file") + u"/Arips"_s);
    refused(u"cannot be made"_s);
    type(form, u"txtFilename"_s, home.path());
    drives().takeOut(kDrive);
    EXPECT_EQ(status(), u"No audio cd found"_s);
    refused(u"No audio cd found"_s);
    put({{28'000'000, {}}});
    answer(u"No records"_s);
    system().pump.settle();
    pressIn(u"cmdSelectAll"_s);
    refused(u"are missing"_s);
    put(many);
    answer(u"No records"_s);
    system().pump.settle();
    name(u"Ada"_s, u"Days"_s, {});
    begin({40});
    drives().end(0);
    system().pump.settle();
    put(many);  // now by its own names
    system().pump.settle();
    EXPECT_EQ(status(), u"Data Found in mydb"_s);
    tickRow(36);
    refused(u"track 36 has none"_s);
    typeTitle(36, u"Named"_s);
    pressIn(u"cmdExtract"_s);
    EXPECT_EQ(drives().queued.size(), 1U);
    pressIn(u"cmdRipStop"_s);
  });
}

TEST_F(RipperTest, CancelledFailedAndWithoutItsRow) {
  startWith("RipSecure=YES\nRipNames=YES\n", {{65, {}}, {130, {}}});
  inRipper([&](Form& form) {
    name(u"Ada"_s, u"Days"_s, {u"Dawn"_s, u"Noon"_s});
    begin({1, 2});
    EXPECT_TRUE(drives().secure);
    pressIn(u"cmdRipStop"_s);
    EXPECT_EQ(drives().aborts, 1);
    EXPECT_EQ(library(), QStringList());
    for (const QString& fault : {u"The disc was taken out of CD 1"_s, u"row"_s}) {
      put({{65, {}}, {130, {}}});
      answer(u"No records"_s);
      system().pump.settle();
      name(u"Ada"_s, u"Days"_s, {u"Dawn"_s, u"Noon"_s});
      begin({1, 2});
      if (fault != "row"_L1) {
        answer(fault);
        drives().fail(fault);
      } else {
        QFile::rename(home / u"Morvanta.mdb"_s, home / u"aside"_s);
        track(0, {{}, RipResult::Doubtful, {61}, 0xbeef});
        EXPECT_EQ(list().cell(4, 1), QString());
        EXPECT_EQ(list().cell(5, 1), u"not at 1:01"_s);
        QFile::rename(home / u"aside"_s, home / u"Morvanta.mdb"_s);
        answer(u"track 1 at 1:01"_s);
        track(1, {{}, RipResult::Clean, {}, 1});
      }
      system().pump.settle();
      EXPECT_TRUE(canPress(form, u"cmdExtract"_s)) << fault.toStdString();
    }
  });
  EXPECT_EQ(library(), QStringList{u"Ada|Days|02 - Noon|~/Arips/Ada/Days/02 - Noon.mp3|"_s});
  const QByteArray log = home.get(u"log.txt"_s);
  EXPECT_TRUE(log.contains(") in procedure CDRipper_OnExtractionEnd of Form frmRipper"));
  EXPECT_TRUE(log.contains("not clean at 1:01, CRC-32 0000BEEF"));
}

TEST_F(RipperTest, ARunIsLeftAtWorkAndTheNextDiscIsOffered) {
  drives().drive(kDrive, u"CD 1"_s);
  drives().drive(kOther, u"CD 2"_s);
  startWith("CddbAlways=YES\n", {{65, {}}});
  given(u"Bo"_s, u"Live"_s, u"001-Set"_s);
  console().library.songsChanged();
  drives().takeOut(kOther);
  press(u"imgTabs"_s, kMusicTab);
  const Rect volume = control(u"scrollVolume"_s).rect();
  inRipper([&](Form&) {
    name(u"Ada"_s, u"Days"_s, {u"Dawn"_s});
    begin({1});
    pressIn(u"cmdLeave"_s);
  });
  ASSERT_TRUE(shown(u"cmdRipMark"_s));
  EXPECT_LE(control(u"scrollVolume"_s).rect().right(), control(u"cmdRipMark"_s).rect().left);
  drives().progress(10, 34.6);
  EXPECT_EQ(caption(u"cmdRipMark"_s), u"CD 34 %"_s);
  openAlbum(1, 1);
  playRow(1, 1);
  EXPECT_EQ(playing(), u"001-Set"_s);
  press(u"imgTabs"_s, kMainTab);
  EXPECT_FALSE(shown(u"cmdRipMark"_s)) << "where the owner's buttons are";
  press(u"imgTabs"_s, kMusicTab);
  host->onModal(u"frmRipper"_s, [&](Form& form) {
    EXPECT_TRUE(canPress(form, u"cmdRipStop"_s));
    EXPECT_EQ(list().cell(2, 1), u"Dawn"_s);
    pressIn(u"cmdLeave"_s);
  });
  press(u"cmdRipMark"_s);

  put({{70, u"Sea"_s}, {71, u"Sky"_s}}, kOther);
  answer(u"Rip all its tracks now?"_s, Yes);
  track(0);
  EXPECT_EQ(column(grid(0), 1), (QStringList{u"Ada"_s, u"Bo"_s})) << "the page of the artists";
  ASSERT_EQ(drives().queued.size(), 2U);
  EXPECT_EQ(drives().queued[1].source, kOther);
  track(0);
  track(1);
  EXPECT_FALSE(shown(u"cmdRipMark"_s));
  EXPECT_EQ(control(u"scrollVolume"_s).rect(), volume);
  EXPECT_EQ(library().size(), 4);

  answer(u"Rip all its tracks now?"_s, No);
  put({{72, u"Sun"_s}});  // into the door that the run has opened
  system().pump.settle();
  EXPECT_FALSE(drives().isOpen);
  EXPECT_TRUE(host->allDone());
}

TEST_F(RipperTest, TheConsoleIsNotEndedUnasked) {
  startWith("RipNames=YES\n");
  inRipper([&](Form&) {
    begin({1, 2});
    pressIn(u"cmdLeave"_s);
  });
  const ButtonWord* shutdown = console().desk.words.find(u"SHUTDOWN"_s);
  for (const auto& way : {std::function<void()>([&] { press(u"imgExit"_s); }), shutdown->act}) {
    answer(u"0 of 2 tracks are done"_s, No);
    way();
  }
  EXPECT_TRUE(system().session.asked.empty());
  EXPECT_FALSE(ended);
  answer(u"0 of 2 tracks are done"_s, Yes);
  answer(u" Are you Sure you want to shut down? "_s, Yes);
  press(u"imgExit"_s);
  EXPECT_EQ(drives().aborts, 1);
  EXPECT_TRUE(ended);
  EXPECT_EQ(drives().ejected, QStringList());
}

TEST_F(RipperTest, TheMusicOfTheDiscStopsAndOtherMusicDoesNot) {
  given(u"Bo"_s, u"Live"_s, u"001-Set"_s);
  startWith("");
  system().disc.put({{65, {}}, {130, {}}});
  press(u"imgTabs"_s, kMusicTab);
  EXPECT_FALSE(shown(u"cmdRip"_s));
  press(u"lblMusicType"_s, 0);
  ASSERT_TRUE(shown(u"cmdRip"_s)) << "where the tracks are listed";
  playRow(7, 1);
  host->onModal(u"frmRipper"_s, [&](Form& form) {
    system().pump.settle();
    begin({1});
    EXPECT_TRUE(textOf(form, u"txtStatus"_s).contains(u"music of this disc was stopped"_s));
    EXPECT_EQ(system().disc.calls.last(), u"stop"_s);
    track(0);
    pressIn(u"cmdEnd"_s);
  });
  answer(u"No records"_s);
  press(u"cmdRip"_s);
  press(u"lblMusicType"_s, 1);
  EXPECT_FALSE(shown(u"cmdRip"_s));

  // The jukebox plays on, and its guests do not rip
  openAlbum(2, 1);
  press(u"optMode"_s, 1);
  playRow(1, 1);
  const auto calls = player.calls.size();
  put({{65, {}}});
  inRipper([&](Form&) {
    begin({1});
    track(0);
    pressIn(u"cmdEnd"_s);
  });
  EXPECT_EQ(playing(), u"001-Set"_s);
  EXPECT_EQ(player.calls.size(), calls);
}

TEST_F(RipperTest, AGuestOfALockedJukeboxDoesNotRip) {
  given(u"Bo"_s, u"Live"_s, u"001-Set"_s);
  startWith("");
  home.put(u"Morvanta.INI"_s,
           home.get(u"Morvanta.INI"_s).replace("[STARTUP]\n", "[STARTUP]\nJukeboxLock=YES\n"));
  press(u"imgTabs"_s, kMusicTab);
  press(u"optMode"_s, 1);
  typed({}, true);
  console().desk.words.find(u"RIPPER"_s)->act();
  EXPECT_FALSE(host->opened.contains(u"frmRipper"_s));
}

TEST_F(RipperTest, AScanOfTheSameFolderMeetsTheRun) {
  startWith("RipNames=YES\n", {{65, {}}, {130, {}}});
  inRipper([&](Form&) {
    name(u"Ada"_s, u"Days"_s, {u"Dawn"_s, u"Noon"_s});
    begin({1, 2});
    track(0);
    pressIn(u"cmdLeave"_s);
  });
  struct : ImportWatch {
    void importProgress(const ImportProgress&) override {}
  } watch;
  for (int i = 0; i < 20; ++i)
    home.put(u"Arips/Bo/Live/%1-x.mp3"_s.arg(i, 3, 10, QChar(u'0')), "x");
  system().pump.duringYield = [this] {
    const QString output = drives().queued.at(1).output;
    EXPECT_TRUE(QFile(output + u".mp3"_s).open(QIODevice::WriteOnly));
    drives().end(1);
  };
  const ImportResult result = console().library.import.dofiles(home / u"Arips"_s, QString(), watch);
  system().pump.settle();
  EXPECT_FALSE(console().ripper.run.atWork());
  EXPECT_GE(result.added, 20);
  EXPECT_EQ(library().filter(u"Days|02 - Noon|"_s).size(), 1);
  for (const QString& row : library())
    EXPECT_TRUE(QFile::exists(QString(row.section(u'|', 3, 3)).replace(u"~"_s, home.path())))
        << row.toStdString();
}

}  // namespace
}  // namespace korvane
