#include "library/data/song.h"

#include "library/data/vb_text.h"

namespace korvane {

QString songTitleShown(const QString& title) {
  return trimBlanks(title.size() > 3 && title[3] == u'-' ? title.sliced(4) : title);
}

}  // namespace korvane
