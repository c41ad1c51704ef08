// Binds a panel: the struct of typed pointers to exactly the controls a unit uses.
#pragma once

#include <array>

#include "core/form/form.h"

namespace korvane {

class Binder {
 public:
  Binder(Form& form, const char* panel) : form_(form), panel_(panel) {}
  ~Binder();  // ends the program with the names that the form does not have: a fault of the build

  template <class T>
  void operator()(T*& control, const char* name, int index = -1) {
    control = dynamic_cast<T*>(form_.find(QString::fromLatin1(name), index));
    if (!control) missing_ << QString::fromLatin1(name) + u'(' + QString::number(index) + u')';
  }
  template <class T, size_t N>
  void operator()(std::array<T*, N>& controls, const char* name) {
    for (size_t i = 0; i < N; ++i) (*this)(controls[i], name, static_cast<int>(i));
  }

 private:
  Form& form_;
  const char* panel_;
  QStringList missing_;
};

}  // namespace korvane
