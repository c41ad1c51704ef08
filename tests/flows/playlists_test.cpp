#include <filesystem>

#include "tests/flows/cabin.h"

namespace korvane {
namespace {

class PlaylistFlow : public CabinTest {
 protected:
  PlaylistFlow() {
    for (const char* title : {"001-Dawn", "002-Noon", "003-Dusk"})
      days << given(u"Ada"_s, u"Days"_s, QString::fromLatin1(title));
    one = given(u"Bo"_s, u"Only"_s, u"One"_s);
    setting("LOCALLISTENER=1\nListUndo=YES\n");
  }
  void openLists() {
    start();
    press(u"imgTabs"_s, kMusicTab);
    press(u"cmdTop"_s, 2);
  }
  void edit(const QString& name) {
    console().editor.edit(name, home / u"PlayLists/"_s + name + u".m3u"_s);
  }
  void answer(const QString& contains, int button = 2) {
    host->onModal(u"frmMsgBox"_s, [=](Form& box) {
      EXPECT_TRUE(textOf(box, u"msg"_s).contains(contains)) << textOf(box, u"msg"_s).toStdString();
      korvane::press(box, u"cmdControls"_s, button);
    });
  }
  void name(const QString& text) {
    host->onModal(u"frmKeyboard"_s, [=](Form& keyboard) {
      korvane::type(keyboard, u"txtInput"_s, text);
      korvane::press(keyboard, u"KEY"_s, 26);  // Enter
    });
  }
  QStringList column(Grid& of, int number) {
    QStringList cells;
    for (int row = 1; row <= of.maxRows(); ++row) cells << of.cell(number, row);
    return cells;
  }
  Grid& edited() { return dynamic_cast<Grid&>(control(u"gridPlayListSongs"_s)); }

  QStringList days;
  QString one;
};

TEST_F(PlaylistFlow, TheDirectoryIsSettledAndListed) {
  openLists();
  EXPECT_EQ(grid(6).maxRows(), 0);
  EXPECT_TRUE(
      home.get(u"Morvanta.INI"_s).contains("PLDirectory=" + (home / u"PlayLists"_s).toUtf8()));
  for (const char* file : {"b.m3u", "A.M3U", "old.m3u8", "cover.jpg", "noend"})
    home.put(u"PlayLists/"_s + QString::fromLatin1(file), "x");
  press(u"cmdTop"_s, 2);
  EXPECT_EQ(column(grid(6), 1), QStringList({u"A"_s, u"b"_s, u"old"_s}));
  std::filesystem::remove_all((home / u"PlayLists"_s).toStdString());
  answer(u"cannot be read"_s);
  pressRow(6, 1);
  press(u"cmdTop"_s, 2);
  EXPECT_EQ(grid(6).maxRows(), 0);
  home.put(u"file"_s, "in the way");
  console().settings.write(key::PLDirectory, home / u"file/lists"_s);
  EXPECT_EQ(console().playlists.directory(), home / u"PlayLists"_s);
}

TEST_F(PlaylistFlow, AListPlaysItsSongsAndStrangersWhateverPlayedBetween) {
  const QString stranger =
      home.put(u"PlayLists/a stranger with a name of more than fifty letters.mp3"_s, "x");
  home.put(u"PlayLists/mix.m3u"_s, "#EXTM3U\r\n" + one.toUtf8() +
                                       "\r\na stranger with a name of more than fifty "
                                       "letters.mp3\r\n../Music/Ada/Days/003-Dusk.mp3\r\n");
  home.put(u"PlayLists/none.m3u"_s, "#EXTM3U\n\n");
  openLists();
  answer(u"No songs in the playlist to use!! "_s);
  pressRow(6, 2);
  pressRow(6, 1);
  EXPECT_EQ(caption(u"lblCurrentPlayList"_s), u"Play List = mix  (3)"_s);
  EXPECT_EQ(
      column(grid(3), 1),
      QStringList({u"One"_s,
                   u"anger with a name of more than fifty letters.mp3"_s.right(50).prepend(u"tr"_s),
                   u"Dusk"_s}));
  EXPECT_TRUE(grid(3).rows().foreign(2) && !grid(3).rows().foreign(1));
  playRow(3, 2);
  EXPECT_EQ(player.calls.filter(u"open "_s).last(), u"open "_s + stranger);
  songEnds();
  EXPECT_EQ(playing(), u"003-Dusk"_s);
  console().database.resetPlaySongs();  // as another list does
  playRow(3, 1);
  EXPECT_EQ(playing(), u"One"_s);
  songEnds();
  EXPECT_EQ(grid(3).row(), 2);
}

TEST_F(PlaylistFlow, AnEditKeepsWhatASaveCouldNotWrite) {
  home.put(u"PlayLists/mix.m3u"_s, (days[0] + u'\n' + one + u'\n').toUtf8());
  openLists();
  edit(u"mix"_s);
  EXPECT_TRUE(shown(u"framSongEdit"_s));
  EXPECT_FALSE(shown(u"optMode"_s, 0));
  press(u"cmdPlayListCommands"_s, 2);
  press(u"cmdPlayListCommands"_s, 2);  // the last row goes no further
  openAlbum(1, 1);
  press(u"cmdPlayListCommands"_s, 4);
  EXPECT_EQ(column(edited(), 1),
            QStringList({u"One"_s, u"Dawn"_s, u"Dawn"_s, u"Noon"_s, u"Dusk"_s}));
  for (int i = 0; i < 3; ++i) press(u"cmdPlayListCommands"_s, 0);
  EXPECT_EQ(edited().row(), 2);
  const QByteArray wanted = (one + u'\n' + days[0] + u'\n').toUtf8();

  const QString lists = home / u"PlayLists"_s;
  std::filesystem::rename(lists.toStdString(), (home / u"gone"_s).toStdString());
  answer(u"File name is not good, try another."_s);
  press(u"cmdPlayListChoices"_s, 1);
  EXPECT_TRUE(shown(u"framSongEdit"_s));
  EXPECT_EQ(edited().maxRows(), 2);
  std::filesystem::rename((home / u"gone"_s).toStdString(), lists.toStdString());
  for (const auto& [error, told] : {std::pair{ENOSPC, u"The disk is full"_s},
                                    {EROFS, u"The disk is read only"_s},
                                    {EACCES, u"Permission is refused"_s}}) {
    calls.error = error;
    answer(told);
    press(u"cmdPlayListChoices"_s, 1);
    calls.error = 0;
    EXPECT_TRUE(shown(u"framSongEdit"_s));
    EXPECT_EQ(edited().maxRows(), 2);
    EXPECT_EQ(home.get(u"PlayLists/mix.m3u"_s), (days[0] + u'\n' + one + u'\n').toUtf8());
  }
  press(u"cmdPlayListChoices"_s, 1);
  EXPECT_EQ(home.get(u"PlayLists/mix.m3u"_s), wanted);
  EXPECT_FALSE(shown(u"framSongEdit"_s));
  EXPECT_TRUE(shown(u"optMode"_s, 0));
  EXPECT_EQ(control(u"coverArt"_s).rect().left, control(u"coverArt"_s).laid.left);
}

TEST_F(PlaylistFlow, ANewListAsksForItsNameUntilItIsGood) {
  home.put(u"PlayLists/mix.m3u"_s, "old\n");
  openLists();
  console().editor.create();
  press(u"cmdTop"_s, 3);
  pressRow(5, 1);
  press(u"cmdPlayListCommands"_s, 3);
  name({});
  press(u"cmdPlayListChoices"_s, 1);
  EXPECT_EQ(edited().maxRows(), 1) << "a name that was not given loses nothing";
  name(u"a/b"_s);
  answer(u"File name cannot contain \\/:*?\"<>|"_s);
  name(u"mix"_s);
  answer(u"already"_s, 1);
  name(u"n\u00f6w"_s);
  press(u"cmdPlayListChoices"_s, 1);
  EXPECT_EQ(home.get(u"PlayLists/mix.m3u"_s), "old\n");
  EXPECT_EQ(home.get(u"PlayLists/n\u00f6w.m3u"_s), days[0].toUtf8() + '\n');
  EXPECT_TRUE(host->allDone());
}

TEST_F(PlaylistFlow, MarksFromEveryListAndDelTakesThemBack) {
  home.put(u"PlayLists/mix.m3u"_s, days[2].toUtf8());
  openLists();
  pressRow(6, 1);
  press(u"cmdFavoriateAdd"_s);
  openAlbum(1, 1);
  press(u"cmdFavoriateAdd"_s);
  EXPECT_TRUE(grid(1).rows().emphasised(1));
  press(u"cmdTop"_s, 3);
  pressRow(5, 4);
  press(u"cmdFavoriateAdd"_s);
  EXPECT_TRUE(grid(5).rows().emphasised(4));
  press(u"cmdTop"_s, 6);
  EXPECT_EQ(column(grid(8), 1), QStringList({u"Dawn"_s, u"Dusk"_s, u"One"_s}));
  Event del{Event::ButtonClicked};
  del.column = 6;
  del.row = 1;
  form().fire(grid(8), del);
  EXPECT_EQ(console().database.getFavorites().size(), 2);

  answer(u" Output file written = "_s);
  console().favourites.exportFavorites();
  EXPECT_EQ(home.get(u"PlayLists/Favorites.m3u"_s), (days[2] + u'\n' + one + u'\n').toUtf8());
  console().database.clearFavorite(u"Bo"_s, u"Only"_s, u"One"_s);
  console().favourites.importFavorites();
  EXPECT_EQ(console().database.getFavorites().size(), 2);
  console().settings.write(key::PLDirectory, home / u"nowhere"_s);
  answer(u"Playlist directory does not exist "_s);
  console().favourites.exportFavorites();
}

TEST_F(PlaylistFlow, AReplacedListComesBackWithItsSongAndPlace) {
  home.put(u"PlayLists/mix.m3u"_s, one.toUtf8());
  openLists();
  openAlbum(1, 1);
  playRow(1, 2);
  slider().value = 42;
  EXPECT_FALSE(shown(u"framListUndo"_s));
  playRow(1, 3);
  EXPECT_FALSE(shown(u"framListUndo"_s)) << "the same list goes on";
  press(u"cmdTop"_s, 2);
  pressRow(6, 1);  // the list is replaced, the song plays on
  EXPECT_TRUE(shown(u"framListUndo"_s));
  press(u"cmdListUndo"_s);
  EXPECT_EQ(player.calls.filter(u"open "_s).size(), 2);
  EXPECT_EQ(console().database.rsPlaySongs.RecordCount(), 3);

  slider().value = 42;
  press(u"cmdTop"_s, 2);
  pressRow(6, 1);
  playRow(3, 1);
  EXPECT_EQ(playing(), u"One"_s);
  press(u"cmdListUndo"_s);
  EXPECT_EQ(playing(), u"003-Dusk"_s);
  EXPECT_EQ(console().database.rsPlaySongs.AbsolutePosition(), 3);
  EXPECT_TRUE(player.calls.last().contains(u"42"_s)) << player.calls.last().toStdString();
  EXPECT_FALSE(shown(u"framListUndo"_s));
}

}  // namespace
}  // namespace korvane
