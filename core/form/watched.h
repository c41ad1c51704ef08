// A property that tells its owner when it changes. Reads as the value, assigns as the value.
#pragma once

#include <utility>

namespace korvane {

// What of a control or a form has changed.
enum class Aspect {
  Visible,
  Enabled,
  Tag,
  Picture,
  Caption,
  Rect,
  Colours,
  Value,   // a slider's value, range or text; a text's text or caret; a check's state
  Rows,    // a grid's rows, columns, header or look
  Active,  // a grid's active cell
  Interval,
  Focus,
  Shown,    // of a form
  Pointer,  // of the screen
};

class Noticing {
 public:
  virtual void changed(Aspect aspect) = 0;

 protected:
  ~Noticing() = default;
};

template <class T>
class Watched {
 public:
  Watched(Noticing& owner, Aspect aspect, T value = T())
      : owner_(owner), aspect_(aspect), value_(std::move(value)) {}
  Watched(const Watched&) = delete;
  Watched& operator=(const Watched& other) { return *this = other.value_; }

  Watched& operator=(T value) {
    if (value_ == value) return *this;
    value_ = std::move(value);
    owner_.changed(aspect_);
    return *this;
  }
  operator const T&() const { return value_; }
  const T& operator()() const { return value_; }
  const T* operator->() const { return &value_; }

 private:
  Noticing& owner_;
  Aspect aspect_;
  T value_;
};

}  // namespace korvane
