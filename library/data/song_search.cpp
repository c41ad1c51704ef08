#include "library/data/song_search.h"

#include "library/data/vb_text.h"

namespace korvane {
namespace {

RowTable::Row albumRow(const QString& album, const QString& artist) {
  return {{album + u" ("_s + artist + u')', album, artist}};
}

}  // namespace

void clsSearch::SetupPlaySongs() {
  grid_.columns = {{}, {QString(), 0, true}, {QString(), 0, true}};
  grid_.colours = palette_.grid(u"PlayListGrid", u"PlayListGridSelected", u"MUSICGridTopLine");
  grid_.fontSize = state_.gGridFontSize;
}

void clsSearch::Setup(const QString& kind) {
  kind_ = kind;
  grid_.rowHeight = std::min(state_.gGridHeight, mostRowHeight_);
  grid_.header = kind == "ARTIST"_L1  ? u"Artist"_s
                 : kind == "ALBUM"_L1 ? u"Album"_s
                                      : u"Song Title"_s;
  grid_.clear();
}

void clsSearch::show(const QString& kind, std::vector<RowTable::Row> rows) {
  const bool nothingYet = rows.empty() && database_.findArtists(QString(), 1).isEmpty();
  Setup(kind);
  grid_.emptyText = nothingYet ? u"Go to setup and set the MP3 directory"_s : u"Nothing found"_s;
  if (rows.size() > kMost) rows.resize(kMost);
  grid_.setRows(std::move(rows));
}

void clsSearch::SearchArtist(const QString& artist) {
  std::vector<RowTable::Row> rows;
  for (const QString& album : database_.getArtistAlbums(fixDoubleQuote(artist)))
    rows.push_back(albumRow(album, artist));
  show(u"ALBUM"_s, std::move(rows));
}

void clsSearch::SearchAlbum(const QString& album, const QString& artist) {
  std::vector<RowTable::Row> rows;
  for (const Song& song :
       database_.getArtistOrAlbumSongs(fixDoubleQuote(artist), fixDoubleQuote(album)))
    rows.push_back({{songTitleShown(song.SongTitle), song.SongPath}});
  show(u"SONG"_s, std::move(rows));
}

void clsSearch::Search(const QString& kind, const QString& text) {
  std::vector<RowTable::Row> rows;
  if (kind == "ARTIST"_L1) {
    for (const QString& artist : database_.findArtists(fixDoubleQuote(text), kMost))
      rows.push_back({{artist}});
  } else if (kind == "ALBUM"_L1) {
    for (const auto& [album, artist] : database_.findAlbums(fixDoubleQuote(text), kMost))
      rows.push_back(albumRow(album, artist));
  } else {
    const auto songs = database_.getAllSongs();
    const int first = songs->Find(text);
    for (int row = first; row <= songs->rowCount() && row < first + kMost; ++row)
      rows.push_back({{songs->cell(1, row), songs->cell(3, row)}});
  }
  show(kind, std::move(rows));
}

}  // namespace korvane
