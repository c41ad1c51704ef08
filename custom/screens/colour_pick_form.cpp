#include "custom/screens/colour_pick_form.h"

#include "core/dressing.h"
#include "custom/screens/colour_elements.h"

namespace korvane {
namespace {

constexpr unsigned TL = Left | Top;
constexpr int kColumns = 3;

std::vector<InventoryRow> inventory() {
  constexpr int kTabWidth = 197, kTabPitch = 207, kCell = 404, kRow = 112;
  std::vector<InventoryRow> rows{
      {"lblTitle", -1, Kind::Label, {24, 16, 1232, 64}, TL, "Colours"},
      {"cmdEnd", -1, Kind::Button, {968, 664, 288, 88}, TL, "Exit"},
  };
  int page = 0, element = 0;
  for (const ColourPage& told : colourPages()) {
    rows.push_back(
        {"TS", page, Kind::Button, {24 + page * kTabPitch, 92, kTabWidth, 84}, TL, told.caption});
    rows.push_back({"frames", page, Kind::Frame, {24, 188, 1232, 464}, TL, ""});
    ++page;
  }
  for (const ColourPage& told : colourPages()) {
    for (int i = 0; i < static_cast<int>(told.elements.size()); ++i, ++element) {
      const int left = 16 + i % kColumns * kCell, top = 16 + i / kColumns * kRow;
      const char* label = told.elements[static_cast<size_t>(i)].label;
      rows.push_back({"Text1", element, Kind::Text, {left, top, 120, 96}, TL, label});
      rows.push_back({"Label1", element, Kind::Label, {left + 132, top, 256, 96}, TL, ""});
    }
  }
  return rows;
}

}  // namespace

ColourPickForm::ColourPickForm(Uses uses)
    : uses_(uses),
      chooser_(uses.host, uses.palette, uses.messages),
      form_(u"frmColorPick"_s, inventory()) {
  form_.caption = u"Korvane Color Selector Version "_s + QStringLiteral(KORVANE_VERSION);
  auto* title = dynamic_cast<Label*>(form_.find(u"lblTitle"));
  title->caption = form_.caption();
  title->fontUnits = 36;
  title->bold = true;
  auto* end = dynamic_cast<Button*>(form_.find(u"cmdEnd"));
  end->caption = u"Exit"_s;
  end->look.accent = true;
  describe();

  form_.on(u"TS", Event::Click, [this](Control& tab, const Event&) { TS_Click(tab.index); });
  form_.on(u"Text1", Event::Click, [this](Control& pressed, const Event&) {
    form_.setFocus(&pressed);
    PicAColor();
  });
  form_.on(u"cmdEnd", Event::Click, [this](Control&, const Event&) { uses_.host.hide(form_); });
  form_.on(Event::KeyDown, [this](Control&, const Event& event) {
    constexpr int kF2 = 113, kEscape = 27;
    if (event.key == kF2) PicAColor();
    if (event.key == kEscape) uses_.host.hide(form_);
  });
}

// Every box its element, its label and its page.
void ColourPickForm::describe() {
  int page = 0, element = 0;
  for (const ColourPage& told : colourPages()) {
    Control* frame = form_.find(u"frames", page);
    form_.find(u"TS", page++)->caption = QString::fromLatin1(told.caption);
    for (const ColourElement& each : told.elements) {
      TextBox& swatch = box(element);
      auto* label = dynamic_cast<Label*>(form_.find(u"Label1", element++));
      swatch.container = label->container = frame;
      swatch.tag = QString::fromLatin1(each.name);
      label->caption = QString::fromLatin1(each.label);
      label->wraps = true;
    }
  }
}

TextBox& ColourPickForm::box(int index) {
  return *dynamic_cast<TextBox*>(form_.find(u"Text1", index));
}

void ColourPickForm::open() {
  if (form_.shown()) return;
  Form_Load();
  uses_.host.showModal(form_);
}

void ColourPickForm::Form_Load() {
  dress(form_, uses_.palette);
  for (int i = 0; i <= form_.upperBound(u"Text1"); ++i)
    box(i).colours = uses_.palette.button(box(i).tag());
  form_.setFocus(nullptr);
  TS_Click(0);
}

void ColourPickForm::TS_Click(int index) {
  for (int i = 0; i <= form_.upperBound(u"frames"); ++i) {
    form_.find(u"frames", i)->visible = i == index;
    form_.find(u"TS", i)->colours = uses_.palette.button(i == index ? u"Accent" : u"Button");
  }
}

void ColourPickForm::PicAColor() {
  auto* active = dynamic_cast<TextBox*>(form_.focus());
  if (!active) return;
  const QString element = active->tag().trimmed();
  const std::optional<Colour> chosen = chooser_.choose(
      active->colours().back.value_or(0), form_.find(u"Label1", active->index)->caption());
  if (!chosen) return;
  Colours both;
  both.back = both.fore = *chosen;
  active->colours = both;
  uses_.settings.writeSetting(u"COLORS", element + u"BACK"_s, QString::number(*chosen));
}

}  // namespace korvane
