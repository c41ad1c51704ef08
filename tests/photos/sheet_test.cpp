#include "tests/photos/sheet_world.h"

namespace korvane {
namespace {

using SheetTest = SheetWorld;

QStringList many() {
  QStringList names;
  for (int i = 100; i < 400; ++i) names << QString::number(i) + u".jpg"_s;
  return names;
}

TEST_F(SheetTest, ThumbnailsPairByPosition) {
  const struct {
    const char *why, *pictures, *thumbs, *read, *cells;
  } table[] = {
      {"none yet", "a.jpg b.jpg", "", "a.jpg b.jpg", "a.jpg=a b.jpg=b"},
      {"all there: none is looked at", "a.jpg b.jpg", "a b", "", "a.jpg=a b.jpg=b"},
      {"all but one: every one again", "a.jpg b.jpg", "a", "a.jpg b.jpg", "a.jpg=a b.jpg=b"},
      {"two of one stem, at every visit", "a.1.jpg a.2.jpg", "a", "a.1.jpg a.2.jpg", "a.1.jpg=a"},
      {"one too many shifts them", "b.jpg c.jpg", "a b c", "", "b.jpg=a c.jpg=b"},
      {"one that is torn takes no name", "v.jpg y.jpg", "v x y", "", "v.jpg=v y.jpg=y"},
      {"other files are no pictures", "a.jpg b.jpeg c.txt d.GIF", "a d", "", "a.jpg=a d.GIF=d"},
  };
  for (const auto& row : table) {
    fakes.files.DeleteFolder(u"/P"_s);
    for (char c = 'a'; c <= 'z'; ++c) thumb(QString(QLatin1Char(c)));
    givenPictures(words(row.pictures));
    givenThumbs(words(row.thumbs));
    open([&](Form&) {
      EXPECT_EQ(made(), QString::fromUtf8(row.read)) << row.why;
      EXPECT_EQ(cells(), QString::fromUtf8(row.cells)) << row.why;
    });
  }
}

TEST_F(SheetTest, ADirectoryIsShownAsItsOptionsSay) {
  givenPictures(words("a.jpg b.jpg"));
  fakes.imaging.files[u"/P/Alps/b.jpg"_s].error = u"It is torn."_s;
  givenThumbs(words("z"));
  fakes.files.CreateFolder(u"/P/Empty"_s);
  open([&](Form& form) {
    EXPECT_EQ(names(), u"a.jpg b.jpg"_s) << "the leftover has the place of the torn one";
    EXPECT_EQ(textOf(form, u"lblCount"_s), u"Images: 2"_s);
    EXPECT_EQ(textOf(form, u"lblPhotoFolder"_s), u"Pictue folder = /P/Alps"_s);
    EXPECT_EQ(fakes.files.bytes(u"/P/Alps/thumbs/a.JPG"_s), "JPEG 60x45 at 60");
    EXPECT_EQ(logged(u"Error loading Imagefile '/P/Alps/b.jpg'"_s), 1);
    EXPECT_TRUE(messages.texts.isEmpty());

    press(form, u"optThumbs"_s, Thumbnails::None);
    fakes.pump.settle();
    EXPECT_EQ(names(), u"a.jpg"_s);
    EXPECT_EQ(thumbs(), u"a.JPG z.JPG"_s);

    press(form, u"optThumbs"_s, Thumbnails::Automatic);
    fakes.pump.settle();
    tap(form, u"Dir1"_s, u"thumbs"_s);
    fakes.pump.settle();
    EXPECT_EQ(textOf(form, u"lblCount"_s), u"Images: 2"_s);
    EXPECT_EQ(names(), QString()) << "thumbnails get none";
    EXPECT_FALSE(fakes.files.FolderExists(u"/P/Alps/thumbs/thumbs"_s));
  });
  open(
      [&](Form&) {
        EXPECT_EQ(names(), QString());
        EXPECT_FALSE(fakes.files.FolderExists(u"/P/Empty/thumbs"_s)) << "nothing to keep there";
      },
      u"/P/Empty"_s);
}

TEST_F(SheetTest, StopEndsAPassBehindThoseAtWork) {
  givenPictures(many());
  givenThumbs({u"z"_s});
  fakes.pump.holdBackground = true;
  open([&](Form& form) {
    fakes.pump.runBackground();
    fakes.pump.settle();
    EXPECT_TRUE(screen.busy());
    tap(form, u"Dir1"_s, u".."_s);
    press(form, u"cmdOptions"_s);
    EXPECT_EQ(textOf(form, u"lblPhotoFolder"_s), u"Pictue folder = /P/Alps"_s);
    EXPECT_FALSE(controlOf<Frame>(form, u"mnuOptions").visible());
    press(form, u"cmdStop"_s);
    EXPECT_FALSE(controlOf<Button>(form, u"cmdStop").enabled());
    fakes.pump.runBackground();
    fakes.pump.settle();
    const qsizetype first = made().split(u' ').size();
    EXPECT_LT(first, 300);
    EXPECT_EQ(sheet().cells().count(), first) << "what was done is shown";

    press(form, u"optThumbs"_s, Thumbnails::Force);
    fakes.pump.runBackground();
    press(form, u"cmdStop"_s);
    fakes.pump.runBackground();
    fakes.pump.settle();
    EXPECT_EQ(thumbs(), QString()) << "a forced pass removes them before anything else";
    fakes.pump.holdBackground = false;
  });
}

TEST_F(SheetTest, AFormThatGoesLeavesItsPassAlone) {
  givenPictures(many());
  fakes.pump.holdBackground = true;
  open([&](Form& form) {
    fakes.pump.runBackground();
    fakes.pump.settle();
    press(form, u"imgExit"_s);
  });
  fakes.pump.runBackground();
  fakes.pump.settle();
  EXPECT_EQ(sheet().cells().count(), 0);
}

TEST_F(SheetTest, AThumbnailByNameIsMadeAgainOnlyForANewerPicture) {
  on(key::PairByName);
  settings.write(key::ThumbSize, u"160"_s);
  givenPictures(words("a.1.jpg a.2.jpg"));
  givenThumbs({u"orphan"_s});
  const auto visit = [&](const QString& read) {
    open([&](Form&) {
      EXPECT_EQ(made(), read);
      EXPECT_EQ(names(), u"a.1.jpg a.2.jpg"_s);
    });
  };
  visit(u"a.1.jpg a.2.jpg"_s);
  EXPECT_EQ(thumbs(), u"a.1.jpg.JPG a.2.jpg.JPG orphan.JPG"_s);
  EXPECT_EQ(fakes.files.bytes(u"/P/Alps/thumbs/a.1.jpg.JPG"_s), "JPEG 160x120 at 60");
  visit({});
  fakes.files.replace(u"/P/Alps/a.2.jpg"_s, "newer");
  visit(u"a.2.jpg"_s);

  fakes.files.DeleteFolder(u"/P/Alps/thumbs"_s);
  fakes.files.put(u"/P/Alps/thumbs"_s, "no folder can be made here");
  visit(u"a.1.jpg a.2.jpg"_s);
  EXPECT_EQ(fakes.files.SubFolders(u"/cache"_s).size(), 1);
  EXPECT_TRUE(messages.texts.isEmpty());
  visit({});
}

TEST_F(SheetTest, ThumbnailsThatCannotBeKeptAreShownAndSaidOnce) {
  givenPictures(words("a.jpg b.jpg"));
  fakes.files.put(u"/P/Alps/thumbs"_s, "no folder can be made here");
  open([&](Form&) {
    EXPECT_EQ(names(), u"a.jpg b.jpg"_s);
    EXPECT_TRUE(sheet().cells().picture(1)->pixels);
  });
  EXPECT_EQ(logged(u"Error saving the thumbnail of"_s), 2);
  ASSERT_EQ(messages.texts.size(), 1);
  EXPECT_TRUE(messages.texts[0].startsWith("2 thumbnails cannot be kept."_L1));
}

TEST_F(SheetTest, TurnsWhatIsChosen) {
  for (const bool keep : {false, true}) {
    if (keep) on(key::KeepKind);
    givenPictures(words("a.jpg b.bmp c.jpg"));
    fakes.imaging.files[u"/P/Alps/c.jpg"_s].error = keep ? u"It is torn."_s : QString();
    open([&](Form&) {
      if (keep) return touch(0), touch(1), menu(u"mnuRotate180"_s);
      touch(1);
      touch(2);
      made();
      menu(u"mnuRotate"_s);
      EXPECT_EQ(made(), u"b.bmp c.jpg"_s) << "their thumbnails are made again";
    });
    EXPECT_EQ(picture(u"a.jpg"_s), keep ? "KIND turned 180" : "a.jpg");
    EXPECT_EQ(picture(u"b.bmp"_s), keep ? "KIND turned 180" : "JPEG turned 90");
    EXPECT_EQ(picture(u"c.jpg"_s), keep ? "c.jpg" : "JPEG turned 90");
  }
}

TEST_F(SheetTest, TurningIsStoppedMidway) {
  givenPictures(many());
  open([&](Form& form) {
    menu(u"mnuSelect"_s);
    fakes.pump.holdBackground = true;
    menu(u"mnuRotate"_s);
    press(form, u"cmdStop"_s);
    fakes.pump.runBackground();
    fakes.pump.holdBackground = false;
  });
  int turned = 0;
  for (const QString& name : many()) turned += picture(name) == "JPEG turned 90";
  EXPECT_GT(turned, 0);
  EXPECT_LT(turned, 300);
  EXPECT_EQ(picture(u"100.jpg"_s), "JPEG turned 90");
  EXPECT_EQ(fakes.files.Files(u"/P/Alps/thumbs"_s).size(), 300);
}

TEST_F(SheetTest, AFullDiskLeavesThePictureAndSaysSo) {
  givenPictures({u"a.jpg"_s});
  open([&](Form&) {
    touch(0);
    fakes.files.room = 0;
    menu(u"mnuRotate"_s);
    fakes.files.room = -1;
  });
  EXPECT_EQ(picture(u"a.jpg"_s), "a.jpg");
  ASSERT_EQ(messages.texts.size(), 1);
  EXPECT_TRUE(messages.texts[0].startsWith("1 picture could not be turned."_L1));
}

TEST_F(SheetTest, DeletesWhatIsChosenAndLeavesItsThumbnail) {
  givenPictures(words("a.jpg b.jpg c.jpg"));
  open([&](Form& form) {
    menu(u"mnuDeleted"_s);
    EXPECT_TRUE(messages.texts.isEmpty()) << "nothing is chosen";
    touch(0);
    touch(2);
    EXPECT_EQ(textOf(form, u"sbrMain"_s), u"2 selected"_s);
    menu(u"mnuDeleted"_s);
    EXPECT_EQ(messages.texts.takeFirst(),
              u"You are about to delete all highlighted pictures!  Are you sure?"_s);
    EXPECT_EQ(names(), u"a.jpg b.jpg c.jpg"_s) << "the answer was no";
    messages.answers = {Messages::Yes};
    menu(u"mnuDeleted"_s);
    EXPECT_EQ(names(), u"b.jpg"_s);
    EXPECT_EQ(textOf(form, u"sbrMain"_s), QString()) << "what was selected is gone";
    EXPECT_FALSE(canPress(form, u"cmdTakeBack"_s));
    menu(u"mnuSelect"_s);
    EXPECT_EQ(pic.selectedPaths(), std::vector{u"/P/Alps/b.jpg"_s});
  });
  EXPECT_EQ(fakes.files.Files(u"/P/Alps"_s), QStringList{u"b.jpg"_s});
  EXPECT_EQ(thumbs(), u"a.JPG b.JPG c.JPG"_s);
}

TEST_F(SheetTest, DeletedPicturesCanBeTakenBackForAWhile) {
  on(key::PhotoTrash);
  givenPictures(words("a.jpg b.jpg"));
  const auto remove = [&](Form& form) {
    messages.answers = {Messages::Yes};
    touch(0);
    menu(u"mnuDeleted"_s);
    EXPECT_EQ(names(), u"b.jpg"_s);
    EXPECT_EQ(thumbs(), u"b.JPG"_s);
    EXPECT_TRUE(canPress(form, u"cmdTakeBack"_s));
    EXPECT_EQ(textOf(form, u"lblTakeBack"_s), u"In the trash: 1 picture"_s);
  };
  open([&](Form& form) {
    remove(form);
    press(form, u"cmdTakeBack"_s);
    fakes.pump.settle();
    EXPECT_EQ(names(), u"a.jpg b.jpg"_s);
    EXPECT_EQ(thumbs(), u"a.JPG b.JPG"_s);
    EXPECT_EQ(picture(u"a.jpg"_s), "a.jpg");
    EXPECT_FALSE(canPress(form, u"cmdTakeBack"_s));
    touch(0);
    remove(form);
    Timer& timer = controlOf<Timer>(form, u"tmrTakeBack");
    EXPECT_TRUE(timer.enabled());
    EXPECT_EQ(timer.interval(), 10'000);
    form.fire(timer, {Event::Tick});
    EXPECT_FALSE(canPress(form, u"cmdTakeBack"_s));

    messages.texts.clear();
    messages.answers = {Messages::Yes};
    fakes.trash.failure = u"This disk has no trash can."_s;
    touch(0);
    menu(u"mnuDeleted"_s);
    EXPECT_EQ(messages.texts.last(),
              u"1 picture could not be deleted. This disk has no trash can."_s);
    EXPECT_EQ(names(), u"b.jpg"_s);
  });
}

TEST_F(SheetTest, ImportsToANewFolder) {
  fakes.files.CreateFolder(u"/P/Old"_s);
  fakes.files.CreateFolder(u"/P/Empty"_s);
  givenPictures(words("a.jpg b.jpg"));
  const auto said = [&] { return std::exchange(messages.texts, {}); };
  open([&](Form&) { menu(u"mnuGroup"_s); }, u"/P/Empty"_s);
  EXPECT_TRUE(said()[0].startsWith("You must first point to a directory with pictures"_L1));
  open([&](Form&) {
    menu(u"mnuGroup"_s);
    EXPECT_EQ(said(), QStringList{u"You did not select any pictures to import!"_s});
    touch(1);
    messages.typed = {u"Old"_s, u"New"_s};
    messages.answers = {Messages::Yes};
    menu(u"mnuGroup"_s);
    EXPECT_EQ(said(), (QStringList{u"Enter the new directory"_s,
                                   u"Folder already exists Do you want to try again?"_s,
                                   u"Enter the new directory"_s}));
    messages.typed = {u"Old"_s};
    messages.answers = {Messages::No};
    menu(u"mnuGroup"_s);
    EXPECT_EQ(said().size(), 2);
    menu(u"mnuGroup"_s);
    EXPECT_EQ(said().size(), 1) << "nothing was typed";
  });
  EXPECT_EQ(fakes.files.Files(u"/P/New"_s), QStringList{u"b.jpg"_s});
  EXPECT_TRUE(fakes.files.Files(u"/P/Old"_s).isEmpty());
}

TEST_F(SheetTest, TheBarBetweenTheSidesStaysWithinItsBorders) {
  open(
      [&](Form& form) {
        Control& bar = controlOf<Frame>(form, u"picSplit");
        const struct {
          int to, left, sheet;
        } table[] = {{200, 200, 924}, {-50, 32, 1092}, {5000, 1208, 0}, {408, 408, 716}};
        for (const auto& row : table) {
          Rect place = bar.rect();
          place.left = row.to;
          form.move(bar, place);
          form.fire(bar, {Event::Release});
          EXPECT_EQ(bar.rect().left, row.left);
          EXPECT_EQ(controlOf<Frame>(form, u"picFrame").rect().left, row.left + 40);
          EXPECT_EQ(sheet().rect().width, row.sheet);
        }
      },
      u"/P"_s);
}

}  // namespace
}  // namespace korvane
