#include "photos/screens/split_ddc.h"

namespace korvane {

cSplitDDC::cSplitDDC(Parts parts) : parts_(parts) {
  parts_.SplitObject.draggable = true;
  parts_.form.on(parts_.SplitObject.name, Event::Release,
                 [this](Control&, const Event&) { SplitterFormMouseUp(); });
}

void cSplitDDC::SplitterFormMouseUp() {
  Rect bar = parts_.SplitObject.rect();
  const int most = parts_.form.width() - parts_.Border - bar.width;
  bar.left = std::clamp(bar.left, parts_.Border, most);
  parts_.form.move(parts_.SplitObject, bar);
  follow(parts_.left, 0, bar.left);
  follow(parts_.right, bar.right(), parts_.form.width() - bar.right());
}

void cSplitDDC::follow(const Control& part, int left, int width) {
  const int more = width - part.design.width;
  for (const auto& control : parts_.form.controls()) {
    const unsigned anchors = control->anchors;
    Rect to = control->rect();
    if (control.get() == &part) {
      to.left = left;
      to.width = width;
    } else if (control->container == &part && (anchors & Right)) {
      to.left = control->design.left + (anchors & Left ? 0 : more);
      to.width = std::max(0, control->design.width + (anchors & Left ? more : 0));
    } else {
      continue;
    }
    parts_.form.move(*control, to);
  }
}

}  // namespace korvane
