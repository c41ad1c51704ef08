#include "photos/print/cls_print_api.h"

#include "photos/print/print_preview.h"

namespace korvane {
namespace {

constexpr int kMostCopies = 99;
constexpr int kPreviewPixels = 1000;  // of its longer side

QString millimetres(double length) {
  return QString::number(std::round(10 * length) / 10);
}

// From 1; the first one where nothing has that name.
template <class All, class Name>
int rowOf(const All& all, const QString& name, Name of) {
  for (size_t i = 0; i < all.size(); ++i)
    if ((all[i].*of).compare(name, Qt::CaseInsensitive) == 0) return static_cast<int>(i) + 1;
  return all.empty() ? 0 : 1;
}

}  // namespace

struct clsPrintApi::Decoded {
  std::shared_ptr<const Pixels> pixels;
  QString error;
  bool read = false;
};

struct clsPrintApi::Drawing {
  PrintPage page;
  std::shared_ptr<const Pixels> sheet;
};

clsPrintApi::clsPrintApi(Uses uses)
    : Dialog(uses.dialog, u"frmPrint"_s, printInventory()), uses_(uses), panel_(form_) {
  panel_.gridPrinters->columns = {{u"Printer"_s}};
  panel_.gridPapers->columns = {{u"Paper"_s, 50}, {u"mm"_s, 50}};
  panel_.picPreview->rounded = false;
  const auto onRow = [this](QStringView grid, void (clsPrintApi::*clicked)(int)) {
    form_.on(grid, Event::Click, [this, clicked](Control&, const Event& event) {
      if (event.row >= 1) (this->*clicked)(event.row);
    });
  };
  onRow(u"gridPrinters", &clsPrintApi::gridPrinters_Click);
  onRow(u"gridPapers", &clsPrintApi::gridPapers_Click);
  onClick(u"cmdFewer", [this](int) { showCopies(copies_ - 1); });
  onClick(u"cmdMore", [this](int) { showCopies(copies_ + 1); });
  onClick(u"cmdTurn", [this](int) { cmdTurn_Click(); });
  onClick(u"cmdok", [this](int) { cmdok_Click(); });
  onClick(u"cmdCancel", [this](int) { leave(); });
}

bool clsPrintApi::ShowPrinter(const Shown& shown) {
  if (form_.shown()) return false;
  shown_ = shown;
  chosen_ = false;
  run([this] { Form_Load(); });
  picture_ = nullptr;
  panel_.picPreview->picture = {};
  return chosen_;
}

void clsPrintApi::Form_Load() {
  picture_ = std::make_shared<Decoded>();
  printers_.clear();
  panel_.gridPrinters->emptyText = u"Looking for printers..."_s;
  showTurn(kept(u"TURN"_s) == "UPRIGHT"_L1 ? PrintTurn::Upright : PrintTurn::AsPicture);
  showPrinters();
  const auto found = std::make_shared<std::vector<Printing::Printer>>();
  uses_.pump.inBackground([found, &printing = uses_.printing] { *found = printing.printers(); },
                          [this, found, opened = std::weak_ptr(picture_)] {
                            if (opened.expired()) return;
                            panel_.gridPrinters->emptyText = u"There is no printer."_s;
                            printers_ = std::move(*found);
                            showPrinters();
                          });
}

void clsPrintApi::showPrinters() {
  std::vector<RowTable::Row> rows;
  for (const Printing::Printer& each : printers_) rows.push_back({{each.name}});
  panel_.gridPrinters->setRows(std::move(rows));
  panel_.cmdok->enabled = !printers_.empty();
  gridPrinters_Click(rowOf(printers_, kept(u"PRINTER"_s), &Printing::Printer::name));
}

void clsPrintApi::gridPrinters_Click(int row) {
  panel_.gridPrinters->SetActiveCell(1, row);
  const Printing::Printer* chosen = printer();
  std::vector<RowTable::Row> rows;
  if (chosen)
    for (const Printing::Paper& each : chosen->papers)
      rows.push_back(
          {{each.name, u"%1 x %2"_s.arg(millimetres(each.width), millimetres(each.height))}});
  panel_.gridPapers->setRows(std::move(rows));
  panel_.lblStatus->caption = chosen ? chosen->description : QString();
  showCopies(copies_);
  const bool own = chosen && chosen->name.compare(kept(u"PRINTER"_s), Qt::CaseInsensitive) == 0;
  gridPapers_Click(
      !chosen ? 0
              : rowOf(chosen->papers, own ? kept(u"PAPER"_s) : QString(), &Printing::Paper::id));
}

void clsPrintApi::gridPapers_Click(int row) {
  panel_.gridPapers->SetActiveCell(1, row);
  drawPreview();
}

void clsPrintApi::showCopies(int copies) {
  const Printing::Printer* chosen = printer();
  const int most = chosen && chosen->copies ? kMostCopies : 1;
  copies_ = std::clamp(copies, 1, most);
  panel_.lblCopies->caption = QString::number(copies_);
  panel_.cmdFewer->enabled = copies_ > 1;
  panel_.cmdMore->enabled = copies_ < most;
}

void clsPrintApi::showTurn(PrintTurn turn) {
  turn_ = turn;
  panel_.cmdTurn->caption =
      turn == PrintTurn::AsPicture ? u"Paper turns with picture"_s : u"Paper stays upright"_s;
}

void clsPrintApi::cmdTurn_Click() {
  showTurn(turn_ == PrintTurn::AsPicture ? PrintTurn::Upright : PrintTurn::AsPicture);
  drawPreview();
}

void clsPrintApi::cmdok_Click() {
  if (!printer() || !paper()) return;
  choice_ = {printer()->name, *paper(), copies_, turn_};
  keep(u"PRINTER"_s, choice_.printer);
  keep(u"PAPER"_s, choice_.paper.id);
  keep(u"TURN"_s, turn_ == PrintTurn::Upright ? u"UPRIGHT"_s : u"PICTURE"_s);
  chosen_ = true;
  leave();
}

// One at a time; what changes meanwhile is drawn behind it.
void clsPrintApi::drawPreview() {
  again_ = drawing_;
  if (drawing_ || !paper() || !picture_) return;
  drawing_ = true;
  const auto drawing = std::make_shared<Drawing>();
  uses_.pump.inBackground(
      [drawing, picture = picture_, shown = shown_, turn = turn_, paper = *paper(),
       &imaging = uses_.imaging] {
        if (!std::exchange(picture->read, true)) {
          Imaging::Reading reading{.width = kPreviewPixels, .height = kPreviewPixels};
          reading.upright = shown.upright;
          const Imaging::Loaded loaded = imaging.load(shown.path, reading);
          picture->pixels = loaded.pixels;
          picture->error = loaded.error;
        }
        const int width = picture->pixels ? picture->pixels->width : 0;
        const int height = picture->pixels ? picture->pixels->height : 0;
        drawing->page = layOut(width, height, shown.size, shown.fit, turn, paper);
        drawing->sheet = previewOf(drawing->page, picture->pixels, imaging, kPreviewPixels);
      },
      [this, drawing, opened = std::weak_ptr(picture_)] {
        drawing_ = false;
        if (again_) drawPreview();
        const auto picture = opened.lock();
        if (!picture || picture != picture_) return;
        if (!picture->error.isEmpty()) panel_.lblStatus->caption = picture->error;
        if (!drawing->sheet) return;
        panel_.picPreview->picture = Picture{{}, {}, nullptr, drawing->sheet};
        showMeasures(drawing->page);
      });
}

void clsPrintApi::showMeasures(const PrintPage& page) {
  const double width = std::min(page.picture.width, page.box.width);
  const double height = std::min(page.picture.height, page.box.height);
  panel_.lblMeasures->caption = u"Picture %1 x %2 mm\non %3 x %4 mm"_s.arg(
      millimetres(width), millimetres(height), millimetres(page.width), millimetres(page.height));
}

const Printing::Printer* clsPrintApi::printer() const {
  const int row = panel_.gridPrinters->row();
  const bool there = row >= 1 && static_cast<size_t>(row) <= printers_.size();
  return there ? &printers_[static_cast<size_t>(row) - 1] : nullptr;
}

const Printing::Paper* clsPrintApi::paper() const {
  const Printing::Printer* of = printer();
  const int row = panel_.gridPapers->row();
  const bool there = of && row >= 1 && static_cast<size_t>(row) <= of->papers.size();
  return there ? &of->papers[static_cast<size_t>(row) - 1] : nullptr;
}

QString clsPrintApi::kept(const QString& name) const {
  return uses_.settings.GetSetting(u"KRV"_s, u"PRINT"_s, name);
}

void clsPrintApi::keep(const QString& name, const QString& value) {
  uses_.settings.SaveSetting(u"KRV"_s, u"PRINT"_s, name, value);
}

}  // namespace korvane
