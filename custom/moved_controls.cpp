#include "custom/moved_controls.h"

#include "core/conversions.h"

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
  Form& form = uses_.main.form();
  const int index = fields.size() == Index + 1 ? toInteger(val(fields[Index])) : -1;
  Control* control = form.find(fields[Name], index);
  if (!control || control->tag().compare("NO"_L1, Qt::CaseInsensitive) == 0) return;
  Rect to = control->design;
  to.left = toInteger(val(fields[Left]));
  if (fields.size() > Top) to.top = toInteger(val(fields[Top]));
  form.moveDesign(*control, to);
}

}  // namespace korvane
