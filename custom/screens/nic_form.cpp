#include "custom/screens/nic_form.h"

#include "core/dressing.h"

namespace korvane {
namespace {

constexpr unsigned TL = Left | Top;

constexpr InventoryRow kNic[] = {
    {"lblTitle", -1, Kind::Label, {24, 16, 1232, 64}, TL, "Multi NIC Card Setup"},
    {"Label1", -1, Kind::Label, {24, 96, 1232, 56}, TL, "Click on one of the available IP's"},
    {"optNic", 0, Kind::Check, {40, 176, 800, 96}, TL, "Any address"},
    {"optNic", 1, Kind::Check, {40, 288, 800, 96}, TL, "First address"},
    {"optNic", 2, Kind::Check, {40, 400, 800, 96}, TL, "Second address"},
    {"optNic", 3, Kind::Check, {40, 512, 800, 96}, TL, "Third address"},
    {"cmdOK", -1, Kind::Button, {1000, 648, 256, 96}, TL, "OK"},
};

}  // namespace

NicForm::NicForm(FormHost& host, const Palette& palette, const Network& network)
    : host_(host), palette_(palette), network_(network), form_(u"frmNic"_s, kNic), panel_(form_) {
  title(*panel_.lblTitle, u"Multi NIC Card Setup"_s);
  panel_.Label1->caption = u"Click on one of the available IP's "_s;
  panel_.Label1->fontUnits = 30;
  panel_.cmdOK->caption = u"OK"_s;
  panel_.cmdOK->look.accent = true;
  form_.on(u"optNic", Event::Click, [this](Control& control, const Event&) {
    mark(*panel_.optNic[static_cast<size_t>(control.index)]);
  });
  form_.on(u"cmdOK", Event::Click, [this](auto&, auto&) { host_.hide(form_); });
}

void NicForm::Form_Load(const QString& stored) {
  dress(form_, palette_);
  const QStringList captions = QStringList{u"Any"_s} + network_.localIPAddresses();
  for (size_t i = 0; i < kOptions; ++i) {
    Check& option = *panel_.optNic[i];
    option.caption = captions.value(static_cast<qsizetype>(i));
    option.visible = !option.caption().isEmpty();
    option.checked = option.visible() && option.caption().compare(stored, Qt::CaseInsensitive) == 0;
  }
}

void NicForm::mark(const Check& chosen) {
  for (Check* option : panel_.optNic) option->checked = option == &chosen;
}

QString NicForm::choose(const QString& stored) {
  if (form_.shown()) return stored;
  Form_Load(stored);
  host_.showModal(form_);
  for (const Check* option : panel_.optNic)
    if (option->checked()) return option->caption();
  return stored;
}

}  // namespace korvane
