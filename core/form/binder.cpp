#include "core/form/binder.h"

#include <QDebug>

namespace korvane {

Binder::~Binder() {
  if (missing_.isEmpty()) return;
  qFatal("%s: the form %s has no %s", panel_, qUtf8Printable(form_.name),
         qUtf8Printable(missing_.join(u", "_s)));
}

}  // namespace korvane
