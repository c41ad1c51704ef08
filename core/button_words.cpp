#include "core/button_words.h"

namespace korvane {

const ButtonWord* ButtonWords::find(const QString& word) const {
  for (const ButtonWord& each : words_)
    if (each.word.compare(word, Qt::CaseInsensitive) == 0) return &each;
  return nullptr;
}

}  // namespace korvane
