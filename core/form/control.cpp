#include "core/form/control.h"

#include "core/form/form.h"

namespace korvane {

Control::Control(Form& owner, QString controlName, int controlIndex, Kind controlKind)
    : name(std::move(controlName)), index(controlIndex), kind(controlKind), form(owner) {}

void Control::changed(Aspect aspect) {
  form.controlChanged(*this, aspect);
}

void Control::setPicture(const QString& group, const QString& pictureName) {
  picture = Picture{group, pictureName, nullptr};
}

void Slider::moveTo(double to) {
  const auto [least, most] = std::minmax(minimum(), maximum());
  const double kept = std::clamp(to, least, most);
  if (kept == value()) return;
  value = kept;
  form.fire(*this, {Event::Change});
}

void Sheet::setCells(std::shared_ptr<const CellSource> source) {
  source_ = std::move(source);
  top = 0;
  cellsChanged();
}

std::shared_ptr<const CellSource> Sheet::noCells() {
  class None : public CellSource {
    int count() const override { return 0; }
    QString caption(int) const override { return {}; }
    std::optional<Picture> picture(int) const override { return Picture(); }
    Colour back(int) const override { return 0; }
  };
  return std::make_shared<None>();
}

Timer::Timer(Form& owner, QString controlName, int controlIndex, Kind controlKind)
    : Control(owner, std::move(controlName), controlIndex, controlKind) {
  visible = false;
  enabled = false;
}

Grid::Grid(Form& owner, QString controlName, int controlIndex, Kind controlKind)
    : Control(owner, std::move(controlName), controlIndex, controlKind),
      own_(std::make_shared<RowTable>()) {
  source_ = own_;
}

void Grid::setRows(std::shared_ptr<const RowSource> source) {
  if (source != own_) own_.reset();
  source_ = std::move(source);
  row = source_->rowCount() > 0 ? 1 : 0;
  topRow = 1;
  changed(Aspect::Rows);
}

void Grid::setRows(std::vector<RowTable::Row> rows) {
  own_ = std::make_shared<RowTable>();
  own_->rows = std::move(rows);
  setRows(own_);
}

void Grid::clear() {
  setRows(std::vector<RowTable::Row>());
}

void Grid::setCell(int column, int ofRow, const QString& text) {
  RowTable* own = table();
  if (!own || !own->has(ofRow) || column < 1) return;
  QStringList& cells = own->at(ofRow).cells;
  while (cells.size() < column) cells.append(QString());
  cells[column - 1] = text;
  changed(Aspect::Rows);
}

void Grid::deleteRow(int ofRow) {
  RowTable* own = table();
  if (!own || !own->has(ofRow)) return;
  own->rows.erase(own->rows.begin() + (ofRow - 1));
  if (row() > maxRows()) row = maxRows();
  changed(Aspect::Rows);
}

void Grid::SetActiveCell(int, int toRow) {
  if (maxRows() == 0) return;
  const int before = row();
  row = std::clamp(toRow, 1, maxRows());
  if (row() == before) changed(Aspect::Active);  // a list that was scrolled away comes back
}

int Grid::SearchCol(int column, int from, const QString& text) const {
  for (int r = std::max(from, 1); r <= maxRows(); ++r)
    if (cell(column, r).startsWith(text, Qt::CaseInsensitive)) return r;
  return 0;
}

}  // namespace korvane
