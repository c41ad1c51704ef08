#include "view/window/system_box.h"

#include <QMessageBox>

namespace korvane {

SystemBox::Answer MessageBox::show(const QString& text, bool yesNo) {
  QMessageBox box(QMessageBox::NoIcon, u"Korvane"_s, text,
                  yesNo ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
  box.setTextFormat(Qt::PlainText);
  box.setStyleSheet(
      u"QLabel { font-size: 22px; } QPushButton { min-width: 150px; min-height: 72px; "
      "font-size: 22px; }"_s);
  const int pressed = box.exec();
  if (!yesNo) return Ok;
  return pressed == QMessageBox::Yes ? Yes : No;
}

}  // namespace korvane
