#include "core/prompt.h"

#include "core/dressing.h"
#include "core/form/panel.h"

namespace korvane {
namespace {

enum Button { kYes, kNo, kOk };
constexpr unsigned TL = Left | Top;

constexpr InventoryRow kBox[] = {
    {"Shape1", -1, Kind::Frame, {0, 0, 760, 380}, TL, "", "", true, {.colours = "Messagebox"}},
    {"msg",
     -1,
     Kind::Label,
     {40, 36, 680, 210},
     TL,
     "Message",
     "",
     true,
     {.text = 32, .align = 0, .wraps = true}},
    {"cmdControls",
     0,
     Kind::Image,
     {190, 266, 180, 84},
     TL,
     "Yes",
     "",
     false,
     {.picture = "root/yes"}},
    {"cmdControls",
     1,
     Kind::Image,
     {390, 266, 180, 84},
     TL,
     "No",
     "",
     false,
     {.picture = "root/no"}},
    {"cmdControls",
     2,
     Kind::Image,
     {290, 266, 180, 84},
     TL,
     "OK",
     "",
     false,
     {.picture = "root/ok"}},
};

}  // namespace

std::span<const InventoryRow> messageBoxInventory() {
  return kBox;
}

class ThemedMessages::Box {
 public:
  explicit Box(FormHost& host) : host_(host) {
    form_.on(u"cmdControls", Event::Click,
             [this](Control& control, const Event&) { answer(control.index); });
    form_.on(Event::KeyDown, [this](Control&, const Event& event) {
      constexpr int kEnter = 13, kEscape = 27;
      const bool question = panel_.cmdControls[kYes]->visible();
      if (event.key == kEnter) answer(question ? kYes : kOk);
      if (event.key == kEscape) answer(question ? kNo : kOk);
    });
  }

  bool shown() const { return form_.shown(); }

  int show(const QString& text, bool yesNo, const Palette& palette) {
    dressColours(form_, palette, u"Messagebox");
    panel_.msg->caption = text;
    for (Image* button : panel_.cmdControls) button->visible = yesNo == (button->index != kOk);
    result_ = yesNo ? No : Ok;
    host_.showModal(form_);
    return result_;
  }

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Label* msg = bind("msg");
    std::array<Image*, 3> cmdControls = bind("cmdControls");
  };

  void answer(int button) {
    constexpr int answers[] = {Yes, No, Ok};
    result_ = answers[button];
    host_.hide(form_);
  }

  FormHost& host_;
  Form form_{u"frmMsgBox"_s, kBox, {0, 0, 760, 380}};
  Panel panel_{form_};
  int result_ = Ok;
};

ThemedMessages::ThemedMessages(FormHost& host, const Palette& palette)
    : host_(host), palette_(palette) {
  boxes_.push_back(std::make_unique<Box>(host));
}

ThemedMessages::~ThemedMessages() = default;

ThemedMessages::Box& ThemedMessages::freeBox() {
  for (const auto& box : boxes_)
    if (!box->shown()) return *box;
  return *boxes_.emplace_back(std::make_unique<Box>(host_));
}

int ThemedMessages::showMessage(QString& text, bool yesNo, bool, bool inputMode, bool password) {
  if (inputMode) {
    if (prompt_)
      prompt_->ask(text, password);
    else
      text.clear();
    return Ok;
  }
  if (!yesNo && !waiting_.contains(text)) waiting_ << text;
  const int answer = yesNo ? freeBox().show(text, true, palette_) : Ok;
  const auto shown = [](const auto& box) { return box->shown(); };
  if (std::ranges::any_of(boxes_, shown)) return answer;  // whoever waits there goes on with these
  while (!waiting_.isEmpty()) boxes_.front()->show(waiting_.takeFirst(), false, palette_);
  return answer;
}

}  // namespace korvane
