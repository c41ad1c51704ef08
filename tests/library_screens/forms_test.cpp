// What the forms of this folder have in common, and what they do without a library.
#include <QFile>

#include "library/data/schema.h"
#include "library/data/song_search.h"
#include "library/screens/play_list_form.h"
#include "tests/library_screens/import_world.h"

namespace korvane {
namespace {

struct FakeViews : PlayListViews {
  void usePlayList(const QString& name, const QString&) override { heard << u"use "_s + name; }
  void editPlayList(const QString& name, const QString&) override { heard << u"edit "_s + name; }
  void createPlayList() override { heard << u"create"_s; }
  QStringList heard;
};

struct Forms : ImportWorld {
  Forms() {
    home.put(u"PlayLists/Evening.m3u"_s, "/a.mp3\n");
    createEmptyDatabase(database.path());
  }

  Database database{home.path()};
  Playlists playlists{{state, settings, files, pump, settingsLog, database}};
  FakeViews views;
  PlayListForm lists{{dialog, state, settingsLog, playlists, views}};
};

TEST_F(Forms, EnterGoesOnAndEscapeLeaves) {
  const struct {
    Dialog& owner;
    std::function<void()> open;
    QString goesOn;
    int index;
  } forms[] = {
      {chooser, [&] { chooser.open({}); }, u"cmdok"_s, -1},
      {setup, [&] { setup.open(); }, u"cmdOK"_s, -1},
      {single, [&] { single.open(); }, u"cmdCopy"_s, -1},
      {lists, [&] { lists.open(); }, u"cmdPlayListChoices"_s, 0},
  };
  for (const auto& [owner, open, goesOn, index] : forms) {
    Form& form = owner.form();
    int pressed = 0;
    form.on(goesOn, Event::Click, [&pressed, index = index](Control& control, const Event&) {
      pressed += control.index == index;
    });
    host.onModal(form.name, [&](Form&) { pressKey(form, 13); });
    open();
    EXPECT_EQ(pressed, 1) << qUtf8Printable(form.name);
    host.onModal(form.name, [&](Form&) {
      pressKey(form, 27);
      EXPECT_FALSE(form.shown()) << qUtf8Printable(form.name);
    });
    open();
    EXPECT_EQ(pressed, owner.form().name == "frmMp3Setup"_L1 ? 2 : 1) << "its one way out";
  }
  EXPECT_EQ(views.heard, QStringList{u"use Evening"_s});
}

TEST_F(Forms, ANameThatAListCannotHaveIsRefusedWithTheReason) {
  const std::pair<QString, QString> names[] = {
      {u"a/b"_s, u"File name cannot contain \\/:*?\"<>|"_s},
      {u".hidden"_s, u"begin with a dot"_s},
      {QString(101, u'é'), u"too long"_s},
      {QString(100, u'é'), QString()},
      {u"\"Mine\" v2.0"_s, QString()}};
  for (const auto& [name, reason] : names) {
    messages.texts.clear();
    messages.typed = {name};
    host.onModal(u"frmPlayList"_s, [&](Form& form) {
      press(form, u"cmdPlayListChoices"_s, 2);
      EXPECT_EQ(rows(form, u"gridPlayList"_s).contains(name), reason.isEmpty());
      EXPECT_EQ(rows(form, u"gridPlayList"_s).size(), 1) << "no list is lost";
    });
    lists.open();
    EXPECT_EQ(messages.texts.size(), reason.isEmpty() ? 1 : 2);
    EXPECT_TRUE(messages.texts.last().contains(reason)) << messages.texts.last().toStdString();
  }
}

TEST_F(Forms, AListThatCannotBeFilledStaysAsItWas) {
  constexpr InventoryRow kList[] = {{"Grid", -1, Kind::Grid, {0, 0, 100, 100}, Left, ""}};
  Form form(u"frmTest"_s, kList);
  auto& grid = controlOf<Grid>(form, u"Grid");
  clsSearch search(grid, database, palette, state);
  search.Search(u"SONG"_s, u"w"_s);
  EXPECT_EQ(grid.emptyText(), u"Go to setup and set the MP3 directory"_s);
  database.insertSong({u"Abba"_s, u"Gold"_s, u"Waterloo"_s, {}, {}, u"/w.mp3"_s});
  search.Search(u"SONG"_s, u"x"_s);
  EXPECT_EQ(grid.emptyText(), u"Nothing found"_s);
  search.Search(u"ARTIST"_s, u"b"_s);
  QFile::remove(database.path());
  const QString list = home / u"PlayLists/Evening.m3u"_s;
  for (const std::function<void()>& fill : std::initializer_list<std::function<void()>>{
           [&] { search.Search(u"SONG"_s, u"w"_s); }, [&] { search.SearchArtist(u"Abba"_s); },
           [&] { search.SearchAlbum(u"Gold"_s, u"Abba"_s); },
           [&] { playlists.getPlayListSongs(list, nullptr); }}) {
    EXPECT_THROW(fill(), DatabaseError);
    EXPECT_EQ(grid.cell(1, 1), u"Abba"_s);
    EXPECT_EQ(search.kind() + grid.header(), u"ARTISTArtist"_s);
  }
}

}  // namespace
}  // namespace korvane
