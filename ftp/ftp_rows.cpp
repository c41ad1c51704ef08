#include "ftp/ftp_rows.h"

namespace korvane {

QString FtpRows::cell(int column, int row) const {
  enum { Name = 1, Size, LastAccessed, Attributes };
  if (row == 1) return column == Name ? QString::fromLatin1(kParentRow) : QString();
  const cDirItem* item = entry(row);
  if (!item) return {};
  switch (column) {
    case Name:
      // A name is one line of text, whatever a server puts into it.
      return QString(item->fileName).replace(u'\n', u' ').replace(u'\r', u' ');
    case Size:
      return item->directory() ? u"< Directory >"_s : QString::number(item->size);
    case LastAccessed:
      return item->directory() ? QString() : item->accessed.toString(u"yyyy-MM-dd"_s);
    case Attributes:
      return item->directory() ? QString() : attributeText(item->attributes);
    default:
      return {};
  }
}

std::optional<Picture> FtpRows::picture(int column, int row) const {
  if (column != 1) return Picture{};
  if (row == 1) return Picture{u"photos"_s, u"UpDirectory"_s};
  const cDirItem* item = entry(row);
  if (!item) return Picture{};
  return Picture{u"photos"_s, item->directory() ? u"folderclosed"_s : u"file"_s};
}

}  // namespace korvane
