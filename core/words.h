// What the lists, buttons, tabs and states of the console are called. The number of each is the one
// that it has as a member of its control array, or as it is stored and sent; a number or a text
// stands in its place only there.
#pragma once

#include <optional>

#include "platform/text.h"

namespace korvane {

// The tabs, as in imgTabs.
enum TabIndex { kMusicTab = 0, kMoviesTab, kPhotosTab, kMainTab, kMapsTab, kMoreTab };

// The lists of the Music tab and of the radio, as in Grid. One of them is on screen at a time.
enum class MusicList {
  Artists,
  AlbumSongs,     // the songs of one album
  ArtistAlbums,   // the albums of one artist
  PlaylistSongs,  // the songs of one playlist
  Albums,
  AllSongs,
  Playlists,  // or, in jukebox mode, the queue
  DiscTracks,
  Favourites,
  FmStations,
  AmStations,
};
inline constexpr size_t kMusicLists = 11;

// The commands of the Music tab, as in cmdTop.
enum class PageCommand { Artists, Albums, Playlists, AllSongs, Search, Back, Favourites };

// The buttons of the transport, as in cmdControls. Delete is what Repeat is in jukebox mode.
enum class TransportButton { Previous, Play, Pause, Stop, Next, Repeat, Random, Continue };

// What a player does. The numbers are those of MediaPlayer::PlayState, and of the records of a
// Listener.
enum class PlayMode { Stopped, Paused, Playing };
// Of a reported number: nothing for one that is no state. A player that waits for its file or
// searches in it (3 to 5) plays; one that has closed it (6) has stopped.
std::optional<PlayMode> playModeOf(int report);

// The transport's own state, which music and movies share.
enum class MusicState { Stop, Play, Paused };
MusicState musicStateOf(PlayMode mode);
PlayMode playModeOf(MusicState state);

// Where music comes from.
enum class MusicSource { Digital, Cd };
// How movies are played; kept as "DIGITAL", "DVD" or "DVDL", the DVD of a Movie Listener.
enum class MovieType { Digital, Dvd, ListenerDvd };
MovieType movieTypeOf(const QString& stored);  // a DVD when it begins so, else digital
QString stored(MovieType type);

// The place of a member in its control array.
template <class Word>
constexpr size_t at(Word word) {
  return static_cast<size_t>(word);
}

}  // namespace korvane
