// A picture of what goes, fading above what comes. Presses pass through it.
#pragma once

#include <QElapsedTimer>
#include <QPixmap>
#include <QWidget>

namespace korvane {

class FadeLayer : public QWidget {
 public:
  FadeLayer(QPixmap picture, QRect place, QWidget* parent);
  void run(int milliseconds);  // returns when it is clear. Yields.

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPixmap picture_;
  QElapsedTimer clock_;
  int length_ = 1;
};

}  // namespace korvane
