#include "custom/moved_controls.h"

#include "core/settings.h"

namespace korvane {

void MovedControls::loadMovedControls() {
  const auto bytes = uses_.files.read(uses_.graphics.themeDirectory() + u"/positons.txt"_s);
  if (bytes)
    for (const QString& line : QString::fromUtf8(*bytes).split(u'\n')) place(line);
  uses_.main.rememberGrids();
}

void MovedControls::place(const QString& line) {
  enum Field { Name, Left, Top, Index };
  const QStringList fields = line.trimmed().split(u"@@#"_s);
  if (fields.size() <= Left) return;
  Control* control =
      uses_.main.form().find(fields[Name], fields.size() == Index + 1 ? fields[Index].toInt() : -1);
  if (!control || control->tag().compare("NO"_L1, Qt::CaseInsensitive) == 0) return;
  Rect to = control->rect();
  to.left = static_cast<int>(std::lround(val(fields[Left])));
  if (fields.size() > Top) to.top = static_cast<int>(std::lround(val(fields[Top])));
  control->rect = to;
}

}  // namespace korvane
