#include "platform/printing/pdf_files.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QPdfWriter>

#include "platform/files/new_file.h"
#include "platform/printing/page_painter.h"

namespace korvane {
namespace {

// A file has no margins, but a printer that it goes to later has.
constexpr double kMargin = 5;

constexpr struct {
  const char* name;
  double width, height;  // millimetres
} kPapers[] = {
    {"A4", 210, 297},
    {"Letter", 215.9, 279.4},
    {"A5", 148, 210},
    {"Photo 4 x 6 in", 101.6, 152.4},
    {"Photo 5 x 7 in", 127, 177.8},
    {"Photo 8 x 10 in", 203.2, 254},
};

std::vector<Printing::Paper> papers() {
  std::vector<Printing::Paper> all;
  for (const auto& [name, width, height] : kPapers) {
    const QString words = QString::fromLatin1(name);
    all.push_back({words, words, width, height, kMargin, kMargin, kMargin, kMargin});
  }
  if (QLocale::system().measurementSystem() == QLocale::ImperialUSSystem) std::swap(all[0], all[1]);
  return all;
}

QString fileName(const QString& title) {
  constexpr qsizetype kMost = 60;  // characters, so that the name fits a disk in any writing
  QString name = title.left(kMost).trimmed();
  for (QChar& c : name)
    if (c == u'/' || c == u'\\' || c < u' ') c = u'_';
  if (name.startsWith(u'.')) name[0] = u'_';
  return name.isEmpty() ? u"Picture"_s : name;
}

bool pdfOf(const Printing::Job& job, const Printing::Placed& picture, QByteArray& bytes) {
  const std::vector<Printing::Paper> all = papers();
  const auto asked = std::ranges::find(all, job.paper, &Printing::Paper::id);
  const Printing::Paper& paper = asked == all.end() ? all.front() : *asked;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setTitle(job.title);
  writer.setCreator(u"Korvane"_s);
  const QPageSize size(QSizeF(paper.width, paper.height), QPageSize::Millimeter, paper.name);
  writer.setPageLayout(
      QPageLayout(size, job.sideways ? QPageLayout::Landscape : QPageLayout::Portrait, {}));
  return paintPage(writer, picture);
}

}  // namespace

PdfFiles::PdfFiles(QString directory, FileCalls& calls)
    : directory_(std::move(directory)), calls_(calls) {}

Printing::Printer PdfFiles::printer() const {
  return {QString(kName), u"Saves each picture as a file in "_s + directory_, papers(), false};
}

QString PdfFiles::freePath(const QString& title) const {
  const QString begin = QDir(directory_).filePath(fileName(title));
  QString path = begin + u".pdf"_s;
  for (int number = 2; QFile::exists(path); ++number)
    path = u"%1 (%2).pdf"_s.arg(begin).arg(number);
  return path;
}

bool PdfFiles::print(const Printing::Job& job, const Printing::Placed& picture,
                     QString* error) const {
  const auto failed = [error](const QString& words) {
    if (error) *error = words;
    return false;
  };
  if (!QDir().mkpath(directory_))
    return failed(
        u"The folder %1 cannot be made. Is the disk full or write-protected?"_s.arg(directory_));
  QByteArray bytes;
  if (!pdfOf(job, picture, bytes))
    return failed(u"The page of %1 cannot be drawn."_s.arg(job.title));
  const QString path = freePath(job.title);
  NewFile file(calls_, QFile::encodeName(path));
  if (!file.write(bytes) || !file.commit())
    return failed(fileFailure("save"_L1, path, file.failure()));
  return true;
}

}  // namespace korvane
