#include "platform/printing/printing_qt.h"

#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>

#include "platform/printing/page_painter.h"

namespace korvane {
namespace {

QString directoryOf(const QString& asked) {
  if (!asked.isEmpty()) return asked;
  const QString set = qEnvironmentVariable("KORVANE_PRINT_TO");
  return set.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) : set;
}

// Its margins are those that the printer states for it; `printer` keeps it as its paper.
Printing::Paper paperOf(QPrinter& printer, const QPageSize& size) {
  printer.setPageSize(size);
  QPageLayout layout = printer.pageLayout();
  layout.setUnits(QPageLayout::Millimeter);
  const QMarginsF margins = layout.minimumMargins();
  const QSizeF paper = size.size(QPageSize::Millimeter);
  return {size.key(),     size.name(),   paper.width(),   paper.height(),
          margins.left(), margins.top(), margins.right(), margins.bottom()};
}

Printing::Printer printerOf(const QPrinterInfo& info) {
  QPrinter printer(info, QPrinter::HighResolution);
  Printing::Printer found{info.printerName(), info.description(), {}, true};
  const QPageSize own = info.defaultPageSize();
  if (own.isValid()) found.papers.push_back(paperOf(printer, own));
  for (const QPageSize& size : info.supportedPageSizes())
    if (size.isValid() && size.key() != own.key()) found.papers.push_back(paperOf(printer, size));
  return found;
}

QPrinterInfo infoOf(const QString& name) {
  const QStringList names = QPrinterInfo::availablePrinterNames();
  for (const QString& each : names)
    if (each.compare(name, Qt::CaseInsensitive) == 0) return QPrinterInfo::printerInfo(each);
  return {};
}

QPageSize pageSizeOf(const QPrinterInfo& info, const QString& paper) {
  const QList<QPageSize> sizes = info.supportedPageSizes();
  const auto found =
      std::ranges::find_if(sizes, [&](const QPageSize& size) { return size.key() == paper; });
  return found == sizes.end() ? info.defaultPageSize() : *found;
}

bool printOn(const QPrinterInfo& info, const Printing::Job& job, const Printing::Placed& picture) {
  QPrinter printer(info, QPrinter::HighResolution);
  printer.setPageSize(pageSizeOf(info, job.paper));
  printer.setPageOrientation(job.sideways ? QPageLayout::Landscape : QPageLayout::Portrait);
  printer.setFullPage(true);
  printer.setCopyCount(std::max(job.copies, 1));
  printer.setDocName(job.title);
  printer.setCreator(u"Korvane"_s);
  return paintPage(printer, picture);
}

}  // namespace

PrintingQt::PrintingQt(const QString& pdfDirectory, FileCalls& calls)
    : files_(directoryOf(pdfDirectory), calls) {}

std::vector<Printing::Printer> PrintingQt::printers() {
  const std::lock_guard lock(one_);
  std::vector<Printer> all;
  const QString standard = QPrinterInfo::defaultPrinterName();
  for (const QPrinterInfo& info : QPrinterInfo::availablePrinters()) {
    Printer found = printerOf(info);
    if (found.papers.empty()) continue;  // its description cannot be had: it is not there
    const bool first = found.name == standard;
    all.insert(first ? all.begin() : all.end(), std::move(found));
  }
  all.push_back(files_.printer());
  return all;
}

// Qt does not say whether the print service has taken the page: a printer that is not there behind
// it has gone with it.
bool PrintingQt::print(const Job& job, const Placed& picture, QString* error) {
  const std::lock_guard lock(one_);
  if (job.printer.compare(PdfFiles::kName, Qt::CaseInsensitive) == 0)
    return files_.print(job, picture, error);
  const QPrinterInfo info = infoOf(job.printer);
  QString failure;
  if (!info.isNull() && !printOn(info, job, picture))
    failure = u"The printer %1 does not take the page. Look at its display."_s.arg(job.printer);
  else if (info.isNull() || infoOf(job.printer).isNull())
    failure = u"The printer %1 is not there any more. Is it switched on and connected?"_s.arg(
        job.printer);
  if (error) *error = failure;
  return failure.isEmpty();
}

}  // namespace korvane
