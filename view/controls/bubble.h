// The large letter or the text beside a thumb while a finger holds it.
#pragma once

#include <QWidget>

#include "view/controls/face.h"

namespace korvane {

class Bubble : public QWidget {
 public:
  Bubble(const Face& face, QWidget* parent);

  // One or two letters, to the left of `thumb`; in the parent's pixels.
  void showLetter(const QString& letter, QPoint thumb);
  // A line of text, above `thumb`.
  void showText(const QString& text, QPoint thumb);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void showAt(const QString& text, QRect place, bool letter);

  const Face& face_;
  QString text_;
  bool letter_ = false;
};

}  // namespace korvane
