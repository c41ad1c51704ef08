#include "view/remote/control_properties.h"

#include <QJsonArray>

#include "view/controls/surface_widget.h"

namespace korvane {
namespace {

constexpr int kMostRows = 1000;

QString pictureText(const Picture& picture) {
  if (picture.pixels)
    return u"(%1x%2 pixels)"_s.arg(picture.pixels->width).arg(picture.pixels->height);
  if (picture.bytes) return u"(%1 bytes)"_s.arg(picture.bytes->size());
  return picture.name.isEmpty() ? QString() : picture.group + u'/' + picture.name;
}

void describeArea(const PictureArea& area, QJsonObject& to) {
  static constexpr const char* hands[] = {"press",    "move",        "zoom in",
                                          "zoom out", "zoom window", "magnify"};
  const Pixels* pixels = area.picture().pixels.get();
  to["beside"_L1] = pictureText(area.beside());
  to["frame"_L1] = QJsonArray{pixels ? pixels->width : 0, pixels ? pixels->height : 0};
  to["zoom"_L1] = area.zoom();
  to["fitted"_L1] = area.fitted;
  to["middle"_L1] = QJsonArray{area.middleX(), area.middleY()};
  to["hand"_L1] = QLatin1StringView(hands[static_cast<size_t>(area.hand())]);
}

void describeKind(const Control& control, QJsonObject& to) {
  switch (control.kind) {
    case Kind::Slider: {
      const auto& slider = static_cast<const Slider&>(control);
      to["value"_L1] = slider.value();
      to["minimum"_L1] = slider.minimum();
      to["maximum"_L1] = slider.maximum();
      to["text"_L1] = slider.text();
      to["bubble"_L1] = slider.bubble();
      break;
    }
    case Kind::Grid: {
      const auto& grid = static_cast<const Grid&>(control);
      to["rows"_L1] = grid.maxRows();
      to["row"_L1] = grid.row();
      to["topRow"_L1] = grid.topRow();
      to["header"_L1] = grid.header();
      to["columns"_L1] = static_cast<int>(grid.columns().size());
      break;
    }
    case Kind::Text: {
      const auto& box = static_cast<const TextBox&>(control);
      const bool secret = !box.passwordChar().isEmpty();
      to["text"_L1] = secret ? QString(box.text().size(), u'*') : box.text();
      to["selStart"_L1] = box.selStart();
      break;
    }
    case Kind::Check:
      to["checked"_L1] = static_cast<const Check&>(control).checked();
      break;
    case Kind::Timer:
      to["interval"_L1] = static_cast<const Timer&>(control).interval();
      break;
    case Kind::Label:
      to["highlighted"_L1] = static_cast<const Label&>(control).highlighted();
      break;
    case Kind::PictureArea:
      describeArea(static_cast<const PictureArea&>(control), to);
      break;
    case Kind::Sheet: {
      const auto& sheet = static_cast<const Sheet&>(control);
      to["cells"_L1] = sheet.cells().count();
      to["columns"_L1] = sheet.columns;
      to["top"_L1] = sheet.top();
      to["mostTop"_L1] = sheet.mostTop;
      break;
    }
    case Kind::Progress:
      to["value"_L1] = static_cast<const Progress&>(control).value();
      break;
    case Kind::Image:
    case Kind::Button:
    case Kind::Frame:
    case Kind::Surface:
      break;
  }
}

void describeSurface(const SurfaceWidget& surface, QJsonObject& to) {
  const QSize frame = surface.frames().frameSize();
  to["frame"_L1] = QJsonArray{std::max(0, frame.width()), std::max(0, frame.height())};
  to["frames"_L1] = surface.frames().painted();
  to["native"_L1] = surface.native() && surface.native()->shown();
}

}  // namespace

const char* kindName(Kind kind) {
  switch (kind) {
    case Kind::Image:
      return "image";
    case Kind::Label:
      return "label";
    case Kind::Button:
      return "button";
    case Kind::Slider:
      return "slider";
    case Kind::Grid:
      return "grid";
    case Kind::Frame:
      return "frame";
    case Kind::Text:
      return "text";
    case Kind::Check:
      return "check";
    case Kind::Timer:
      return "timer";
    case Kind::PictureArea:
      return "picture area";
    case Kind::Surface:
      return "surface";
    case Kind::Sheet:
      return "sheet";
    case Kind::Progress:
      return "progress";
  }
  Q_UNREACHABLE();
}

QJsonObject describe(const Control& control, const ControlWidget* widget) {
  const Rect& rect = control.rect();
  QJsonObject to{{u"name"_s, control.name},
                 {u"index"_s, control.index},
                 {u"kind"_s, QLatin1StringView(kindName(control.kind))},
                 {u"visible"_s, control.visible()},
                 {u"enabled"_s, control.enabled()},
                 {u"caption"_s, control.caption()},
                 {u"tag"_s, control.tag()},
                 {u"spoken"_s, control.spokenName},
                 {u"rect"_s, QJsonArray{rect.left, rect.top, rect.width, rect.height}}};
  to["picture"_L1] = pictureText(control.picture());
  if (widget) {
    const QPoint at = widget->mapTo(widget->window(), QPoint());
    to["pixels"_L1] = QJsonArray{at.x(), at.y(), widget->width(), widget->height()};
    to["cut"_L1] = widget->cut();
    to["onScreen"_L1] = widget->isVisible() && !widget->visibleRegion().isEmpty();
  }
  if (const auto* surface = dynamic_cast<const SurfaceWidget*>(widget))
    describeSurface(*surface, to);
  describeKind(control, to);
  return to;
}

QJsonArray describeRows(const Grid& grid, int from, int count) {
  int columns = std::max<int>(1, static_cast<int>(grid.columns().size()));
  QJsonArray rows;
  const int first = std::max(1, from);
  const int last = std::min(grid.maxRows(), first - 1 + std::clamp(count, 0, kMostRows));
  for (int row = first; row <= last; ++row) {
    QJsonArray cells;
    for (int column = 1; column <= columns; ++column) cells.append(grid.cell(column, row));
    rows.append(QJsonObject{
        {u"row"_s, row}, {u"cells"_s, cells}, {u"emphasised"_s, grid.rows().emphasised(row)}});
  }
  return rows;
}

QJsonArray describeCells(const Sheet& sheet, int from, int count) {
  QJsonArray cells;
  const int first = std::max(0, from);
  const int end = std::min(sheet.cells().count(), first + std::clamp(count, 0, kMostRows));
  for (int cell = first; cell < end; ++cell)
    cells.append(QJsonObject{{u"row"_s, cell},
                             {u"caption"_s, sheet.cells().caption(cell)},
                             {u"back"_s, static_cast<qint64>(sheet.cells().back(cell))}});
  return cells;
}

}  // namespace korvane
