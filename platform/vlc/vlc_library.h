// libVLC 3 as a table of its functions, opened by name when the first file is to be played: a
// console that plays nothing never maps it.
#pragma once

#include <vlc/vlc.h>

#include "platform/text.h"

namespace korvane {

#define KORVANE_VLC_FUNCTIONS(F)                     \
  F(libvlc_new)                                      \
  F(libvlc_media_new_path)                           \
  F(libvlc_media_new_location)                       \
  F(libvlc_media_new_callbacks)                      \
  F(libvlc_media_add_option)                         \
  F(libvlc_media_slaves_add)                         \
  F(libvlc_media_release)                            \
  F(libvlc_media_get_stats)                          \
  F(libvlc_media_tracks_get)                         \
  F(libvlc_media_tracks_release)                     \
  F(libvlc_media_player_new)                         \
  F(libvlc_media_player_release)                     \
  F(libvlc_media_player_set_media)                   \
  F(libvlc_media_player_play)                        \
  F(libvlc_media_player_set_pause)                   \
  F(libvlc_media_player_stop)                        \
  F(libvlc_media_player_set_time)                    \
  F(libvlc_media_player_get_time)                    \
  F(libvlc_media_player_get_length)                  \
  F(libvlc_media_player_get_title)                   \
  F(libvlc_media_player_set_title)                   \
  F(libvlc_media_player_get_chapter)                 \
  F(libvlc_media_player_set_chapter)                 \
  F(libvlc_media_player_get_chapter_count_for_title) \
  F(libvlc_media_player_get_full_title_descriptions) \
  F(libvlc_title_descriptions_release)               \
  F(libvlc_media_player_has_vout)                    \
  F(libvlc_media_player_navigate)                    \
  F(libvlc_media_player_set_xwindow)                 \
  F(libvlc_media_player_event_manager)               \
  F(libvlc_event_attach)                             \
  F(libvlc_audio_set_volume)                         \
  F(libvlc_audio_set_mute)                           \
  F(libvlc_audio_get_track)                          \
  F(libvlc_audio_set_track)                          \
  F(libvlc_audio_get_track_description)              \
  F(libvlc_track_description_list_release)           \
  F(libvlc_video_get_spu)                            \
  F(libvlc_video_set_spu)                            \
  F(libvlc_video_get_spu_description)                \
  F(libvlc_video_set_callbacks)                      \
  F(libvlc_video_set_format_callbacks)               \
  F(libvlc_video_set_mouse_input)                    \
  F(libvlc_video_set_key_input)

// Its members are the functions above under their own names, never null.
struct VlcLibrary {
#define KORVANE_VLC_MEMBER(name) decltype(&::name) name = nullptr;
  KORVANE_VLC_FUNCTIONS(KORVANE_VLC_MEMBER)
#undef KORVANE_VLC_MEMBER

  // The library of this process, opened at the first call and never closed. Null when it is not
  // installed or lacks a function; `error` then says which.
  static const VlcLibrary* open(QString* error);

  // The instance of this process for that list of arguments, beside those that all players share;
  // null when libVLC refuses them. Never released: with the last instance libVLC unloads its
  // plug-ins, and the one for tags leaves objects of its own behind in the TagLib that this program
  // uses too. From any thread.
  libvlc_instance_t* instance(const QStringList& arguments) const;
};

}  // namespace korvane
