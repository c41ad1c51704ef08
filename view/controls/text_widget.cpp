#include "view/controls/text_widget.h"

#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>

#include "view/drawing/style.h"

namespace korvane {

TextWidget::TextWidget(TextBox& box, Face& face, QWidget* parent)
    : ControlWidget(box, face, parent), box_(box) {
  if (box.multiLine)
    makeLines();
  else
    makeLine();
  field()->setAccessibleName(box.spokenName);
  field()->installEventFilter(this);
  if (lines_) lines_->viewport()->installEventFilter(this);
  setFocusProxy(field());
  show();
}

QWidget* TextWidget::field() const {
  return line_ ? static_cast<QWidget*>(line_) : static_cast<QWidget*>(lines_);
}

void TextWidget::makeLine() {
  line_ = new QLineEdit(this);
  line_->setFrame(false);
  connect(line_, &QLineEdit::textChanged, this, [this] { take(); });
  connect(line_, &QLineEdit::cursorPositionChanged, this, [this] { take(); });
}

void TextWidget::makeLines() {
  lines_ = new QPlainTextEdit(this);
  lines_->setFrameStyle(QFrame::NoFrame);
  connect(lines_, &QPlainTextEdit::textChanged, this, [this] { take(); });
  connect(lines_, &QPlainTextEdit::cursorPositionChanged, this, [this] { take(); });
}

void TextWidget::take() {
  if (busy_) return;
  busy_ = true;
  const QString text = line_ ? line_->text() : lines_->toPlainText();
  const bool edited = text != box_.text();
  box_.text = text;
  box_.selStart = line_ ? line_->cursorPosition() : lines_->textCursor().position();
  busy_ = false;
  if (edited) fire({Event::Change});
}

void TextWidget::show() {
  if (busy_) return;
  busy_ = true;
  const int caret = std::clamp(box_.selStart(), 0, static_cast<int>(box_.text().size()));
  if (line_) {
    if (line_->text() != box_.text()) line_->setText(box_.text());
    line_->setEchoMode(box_.passwordChar().isEmpty() ? QLineEdit::Normal : QLineEdit::Password);
    if (line_->cursorPosition() != caret) line_->setCursorPosition(caret);
  } else {
    if (lines_->toPlainText() != box_.text()) lines_->setPlainText(box_.text());
    QTextCursor cursor = lines_->textCursor();
    cursor.setPosition(caret);
    lines_->setTextCursor(cursor);
  }
  busy_ = false;
}

void TextWidget::mirror(Aspect aspect) {
  if (aspect == Aspect::Value) return show();
  if (aspect == Aspect::Focus && box_.form.focus() == &box_) field()->setFocus();
  if (aspect == Aspect::Colours) dress();
  ControlWidget::mirror(aspect);
}

void TextWidget::dress() {
  QPalette colours;
  colours.setColor(QPalette::Base, Qt::transparent);
  colours.setColor(QPalette::Text, style::colour(box_.colours().fore, style::kText));
  colours.setColor(QPalette::Highlight, style::kAccent);
  colours.setColor(QPalette::HighlightedText, style::kDark);
  field()->setPalette(colours);
  field()->setFont(style::font(std::min(face().px(30), height() * 0.55)));
}

void TextWidget::place() {
  ControlWidget::place();
  const int side = static_cast<int>(face().px(14));
  field()->setGeometry(rect().adjusted(side, 2, -side, -2));
  dress();
}

void TextWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  style::field(painter, rect(), face().px(12), style::colour(box_.colours().back, style::kCard));
  if (!field()->hasFocus()) return;
  painter.setPen(QPen(style::kAccent, std::max(1.5, face().px(2))));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), face().px(12), face().px(12));
}

bool TextWidget::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) {
    box_.form.setFocus(&box_);
    update();
  }
  if (event->type() == QEvent::FocusOut) update();
  if (event->type() == QEvent::MouseButtonRelease && !fire({Event::Click}) &&
      face().touch.textTouched)
    face().touch.textTouched(box_);
  return ControlWidget::eventFilter(watched, event);
}

}  // namespace korvane
