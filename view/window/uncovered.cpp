#include "view/window/uncovered.h"

#include "view/window/form_view.h"
#include "view/window/stage.h"

namespace korvane {
namespace {

const QWidget* visibleIn(const QObject* child) {
  const auto* widget = child->isWidgetType() ? static_cast<const QWidget*>(child) : nullptr;
  return widget && widget->isVisible() && !widget->isWindow() ? widget : nullptr;
}

QPoint cornerOf(const QWidget& widget, const QWidget& other) {
  return widget.mapFrom(widget.window(), other.mapTo(widget.window(), QPoint()));
}

QRect within(const QWidget& widget, const QWidget& other) {
  return QRect(cornerOf(widget, other), other.size());
}

QRegion outline(const QWidget& card) {
  const auto* form = dynamic_cast<const FormView*>(&card);
  return form ? form->outline() : card.rect();
}

void cover(const QWidget& widget, const QWidget& above, Uncovered& left) {
  if (!dynamic_cast<const DimLayer*>(&above)) {
    left.region -= within(widget, above);
    return;
  }
  left.veiled = true;
  for (const QObject* child : above.children())
    if (const QWidget* card = visibleIn(child))
      left.region -= outline(*card).translated(cornerOf(widget, *card));
}

}  // namespace

Uncovered uncovered(const QWidget& widget) {
  Uncovered left{widget.rect()};
  for (const QWidget* at = &widget; !at->isWindow(); at = at->parentWidget()) {
    const QWidget& parent = *at->parentWidget();
    left.region &= within(widget, parent);
    const QObjectList& children = parent.children();  // from the back to the front
    for (qsizetype i = children.indexOf(at) + 1; i < children.size(); ++i)
      if (const QWidget* above = visibleIn(children[i])) cover(widget, *above, left);
  }
  return left;
}

}  // namespace korvane
