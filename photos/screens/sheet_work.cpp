#include "photos/screens/sheet_work.h"

namespace korvane {

QString counted(int count, const QString& what) {
  return QString::number(count) + u' ' + what + (count == 1 ? QString() : u"s"_s);
}

SheetWork::SheetWork(Form& form, Screen& screen) : screen_(screen), panel_(form) {
  panel_.cmdStop->enabled = false;
  form.on(u"cmdStop", Event::Click, [this](Control&, const Event&) {
    panel_.cmdStop->enabled = false;
    if (stop_) stop_();
  });
}

bool SheetWork::begin(std::function<void()> stop) {
  if (screen_.busy()) return false;
  busy_.emplace(screen_, Screen::Custom);
  stop_ = std::move(stop);
  panel_.picProgress->value = 0;
  panel_.picProgress->caption = QString();
  panel_.picProgress->visible = true;
  panel_.cmdStop->enabled = true;
  return true;
}

void SheetWork::show(int index, int count, const QString& text) {
  panel_.picProgress->value = std::floor(100.0 * (index + 1) / std::max(count, 1));
  panel_.picProgress->caption = text;
}

void SheetWork::end() {
  panel_.cmdStop->enabled = false;
  panel_.picProgress->visible = false;
  stop_ = nullptr;
  busy_.reset();
}

}  // namespace korvane
