#include "ftp/dir_list.h"

namespace korvane {

QString attributeText(unsigned attributes) {
  QString text;
  unsigned mark = 1;
  for (const char letter : {'A', 'C', 'D', 'H', 'N', 'O', 'R', 'S', 'T'}) {
    text += u' ';
    text += attributes & mark ? QLatin1Char(letter) : QLatin1Char('-');
    text += u' ';
    mark <<= 1;
  }
  return text;
}

void cDirList::Add(cDirItem item) {
  if (byName_.contains(item.fileName)) return;
  items_.push_back(std::move(item));
  byName_.insert(items_.back().fileName, Count());
}

void cDirList::Clear() {
  items_.clear();
  byName_.clear();
}

const cDirItem* cDirList::item(int number) const {
  return number < 1 || number > Count() ? nullptr : &items_[static_cast<size_t>(number - 1)];
}

const cDirItem* cDirList::item(const QString& fileName) const {
  return item(byName_.value(fileName, 0));
}

}  // namespace korvane
