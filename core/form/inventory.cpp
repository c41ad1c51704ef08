// frmMain. The rail of tabs stands on the left, the page in the middle, what belongs to the page on
// the right, and the transport along the bottom.
#include "core/form/inventory.h"

namespace korvane {
namespace {

constexpr unsigned TL = Left | Top;
constexpr unsigned TR = Right | Top;
constexpr unsigned BL = Left | Bottom;
constexpr unsigned BR = Right | Bottom;
constexpr unsigned BLR = Left | Right | Bottom;
constexpr unsigned TLR = Left | Right | Top;
constexpr unsigned TBL = Left | Top | Bottom;
constexpr unsigned TBR = Right | Top | Bottom;
constexpr unsigned All = Left | Top | Right | Bottom;

constexpr Rect kList{256, 8, 694, 560};      // a list of the Music tab
constexpr Rect kWideList{136, 8, 814, 560};  // a list or picture of the Movies and Photos tabs
constexpr Rect kParked{-500, 240, 16, 16};   // a keyboard lays its keys out itself
constexpr Rect kPage{136, 8, 1136, 752};     // a page without transport

constexpr InventoryRow kMain[] = {
    // Surfaces at the back
    {"wb", -1, Kind::Surface, kPage, All, "Web page", "", false},
    {"MediaPlayer1", -1, Kind::Surface, {-500, 0, 16, 16}, TL, "", "", false},
    {"MoviePic", -1, Kind::Surface, kWideList, All, "Movie", "", false},
    {"MSWebDVD1", -1, Kind::Surface, kWideList, All, "DVD", "", false},
    {"picTransition", -1, Kind::PictureArea, kWideList, All, "Slide show", "", false},
    {"picTemp", -1, Kind::PictureArea, {-500, 40, 16, 16}, TL, "", "", false},
    {"picFolderClosed", -1, Kind::Image, {-500, 80, 16, 16}, TL, "", "", false},
    {"picUparrow", -1, Kind::Image, {-500, 120, 16, 16}, TL, "", "", false},

    // The rail: tabs and the window's own buttons
    {"imgTabs", 0, Kind::Image, {4, 92, 120, 84}, TL, "Music"},
    {"imgTabs", 1, Kind::Image, {4, 180, 120, 84}, TL, "Movies"},
    {"imgTabs", 2, Kind::Image, {4, 268, 120, 84}, TL, "Photos"},
    {"imgTabs", 3, Kind::Image, {4, 4, 120, 84}, TL, "Main"},
    {"imgTabs", 4, Kind::Image, {4, 356, 120, 84}, TL, "Maps"},
    {"imgTabs", 5, Kind::Image, {4, 444, 120, 84}, TL, "More"},
    {"cmdSetup", -1, Kind::Image, {4, 540, 120, 72}, BL, "Setup"},
    {"cmdMinimize", -1, Kind::Image, {4, 616, 120, 72}, BL, "Minimise"},
    {"imgExit", -1, Kind::Image, {4, 692, 120, 72}, BL, "Exit"},

    // The page commands
    {"cmdTop", 0, Kind::Image, {136, 8, 112, 76}, TL, "Artists"},
    {"cmdTop", 1, Kind::Image, {136, 88, 112, 76}, TL, "Albums"},
    {"cmdTop", 2, Kind::Image, {136, 168, 112, 76}, TL, "Playlists"},
    {"cmdTop", 3, Kind::Image, {136, 248, 112, 76}, TL, "All songs"},
    {"cmdTop", 4, Kind::Image, {136, 328, 112, 76}, TL, "Search"},
    {"cmdTop", 5, Kind::Image, {136, 488, 112, 76}, TL, "Back"},
    {"cmdTop", 6, Kind::Image, {136, 408, 112, 76}, TL, "Favourites"},

    // The lists
    {"Grid", 0, Kind::Grid, kList, All, "Artists", "", false},
    {"Grid", 1, Kind::Grid, kList, All, "Songs of the album", "", false},
    {"Grid", 2, Kind::Grid, kList, All, "Albums of the artist", "", false},
    {"Grid", 3, Kind::Grid, kList, All, "Songs of the playlist", "", false},
    {"Grid", 4, Kind::Grid, kList, All, "Albums", "", false},
    {"Grid", 5, Kind::Grid, kList, All, "All songs", "", false},
    {"Grid", 6, Kind::Grid, kList, All, "Playlists", "", false},
    {"Grid", 7, Kind::Grid, kList, All, "CD tracks", "", false},
    {"Grid", 8, Kind::Grid, kList, All, "Favourites", "", false},
    {"Grid", 9, Kind::Grid, {136, 8, 356, 560}, TBL, "FM stations", "", false},
    {"Grid", 10, Kind::Grid, {594, 8, 356, 560}, TBL, "AM stations", "", false},
    {"FMSlider", -1, Kind::Slider, {498, 8, 88, 560}, TBL, "FM stations", "", false},
    {"AMSlider", -1, Kind::Slider, {956, 8, 88, 560}, TBL, "AM stations", "", false},
    {"MovieList", -1, Kind::Grid, kWideList, All, "Movies", "", false},
    {"PhotoList", -1, Kind::Grid, kWideList, All, "Photos", "", false},
    {"VscrollAllSongs", -1, Kind::Slider, {956, 104, 88, 368}, TBR, "Scroll the list", "", false},
    {"cmdOneSong", 0, Kind::Image, {956, 8, 88, 88}, TR, "Page up", "", false},
    {"cmdOneSong", 1, Kind::Image, {956, 480, 88, 88}, BR, "Page down", "", false},

    // Beside the page
    {"coverArt", -1, Kind::PictureArea, {1050, 8, 222, 212}, TR, "Cover art", "", false},
    {"framLink", -1, Kind::Frame, {1050, 8, 222, 212}, TR, "Links of the cabin", "", false},
    {"lblLink", 0, Kind::Label, {8, 4, 206, 60}, TL, "Link to the Master Listener", "framLink"},
    {"lblLink", 1, Kind::Label, {8, 66, 206, 60}, TL, "Link to the Music Listener", "framLink"},
    {"cmdLink", -1, Kind::Button, {4, 132, 214, 76}, TL, "Try the links again", "framLink"},
    {"lblMusicType", 0, Kind::Image, {1050, 226, 107, 84}, TR, "Play the CD", "", false},
    {"lblMusicType", 1, Kind::Image, {1165, 226, 107, 84}, TR, "Play digital music", "", false},
    {"lblMusicPlay", 0, Kind::Image, {1050, 314, 107, 84}, TR, "Music at seat", "", false},
    {"lblMusicPlay", 1, Kind::Image, {1165, 314, 107, 84}, TR, "Music in cabin", "", false},
    {"optMode", 0, Kind::Image, {1050, 402, 107, 84}, TR, "Normal play", "", false},
    {"optMode", 1, Kind::Image, {1165, 402, 107, 84}, TR, "Jukebox", "", false},
    {"cmdFavoriateAdd", -1, Kind::Image, {1050, 492, 107, 76}, TR, "Add to favourites", "", false},
    {"cmdPlayLists", -1, Kind::Image, {1165, 492, 107, 76}, TR, "Manage playlists", "", false},
    {"lblMovieType", 0, Kind::Image, {1050, 226, 107, 84}, TR, "Digital movies", "", false},
    {"lblMovieType", 1, Kind::Image, {1165, 226, 107, 84}, TR, "DVD player", "", false},
    {"lblMovieType", 2, Kind::Image, {1050, 138, 107, 84}, TR, "DVD files", "", false},
    {"lblMoviesPlay", 0, Kind::Image, {1050, 314, 107, 84}, TR, "Movies at seat", "", false},
    {"lblMoviesPlay", 1, Kind::Image, {1165, 314, 107, 84}, TR, "Movies in cabin", "", false},
    {"cmdMenuforDVD", -1, Kind::Image, {1050, 402, 107, 84}, TR, "DVD menu", "", false},
    {"cmdMovieFullScreen", -1, Kind::Image, {1165, 402, 107, 84}, TR, "Full screen", "", false},
    {"cmdRemoteDVD", 0, Kind::Image, {499, 244, 88, 88}, TL, "Enter", "", false},
    {"cmdRemoteDVD", 1, Kind::Image, {499, 148, 88, 88}, TL, "Up", "", false},
    {"cmdRemoteDVD", 2, Kind::Image, {595, 244, 88, 88}, TL, "Right", "", false},
    {"cmdRemoteDVD", 3, Kind::Image, {499, 340, 88, 88}, TL, "Down", "", false},
    {"cmdRemoteDVD", 4, Kind::Image, {403, 244, 88, 88}, TL, "Left", "", false},
    {"cmdPhotoSetup", -1, Kind::Image, {1050, 402, 107, 84}, TR, "Manage photos", "", false},
    {"scrollDelay",
     -1,
     Kind::Slider,
     {1050, 314, 222, 84},
     TR,
     "Seconds for each picture",
     "",
     false},
    {"pCamera", -1, Kind::Image, {1165, 8, 107, 84}, TR, "Camera", "", false},
    {"Icamera", -1, Kind::Surface, {256, 40, 640, 480}, TL, "Camera picture", "", false},
    {"cameraDDE", -1, Kind::Label, {-500, 160, 16, 16}, TL, "", "", false},

    // The playlist editor
    {"gridPlayListSongs",
     -1,
     Kind::Grid,
     {706, 8, 353, 560},
     TBR,
     "Playlist being edited",
     "",
     false},
    {"playlistslider",
     -1,
     Kind::Slider,
     {1065, 104, 88, 368},
     TBR,
     "Scroll the playlist",
     "",
     false},
    {"cmdOneSong", 2, Kind::Image, {1065, 8, 88, 88}, TR, "Up in the playlist", "", false},
    {"cmdOneSong", 3, Kind::Image, {1065, 480, 88, 88}, BR, "Down in the playlist", "", false},
    {"framSongEdit", -1, Kind::Frame, {1159, 8, 113, 560}, TBR, "Playlist editor", "", false},
    {"cmdPlayListCommands",
     3,
     Kind::Image,
     {4, 2, 105, 76},
     TL,
     "Move ONE song to play list",
     "framSongEdit"},
    {"cmdPlayListCommands",
     4,
     Kind::Image,
     {4, 82, 105, 76},
     TL,
     "Move all songs in the displayed ALBUM over",
     "framSongEdit"},
    {"cmdPlayListCommands",
     1,
     Kind::Image,
     {4, 162, 105, 76},
     TL,
     "Move song up in play list",
     "framSongEdit"},
    {"cmdPlayListCommands",
     2,
     Kind::Image,
     {4, 242, 105, 76},
     TL,
     "Move Song down in play list",
     "framSongEdit"},
    {"cmdPlayListCommands", 0, Kind::Image, {4, 322, 105, 76}, TL, "Delete", "framSongEdit"},
    {"cmdPlayListChoices", 0, Kind::Button, {4, 402, 105, 76}, BL, "Cancel", "framSongEdit"},
    {"cmdPlayListChoices", 1, Kind::Button, {4, 482, 105, 76}, BL, "Save", "framSongEdit"},
    {"txtSearch", -1, Kind::Text, {256, 8, 444, 72}, TLR, "Search", "", false},
    {"cmdSearchKind", 0, Kind::Button, {256, 84, 144, 72}, TL, "Find artists", "", false},
    {"cmdSearchKind", 1, Kind::Button, {406, 84, 144, 72}, TL, "Find albums", "", false},
    {"cmdSearchKind", 2, Kind::Button, {556, 84, 144, 72}, TL, "Find songs", "", false},
    {"gridSearch", -1, Kind::Grid, {256, 160, 444, 408}, All, "Found", "", false},

    // Status and transport
    {"lblCurrentPlay", -1, Kind::Label, {144, 574, 500, 32}, BLR, "Now playing"},
    {"lblCurrentPlayList", -1, Kind::Label, {652, 574, 456, 32}, BR, "Playlist"},
    {"lblConnectStat", 0, Kind::Label, {1116, 574, 76, 32}, BR, "Music link", "", false},
    {"lblConnectStat", 1, Kind::Label, {1196, 574, 76, 32}, BR, "Movie link", "", false},
    {"TxtTime", -1, Kind::Label, {144, 608, 104, 72}, BL, "Position"},
    {"Slider1", -1, Kind::Slider, {252, 608, 580, 72}, BLR, "Position in the song"},
    {"lblDuration", -1, Kind::Label, {838, 608, 104, 72}, BR, "Duration"},
    {"scrollVolume", -1, Kind::Slider, {952, 608, 320, 72}, BR, "Volume", "", false},
    {"cmdControls", 0, Kind::Image, {144, 684, 96, 80}, BL, "Previous"},
    {"cmdControls", 1, Kind::Image, {244, 684, 96, 80}, BL, "Play"},
    {"cmdControls", 2, Kind::Image, {344, 684, 96, 80}, BL, "Pause"},
    {"cmdControls", 3, Kind::Image, {444, 684, 96, 80}, BL, "Stop"},
    {"cmdControls", 4, Kind::Image, {544, 684, 96, 80}, BL, "Next"},
    {"cmdControls", 5, Kind::Image, {644, 684, 96, 80}, BL, "Repeat same song"},
    {"cmdControls", 6, Kind::Image, {744, 684, 96, 80}, BL, "Random play"},
    {"cmdControls", 7, Kind::Image, {844, 684, 96, 80}, BL, "Repeat the whole list"},
    {"mute", -1, Kind::Image, {952, 684, 76, 80}, BR, "Mute", "", false},
    {"ScrollVolumeDN", -1, Kind::Image, {1032, 684, 76, 80}, BR, "Quieter", "", false},
    {"lblVolume", -1, Kind::Label, {1110, 684, 84, 80}, BR, "Volume", "", false},
    {"ScrollVolumeUp", -1, Kind::Image, {1196, 684, 76, 80}, BR, "Louder", "", false},

    // Main: the owner's buttons and their tools
    {"cmdbutton", 0, Kind::Button, {160, 40, 260, 160}, TL, "", "", false},
    {"frameButtons", -1, Kind::Frame, {330, 24, 760, 356}, TL, "Button tools", "", false},
    {"cmdButtonAdd", -1, Kind::Button, {12, 12, 178, 76}, TL, "Add a button", "frameButtons"},
    {"cmdButtonLabel", -1, Kind::Button, {198, 12, 178, 76}, TL, "Label", "frameButtons"},
    {"cmdButtonAction", -1, Kind::Button, {384, 12, 178, 76}, TL, "Action", "frameButtons"},
    {"cmdButtonDel", -1, Kind::Button, {570, 12, 178, 76}, TL, "Delete the button", "frameButtons"},
    {"txtButtonWide", -1, Kind::Text, {12, 100, 178, 76}, TL, "Width", "frameButtons"},
    {"txtButtonHigh", -1, Kind::Text, {198, 100, 178, 76}, TL, "Height", "frameButtons"},
    {"txtButtonFontSize", -1, Kind::Text, {384, 100, 178, 76}, TL, "Font size", "frameButtons"},
    {"cmdButtonKeyboard", -1, Kind::Button, {570, 100, 178, 76}, TL, "Keyboard", "frameButtons"},
    {"cmdButtonApplyAttr", -1, Kind::Button, {12, 188, 364, 76}, TL, "Apply", "frameButtons"},
    {"cmdButtonDone", -1, Kind::Button, {384, 188, 178, 76}, TL, "Done", "frameButtons"},
    {"cmdButtonCancel", -1, Kind::Button, {570, 188, 178, 76}, TL, "Cancel", "frameButtons"},

    // Maps and lights
    {"MappointControl", -1, Kind::Surface, {795, 8, 828, 752}, TL, "Map", "", false},
    {"frameMap", -1, Kind::Frame, {136, 8, 300, 752}, TBL, "Map tools", "", false},
    {"lblmap", 0, Kind::Label, {16, 12, 268, 36}, TL, "", "frameMap"},
    {"txtLookup", -1, Kind::Text, {16, 52, 268, 76}, TL, "Place to look up", "frameMap"},
    {"cmdmap", 0, Kind::Button, {16, 136, 130, 76}, TL, "Find", "frameMap"},
    {"cmdmap", 1, Kind::Button, {154, 136, 130, 76}, TL, "Keyboard On", "frameMap"},
    {"ListFindAddressResults", -1, Kind::Grid, {16, 220, 268, 348}, TL, "Places found", "frameMap"},
    {"cmdmap", 2, Kind::Button, {16, 576, 130, 76}, TL, "Nearer", "frameMap"},
    {"cmdmap", 3, Kind::Button, {154, 576, 130, 76}, TL, "Farther", "frameMap"},
    {"lblmap", 1, Kind::Label, {16, 660, 268, 36}, TL, "", "frameMap"},
    {"framex10", -1, Kind::Frame, {136, 8, 1136, 560}, TLR, "Lights", "", false},
    {"ssX10", -1, Kind::Grid, {12, 12, 860, 480}, TLR, "Lights", "framex10"},
    {"cmdX10", 0, Kind::Button, {892, 12, 232, 96}, TR, "On", "framex10"},
    {"cmdX10", 1, Kind::Button, {892, 116, 232, 96}, TR, "Off", "framex10"},
    {"cmdX10", 2, Kind::Button, {892, 220, 232, 96}, TR, "Dim", "framex10"},
    {"cmdX10", 3, Kind::Button, {892, 324, 232, 96}, TR, "Bright", "framex10"},
    {"lblX10", -1, Kind::Label, {12, 504, 860, 40}, TL, "Lights link", "framex10"},

    // In front of all
    {"cmdSaveControls", -1, Kind::Button, {400, 24, 220, 84}, TL, "Save the positions", "", false},
    {"cmdCancelMoveControls", -1, Kind::Button, {640, 24, 220, 84}, TL, "Cancel moving", "", false},
    {"ctrlKeyboard", -1, Kind::Frame, {136, 408, 1136, 352}, BLR, "Keyboard", "", false},
    {"KEY", 0, Kind::Button, kParked, TL, "", "ctrlKeyboard", false},
    {"BUBBLE", 0, Kind::Frame, kParked, TL, "", "ctrlKeyboard", false},
    {"VARIANT", 0, Kind::Button, kParked, TL, "", "ctrlKeyboard", false},
    {"newKeyboard", -1, Kind::Frame, {136, 392, 1136, 368}, BLR, "Keyboard", "", false},
    {"ekey", 0, Kind::Button, kParked, TL, "", "newKeyboard", false},
    {"ebubble", 0, Kind::Frame, kParked, TL, "", "newKeyboard", false},
    {"evariant", 0, Kind::Button, kParked, TL, "", "newKeyboard", false},
    {"BtnEnh1", -1, Kind::Button, kParked, TL, "Hide the keyboard", "newKeyboard", false},
    {"framListUndo", -1, Kind::Frame, {256, 484, 694, 84}, BLR, "Another list runs", "", false},
    {"lblListUndo", -1, Kind::Label, {20, 4, 456, 76}, TLR, "", "framListUndo"},
    {"cmdListUndo", -1, Kind::Button, {484, 4, 206, 76}, TR, "Bring the list back", "framListUndo"},
    {"shadow", -1, Kind::Frame, {-500, 200, 16, 16}, TL, "", "", false},

    {"MusicTimer", -1, Kind::Timer, {}, TL, ""},
    {"RepeatTimer", -1, Kind::Timer, {}, TL, ""},
    {"AddTimer", -1, Kind::Timer, {}, TL, ""},
    {"addsResetTimer", -1, Kind::Timer, {}, TL, ""},
    {"KeyboardTimer", -1, Kind::Timer, {}, TL, ""},
    {"movieTimer", -1, Kind::Timer, {}, TL, ""},
    {"KeyRepeatTimer", -1, Kind::Timer, {}, TL, ""},
    {"ekeyTimer", -1, Kind::Timer, {}, TL, ""},
    {"LinkTimer", -1, Kind::Timer, {}, TL, ""},
    {"LockTimer", -1, Kind::Timer, {}, TL, ""},
    {"ListUndoTimer", -1, Kind::Timer, {}, TL, ""},
    {"pictimer", -1, Kind::Timer, {}, TL, ""},
};

}  // namespace

std::span<const InventoryRow> mainInventory() {
  return kMain;
}

}  // namespace korvane
