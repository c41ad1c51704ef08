// What an owner's button does: a built-in action by its word, or a program by its path.
#pragma once

#include <span>

#include "platform/text.h"

namespace korvane {

enum class ButtonAction {
  None,     // the button has none
  Program,  // any other text: the path of a program
  Ripper,
  Restart,
  Shutdown,
  Connect,  // the Master Listener anew
  PictureEdit,
  // Beyond the first ones: pages of the console, and what is done there.
  Music,
  Movies,
  Photos,
  Maps,
  More,
  Artists,
  Albums,
  Songs,
  Search,
  Playlists,
  Favourites,
  Jukebox,
  Shuffle,
  PlayPause,
  Disc,
  Mute,
  Setup,
  Minimise,
  Exit,
};

// The action of a button's Tag, in any case.
ButtonAction buttonActionOf(const QString& tag);

// The icon of the theme's group "main"; empty for none.
QString buttonIcon(ButtonAction action);

// The entries of customSelect: a word in the first 14 characters, its meaning behind.
QStringList customSelectEntries();

}  // namespace korvane
