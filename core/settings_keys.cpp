#include "core/settings_keys.h"

#include <array>

namespace korvane {

namespace {

using namespace key;

constexpr auto kAll = std::to_array<const SettingKey*>({
    &Theme,
    &MainPage,
    &firstTab,
    &GridHeight,
    &GridFontSize,
    &LocalServer,
    &LOCALLISTENER,
    &MasterListenerIP,
    &MasterListenerPort,
    &MasterListenerMyName,
    &ShowSetup,
    &ShowMin,
    &ShowExit,
    &ShowMute,
    &ControlButtonsmain,
    &ControlButtons,
    &ShowInTheTaskBar,
    &DisplayVolume,
    &MOVEMAIN,
    &debug,
    &myname,
    &SERVERIP,
    &SERVERPORT,
    &RouterIP,
    &WWWIP,
    &NICCard,
    &Maps,
    &Radio,
    &ShowPhoto,
    &ShowMap,
    &ShowControl,
    &TV,
    &X10,
    &Premise,
    &X10IP,
    &X10Port,
    &Camera,
    &CameraDevice,
    &VideoFormat,
    &ADDSON,
    &ADDSTART,
    &ADDSBETWEEN,
    &Setup,
    &CDDBPath,
    &RadioTop,
    &RadioLeft,
    &Tags,
    &TagCodePage,
    &FileKinds,
    &SinglePress,
    &VolumeMax,
    &VolumeStart,
    &KeyboardLayout,
    &JukeboxLock,
    &ListUndo,
    &FollowSound,
    &KeepList,
    &HomePanel,
    &QuietMixer,
    &MusicListener,
    &LinkSupervision,
    &ListenerEncoding,
    &CDDrive,
    &MovieListener,
    &MDirectory,
    &MDirectory1,
    &MDirectory2,
    &MDirectory3,
    &DVD,
    &DVD0,
    &DVD1,
    &DVD2,
    &DVD3,
    &DVD4,
    &DVD5,
    &PDirectory,
    &Delay,
    &PLDirectory,
    &LASTSONGPLAYED,
    &MusicRoot,
});

}  // namespace

std::span<const SettingKey* const> allSettingKeys() {
  return kAll;
}

}  // namespace korvane
