// The printer that saves each document as a PDF file. Any thread; there must be a QGuiApplication.
#pragma once

#include "platform/files/file_calls.h"
#include "platform/printing.h"

namespace korvane {

class PdfFiles {
 public:
  static constexpr QLatin1StringView kName{"Save as PDF"};

  // `calls` must outlive it.
  PdfFiles(QString directory, FileCalls& calls);

  Printing::Printer printer() const;

  // Saves "<title>.pdf", or where that is there "<title> (2).pdf" and so on; makes the directory.
  // One file for any number of copies. A failure leaves no file.
  bool print(const Printing::Job& job, const Printing::Placed& picture, QString* error) const;

 private:
  QString freePath(const QString& title) const;

  QString directory_;
  FileCalls& calls_;
};

}  // namespace korvane
