// The statements of the song database, in one table. Values travel as parameters, never in the
// text.
#pragma once

namespace korvane::statement {

inline constexpr char kCountArtists[] =
    "SELECT count(*) FROM (SELECT  distinct artist   FROM Songs) AS [z];";
inline constexpr char kCountAlbums[] =
    "SELECT count(*) FROM (SELECT  distinct album   FROM Songs) AS [z];";
inline constexpr char kCountSongs[] = "SELECT count(*)  FROM Songs;";

inline constexpr char kAllSongs[] =
    "SELECT  "
    " trim(iif(mid(songTitle,4,1) = '-', mid(songTitle,5),SongTitle)) as tsongTitle  ,"
    " artist,songpath,album from songs  order by "
    " trim(iif(mid(songTitle,4,1) = '-', mid(songTitle,5),SongTitle)) COLLATE TEXTORDER";
inline constexpr char kAllSongsCount[] = "SELECT count(*)  from songs ";
inline constexpr char kAllAlbums[] = "SELECT  album,artist  from songs  group by album,artist";
inline constexpr char kAllArtists[] = "SELECT  Artist from songs  group by artist order by artist";
inline constexpr char kAlbumsOfArtist[] =
    "SELECT  album  from songs  where artist = ?1 group by album";
inline constexpr char kSongsOfAlbum[] =
    "SELECT * from songs where artist = ?1 and  album = ?2 order by songtitle ";
inline constexpr char kFavorites[] =
    "Select * from songs where year = '-1' "
    " order by songtitle ";

inline constexpr char kFindArtists[] =
    "Select artist from songs where artist  like '%' || ?1 || '%' group  by artist limit ?2";
inline constexpr char kFindAlbums[] =
    "Select album,artist from songs where album  like '%' || ?1 || '%' group by album,artist "
    "limit ?2";

inline constexpr char kSongAtPath[] = "Select * from songs where songpath = ?1";
inline constexpr char kSongLikePath[] =
    "SELECT  * From Songs Where Songs.songpath Like '%' || ?1 || '%' ";

inline constexpr char kMarkByTitle[] =
    " Update songs set [year] = '-1' where  "
    "          artist = ?1  and     album  = ?2  and songTitle  = ?3";
inline constexpr char kMarkByPath[] =
    " Update songs set [year] = '-1' where  "
    "          artist = ?1  and     album  = ?2  and songpath  like ?3";
inline constexpr char kMarkById[] = "Update songs set [year] = '-1' where SongID = ?1";
inline constexpr char kClearMark[] =
    " Update songs set [year] = '' where  "
    "          artist = ?1  and     album  = ?2  and songTitle  = ?3";
inline constexpr char kMarkOnImport[] =
    " Update songs set [year] = '-1' where  "
    "  [SongPath]  like ?1";

inline constexpr char kDuplicate[] =
    "Select * from songs where artist = ?1 and album = ?2 and "
    " songtitle = ?3";
inline constexpr char kInsert[] =
    "Insert into songs (artist,album,songtitle,[year],comment,songpath) "
    "values(?1,?2,?3,?4,?5,?6) ";
inline constexpr char kInsertUntagged[] =
    "Insert into songs (artist,album,songtitle,[year],comment,songpath) "
    "values(?1,?2,?3,null ,null,?4) ";
inline constexpr char kInsertArtist[] = "Insert into songs  (Artist)  values(?1)";

}  // namespace korvane::statement
