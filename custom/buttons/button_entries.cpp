#include "custom/buttons/button_entries.h"

namespace korvane {
namespace {

// These have always stood first, and so: the first cannot be chosen, and "RESET" is no word that a
// button knows.
constexpr const char* kFirst[] = {
    "CONNECT         master listener",         "PICTUREEDIT   allow edit of pictures",
    "RESET               resete the computer", "RIPPER             Rip CDs &",
    "SHUTDOWN        shut the computer down",
};
constexpr int kWordWidth = 14;

}  // namespace

QStringList customSelectEntries(const ButtonWords& words) {
  QStringList entries;
  for (const char* entry : kFirst) entries << QString::fromLatin1(entry);
  for (const ButtonWord& each : words.all())
    if (!each.meaning.isEmpty()) entries << each.word.leftJustified(kWordWidth) + each.meaning;
  return entries;
}

}  // namespace korvane
