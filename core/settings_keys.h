// The table of settings keys, the one place that says where each lives, how and when it is read,
// and what an absent one means. docs/settings.md says what each is for.
#pragma once

namespace korvane {

// How the stored text is converted. "Blanks cut" is blanks at both ends. An absent key reads "NO".
enum class Rule {
  Str,            // text, blanks cut
  UStr,           // in upper case, blanks cut
  Text,           // as stored
  Flag1,          // on for "1", blanks cut
  FlagYes,        // on for "YES" in any case, blanks cut
  FlagExactYes,   // on for "YES" in this case, blanks cut
  FlagVal,        // on when the number that it begins with is not 0
  Flag1NoIsZero,  // on for "1" exactly
  Shown,          // off for "0" and "NO" in this case, blanks cut
  ShownAnyCase,   // off for "0" and "NO" in any case, blanks count
  Number,         // a number within [low, high], else the default; halves go to the even one
};

// When a change of the stored text counts.
enum class When {
  Start,  // at the next start; what setup applies at once it applies itself
  Live,   // the next time that it is needed
  Kept,   // never: it is stored, and shown by setup, for what is not there yet
};

struct SettingKey {
  const char* section;
  const char* name;
  Rule rule;
  When when;
  int low = 0, high = 0, standard = 0;  // of Rule::Number
};

namespace key {

// STARTUP
inline constexpr SettingKey Theme{"STARTUP", "Theme", Rule::UStr, When::Start};
inline constexpr SettingKey MainPage{"STARTUP", "MainPage", Rule::Str, When::Start};
inline constexpr SettingKey firstTab{"STARTUP", "firstTab", Rule::UStr, When::Kept};
inline constexpr SettingKey GridHeight{"STARTUP", "GridHeight", Rule::Number, When::Start, 10, 50,
                                       19};
inline constexpr SettingKey GridFontSize{
    "STARTUP", "GridFontSize", Rule::Number, When::Start, 2, 25, 12};
inline constexpr SettingKey LocalServer{"STARTUP", "LocalServer", Rule::FlagVal, When::Start};
inline constexpr SettingKey LOCALLISTENER{"STARTUP", "LOCALLISTENER", Rule::FlagVal, When::Start};
inline constexpr SettingKey MasterListenerIP{"STARTUP", "MasterListenerIP", Rule::Str, When::Start};
inline constexpr SettingKey MasterListenerPort{"STARTUP", "MasterListenerPort", Rule::Str,
                                               When::Start};
inline constexpr SettingKey MasterListenerMyName{"STARTUP", "MasterListenerMyName", Rule::Str,
                                                 When::Start};
inline constexpr SettingKey ShowSetup{"STARTUP", "ShowSetup", Rule::Flag1, When::Start};
inline constexpr SettingKey ShowMin{"STARTUP", "ShowMin", Rule::Flag1, When::Start};
inline constexpr SettingKey ShowExit{"STARTUP", "ShowExit", Rule::Flag1, When::Start};
inline constexpr SettingKey ShowMute{"STARTUP", "ShowMute", Rule::Flag1, When::Start};
inline constexpr SettingKey ControlButtonsmain{"STARTUP", "ControlButtonsmain", Rule::Flag1,
                                               When::Start};
inline constexpr SettingKey ControlButtons{"STARTUP", "ControlButtons", Rule::FlagYes, When::Kept};
inline constexpr SettingKey ShowInTheTaskBar{"STARTUP", "ShowInTheTaskBar", Rule::UStr,
                                             When::Start};
inline constexpr SettingKey DisplayVolume{"STARTUP", "DisplayVolume", Rule::FlagVal, When::Start};
inline constexpr SettingKey MOVEMAIN{"STARTUP", "MOVEMAIN", Rule::FlagVal, When::Start};
inline constexpr SettingKey debug{"STARTUP", "debug", Rule::FlagVal, When::Kept};
inline constexpr SettingKey myname{"STARTUP", "myname", Rule::Text, When::Kept};
inline constexpr SettingKey SERVERIP{"STARTUP", "SERVERIP", Rule::Text, When::Kept};
inline constexpr SettingKey SERVERPORT{"STARTUP", "SERVERPORT", Rule::Text, When::Kept};
inline constexpr SettingKey RouterIP{"STARTUP", "RouterIP", Rule::Str, When::Kept};
inline constexpr SettingKey WWWIP{"STARTUP", "WWWIP", Rule::Str, When::Kept};
inline constexpr SettingKey NICCard{"STARTUP", "NICCard", Rule::Str, When::Live};
inline constexpr SettingKey Maps{"STARTUP", "Maps", Rule::Flag1NoIsZero, When::Start};
inline constexpr SettingKey Radio{"STARTUP", "Radio", Rule::Flag1NoIsZero, When::Start};
inline constexpr SettingKey ShowPhoto{"STARTUP", "ShowPhoto", Rule::Shown, When::Start};
inline constexpr SettingKey ShowMap{"STARTUP", "ShowMap", Rule::ShownAnyCase, When::Start};
inline constexpr SettingKey ShowControl{"STARTUP", "ShowControl", Rule::ShownAnyCase, When::Start};
inline constexpr SettingKey TV{"STARTUP", "TV", Rule::FlagYes, When::Kept};
inline constexpr SettingKey X10{"STARTUP", "X10", Rule::UStr, When::Start};
inline constexpr SettingKey Premise{"STARTUP", "Premise", Rule::FlagYes, When::Start};
inline constexpr SettingKey X10IP{"STARTUP", "X10IP", Rule::UStr, When::Start};
inline constexpr SettingKey X10Port{"STARTUP", "X10Port", Rule::UStr, When::Start};
inline constexpr SettingKey Camera{"STARTUP", "Camera", Rule::Flag1NoIsZero, When::Start};
inline constexpr SettingKey CameraDevice{"STARTUP", "CameraDevice", Rule::Text, When::Kept};
inline constexpr SettingKey VideoFormat{"STARTUP", "VideoFormat", Rule::Text, When::Kept};
inline constexpr SettingKey ADDSON{"STARTUP", "ADDSON", Rule::FlagExactYes, When::Start};
inline constexpr SettingKey ADDSTART{"STARTUP", "ADDSTART", Rule::Number, When::Start, -32768,
                                     32767,     20};
inline constexpr SettingKey ADDSBETWEEN{
    "STARTUP", "ADDSBETWEEN", Rule::Number, When::Start, -32768, 32767, 10};
inline constexpr SettingKey Setup{"STARTUP", "Setup", Rule::Str, When::Live};
inline constexpr SettingKey CDDBPath{"STARTUP", "CDDBPath", Rule::Str, When::Live};
inline constexpr SettingKey RadioTop{"STARTUP", "RadioTop", Rule::Text, When::Kept};
inline constexpr SettingKey RadioLeft{"STARTUP", "RadioLeft", Rule::Text, When::Kept};

// STARTUP, what an owner may add: absent means off
inline constexpr SettingKey Tags{"STARTUP", "Tags", Rule::UStr, When::Live};  // "FULL"
inline constexpr SettingKey TagCodePage{"STARTUP", "TagCodePage", Rule::Str,
                                        When::Live};  // of 8-bit tags
inline constexpr SettingKey FileKinds{"STARTUP", "FileKinds", Rule::UStr,
                                      When::Live};  // "FLAC OGG ..."
inline constexpr SettingKey SinglePress{"STARTUP", "SinglePress", Rule::FlagYes,
                                        When::Start};  // one tap activates
inline constexpr SettingKey MusicListener{"STARTUP", "MusicListener", Rule::Str,
                                          When::Start};  // "host:port"
inline constexpr SettingKey LinkSupervision{"STARTUP", "LinkSupervision", Rule::FlagYes,
                                            When::Live};
inline constexpr SettingKey QuietMixer{"STARTUP", "QuietMixer", Rule::FlagYes,
                                       When::Start};  // no box at start
inline constexpr SettingKey VolumeMax{"STARTUP", "VolumeMax", Rule::Number, When::Live,
                                      1,         100,         100};
inline constexpr SettingKey VolumeStart{"STARTUP", "VolumeStart", Rule::Number, When::Start, 0, 100,
                                        50};
inline constexpr SettingKey KeyboardLayout{"STARTUP", "KeyboardLayout", Rule::UStr, When::Start};
inline constexpr SettingKey JukeboxLock{"STARTUP", "JukeboxLock", Rule::FlagYes,
                                        When::Live};  // for guests
inline constexpr SettingKey ListUndo{"STARTUP", "ListUndo", Rule::FlagYes,
                                     When::Live};  // a way back
inline constexpr SettingKey FollowSound{"STARTUP", "FollowSound", Rule::FlagYes, When::Live};
inline constexpr SettingKey KeepList{"STARTUP", "KeepList", Rule::FlagYes, When::Live};
inline constexpr SettingKey HomePanel{"STARTUP", "HomePanel", Rule::FlagYes,
                                      When::Live};  // of the Main tab
inline constexpr SettingKey ListenerEncoding{"STARTUP", "ListenerEncoding", Rule::UStr, When::Live};
inline constexpr SettingKey CDDrive{"STARTUP", "CDDrive", Rule::Str,
                                    When::Live};  // device or CUE sheet

// Other sections
inline constexpr SettingKey MovieListener{"Movies", "MovieListener", Rule::FlagVal, When::Start};
inline constexpr SettingKey MDirectory{"Movies", "MDirectory", Rule::Str, When::Live};
inline constexpr SettingKey MDirectory1{"Movies", "MDirectory1", Rule::Str, When::Live};
inline constexpr SettingKey MDirectory2{"Movies", "MDirectory2", Rule::Str, When::Live};
inline constexpr SettingKey MDirectory3{"Movies", "MDirectory3", Rule::Str, When::Live};
inline constexpr SettingKey DVD{"Movies", "DVD", Rule::Str, When::Kept};
inline constexpr SettingKey DVD0{"Movies", "DVD0", Rule::Str, When::Live};
inline constexpr SettingKey DVD1{"Movies", "DVD1", Rule::Str, When::Live};
inline constexpr SettingKey DVD2{"Movies", "DVD2", Rule::Str, When::Live};
inline constexpr SettingKey DVD3{"Movies", "DVD3", Rule::Str, When::Live};
inline constexpr SettingKey DVD4{"Movies", "DVD4", Rule::Str, When::Live};
inline constexpr SettingKey DVD5{"Movies", "DVD5", Rule::Str, When::Live};
// Of the directories of movies in their order: DVD0 to DVD5, MDirectory, MDirectory1 to MDirectory3
inline constexpr SettingKey PW0{"PW", "PW0", Rule::Text, When::Live};
inline constexpr SettingKey PW1{"PW", "PW1", Rule::Text, When::Live};
inline constexpr SettingKey PW2{"PW", "PW2", Rule::Text, When::Live};
inline constexpr SettingKey PW3{"PW", "PW3", Rule::Text, When::Live};
inline constexpr SettingKey PW4{"PW", "PW4", Rule::Text, When::Live};
inline constexpr SettingKey PW5{"PW", "PW5", Rule::Text, When::Live};
inline constexpr SettingKey PW6{"PW", "PW6", Rule::Text, When::Live};
inline constexpr SettingKey PW7{"PW", "PW7", Rule::Text, When::Live};
inline constexpr SettingKey PW8{"PW", "PW8", Rule::Text, When::Live};
inline constexpr SettingKey PW9{"PW", "PW9", Rule::Text, When::Live};
// What an owner may add to the movies: absent means off
inline constexpr SettingKey MovieControls{"Movies", "MovieControls", Rule::FlagYes, When::Live};
inline constexpr SettingKey MovieResume{"Movies", "MovieResume", Rule::FlagYes, When::Live};
inline constexpr SettingKey MoviePosters{"Movies", "MoviePosters", Rule::FlagYes, When::Live};
inline constexpr SettingKey MovieKinds{"Movies", "MovieKinds", Rule::UStr,
                                       When::Live};  // "MP4 MKV ..."
inline constexpr SettingKey MovieFit{"Movies", "MovieFit", Rule::UStr,
                                     When::Live};  // "WHOLE", "FILLED", "STRETCHED"
inline constexpr SettingKey PDirectory{"Photos", "PDirectory", Rule::Str, When::Live};
inline constexpr SettingKey Delay{"Photos", "Delay", Rule::Str, When::Live};
// What an owner may add to the photos: absent means off
inline constexpr SettingKey PhotoTurn{"Photos", "PhotoTurn", Rule::FlagYes, When::Live};
inline constexpr SettingKey PhotoKinds{"Photos", "PhotoKinds", Rule::UStr,
                                       When::Live};  // "JPEG PNG ..."
inline constexpr SettingKey PhotoSort{"Photos", "PhotoSort", Rule::UStr,
                                      When::Live};  // "NAME", "DATE"
inline constexpr SettingKey PhotoRows{"Photos", "PhotoRows", Rule::Number, When::Live,
                                      1,        1000000,     800};
inline constexpr SettingKey PairByName{"Photos", "PairByName", Rule::FlagYes, When::Live};
inline constexpr SettingKey ThumbSize{"Photos", "ThumbSize", Rule::Number, When::Live, 60,
                                      512,      60};  // pixels
inline constexpr SettingKey StartAtTouched{"Photos", "StartAtTouched", Rule::FlagYes, When::Live};
inline constexpr SettingKey ShowFade{"Photos", "ShowFade", Rule::Number, When::Live, 0,
                                     5000,     0};  // ms
inline constexpr SettingKey PhotoTrash{"Photos", "PhotoTrash", Rule::FlagYes, When::Live};
inline constexpr SettingKey KeepKind{"Photos", "KeepKind", Rule::FlagYes, When::Live};
// Of the ads
inline constexpr SettingKey AdWake{"STARTUP", "AdWake", Rule::FlagYes, When::Live};
inline constexpr SettingKey AdHours{"STARTUP", "AdHours", Rule::FlagYes, When::Live};
inline constexpr SettingKey AdLog{"STARTUP", "AdLog", Rule::FlagYes, When::Live};
inline constexpr SettingKey AdShift{"STARTUP", "AdShift", Rule::FlagYes, When::Live};
inline constexpr SettingKey AdBlack{"STARTUP", "AdBlack", Rule::Number, When::Start, 0,
                                    32767,     0};  // s of idle time; 0 never
inline constexpr SettingKey IdleByTouch{"STARTUP", "IdleByTouch", Rule::FlagYes, When::Live};
// Of the ripper: absent means off
inline constexpr SettingKey RipTags{"Ripper", "RipTags", Rule::FlagYes, When::Live};
inline constexpr SettingKey RipSecure{"Ripper", "RipSecure", Rule::FlagYes, When::Live};
inline constexpr SettingKey RipBoth{"Ripper", "RipBoth", Rule::FlagYes, When::Live};
inline constexpr SettingKey RipFormat{"Ripper", "RipFormat", Rule::UStr,
                                      When::Live};  // "MP3", "FLAC", "OPUS"
inline constexpr SettingKey RipNames{"Ripper", "RipNames", Rule::FlagYes, When::Live};
inline constexpr SettingKey CddbAlways{"Ripper", "CddbAlways", Rule::FlagYes, When::Live};
inline constexpr SettingKey CddbServer{"Ripper", "CddbServer", Rule::Str, When::Live};
// Of the lights and of file transfers: absent means off
inline constexpr SettingKey X10State{"X10", "X10State", Rule::FlagYes, When::Live};
inline constexpr SettingKey LightTiles{"X10", "LightTiles", Rule::FlagYes, When::Live};
inline constexpr SettingKey FtpSafe{"FTP", "FtpSafe", Rule::FlagYes, When::Live};
inline constexpr SettingKey PLDirectory{"Playlist", "PLDirectory", Rule::Str, When::Live};
inline constexpr SettingKey LASTSONGPLAYED{"GENERAL", "LASTSONGPLAYED", Rule::Text, When::Live};
inline constexpr SettingKey MusicRoot{"GENERAL", "MusicRoot", Rule::Str,
                                      When::Live};  // where scans began last

}  // namespace key

}  // namespace korvane
