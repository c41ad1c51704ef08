// A panel: the struct of typed pointers to exactly the controls that a unit uses. Its members bind
// themselves, by the name in the inventory and the type of the member:
//
//   struct Panel : FormPanel {
//     using FormPanel::FormPanel;
//     Label* msg = bind("msg");
//     Image* play = bind("cmdControls", 1);
//     std::array<Image*, 8> cmdControls = bind("cmdControls");
//   };
//
// A name that the form does not have, or has as another kind, is a fault of the build: it ends the
// program with that name.
#pragma once

#include <array>

#include "core/form/form.h"

namespace korvane {

[[noreturn]] void noSuchControl(const Form& form, QStringView name, int index);

// The control of that name, index and kind. Ends the program when the form has none.
template <class T>
T& controlOf(const Form& form, QStringView name, int index = -1) {
  auto* control = dynamic_cast<T*>(form.find(name, index));
  if (!control) noSuchControl(form, name, index);
  return *control;
}

class FormPanel {
 public:
  explicit FormPanel(Form& form) : form_(form) {}  // the form must outlive the panel

 protected:
  // Becomes a pointer to one control, or an array of the members 0 to N-1 of a control array.
  class Binding {
   public:
    Binding(Form& form, const char* name, int index) : form_(form), name_(name), index_(index) {}
    template <class T>
    operator T*() const {
      return &controlOf<T>(form_, QString::fromLatin1(name_), index_);
    }
    template <class T, size_t N>
    operator std::array<T*, N>() const {
      std::array<T*, N> members;
      for (size_t i = 0; i < N; ++i)
        members[i] = &controlOf<T>(form_, QString::fromLatin1(name_), static_cast<int>(i));
      return members;
    }

   private:
    Form& form_;
    const char* name_;
    int index_;
  };

  Binding bind(const char* name, int index = -1) const { return {form_, name, index}; }

 private:
  Form& form_;
};

}  // namespace korvane
