#include "custom/screens/colour_pick_form.h"

#include "custom/screens/colour_elements.h"
#include "custom/screens/setup_rows.h"

namespace korvane {
namespace {

constexpr int kColumns = 3;

std::vector<InventoryRow> inventory() {
  constexpr int kTabWidth = 197, kTabPitch = 207, kCell = 404, kRow = 112;
  std::vector<InventoryRow> rows{
      titleRow("Korvane Color Selector Version " KORVANE_VERSION, 36),
      setupRow("cmdEnd", -1, Kind::Button, {968, 664, 288, 88}, "Exit", {.accent = true}),
  };
  int number = 0, element = 0;
  for (const ColourPage& page : colourPages()) {
    rows.push_back(setupRow("TS", number, Kind::Button,
                            {24 + number * kTabPitch, 92, kTabWidth, 84}, page.caption));
    rows.push_back(setupRow("frames", number++, Kind::Frame, {24, 188, 1232, 464}, ""));
  }
  for (const ColourPage& page : colourPages()) {
    for (int i = 0; i < static_cast<int>(page.elements.size()); ++i, ++element) {
      const int left = 16 + i % kColumns * kCell, top = 16 + i / kColumns * kRow;
      const char* label = page.elements[static_cast<size_t>(i)].label;
      rows.push_back(setupRow("Text1", element, Kind::Text, {left, top, 120, 96}, label));
      rows.push_back(setupRow("Label1", element, Kind::Label, {left + 132, top, 256, 96}, label,
                              {.wraps = true}));
    }
  }
  return rows;
}

}  // namespace

ColourPickForm::ColourPickForm(const Uses& uses)
    : Dialog(uses.dialog, u"frmColorPick"_s, inventory()),
      settings_(uses.settings),
      chooser_(uses.dialog) {
  form_.caption = u"Korvane Color Selector Version "_s + QStringLiteral(KORVANE_VERSION);
  bindPages();
  onClick(u"TS", [this](int page) { TS_Click(page); });
  onClick(u"Text1", [this](int index) {
    form_.setFocus(swatches_[static_cast<size_t>(index)].box);
    PicAColor();
  });
  onClick(u"cmdEnd", [this](int) { leave(); });
  form_.on(Event::KeyDown, [this](Control&, const Event& event) {
    constexpr int kF2 = 113;
    if (event.key == kF2) PicAColor();
  });
}

// Every box its element and its page.
void ColourPickForm::bindPages() {
  int number = 0, element = 0;
  for (const ColourPage& page : colourPages()) {
    pages_.push_back(
        {&controlOf<Button>(form_, u"TS", number), &controlOf<Frame>(form_, u"frames", number)});
    ++number;
    for (const ColourElement& each : page.elements) {
      swatches_.push_back({&controlOf<TextBox>(form_, u"Text1", element),
                           &controlOf<Label>(form_, u"Label1", element)});
      ++element;
      const Swatch& swatch = swatches_.back();
      swatch.box->container = swatch.label->container = pages_.back().frame;
      swatch.box->tag = QString::fromLatin1(each.name);
    }
  }
}

void ColourPickForm::open() {
  run([this] { Form_Load(); });
}

void ColourPickForm::Form_Load() {
  for (const Swatch& swatch : swatches_)
    swatch.box->colours = dialog_.palette.button(swatch.box->tag());
  form_.setFocus(nullptr);
  TS_Click(0);
}

void ColourPickForm::TS_Click(int index) {
  for (const Page& page : pages_) {
    const bool open = page.tab->index == index;
    page.frame->visible = open;
    page.tab->colours = dialog_.palette.button(open ? u"Accent" : u"Button");
  }
}

void ColourPickForm::PicAColor() {
  auto* active = dynamic_cast<TextBox*>(form_.focus());
  if (!active) return;
  const Label& label = *swatches_[static_cast<size_t>(active->index)].label;
  const std::optional<Colour> chosen =
      chooser_.choose(active->colours().back.value_or(0), label.caption());
  if (!chosen) return;
  const QString key = trimBlanks(active->tag()) + u"BACK"_s;
  QString error;
  if (!settings_.writeSetting(u"COLORS", key, QString::number(*chosen), &error)) {
    dialog_.messages.say(error);
    return;
  }
  Colours both;
  both.back = both.fore = *chosen;
  active->colours = both;
}

}  // namespace korvane
