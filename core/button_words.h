// The words that an owner's button may carry in place of a program's path. Each side of the console
// adds those of its own; the buttons do them, and the choice of an action lists them.
#pragma once

#include <functional>
#include <vector>

#include "platform/text.h"

namespace korvane {

struct ButtonWord {
  QString word;               // in upper case, at most 13 characters
  QString icon;               // of the theme's group "main"
  QString meaning;            // in the list of words; empty where the word is not listed
  std::function<void()> act;  // may yield
};

class ButtonWords {
 public:
  void add(ButtonWord word) { words_.push_back(std::move(word)); }
  // In any case; null for none. Valid until the next add().
  const ButtonWord* find(const QString& word) const;
  const std::vector<ButtonWord>& all() const { return words_; }  // in the order they were added

 private:
  std::vector<ButtonWord> words_;
};

}  // namespace korvane
