#include "view/window/open_boxes.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>

namespace korvane {
namespace {

OpenBox ofForm(FormView& view) {
  const Form& form = view.form();
  OpenBox box{form.name, {}, {}, false};
  for (const auto& control : form.controls()) {
    const bool says = control->kind == Kind::Label && control->visible();
    if (says && box.text.isEmpty()) box.text = control->caption();
    const bool answers = control->kind == Kind::Image || control->kind == Kind::Button;
    ControlWidget* widget = view.widget(*control);
    if (!answers || !widget || !control->visible()) continue;
    const QString name = !control->caption().isEmpty()        ? control->caption()
                         : !control->picture().name.isEmpty() ? control->picture().name
                                                              : control->spokenName;
    box.answers.emplace_back(
        name, [widget](Finger& finger) { finger.tap(*widget, widget->rect().center()); });
  }
  return box;
}

OpenBox ofSystem(QMessageBox& from) {
  OpenBox box{u"system"_s, from.text(), {}, true};
  for (QAbstractButton* button : from.buttons()) {
    box.answers.emplace_back(button->text().remove(u'&'), [button](Finger&) { button->click(); });
  }
  return box;
}

}  // namespace

std::vector<OpenBox> openBoxes(WindowHost& host) {
  std::vector<OpenBox> open;
  for (FormView* view : host.views())
    if (view->form().name == "frmMsgBox"_L1 && view->form().shown()) open.push_back(ofForm(*view));
  if (auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget()))
    open.push_back(ofSystem(*box));
  return open;
}

}  // namespace korvane
