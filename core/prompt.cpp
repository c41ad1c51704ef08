#include "core/prompt.h"

#include "core/form/binder.h"

namespace korvane {
namespace {

constexpr InventoryRow kBox[] = {
    {"Shape1", -1, Kind::Frame, {0, 0, 760, 380}, Left | Top, ""},
    {"msg", -1, Kind::Label, {40, 36, 680, 210}, Left | Top, "Message"},
    {"cmdControls", 0, Kind::Image, {190, 266, 180, 84}, Left | Top, "Yes", "", false},
    {"cmdControls", 1, Kind::Image, {390, 266, 180, 84}, Left | Top, "No", "", false},
    {"cmdControls", 2, Kind::Image, {290, 266, 180, 84}, Left | Top, "OK", "", false},
};

struct BoxPanel {
  Label* msg;
  Frame* shape;
  std::array<Image*, 3> cmdControls;

  explicit BoxPanel(Form& form) {
    Binder bind(form, "message box");
    bind(msg, "msg");
    bind(shape, "Shape1");
    bind(cmdControls, "cmdControls");
  }
};

}  // namespace

ThemedMessages::ThemedMessages(FormHost& host, const Palette& palette)
    : host_(host), palette_(palette), form_(u"frmMsgBox"_s, kBox, {0, 0, 760, 380}) {
  form_.on(u"cmdControls", Event::Click,
           [this](Control& control, const Event&) { cmdControls_Click(control.index); });
  form_.on(Event::KeyDown, [this](Control&, const Event& event) {
    constexpr int kEnter = 13, kEscape = 27;
    const bool question = form_.find(u"cmdControls", 0)->visible();
    if (event.key == kEnter) cmdControls_Click(question ? 0 : 2);
    if (event.key == kEscape) cmdControls_Click(question ? 1 : 2);
  });
}

int ThemedMessages::showMessage(QString& text, bool yesNo, bool, bool inputMode, bool password) {
  if (inputMode) {
    if (prompt_)
      prompt_->ask(text, password);
    else
      text.clear();
    return Ok;
  }
  if (form_.shown()) return yesNo ? No : Ok;  // one box at a time; the one on screen stands
  BoxPanel box(form_);
  form_.colours = palette_.button(u"Messagebox");
  box.shape->colours = palette_.button(u"Messagebox");
  Colours ink;
  ink.fore = palette_.fore(u"Messagebox");
  box.msg->colours = ink;
  box.msg->fontUnits = 32;
  box.msg->align = 0;
  box.msg->wraps = true;
  box.msg->caption = text;
  const char* const names[] = {"yes", "no", "ok"};
  for (size_t i = 0; i < 3; ++i) {
    box.cmdControls[i]->setPicture(u"root"_s, QString::fromLatin1(names[i]));
    box.cmdControls[i]->visible = yesNo == (i < 2);
  }
  result_ = yesNo ? No : Ok;
  host_.showModal(form_);
  return result_;
}

void ThemedMessages::cmdControls_Click(int index) {
  constexpr int answers[] = {Yes, No, Ok};
  result_ = answers[index];
  host_.hide(form_);
}

}  // namespace korvane
