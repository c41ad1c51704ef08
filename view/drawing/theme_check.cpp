#include "view/drawing/theme_check.h"

#include <QBuffer>
#include <QImageReader>
#include <QSvgRenderer>

#include "core/theme_vocabulary.h"

namespace korvane {
namespace {

constexpr double kReadable = 4.5;

QString pictureFault(const PictureFile* file, const ThemePicture& wanted) {
  if (!file) return wanted.group + u'/' + wanted.name + u" is missing"_s;
  if (file->svg())
    return QSvgRenderer(file->bytes).isValid() ? QString() : file->path + u" is no readable SVG"_s;
  QBuffer buffer;
  buffer.setData(file->bytes);
  const QSize size = QImageReader(&buffer).size();
  if (!size.isValid()) return file->path + u" is no readable picture"_s;
  if (size.width() < wanted.width && size.height() < wanted.height)
    return u"%1 is %2x%3, shown at %4x%5 and more"_s.arg(file->path)
        .arg(size.width())
        .arg(size.height())
        .arg(wanted.width)
        .arg(wanted.height);
  return {};
}

}  // namespace

QStringList themeFaults(Graphics& graphics, const Palette& palette) {
  QStringList faults;
  for (const ThemePicture& wanted : themePictures()) {
    const PicturePtr file = graphics.loadGraphic(wanted.group, wanted.name);
    if (const QString fault = pictureFault(file.get(), wanted); !fault.isEmpty()) faults << fault;
  }
  for (const QString& element : themeColours()) {
    if (!palette.has(QString(element + u"BACK"_s))) {
      faults << u"COLORS.INI has no %1BACK"_s.arg(element);
      continue;
    }
    const double ratio = contrast(palette.fore(element), palette.back(element));
    if (ratio < kReadable)
      faults << u"text on %1 has a contrast of %2:1, under 4.5:1"_s.arg(element).arg(ratio, 0, 'f',
                                                                                     1);
  }
  return faults;
}

}  // namespace korvane
