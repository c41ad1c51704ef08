#include "custom/screens/colour_chooser.h"

#include "core/conversions.h"
#include "custom/screens/setup_rows.h"

namespace korvane {
namespace {

constexpr int kColumns = 16, kLeft = 19, kCell = 72, kPitch = 78, kTop = 84, kGreyTop = 560;
constexpr Colour kWhite = 0xFFFFFF;

struct Tone {
  double saturation, lightness;
};
constexpr Tone kTones[] = {{0.9, 0.86},  {0.85, 0.7}, {0.9, 0.5},
                           {0.75, 0.36}, {0.5, 0.22}, {0.3, 0.13}};

constexpr InventoryRow kFixed[] = {
    setupRow("lblTitle", -1, Kind::Label, {24, 12, 1232, 60}, "Element",
             {.text = 36, .bold = true}),
    setupRow("before", -1, Kind::Frame, {24, 656, 112, 96}, "Colour before"),
    setupRow("after", -1, Kind::Frame, {136, 656, 200, 96}, "New colour"),
    setupRow("lblNumber", -1, Kind::Label, {360, 668, 110, 72}, "Number"),
    setupRow("txtNumber", -1, Kind::Text, {470, 668, 226, 72}, "Number of the colour"),
    setupRow("cmdCancel", -1, Kind::Button, {720, 656, 256, 96}, "Cancel", {.cancels = true}),
    setupRow("cmdOK", -1, Kind::Button, {1000, 656, 256, 96}, "OK", {.accent = true}),
};

std::vector<InventoryRow> inventory() {
  std::vector<InventoryRow> rows(std::begin(kFixed), std::end(kFixed));
  const auto cell = [](int index, int top) {
    return Rect{kLeft + index % kColumns * kPitch, top + index / kColumns * kPitch, kCell, kCell};
  };
  for (int i = 0; i < kColumns * static_cast<int>(std::size(kTones)); ++i)
    rows.push_back({"cmdColour", i, Kind::Button, cell(i, kTop), Left | Top, "Colour"});
  for (int i = 0; i < kColumns; ++i)
    rows.push_back({"cmdGrey", i, Kind::Button, cell(i, kGreyTop), Left | Top, "Grey"});
  return rows;
}

// 240 down to 15 in steps of 15.
Colour grey(int index) {
  const auto value = static_cast<Colour>(240 - 15 * index);
  return value << 16 | value << 8 | value;
}

Colour colourOfCell(int index) {
  const Tone& tone = kTones[index / kColumns];
  return colourOfHsl(index % kColumns * 360.0 / kColumns, tone.saturation, tone.lightness);
}

Colours ground(Colour colour) {
  Colours colours;
  colours.back = colour;
  return colours;
}

}  // namespace

Colour colourOfHsl(double hue, double saturation, double lightness) {
  const double chroma = saturation * std::min(lightness, 1 - lightness);
  const auto channel = [&](int offset) {
    const double k = std::fmod(offset + hue / 30, 12);
    const double value = lightness - chroma * std::max(-1.0, std::min({k - 3, 9 - k, 1.0}));
    return static_cast<Colour>(std::lround(value * 255));
  };
  return channel(4) << 16 | channel(8) << 8 | channel(0);
}

std::optional<Colour> colourOfText(const QString& text) {
  const QString typed = trimBlanks(text);
  if (typed.startsWith(u'#') && typed.size() == 7) {
    bool ok = false;
    const Colour rgb = typed.mid(1).toUInt(&ok, 16);
    if (ok) return (rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16;
  }
  const std::optional<double> number = numeric(typed);
  if (!number || *number < 0 || *number > kWhite || *number != std::floor(*number))
    return std::nullopt;
  return static_cast<Colour>(*number);
}

ColourChooser::ColourChooser(const DialogUses& dialog)
    : Dialog(dialog, u"frmColor"_s, inventory()), panel_(form_) {
  onClick(u"cmdColour", [this](int index) { show(colourOfCell(index)); });
  onClick(u"cmdGrey", [this](int index) { show(grey(index)); });
  onClick(u"txtNumber", [this](int) { txtNumber_Click(); });
  onClick(u"cmdOK", [this](int) { leaveWith(true); });
  onClick(u"cmdCancel", [this](int) { leaveWith(false); });
}

std::optional<Colour> ColourChooser::choose(Colour current, const QString& element) {
  const bool shown = run([&] { Form_Load(current, element); });
  return shown && confirmed_ ? std::optional(chosen_) : std::nullopt;
}

void ColourChooser::Form_Load(Colour current, const QString& element) {
  for (Button* cell : panel_.cmdColour) cell->colours = ground(colourOfCell(cell->index));
  for (Button* cell : panel_.cmdGrey) cell->colours = ground(grey(cell->index));
  panel_.lblTitle->caption = element;
  panel_.before->colours = ground(current);
  confirmed_ = false;
  show(current);
}

void ColourChooser::show(Colour colour) {
  chosen_ = colour;
  panel_.after->colours = ground(colour);
  panel_.txtNumber->text = QString::number(colour);
}

void ColourChooser::txtNumber_Click() {
  const QString typed = dialog_.messages.ask(u"Colour as a number or as #RRGGBB"_s);
  if (typed.isEmpty()) return;
  if (const std::optional<Colour> colour = colourOfText(typed)) return show(*colour);
  dialog_.messages.say(
      u"\"%1\" is no colour. A colour is a number from 0 to 16777215 or #RRGGBB."_s.arg(
          typed.left(40)));
}

void ColourChooser::leaveWith(bool confirmed) {
  confirmed_ = confirmed;
  leave();
}

}  // namespace korvane
