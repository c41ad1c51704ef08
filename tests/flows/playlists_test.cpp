#include <QDir>

#include "tests/flows/cabin.h"

namespace korvane {
namespace {

class PlaylistFlow : public CabinTest {
 protected:
  PlaylistFlow() {
    days = givenDays();
    one = given(u"Bo"_s, u"Only"_s, u"One"_s);
    setting("LOCALLISTENER=1\nListUndo=YES\n");
  }
  void openLists() {
    start();
    openPage(2);
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
  QDir(home / u"PlayLists"_s).removeRecursively();
  answer(u"cannot be read"_s);
  pressRow(6, 1);
  press(u"cmdTop"_s, 2);
  EXPECT_EQ(grid(6).maxRows(), 0);
  home.put(u"file"_s, "in the way");
  console().desk.settings.write(key::PLDirectory, home / u"file/lists"_s);
  EXPECT_EQ(console().library.playlists.directory(), home / u"PlayLists"_s);
}

TEST_F(PlaylistFlow, AListPlaysItsSongsAndStrangersWhateverPlayedBetween) {
  const QString name = u"a stranger with a name of more than fifty letters.mp3"_s;
  const QString stranger = home.put(u"PlayLists/"_s + name, "x");
  home.put(u"PlayLists/mix.m3u"_s,
           (one + u'\n' + name + u"\n../Music/Ada/Days/003-Dusk.mp3\n"_s).toUtf8());
  home.put(u"PlayLists/none.m3u"_s, "#EXTM3U\n\n");
  openLists();
  answer(u"No songs in the playlist to use!! "_s);
  pressRow(6, 2);
  pressRow(6, 1);
  EXPECT_EQ(caption(u"lblCurrentPlayList"_s), u"Play List = mix  (3)"_s);
  EXPECT_EQ(column(grid(3), 1), QStringList({u"One"_s, name.right(50), u"Dusk"_s}));
  EXPECT_TRUE(grid(3).rows().foreign(2) && !grid(3).rows().foreign(1));
  playRow(3, 2);
  EXPECT_EQ(player.calls.filter(u"open "_s).last(), u"open "_s + stranger);
  songEnds();
  EXPECT_EQ(playing(), u"003-Dusk"_s);
  console().library.database.resetPlaySongs();  // as another list does
  playRow(3, 1);
  EXPECT_EQ(playing(), u"One"_s);
  songEnds();
  EXPECT_EQ(grid(3).row(), 2);
}

TEST_F(PlaylistFlow, AnEditKeepsWhatASaveCouldNotWrite) {
  const QByteArray before = (days[0] + u'\n' + one + u'\n').toUtf8();
  home.put(u"PlayLists/mix.m3u"_s, before);
  openLists();
  console().library.editor.edit(u"mix"_s, home / u"PlayLists/mix.m3u"_s);
  EXPECT_FALSE(shown(u"optMode"_s, 0));
  press(u"cmdPlayListCommands"_s, 2);
  press(u"cmdPlayListCommands"_s, 2);  // the last row goes no further
  const QStringList wanted{u"One"_s, u"Dawn"_s};
  const auto refused = [&](const QString& why) {
    answer(why);
    press(u"cmdPlayListChoices"_s, 1);
    EXPECT_TRUE(shown(u"framSongEdit"_s));
    EXPECT_EQ(column(edited(), 1), wanted);
  };
  const QString lists = home / u"PlayLists"_s, aside = home / u"gone"_s;
  QFile::rename(lists, aside);
  refused(u"File name is not good, try another."_s);
  QFile::rename(aside, lists);
  diskCalls.full = true;
  refused(u"The disk is full"_s);
  diskCalls.full = false;
  EXPECT_EQ(home.get(u"PlayLists/mix.m3u"_s), before);
  press(u"cmdPlayListChoices"_s, 1);
  EXPECT_EQ(home.get(u"PlayLists/mix.m3u"_s), (one + u'\n' + days[0] + u'\n').toUtf8());
  EXPECT_FALSE(shown(u"framSongEdit"_s));
  EXPECT_TRUE(shown(u"optMode"_s, 0));
  EXPECT_EQ(control(u"coverArt"_s).rect().left, control(u"coverArt"_s).laid.left);
}

TEST_F(PlaylistFlow, ANewListAsksForItsNameUntilItIsGood) {
  home.put(u"PlayLists/mix.m3u"_s, "old\n");
  openLists();
  console().library.editor.create();
  press(u"cmdTop"_s, 3);
  pressRow(5, 1);
  press(u"cmdPlayListCommands"_s, 3);
  typed({});
  press(u"cmdPlayListChoices"_s, 1);
  EXPECT_EQ(edited().maxRows(), 1) << "a name that was not given loses nothing";
  typed(u"mix"_s);
  answer(u"already"_s, No);
  typed(u"n\u00f6w"_s);
  press(u"cmdPlayListChoices"_s, 1);
  EXPECT_EQ(home.get(u"PlayLists/mix.m3u"_s), "old\n");
  EXPECT_EQ(home.get(u"PlayLists/n\u00f6w.m3u"_s), days[0].toUtf8() + '\n');
  EXPECT_TRUE(host->allDone());
}

TEST_F(PlaylistFlow, MarksShowAtOnceAndAreWrittenInOrder) {
  start();
  openPage(3);
  pressRow(5, 4);
  press(u"cmdFavoriateAdd"_s);
  EXPECT_TRUE(grid(5).rows().emphasised(4));
  openAlbum(1, 1);
  press(u"cmdFavoriateAdd"_s);
  EXPECT_TRUE(grid(1).rows().emphasised(1));
  answer(u" Output file written = "_s);
  console().library.favourites.exportFavorites();
  EXPECT_EQ(home.get(u"PlayLists/Favorites.m3u"_s), (days[0] + u'\n' + one + u'\n').toUtf8());
  console().desk.settings.write(key::PLDirectory, home / u"nowhere"_s);
  answer(u"Playlist directory does not exist "_s);
  console().library.favourites.exportFavorites();
}

TEST_F(PlaylistFlow, AReplacedListComesBackUnderTheSongThatPlays) {
  home.put(u"PlayLists/mix.m3u"_s, one.toUtf8());
  openLists();
  openAlbum(1, 1);
  playRow(1, 2);
  playRow(1, 3);
  EXPECT_FALSE(shown(u"framListUndo"_s)) << "the same list goes on";
  press(u"cmdTop"_s, 2);
  pressRow(6, 1);  // the list is replaced, the song plays on
  EXPECT_TRUE(shown(u"framListUndo"_s));
  press(u"cmdListUndo"_s);
  EXPECT_EQ(player.calls.filter(u"open "_s).size(), 2);
  EXPECT_EQ(console().library.database.rsPlaySongs.RecordCount(), 3);
}

}  // namespace
}  // namespace korvane
