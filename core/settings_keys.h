// The table of settings keys: where each lives, how it is read, and what an absent one means.
#pragma once

#include <span>

namespace korvane {

enum class Rule {
  Str,            // trimmed text
  UStr,           // trimmed, upper case
  Text,           // as stored
  Flag1,          // true for "1"
  FlagYes,        // true for "YES"
  FlagVal,        // true for a number that is not 0
  Flag1NoIsZero,  // true for exactly "1"
  ShownUnless0,   // false for "0" and when absent
  Number,         // within [low, high], else the default
};

struct SettingKey {
  const char* section;
  const char* name;
  Rule rule;
  int low = 0, high = 0, standard = 0;  // of Rule::Number
};

namespace key {

// STARTUP
inline constexpr SettingKey Theme{"STARTUP", "Theme", Rule::UStr};
inline constexpr SettingKey MainPage{"STARTUP", "MainPage", Rule::Str};
inline constexpr SettingKey firstTab{"STARTUP", "firstTab", Rule::UStr};
inline constexpr SettingKey GridHeight{"STARTUP", "GridHeight", Rule::Number, 10, 50, 19};
inline constexpr SettingKey GridFontSize{"STARTUP", "GridFontSize", Rule::Number, 2, 25, 12};
inline constexpr SettingKey LocalServer{"STARTUP", "LocalServer", Rule::FlagVal};
inline constexpr SettingKey LOCALLISTENER{"STARTUP", "LOCALLISTENER", Rule::FlagVal};
inline constexpr SettingKey MasterListenerIP{"STARTUP", "MasterListenerIP", Rule::Str};
inline constexpr SettingKey MasterListenerPort{"STARTUP", "MasterListenerPort", Rule::Str};
inline constexpr SettingKey MasterListenerMyName{"STARTUP", "MasterListenerMyName", Rule::Str};
inline constexpr SettingKey ShowSetup{"STARTUP", "ShowSetup", Rule::Flag1};
inline constexpr SettingKey ShowMin{"STARTUP", "ShowMin", Rule::Flag1};
inline constexpr SettingKey ShowExit{"STARTUP", "ShowExit", Rule::Flag1};
inline constexpr SettingKey ShowMute{"STARTUP", "ShowMute", Rule::Flag1};
inline constexpr SettingKey ControlButtonsmain{"STARTUP", "ControlButtonsmain", Rule::Flag1};
inline constexpr SettingKey ControlButtons{"STARTUP", "ControlButtons", Rule::FlagYes};
inline constexpr SettingKey ShowInTheTaskBar{"STARTUP", "ShowInTheTaskBar", Rule::UStr};
inline constexpr SettingKey DisplayVolume{"STARTUP", "DisplayVolume", Rule::FlagVal};
inline constexpr SettingKey MOVEMAIN{"STARTUP", "MOVEMAIN", Rule::FlagVal};
inline constexpr SettingKey debug{"STARTUP", "debug", Rule::FlagVal};
inline constexpr SettingKey myname{"STARTUP", "myname", Rule::Text};
inline constexpr SettingKey SERVERIP{"STARTUP", "SERVERIP", Rule::Text};
inline constexpr SettingKey SERVERPORT{"STARTUP", "SERVERPORT", Rule::Text};
inline constexpr SettingKey RouterIP{"STARTUP", "RouterIP", Rule::Str};
inline constexpr SettingKey WWWIP{"STARTUP", "WWWIP", Rule::Str};
inline constexpr SettingKey NICCard{"STARTUP", "NICCard", Rule::Str};
inline constexpr SettingKey Maps{"STARTUP", "Maps", Rule::Flag1NoIsZero};
inline constexpr SettingKey Radio{"STARTUP", "Radio", Rule::Flag1NoIsZero};
inline constexpr SettingKey ShowPhoto{"STARTUP", "ShowPhoto", Rule::ShownUnless0};
inline constexpr SettingKey ShowMap{"STARTUP", "ShowMap", Rule::ShownUnless0};
inline constexpr SettingKey ShowControl{"STARTUP", "ShowControl", Rule::ShownUnless0};
inline constexpr SettingKey TV{"STARTUP", "TV", Rule::FlagYes};
inline constexpr SettingKey X10{"STARTUP", "X10", Rule::UStr};
inline constexpr SettingKey Premise{"STARTUP", "Premise", Rule::FlagYes};
inline constexpr SettingKey X10IP{"STARTUP", "X10IP", Rule::UStr};
inline constexpr SettingKey X10Port{"STARTUP", "X10Port", Rule::UStr};
inline constexpr SettingKey Camera{"STARTUP", "Camera", Rule::Flag1NoIsZero};
inline constexpr SettingKey CameraDevice{"STARTUP", "CameraDevice", Rule::Text};
inline constexpr SettingKey VideoFormat{"STARTUP", "VideoFormat", Rule::Text};
inline constexpr SettingKey ADDSON{"STARTUP", "ADDSON", Rule::FlagYes};
inline constexpr SettingKey ADDSTART{"STARTUP", "ADDSTART", Rule::Number, -32768, 32767, 20};
inline constexpr SettingKey ADDSBETWEEN{"STARTUP", "ADDSBETWEEN", Rule::Number, -32768, 32767, 10};
inline constexpr SettingKey Setup{"STARTUP", "Setup", Rule::Str};
inline constexpr SettingKey CDDBPath{"STARTUP", "CDDBPath", Rule::Str};
inline constexpr SettingKey RadioTop{"STARTUP", "RadioTop", Rule::Text};
inline constexpr SettingKey RadioLeft{"STARTUP", "RadioLeft", Rule::Text};

// STARTUP, beyond the first design: absent means off
inline constexpr SettingKey Tags{"STARTUP", "Tags", Rule::UStr};               // "FULL"
inline constexpr SettingKey TagCodePage{"STARTUP", "TagCodePage", Rule::Str};  // of 8-bit tags
inline constexpr SettingKey FileKinds{"STARTUP", "FileKinds", Rule::UStr};     // "FLAC OGG ..."
inline constexpr SettingKey SinglePress{"STARTUP", "SinglePress",
                                        Rule::FlagYes};  // one tap activates
inline constexpr SettingKey MusicListener{"STARTUP", "MusicListener", Rule::Str};  // "host:port"
inline constexpr SettingKey LinkSupervision{"STARTUP", "LinkSupervision", Rule::FlagYes};
inline constexpr SettingKey QuietMixer{"STARTUP", "QuietMixer", Rule::FlagYes};  // no box at start
inline constexpr SettingKey VolumeMax{"STARTUP", "VolumeMax", Rule::Number, 1, 100, 100};
inline constexpr SettingKey VolumeStart{"STARTUP", "VolumeStart", Rule::Number, 0, 100, 50};
inline constexpr SettingKey KeyboardLayout{"STARTUP", "KeyboardLayout", Rule::UStr};
inline constexpr SettingKey JukeboxLock{"STARTUP", "JukeboxLock", Rule::FlagYes};  // for guests
inline constexpr SettingKey ListUndo{"STARTUP", "ListUndo", Rule::FlagYes};        // a way back
inline constexpr SettingKey FollowSound{"STARTUP", "FollowSound", Rule::FlagYes};
inline constexpr SettingKey KeepList{"STARTUP", "KeepList", Rule::FlagYes};
inline constexpr SettingKey HomePanel{"STARTUP", "HomePanel", Rule::FlagYes};  // of the Main tab
inline constexpr SettingKey ListenerEncoding{"STARTUP", "ListenerEncoding", Rule::UStr};
inline constexpr SettingKey CDDrive{"STARTUP", "CDDrive", Rule::Str};  // device or CUE sheet

// Other sections
inline constexpr SettingKey MovieListener{"Movies", "MovieListener", Rule::FlagVal};
inline constexpr SettingKey MDirectory{"Movies", "MDirectory", Rule::Str};
inline constexpr SettingKey MDirectory1{"Movies", "MDirectory1", Rule::Str};
inline constexpr SettingKey MDirectory2{"Movies", "MDirectory2", Rule::Str};
inline constexpr SettingKey MDirectory3{"Movies", "MDirectory3", Rule::Str};
inline constexpr SettingKey DVD{"Movies", "DVD", Rule::Str};
inline constexpr SettingKey DVD0{"Movies", "DVD0", Rule::Str};
inline constexpr SettingKey DVD1{"Movies", "DVD1", Rule::Str};
inline constexpr SettingKey DVD2{"Movies", "DVD2", Rule::Str};
inline constexpr SettingKey DVD3{"Movies", "DVD3", Rule::Str};
inline constexpr SettingKey DVD4{"Movies", "DVD4", Rule::Str};
inline constexpr SettingKey DVD5{"Movies", "DVD5", Rule::Str};
inline constexpr SettingKey PDirectory{"Photos", "PDirectory", Rule::Str};
inline constexpr SettingKey Delay{"Photos", "Delay", Rule::Str};
inline constexpr SettingKey PLDirectory{"Playlist", "PLDirectory", Rule::Str};
inline constexpr SettingKey LASTSONGPLAYED{"GENERAL", "LASTSONGPLAYED", Rule::Text};
inline constexpr SettingKey MusicRoot{"GENERAL", "MusicRoot", Rule::Str};  // where scans began last

}  // namespace key

// Every key above, for setup, the starter console and the list of settings.
std::span<const SettingKey* const> allSettingKeys();

}  // namespace korvane
