#include "listener/trouble_box.h"

namespace korvane {

namespace {
constexpr qsizetype kMostTexts = 3;
}

void TroubleBox::say(const QString& text) {
  if (waiting_.contains(text)) return;
  if (waiting_.size() < kMostTexts)
    waiting_ << text;
  else
    ++further_;
  if (!busy_) post();
}

void TroubleBox::post() {
  busy_ = true;
  pump_.later([this, alive = std::weak_ptr<bool>(alive_)] {
    if (!alive.expired()) show();
  });
}

void TroubleBox::show() {
  QStringList texts = std::exchange(waiting_, {});
  if (const int more = std::exchange(further_, 0)) texts << u"And %1 more."_s.arg(more);
  const std::weak_ptr<bool> alive = alive_;
  messages_.say(texts.join(u'\n'));
  if (alive.expired()) return;
  busy_ = false;
  if (!waiting_.isEmpty()) post();
}

}  // namespace korvane
