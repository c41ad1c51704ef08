#include "view/controls/bubble.h"

#include <QPainter>

#include "view/drawing/style.h"

namespace korvane {

Bubble::Bubble(const Face& face, QWidget* parent) : QWidget(parent), face_(face) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  hide();
}

void Bubble::showLetter(const QString& letter, QPoint thumb) {
  const int side = static_cast<int>(face_.px(150));
  const int gap = static_cast<int>(face_.px(70));
  showAt(letter, QRect(thumb.x() - gap - side, thumb.y() - side / 2, side, side), true);
}

void Bubble::showText(const QString& text, QPoint thumb) {
  const QFontMetrics metrics(style::font(face_.px(28), QFont::DemiBold));
  const int width = metrics.horizontalAdvance(text) + static_cast<int>(face_.px(56));
  const int height = static_cast<int>(face_.px(60));
  showAt(text,
         QRect(thumb.x() - width / 2, thumb.y() - static_cast<int>(face_.px(46)) - height, width,
               height),
         false);
}

void Bubble::showAt(const QString& text, QRect place, bool letter) {
  const QRect all = parentWidget()->rect();
  place.moveLeft(std::clamp(place.left(), 0, std::max(0, all.width() - place.width())));
  place.moveTop(std::clamp(place.top(), 0, std::max(0, all.height() - place.height())));
  letter_ = letter;
  text_ = text;
  setGeometry(place);
  if (isHidden()) {
    raise();
    show();
  }
  update();
}

void Bubble::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  style::card(painter, rect(), letter_ ? height() / 2.0 : height() / 2.6, QColor(0x2A, 0x35, 0x41));
  painter.setPen(letter_ ? style::kAccent : style::kText);
  painter.setFont(letter_ ? style::font(height() * 0.52, QFont::Bold)
                          : style::font(face_.px(28), QFont::DemiBold));
  painter.drawText(rect(), int(Qt::AlignCenter) | Qt::TextSingleLine, text_);
}

}  // namespace korvane
