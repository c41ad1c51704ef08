#include "custom/screens/nic_form.h"

#include "custom/screens/setup_rows.h"

namespace korvane {
namespace {

constexpr InventoryRow kNic[] = {
    titleRow("Multi NIC Card Setup"),
    setupRow("Label1", -1, Kind::Label, {24, 96, 1232, 56}, "Click on one of the available IP's ",
             {.text = 30}),
    setupRow("optNic", 0, Kind::Check, {40, 176, 800, 96}, "Any address"),
    setupRow("optNic", 1, Kind::Check, {40, 288, 800, 96}, "First address"),
    setupRow("optNic", 2, Kind::Check, {40, 400, 800, 96}, "Second address"),
    setupRow("optNic", 3, Kind::Check, {40, 512, 800, 96}, "Third address"),
    setupRow("cmdOK", -1, Kind::Button, {1000, 648, 256, 96}, "OK", {.accent = true}),
};

}  // namespace

NicForm::NicForm(const DialogUses& dialog, const Network& network)
    : Dialog(dialog, u"frmNic"_s, kNic), network_(network), panel_(form_) {
  onClick(u"optNic", [this](int index) { mark(index); });
  onClick(u"cmdOK", [this](int) { leave(); });
}

void NicForm::Form_Load(const QString& stored) {
  const QStringList captions = QStringList{u"Any"_s} + network_.localIPAddresses();
  for (Check* option : panel_.optNic) {
    option->caption = captions.value(option->index);
    option->visible = !option->caption().isEmpty();
    option->checked =
        option->visible() && option->caption().compare(stored, Qt::CaseInsensitive) == 0;
  }
}

void NicForm::mark(int index) {
  for (Check* option : panel_.optNic) option->checked = option->index == index;
}

QString NicForm::choose(const QString& stored) {
  if (!run([&] { Form_Load(stored); })) return stored;
  for (const Check* option : panel_.optNic)
    if (option->checked()) return option->caption();
  return stored;
}

}  // namespace korvane
