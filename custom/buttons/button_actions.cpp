#include "custom/buttons/button_actions.h"

namespace korvane {
namespace {

struct ActionRow {
  const char* word;
  ButtonAction action;
  const char* icon;
};

constexpr ActionRow kActions[] = {
    {"RIPPER", ButtonAction::Ripper, "btnripper"},
    {"RESTART", ButtonAction::Restart, "btnrestart"},
    {"SHUTDOWN", ButtonAction::Shutdown, "btnshutdown"},
    {"CONNECT", ButtonAction::Connect, "btnconnect"},
    {"RECONNECT", ButtonAction::Connect, "btnconnect"},
    {"PICTUREEDIT", ButtonAction::PictureEdit, "btnpictureedit"},
    {"MUSIC", ButtonAction::Music, "btnmusic"},
    {"MOVIES", ButtonAction::Movies, "btnmovies"},
    {"PHOTOS", ButtonAction::Photos, "btnphotos"},
    {"MAPS", ButtonAction::Maps, "btnmaps"},
    {"MORE", ButtonAction::More, "btnmore"},
    {"ARTISTS", ButtonAction::Artists, "btnartists"},
    {"ALBUMS", ButtonAction::Albums, "btnalbums"},
    {"SONGS", ButtonAction::Songs, "btnsongs"},
    {"SEARCH", ButtonAction::Search, "btnsearch"},
    {"PLAYLISTS", ButtonAction::Playlists, "btnplaylists"},
    {"FAVOURITES", ButtonAction::Favourites, "btnfavourites"},
    {"JUKEBOX", ButtonAction::Jukebox, "btnjukebox"},
    {"SHUFFLE", ButtonAction::Shuffle, "btnshuffle"},
    {"PLAYPAUSE", ButtonAction::PlayPause, "btnplaypause"},
    {"CD", ButtonAction::Disc, "btncd"},
    {"MUTE", ButtonAction::Mute, "btnmute"},
    {"SETUP", ButtonAction::Setup, "btnsetup"},
    {"MINIMISE", ButtonAction::Minimise, "btnminimise"},
    {"EXIT", ButtonAction::Exit, "btnexit"},
};

// The order is the list's. The first five are as they have always stood there: the first cannot be
// chosen, and "RESET" is no word that a button knows.
constexpr const char* kEntries[] = {
    "CONNECT         master listener",
    "PICTUREEDIT   allow edit of pictures",
    "RESET               resete the computer",
    "RIPPER             Rip CDs &",
    "SHUTDOWN        shut the computer down",
    "SHUFFLE       play all songs in any order",
    "PLAYPAUSE     play or pause the music",
    "FAVOURITES    the favourite songs",
    "PLAYLISTS     the playlists",
    "JUKEBOX       turn the jukebox on",
    "ARTISTS       the artists",
    "ALBUMS        the albums",
    "SONGS         all songs",
    "SEARCH        search the music",
    "CD            play the CD",
    "MUSIC         open the Music tab",
    "MOVIES        open the Movies tab",
    "PHOTOS        open the Photos tab",
    "MAPS          open the Maps tab",
    "MORE          open the More tab",
    "MUTE          turn the sound off and on",
    "RECONNECT     look for the Listeners again",
    "SETUP         open setup",
    "RESTART       restart the computer",
    "MINIMISE      show what is behind",
    "EXIT          leave Korvane",
};

}  // namespace

ButtonAction buttonActionOf(const QString& tag) {
  if (tag.isEmpty()) return ButtonAction::None;
  const QString word = tag.toUpper();
  for (const ActionRow& row : kActions)
    if (word == QLatin1StringView(row.word)) return row.action;
  return ButtonAction::Program;
}

QString buttonIcon(ButtonAction action) {
  if (action == ButtonAction::Program) return u"btnprogram"_s;
  for (const ActionRow& row : kActions)
    if (row.action == action) return QString::fromLatin1(row.icon);
  return {};
}

QStringList customSelectEntries() {
  QStringList entries;
  for (const char* entry : kEntries) entries << QString::fromLatin1(entry);
  return entries;
}

}  // namespace korvane
