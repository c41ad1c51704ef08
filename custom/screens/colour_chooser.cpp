#include "custom/screens/colour_chooser.h"

#include "core/dressing.h"

namespace korvane {
namespace {

constexpr unsigned TL = Left | Top;
constexpr int kColumns = 16, kLeft = 19, kCell = 72, kPitch = 78, kTop = 84, kGreyTop = 560;
constexpr Colour kWhite = 0xFFFFFF;

struct Tone {
  double saturation, lightness;
};
constexpr Tone kTones[] = {{0.9, 0.86},  {0.85, 0.7}, {0.9, 0.5},
                           {0.75, 0.36}, {0.5, 0.22}, {0.3, 0.13}};

constexpr InventoryRow kFixed[] = {
    {"lblTitle", -1, Kind::Label, {24, 12, 1232, 60}, TL, "Element"},
    {"before", -1, Kind::Frame, {24, 656, 112, 96}, TL, "Colour before"},
    {"after", -1, Kind::Frame, {136, 656, 200, 96}, TL, "New colour"},
    {"lblNumber", -1, Kind::Label, {360, 668, 110, 72}, TL, ""},
    {"txtNumber", -1, Kind::Text, {470, 668, 226, 72}, TL, "Number of the colour"},
    {"cmdCancel", -1, Kind::Button, {720, 656, 256, 96}, TL, "Cancel"},
    {"cmdOK", -1, Kind::Button, {1000, 656, 256, 96}, TL, "OK"},
};

std::vector<InventoryRow> inventory() {
  std::vector<InventoryRow> rows(std::begin(kFixed), std::end(kFixed));
  const auto cell = [](int index, int top) {
    return Rect{kLeft + index % kColumns * kPitch, top + index / kColumns * kPitch, kCell, kCell};
  };
  for (int i = 0; i < kColumns * static_cast<int>(std::size(kTones)); ++i)
    rows.push_back({"cmdColour", i, Kind::Button, cell(i, kTop), TL, "Colour"});
  for (int i = 0; i < kColumns; ++i)
    rows.push_back({"cmdGrey", i, Kind::Button, cell(i, kGreyTop), TL, "Grey"});
  return rows;
}

// 240 down to 15 in steps of 15.
Colour grey(int index) {
  const auto value = static_cast<Colour>(240 - 15 * index);
  return value << 16 | value << 8 | value;
}

Colour colourOfCell(const Control& cell) {
  if (cell.name == "cmdGrey"_L1) return grey(cell.index);
  const Tone& tone = kTones[cell.index / kColumns];
  return colourOfHsl(cell.index % kColumns * 360.0 / kColumns, tone.saturation, tone.lightness);
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
  const QString told = text.trimmed();
  bool ok = false;
  if (told.startsWith(u'#') && told.size() == 7) {
    const Colour rgb = told.mid(1).toUInt(&ok, 16);
    if (ok) return (rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16;
  }
  const Colour number = told.toUInt(&ok);
  return ok && number <= kWhite ? std::optional(number) : std::nullopt;
}

ColourChooser::ColourChooser(FormHost& host, const Palette& palette, Messages& messages)
    : host_(host),
      palette_(palette),
      messages_(messages),
      form_(u"frmColor"_s, inventory()),
      panel_(form_) {
  panel_.lblTitle->fontUnits = 36;
  panel_.lblTitle->bold = true;
  panel_.lblNumber->caption = u"Number"_s;
  panel_.cmdCancel->caption = u"Cancel"_s;
  panel_.cmdOK->caption = u"OK"_s;
  panel_.cmdOK->look.accent = true;
  for (const char* cells : {"cmdColour", "cmdGrey"})
    form_.on(QString::fromLatin1(cells), Event::Click,
             [this](Control& cell, const Event&) { show(colourOfCell(cell)); });
  form_.on(u"txtNumber", Event::Click, [this](Control&, const Event&) { txtNumber_Click(); });
  const auto leave = [this](bool confirmed) {
    confirmed_ = confirmed;
    host_.hide(form_);
  };
  form_.on(u"cmdOK", Event::Click, [leave](Control&, const Event&) { leave(true); });
  form_.on(u"cmdCancel", Event::Click, [leave](Control&, const Event&) { leave(false); });
  form_.on(Event::KeyDown, [leave](Control&, const Event& event) {
    constexpr int kEnter = 13, kEscape = 27;
    if (event.key == kEnter || event.key == kEscape) leave(event.key == kEnter);
  });
}

std::optional<Colour> ColourChooser::choose(Colour current, const QString& element) {
  if (form_.shown()) return std::nullopt;
  dress(form_, palette_);
  for (const auto& control : form_.controls())
    if (control->name == "cmdColour"_L1 || control->name == "cmdGrey"_L1)
      control->colours = ground(colourOfCell(*control));
  panel_.lblTitle->caption = element;
  panel_.before->colours = ground(current);
  confirmed_ = false;
  show(current);
  host_.showModal(form_);
  return confirmed_ ? std::optional(chosen_) : std::nullopt;
}

void ColourChooser::show(Colour colour) {
  chosen_ = colour;
  panel_.after->colours = ground(colour);
  panel_.txtNumber->text = QString::number(colour);
}

void ColourChooser::txtNumber_Click() {
  const QString typed = messages_.ask(u"Colour as a number or as #RRGGBB"_s);
  if (typed.isEmpty()) return;
  if (const std::optional<Colour> colour = colourOfText(typed)) return show(*colour);
  messages_.say(u"\"%1\" is no colour. A colour is a number from 0 to 16777215 or #RRGGBB."_s.arg(
      typed.left(40)));
}

}  // namespace korvane
