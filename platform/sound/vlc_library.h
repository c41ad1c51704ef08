// libVLC 3 as a table of its functions, opened by name when the first file is to be played: a
// console that plays nothing never maps it.
#pragma once

#include <vlc/vlc.h>

#include "platform/text.h"

namespace korvane {

#define KORVANE_VLC_FUNCTIONS(F)       \
  F(libvlc_new)                        \
  F(libvlc_release)                    \
  F(libvlc_media_new_path)             \
  F(libvlc_media_new_callbacks)        \
  F(libvlc_media_add_option)           \
  F(libvlc_media_release)              \
  F(libvlc_media_get_stats)            \
  F(libvlc_media_player_new)           \
  F(libvlc_media_player_release)       \
  F(libvlc_media_player_set_media)     \
  F(libvlc_media_player_play)          \
  F(libvlc_media_player_set_pause)     \
  F(libvlc_media_player_stop)          \
  F(libvlc_media_player_set_time)      \
  F(libvlc_media_player_event_manager) \
  F(libvlc_event_attach)               \
  F(libvlc_audio_set_volume)           \
  F(libvlc_audio_set_mute)

// Its members are the functions above under their own names, never null.
struct VlcLibrary {
#define KORVANE_VLC_MEMBER(name) decltype(&::name) name = nullptr;
  KORVANE_VLC_FUNCTIONS(KORVANE_VLC_MEMBER)
#undef KORVANE_VLC_MEMBER

  // The library of this process, opened at the first call and never closed. Null when it is not
  // installed or lacks a function; `error` then says which.
  static const VlcLibrary* open(QString* error);
};

}  // namespace korvane
