#include "custom/screens/colour_elements.h"

namespace korvane {
namespace {

constexpr ColourElement kMusic[] = {
    {"MUSICGRID", "Music Grid"},
    {"MUSICGridSelected", "Music Grid Row Selected"},
    {"MUSICGridTopLine", "Music Grid Top Line"},
    {"MusicSlider", "Music Slider"},
    {"DurationSlider", "Duration Slider"},
    {"DurationSliderON", "Duration Slider On"},
    {"DurationSliderOFF", "Duration Slider Off"},
    {"DurationSliderKNOB", "Duration Slider Knob"},
    {"JUKEBOXGRID", "Jukebox Grid"},
    {"JUKEBOXGridSelected", "Jukebox Grid Row Selected"},
};

constexpr ColourElement kPlayList[] = {
    {"PlayListGrid", "Play List Grid "},    {"PlayListGridSelected", "Play List Row Selected"},
    {"PlayListSlider", "Play List Slider"}, {"PlayListcontrols", "Play List Controls"},
    {"PlayListSave", "Play List Save"},     {"PlayListCancel", "Play List Cancel btn"},
};

constexpr ColourElement kPlayListWindow[] = {
    {"plwindow", "Window"}, {"plgrid", "Grid"},     {"plgridSelect", "Grid Row Selected"},
    {"plslider", "Slider"}, {"plcreate", "Create"}, {"plrename", "Rename"},
    {"pledit", "Edit"},     {"pldelete", "Delete"}, {"pluseplaylist", "Use Play List"},
    {"pldone", "Done"},
};

constexpr ColourElement kMoviesPhotos[] = {
    {"MovieGrid", "Movie Grid"},
    {"MovieGridSelected", "Movie Grid Row Selected"},
    {"MovieFullScreen", "Full Screen"},
    {"PHOTOGRID", "Photo Grid"},
    {"PhotogridSelect", "Photo Grid Row Selected"},
};

constexpr ColourElement kX10[] = {
    {"X10BACK", "X10 Back"}, {"X10GRIDBACK", "X10 Grid"}, {"X10ON", "X10 On"},
    {"X10OFF", "X10 Off"},   {"X10DIM", "X10 Dim"},       {"X10BRIGHT", "X10 Bright"},
};

constexpr ColourElement kScreens[] = {
    {"Status", "Main form"},  {"Surface", "Setup screens"},
    {"Button", "Buttons"},    {"ButtonPressed", "Buttons Pressed"},
    {"Accent", "Accent"},     {"Edge", "Edges"},
    {"Dim", "Dimmed"},        {"Messagebox", "Message Box"},
    {"Keyboard", "Keyboard"}, {"CustomButtons", "Custom Buttons"},
};

constexpr ColourPage kPages[] = {
    {"Music", kMusic},
    {"Play List", kPlayList},
    {"Play List Window", kPlayListWindow},
    {"Movies and Photos", kMoviesPhotos},
    {"X10", kX10},
    {"Screens", kScreens},
};

}  // namespace

std::span<const ColourPage> colourPages() {
  return kPages;
}

}  // namespace korvane
