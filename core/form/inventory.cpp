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
constexpr Rect kScene{12, 604, 216, 84};     // of the lights, which lay them out themselves

// A row of that kind, in the order in which the table reads: name, member of an array, place, what
// it follows, spoken name, look.
struct RowOf {
  Kind kind;
  constexpr InventoryRow operator()(const char* name, int index, Rect rect, unsigned anchors,
                                    const char* spoken, Look look = {}) const {
    return {name, index, kind, rect, anchors, spoken, "", true, look};
  }
  constexpr InventoryRow operator()(const char* name, Rect rect, unsigned anchors,
                                    const char* spoken, Look look = {}) const {
    return (*this)(name, -1, rect, anchors, spoken, look);
  }
};
constexpr RowOf image{Kind::Image}, label{Kind::Label}, button{Kind::Button}, slider{Kind::Slider},
    list{Kind::Grid}, frame{Kind::Frame}, text{Kind::Text}, area{Kind::PictureArea},
    surface{Kind::Surface}, sheet{Kind::Sheet};

constexpr InventoryRow timer(const char* name) {
  return RowOf{Kind::Timer}(name, {}, TL, "");
}
constexpr InventoryRow hidden(InventoryRow row) {
  row.visible = false;
  return row;
}
constexpr InventoryRow in(const char* container, InventoryRow row) {
  row.container = container;
  return row;
}

constexpr const char* kPlaylistRows = "PlayListGrid/PlayListGridSelected/MUSICGridTopLine";

constexpr InventoryRow kMain[] = {
    // Surfaces at the back
    hidden(surface("wb", kPage, All, "Web page")),
    hidden(surface("MediaPlayer1", {-500, 0, 16, 16}, TL, "")),
    hidden(area("picTransition", kWideList, All, "Slide show")),
    hidden(area("picTemp", {-500, 40, 16, 16}, TL, "")),
    hidden(image("picFolderClosed", {-500, 80, 16, 16}, TL, "")),
    hidden(image("picUparrow", {-500, 120, 16, 16}, TL, "")),

    // The rail: tabs and the window's own buttons
    image("imgTabs", 0, {4, 92, 120, 84}, TL, "Music", {.picture = "music/music"}),
    image("imgTabs", 1, {4, 180, 120, 84}, TL, "Movies", {.picture = "movies/movies"}),
    image("imgTabs", 2, {4, 268, 120, 84}, TL, "Photos", {.picture = "photos/photo"}),
    image("imgTabs", 3, {4, 4, 120, 84}, TL, "Main", {.picture = "main/main"}),
    image("imgTabs", 4, {4, 356, 120, 84}, TL, "Maps", {.picture = "maps/maps"}),
    image("imgTabs", 5, {4, 444, 120, 84}, TL, "More", {.picture = "more/more"}),
    image("cmdSetup", {4, 540, 120, 72}, BL, "Setup", {.picture = "root/setup"}),
    image("cmdMinimize", {4, 616, 120, 72}, BL, "Minimise", {.picture = "root/minimize"}),
    image("imgExit", {4, 692, 120, 72}, BL, "Exit", {.picture = "root/exit"}),

    // The page commands
    image("cmdTop", 0, {136, 8, 112, 76}, TL, "Artists", {.picture = "music/artist"}),
    image("cmdTop", 1, {136, 88, 112, 76}, TL, "Albums", {.picture = "music/album"}),
    image("cmdTop", 2, {136, 168, 112, 76}, TL, "Playlists", {.picture = "music/playlist"}),
    image("cmdTop", 3, {136, 248, 112, 76}, TL, "All songs", {.picture = "music/song"}),
    image("cmdTop", 4, {136, 328, 112, 76}, TL, "Search", {.picture = "music/search"}),
    image("cmdTop", 5, {136, 488, 112, 76}, TL, "Back", {.picture = "music/back"}),
    image("cmdTop", 6, {136, 408, 112, 76}, TL, "Favourites", {.picture = "music/Favorites"}),

    // The lists
    hidden(list("Grid", 0, kList, All, "Artists")),
    hidden(list("Grid", 1, kList, All, "Songs of the album")),
    hidden(list("Grid", 2, kList, All, "Albums of the artist")),
    hidden(list("Grid", 3, kList, All, "Songs of the playlist", {.colours = kPlaylistRows})),
    hidden(list("Grid", 4, kList, All, "Albums")),
    hidden(list("Grid", 5, kList, All, "All songs")),
    hidden(list("Grid", 6, kList, All, "Playlists",
                {.colours = "plgrid/plgridSelect/MUSICGridTopLine"})),
    hidden(list("Grid", 7, kList, All, "CD tracks")),
    hidden(list("Grid", 8, kList, All, "Favourites")),
    hidden(list("Grid", 9, {136, 8, 356, 560}, TBL, "FM stations")),
    hidden(list("Grid", 10, {594, 8, 356, 560}, TBL, "AM stations")),
    hidden(slider("FMSlider", {498, 8, 88, 560}, TBL, "FM stations",
                  {.colours = "MusicSlider", .vertical = true})),
    hidden(slider("AMSlider", {956, 8, 88, 560}, TBL, "AM stations",
                  {.colours = "MusicSlider", .vertical = true})),
    hidden(list("MovieList", kWideList, All, "Movies",
                {.caption = "No movies yet. Setup, Movies Setup says where they are.",
                 .colours = "MovieGrid/MovieGridSelected/MUSICGridTopLine"})),
    hidden(list("PhotoList", kWideList, All, "Photos",
                {.caption = "No photos yet. Setup, Setup Photos Directory says where they are.",
                 .colours = "PHOTOGRID/PhotogridSelect/MUSICGridTopLine"})),
    hidden(slider("VscrollAllSongs", {956, 104, 88, 368}, TBR, "Scroll the list",
                  {.colours = "MusicSlider", .vertical = true})),
    hidden(image("cmdOneSong", 0, {956, 8, 88, 88}, TR, "Page up", {.picture = "root/UP"})),
    hidden(image("cmdOneSong", 1, {956, 480, 88, 88}, BR, "Page down", {.picture = "root/DOWN"})),

    // Beside the page
    hidden(area("coverArt", {1050, 8, 222, 212}, TR, "Cover art")),
    hidden(frame("framLink", {1050, 8, 222, 212}, TR, "Links of the cabin")),
    in("framLink", label("lblLink", 0, {8, 4, 206, 60}, TL, "Link to the Master Listener",
                         {.colours = "Surface", .text = 24, .wraps = true})),
    in("framLink", label("lblLink", 1, {8, 66, 206, 60}, TL, "Link to the Music Listener",
                         {.colours = "Surface", .text = 24, .wraps = true})),
    in("framLink", label("lblLink", 2, {6, 0, 210, 50}, TL, "Link to the Movie Listener",
                         {.colours = "Surface", .text = 20, .wraps = true})),
    in("framLink",
       button("cmdLink", {4, 132, 214, 76}, TL, "Try the links again", {.caption = "Try again"})),
    hidden(image("lblMusicType", 0, {1050, 226, 107, 84}, TR, "Play the CD",
                 {.picture = "music/CDplayerOff"})),
    hidden(image("lblMusicType", 1, {1165, 226, 107, 84}, TR, "Play digital music",
                 {.picture = "music/DigitalMusicOn"})),
    hidden(image("lblMusicPlay", 0, {1050, 314, 107, 84}, TR, "Music at seat",
                 {.picture = "music/AtSeatOn"})),
    hidden(image("lblMusicPlay", 1, {1165, 314, 107, 84}, TR, "Music in cabin",
                 {.picture = "music/InCabinOff"})),
    hidden(image("optMode", 0, {1050, 402, 107, 84}, TR, "Normal play",
                 {.picture = "music/normalon"})),
    hidden(
        image("optMode", 1, {1165, 402, 107, 84}, TR, "Jukebox", {.picture = "music/jukeboxoff"})),
    hidden(image("cmdFavoriateAdd", {1050, 492, 107, 76}, TR, "Add to favourites",
                 {.picture = "music/AddFav"})),
    hidden(image("cmdPlayLists", {1165, 492, 107, 76}, TR, "Manage playlists",
                 {.picture = "music/plmanage"})),
    hidden(image("lblMovieType", 0, {1050, 226, 107, 84}, TR, "Digital movies",
                 {.picture = "movies/DigitalMovieOn"})),
    hidden(image("lblMovieType", 1, {1165, 226, 107, 84}, TR, "DVD player",
                 {.picture = "movies/DVDPlayerOFF"})),
    hidden(image("lblMovieType", 2, {1050, 138, 107, 84}, TR, "DVD files",
                 {.picture = "movies/DVDDigitalOFF"})),
    hidden(image("lblMoviesPlay", 0, {1050, 314, 107, 84}, TR, "Movies at seat",
                 {.picture = "movies/AtSeatOn"})),
    hidden(image("lblMoviesPlay", 1, {1165, 314, 107, 84}, TR, "Movies in cabin",
                 {.picture = "movies/InCabinOff"})),
    hidden(
        image("cmdMenuforDVD", {1050, 402, 107, 84}, TR, "DVD menu", {.picture = "movies/menu"})),
    hidden(image("cmdMovieFullScreen", {1165, 402, 107, 84}, TR, "Full screen",
                 {.picture = "movies/fullscreen"})),
    hidden(label("lblMovieNote", kWideList, All, "How to play",
                 {.text = 30, .align = 0, .wraps = true})),
    hidden(image("cmdRemoteDVD", 0, {499, 244, 88, 88}, TL, "Enter", {.picture = "music/enter"})),
    hidden(image("cmdRemoteDVD", 1, {499, 148, 88, 88}, TL, "Up", {.picture = "music/up"})),
    hidden(image("cmdRemoteDVD", 2, {595, 244, 88, 88}, TL, "Right", {.picture = "music/right"})),
    hidden(image("cmdRemoteDVD", 3, {499, 340, 88, 88}, TL, "Down", {.picture = "music/down"})),
    hidden(image("cmdRemoteDVD", 4, {403, 244, 88, 88}, TL, "Left", {.picture = "music/left"})),
    hidden(image("cmdPhotoSetup", {1050, 402, 107, 84}, TR, "Manage photos",
                 {.picture = "photos/manage"})),
    hidden(label("lblDelay", {1050, 270, 222, 40}, TR, "Seconds for each picture",
                 {.text = 24, .align = 0})),
    hidden(slider("scrollDelay", {1050, 314, 222, 84}, TR, "Seconds for each picture")),
    hidden(image("pCamera", {1165, 8, 107, 84}, TR, "Camera", {.picture = "root/camera"})),
    hidden(surface("Icamera", {256, 40, 640, 480}, TL, "Camera picture")),
    hidden(label("cameraDDE", {-500, 160, 16, 16}, TL, "")),

    // The playlist editor
    hidden(list("gridPlayListSongs", {706, 8, 353, 560}, TBR, "Playlist being edited",
                {.colours = kPlaylistRows})),
    hidden(slider("playlistslider", {1065, 104, 88, 368}, TBR, "Scroll the playlist",
                  {.colours = "PlayListSlider", .vertical = true})),
    hidden(image("cmdOneSong", 2, {1065, 8, 88, 88}, TR, "Up in the playlist",
                 {.picture = "root/UP"})),
    hidden(image("cmdOneSong", 3, {1065, 480, 88, 88}, BR, "Down in the playlist",
                 {.picture = "root/DOWN"})),
    hidden(frame("framSongEdit", {1159, 8, 113, 560}, TBR, "Playlist editor",
                 {.colours = "PlayListcontrols"})),
    in("framSongEdit", image("cmdPlayListCommands", 3, {4, 2, 105, 76}, TL,
                             "Move ONE song to play list", {.picture = "music/addSong"})),
    in("framSongEdit",
       image("cmdPlayListCommands", 4, {4, 82, 105, 76}, TL,
             "Move all songs in the displayed ALBUM over", {.picture = "music/addAlbum"})),
    in("framSongEdit", image("cmdPlayListCommands", 1, {4, 162, 105, 76}, TL,
                             "Move song up in play list", {.picture = "music/moveSongup"})),
    in("framSongEdit", image("cmdPlayListCommands", 2, {4, 242, 105, 76}, TL,
                             "Move Song down in play list", {.picture = "music/moveSongdown"})),
    in("framSongEdit", image("cmdPlayListCommands", 0, {4, 322, 105, 76}, TL, "Delete",
                             {.picture = "music/trash"})),
    in("framSongEdit", button("cmdPlayListChoices", 0, {4, 402, 105, 76}, BL, "Cancel",
                              {.caption = "Cancel", .colours = "PlayListCancel", .text = 24})),
    in("framSongEdit", button("cmdPlayListChoices", 1, {4, 482, 105, 76}, BL, "Save",
                              {.caption = "Save", .colours = "PlayListSave", .text = 24})),
    hidden(text("txtSearch", {256, 8, 444, 72}, TLR, "Search", {.colours = "PlayListGrid"})),
    hidden(
        button("cmdSearchKind", 0, {256, 84, 144, 72}, TL, "Find artists", {.caption = "Artists"})),
    hidden(
        button("cmdSearchKind", 1, {406, 84, 144, 72}, TL, "Find albums", {.caption = "Albums"})),
    hidden(button("cmdSearchKind", 2, {556, 84, 144, 72}, TL, "Find songs", {.caption = "Songs"})),
    hidden(list("gridSearch", {256, 160, 444, 408}, All, "Found", {.colours = kPlaylistRows})),

    // Status and transport
    label("lblCurrentPlay", {144, 574, 500, 32}, BLR, "Now playing", {.text = 28, .bold = true}),
    label("lblCurrentPlayList", {652, 574, 456, 32}, BR, "Playlist", {.text = 24, .align = 1}),
    hidden(label("lblConnectStat", 0, {1116, 574, 76, 32}, BR, "Music link")),
    hidden(label("lblConnectStat", 1, {1196, 574, 76, 32}, BR, "Movie link")),
    label("TxtTime", {144, 608, 104, 72}, BL, "Position", {.text = 28, .align = 0, .bold = true}),
    slider("Slider1", {252, 608, 580, 72}, BLR, "Position in the song"),
    label("lblDuration", {838, 608, 104, 72}, BR, "Duration", {.text = 28, .align = 0}),
    hidden(slider("scrollVolume", {952, 608, 320, 72}, BR, "Volume")),
    image("cmdControls", 0, {144, 684, 96, 80}, BL, "Previous",
          {.picture = "music/prev", .tip = "Previous"}),
    image("cmdControls", 1, {244, 684, 96, 80}, BL, "Play", {.picture = "music/play"}),
    image("cmdControls", 2, {344, 684, 96, 80}, BL, "Pause", {.picture = "music/pause"}),
    image("cmdControls", 3, {444, 684, 96, 80}, BL, "Stop", {.picture = "music/stopb"}),
    image("cmdControls", 4, {544, 684, 96, 80}, BL, "Next",
          {.picture = "music/next", .tip = "Next"}),
    image("cmdControls", 5, {644, 684, 96, 80}, BL, "Repeat same song",
          {.picture = "music/repeat", .tip = "Repeat same song"}),
    image("cmdControls", 6, {744, 684, 96, 80}, BL, "Random play", {.picture = "music/random"}),
    image("cmdControls", 7, {844, 684, 96, 80}, BL, "Repeat the whole list",
          {.picture = "music/continue off"}),
    hidden(image("mute", {952, 684, 76, 80}, BR, "Mute", {.picture = "music/mute"})),
    hidden(
        image("ScrollVolumeDN", {1032, 684, 76, 80}, BR, "Quieter", {.picture = "music/volminus"})),
    hidden(label("lblVolume", {1110, 684, 84, 80}, BR, "Volume",
                 {.text = 22, .align = 0, .wraps = true})),
    hidden(
        image("ScrollVolumeUp", {1196, 684, 76, 80}, BR, "Louder", {.picture = "music/volplus"})),

    // Main: the time, what plays, the owner's buttons and their tools
    hidden(label("lblHomeClock", {148, 8, 428, 156}, Spread, "Time", {.text = 150, .bold = true})),
    hidden(label("lblHomeDate", {154, 168, 422, 56}, Spread, "Date", {.text = 36})),
    hidden(frame("frameHome", {688, 16, 568, 216}, Spread, "Now playing")),
    in("frameHome",
       area("picHomeCover", {16, 16, 184, 184}, TBL, "Cover", {.picture = "root/emptyart"})),
    in("frameHome", label("lblHomeTitle", {220, 10, 332, 44}, TLR, "Title",
                          {.colours = "Surface", .text = 34, .bold = true})),
    in("frameHome",
       label("lblHomeArtist", {220, 54, 332, 36}, TLR, "Artist", {.colours = "Dim", .text = 28})),
    in("frameHome", label("lblHomePosition", {220, 90, 332, 32}, TLR, "Position",
                          {.colours = "Dim", .text = 24})),
    in("frameHome",
       image("cmdHome", 0, {220, 126, 96, 80}, BL, "Previous", {.picture = "music/prev"})),
    in("frameHome",
       image("cmdHome", 1, {324, 126, 96, 80}, BL, "Play or pause", {.picture = "music/play"})),
    in("frameHome", image("cmdHome", 2, {428, 126, 96, 80}, BL, "Next", {.picture = "music/next"})),
    hidden(button("cmdbutton", 0, {160, 40, 260, 160}, Spread, "", {.colours = "CustomButtons"})),
    hidden(frame("frameButtons", {320, 8, 760, 352}, TL, "Button tools",
                 {.caption = "Custom Buttons"})),
    in("frameButtons",
       button("cmdButtonAdd", {12, 64, 178, 76}, TL, "Add a button", {.caption = "Add"})),
    in("frameButtons",
       button("cmdButtonLabel", {198, 64, 178, 76}, TL, "Label", {.caption = "Label"})),
    in("frameButtons",
       button("cmdButtonAction", {384, 64, 178, 76}, TL, "Action", {.caption = "Action"})),
    in("frameButtons",
       button("cmdButtonDel", {570, 64, 178, 76}, TL, "Delete the button", {.caption = "Delete"})),
    in("frameButtons", label("lblButtonAttr", 0, {16, 144, 170, 32}, TL, "",
                             {.caption = "Wide", .colours = "Surface", .text = 24})),
    in("frameButtons", label("lblButtonAttr", 1, {202, 144, 170, 32}, TL, "",
                             {.caption = "High", .colours = "Surface", .text = 24})),
    in("frameButtons", label("lblButtonAttr", 2, {388, 144, 170, 32}, TL, "",
                             {.caption = "Font size", .colours = "Surface", .text = 24})),
    in("frameButtons", text("txtButtonWide", {12, 176, 178, 76}, TL, "Width")),
    in("frameButtons", text("txtButtonHigh", {198, 176, 178, 76}, TL, "Height")),
    in("frameButtons", text("txtButtonFontSize", {384, 176, 178, 76}, TL, "Font size")),
    in("frameButtons",
       button("cmdButtonKeyboard", {570, 176, 178, 76}, TL, "Keyboard", {.caption = "Keyboard"})),
    in("frameButtons",
       button("cmdButtonApplyAttr", {12, 264, 364, 76}, TL, "Apply", {.caption = "Apply"})),
    in("frameButtons", button("cmdButtonDone", {384, 264, 178, 76}, TL, "Done",
                              {.caption = "Done", .accent = true})),
    in("frameButtons",
       button("cmdButtonCancel", {570, 264, 178, 76}, TL, "Cancel", {.caption = "Cancel"})),

    // Maps and lights
    hidden(surface("MappointControl", {795, 8, 828, 752}, TL, "Map")),
    hidden(label("lblNote", 0, kPage, All, "What is not set up",
                 {.caption = "No map yet. Setup, Advanced, Maps on shows it.",
                  .text = 32,
                  .align = 0,
                  .wraps = true})),
    hidden(label("lblNote", 1, kPage, All, "What is not set up",
                 {.caption = "No lights yet. Setup, Advanced, Show X10 Controls brings them.",
                  .text = 32,
                  .align = 0,
                  .wraps = true})),
    hidden(frame("frameMap", {136, 8, 300, 752}, TBL, "Map tools")),
    in("frameMap", label("lblmap", 0, {16, 12, 268, 36}, TL, "",
                         {.caption = "Place to look up", .colours = "Surface"})),
    in("frameMap", text("txtLookup", {16, 52, 268, 76}, TL, "Place to look up")),
    in("frameMap", button("cmdmap", 0, {16, 136, 130, 76}, TL, "Find", {.caption = "Find"})),
    in("frameMap", button("cmdmap", 1, {154, 136, 130, 76}, TL, "Keyboard On", {.text = 22})),
    in("frameMap", list("ListFindAddressResults", {16, 220, 268, 348}, TL, "Places found")),
    in("frameMap", button("cmdmap", 2, {16, 576, 130, 76}, TL, "Nearer", {.caption = "Nearer"})),
    in("frameMap", button("cmdmap", 3, {154, 576, 130, 76}, TL, "Farther", {.caption = "Farther"})),
    in("frameMap", label("lblmap", 1, {16, 660, 268, 36}, TL, "", {.colours = "Surface"})),
    hidden(frame("framex10", kPage, All, "Lights", {.colours = "X10BACK"})),
    in("framex10", list("ssX10", {12, 12, 860, 676}, All, "Lights",
                        {.caption = "No lights yet. Setup, X10 Setup names them.",
                         .colours = "X10GRIDBACK/MUSICGridSelected/X10GRIDBACK"})),
    in("framex10", hidden(sheet("shtX10", {12, 12, 860, 584}, All, "Lights",
                                {.colours = "X10GRIDBACK", .text = 28}))),
    in("framex10", label("lblLamp", {892, 12, 232, 76}, TR, "The lamp that the buttons act on",
                         {.colours = "X10BACK", .text = 28, .align = 0, .wraps = true})),
    in("framex10",
       button("cmdX10", 0, {892, 96, 232, 96}, TR, "On", {.caption = "On", .colours = "X10ON"})),
    in("framex10", button("cmdX10", 1, {892, 200, 232, 96}, TR, "Off",
                          {.caption = "Off", .colours = "X10OFF"})),
    in("framex10", button("cmdX10", 2, {892, 304, 232, 96}, TR, "Dim",
                          {.caption = "Dim", .colours = "X10DIM"})),
    in("framex10", button("cmdX10", 3, {892, 408, 232, 96}, TR, "Bright",
                          {.caption = "Bright", .colours = "X10BRIGHT"})),
    in("framex10",
       button("cmdScene", 0, kScene, BL, "All lights off", {.caption = "All off", .text = 26})),
    in("framex10", button("cmdScene", 1, kScene, BL, "A scene", {.text = 26})),
    in("framex10", button("cmdScene", 2, kScene, BL, "A scene", {.text = 26})),
    in("framex10", button("cmdScene", 3, kScene, BL, "A scene", {.text = 26})),
    in("framex10", button("cmdScene", 4, kScene, BL, "A scene", {.text = 26})),
    in("framex10", button("cmdScene", 5, kScene, BL, "A scene", {.text = 26})),
    in("framex10", button("cmdScene", 6, kScene, BL, "A scene", {.text = 26})),
    in("framex10", button("cmdScene", 7, kScene, BL, "A scene", {.text = 26})),
    in("framex10", button("cmdScene", 8, kScene, BL, "A scene", {.text = 26})),
    in("framex10", button("cmdScene", 9, kScene, BL, "Keep what burns now as a scene",
                          {.caption = "Keep as scene", .text = 26})),
    in("framex10", label("lblX10", {12, 700, 1112, 40}, BLR, "Lights link",
                         {.colours = "X10BACK", .text = 28})),

    // The picture of a movie, in its page or over the whole screen, and what lies upon it
    hidden(surface("MoviePic", kWideList, All, "Movie")),
    hidden(surface("MSWebDVD1", kWideList, All, "DVD")),
    hidden(frame("framMovie", {24, 528, 1232, 224}, BLR, "Movie controls")),
    in("framMovie", label("lblMovieTime", {16, 8, 144, 72}, TL, "Position",
                          {.colours = "Surface", .text = 28, .align = 0, .bold = true})),
    in("framMovie", slider("sldMovie", {168, 8, 896, 72}, TLR, "Position in the movie")),
    in("framMovie", label("lblMovieLength", {1072, 8, 144, 72}, TR, "Length",
                          {.colours = "Surface", .text = 28, .align = 0})),
    in("framMovie", image("cmdMovie", 0, {568, 88, 120, 124}, TL, "Play or pause",
                          {.picture = "movies/bigplay"})),
    in("framMovie", image("cmdMovie", 1, {464, 96, 96, 112}, TL, "Ten seconds back",
                          {.picture = "movies/back10"})),
    in("framMovie",
       image("cmdMovie", 2, {696, 96, 96, 112}, TL, "Ten seconds on", {.picture = "movies/on10"})),
    in("framMovie", image("cmdMovie", 3, {360, 96, 96, 112}, TL, "Previous chapter",
                          {.picture = "movies/prevchapter"})),
    in("framMovie", image("cmdMovie", 4, {800, 96, 96, 112}, TL, "Next chapter",
                          {.picture = "movies/nextchapter"})),
    in("framMovie",
       image("cmdMovie", 5, {16, 96, 96, 112}, TL, "Sound track", {.picture = "movies/tracks"})),
    in("framMovie",
       image("cmdMovie", 6, {120, 96, 96, 112}, TL, "Subtitles", {.picture = "movies/subtitles"})),
    in("framMovie",
       image("cmdMovie", 7, {224, 96, 96, 112}, TL, "DVD menu", {.picture = "movies/discmenu"})),
    in("framMovie",
       image("cmdMovie", 8, {912, 96, 96, 112}, TR, "Picture size", {.picture = "movies/fit"})),
    in("framMovie", image("cmdMovie", 9, {1016, 96, 96, 112}, TR, "Lock the screen",
                          {.picture = "movies/lock"})),
    in("framMovie", image("cmdMovie", 10, {1120, 96, 96, 112}, TR, "Leave the full screen",
                          {.picture = "movies/leave"})),
    hidden(frame("framMovieLevel", {1136, 104, 120, 408}, TBR, "Volume of the movie")),
    in("framMovieLevel",
       slider("sldMovieLevel", {16, 12, 88, 384}, TBL, "Volume", {.vertical = true})),
    hidden(frame("framMovieSays", {148, 24, 760, 104}, TL, "About the movie")),
    in("framMovieSays", label("lblMovieSays", {20, 8, 456, 88}, TL, "What happens",
                              {.colours = "Surface", .text = 28, .wraps = true})),
    in("framMovieSays", button("cmdMovieSays", {484, 10, 264, 84}, TL, "From the start",
                               {.caption = "From the start"})),
    hidden(image("cmdMovieLocked", {1136, 24, 120, 124}, TR, "Hold to unlock the screen",
                 {.picture = "movies/locked"})),
    hidden(image("cmdMovieLeave", {1136, 24, 120, 124}, TR, "Leave the full screen",
                 {.picture = "movies/leave"})),

    // The ripper: beside the tracks of a CD, and at work in the transport line
    hidden(button("cmdRip", {1050, 402, 222, 84}, TR, "Rip this CD",
                  {.picture = "main/btnripper", .caption = "Rip this CD", .text = 24})),
    hidden(button("cmdRipMark", {1120, 608, 152, 72}, BR, "The ripper is at work",
                  {.colours = "Accent", .text = 26})),

    // In front of all
    hidden(button("cmdSaveControls", {400, 24, 220, 84}, TL, "Save the positions",
                  {.caption = "Save positions"})),
    hidden(button("cmdCancelMoveControls", {640, 24, 220, 84}, TL, "Cancel moving",
                  {.caption = "Cancel"})),
    hidden(frame("ctrlKeyboard", {136, 408, 1136, 352}, BLR, "Keyboard", {.colours = "Keyboard"})),
    in("ctrlKeyboard", hidden(button("KEY", 0, kParked, TL, ""))),
    in("ctrlKeyboard", hidden(frame("BUBBLE", 0, kParked, TL, "", {.colours = "Accent"}))),
    in("ctrlKeyboard", hidden(button("VARIANT", 0, kParked, TL, ""))),
    hidden(frame("newKeyboard", {136, 392, 1136, 368}, BLR, "Keyboard", {.colours = "Keyboard"})),
    in("newKeyboard", hidden(button("ekey", 0, kParked, TL, ""))),
    in("newKeyboard", hidden(frame("ebubble", 0, kParked, TL, "", {.colours = "Accent"}))),
    in("newKeyboard", hidden(button("evariant", 0, kParked, TL, ""))),
    in("newKeyboard", hidden(button("BtnEnh1", kParked, TL, "Hide the keyboard"))),
    hidden(frame("framListUndo", {256, 484, 694, 84}, BLR, "Another list runs")),
    in("framListUndo",
       label("lblListUndo", {20, 4, 456, 76}, TLR, "", {.colours = "Surface", .text = 28})),
    in("framListUndo", button("cmdListUndo", {484, 4, 206, 76}, TR, "Bring the list back",
                              {.caption = "Bring it back"})),
    hidden(frame("shadow", {-500, 200, 16, 16}, TL, "")),

    timer("MusicTimer"),
    timer("RepeatTimer"),
    timer("AddTimer"),
    timer("addsResetTimer"),
    timer("BlackTimer"),
    timer("KeyboardTimer"),
    timer("movieTimer"),
    timer("MovieControlsTimer"),
    timer("MovieHoldTimer"),
    timer("MovieSaysTimer"),
    timer("KeyRepeatTimer"),
    timer("ekeyTimer"),
    timer("LinkTimer"),
    timer("LockTimer"),
    timer("ListUndoTimer"),
    timer("ButtonTimer"),
    timer("HomeTimer"),
    timer("pictimer"),
    timer("PhotoListTimer"),
};

}  // namespace

std::span<const InventoryRow> mainInventory() {
  return kMain;
}

}  // namespace korvane
