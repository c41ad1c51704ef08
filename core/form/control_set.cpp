#include "core/form/control_set.h"

namespace korvane {

ControlSet::ControlSet(Form& form, std::initializer_list<const char*> names) {
  for (const char* name : names) {
    const QStringList parts = QString::fromLatin1(name).split(u'#');
    const int upper = form.upperBound(parts[0]);
    const size_t before = controls_.size();
    if (parts.size() == 2) {
      if (Control* control = form.find(parts[0], parts[1].toInt())) controls_.push_back(control);
    } else if (Control* control = form.find(parts[0])) {
      controls_.push_back(control);
    } else {
      for (int i = 0; i <= upper; ++i)
        if (Control* member = form.find(parts[0], i)) controls_.push_back(member);
    }
    if (controls_.size() == before) qFatal("the form has no %s", name);
  }
}

void ControlSet::show(bool on) const {
  for (Control* control : controls_) control->visible = on;
}

}  // namespace korvane
