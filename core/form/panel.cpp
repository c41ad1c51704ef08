#include "core/form/panel.h"

#include <QDebug>

namespace korvane {

void noSuchControl(const Form& form, QStringView name, int index) {
  qFatal("the form %s has no %s(%d) of that kind", qUtf8Printable(form.name),
         qUtf8Printable(name.toString()), index);
}

}  // namespace korvane
