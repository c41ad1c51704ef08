// A field for typed text; several lines when the control asks for it.
#pragma once

#include "view/controls/control_widget.h"

class QLineEdit;
class QPlainTextEdit;

namespace korvane {

class TextWidget : public ControlWidget {
 public:
  TextWidget(TextBox& box, Face& face, QWidget* parent);
  void mirror(Aspect aspect) override;
  void place() override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void makeLine();
  void makeLines();
  void show();   // the control's text and caret into the field
  void take();   // the field's into the control
  void dress();  // font and colours
  QWidget* field() const;

  TextBox& box_;
  QLineEdit* line_ = nullptr;
  QPlainTextEdit* lines_ = nullptr;
  bool busy_ = false;
};

}  // namespace korvane
