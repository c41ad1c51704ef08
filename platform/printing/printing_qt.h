// The printers of the print service (CUPS) as Qt knows them, and behind them one that saves each
// document as a PDF file. There must be a QGuiApplication.
#pragma once

#include <mutex>

#include "platform/printing/pdf_files.h"

namespace korvane {

class PrintingQt : public Printing {
 public:
  // PDF files go into `pdfDirectory`; where that is empty into $KORVANE_PRINT_TO, else into the
  // user's documents. `calls` write them and must outlive this.
  explicit PrintingQt(const QString& pdfDirectory = {}, FileCalls& calls = FileCalls::posix());

  std::vector<Printer> printers() override;
  bool print(const Job& job, const Placed& picture, QString* error) override;

 private:
  std::mutex one_;  // what Qt loads for printing is not made for two threads
  PdfFiles files_;
};

}  // namespace korvane
