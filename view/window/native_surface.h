// A native window of X11 that lies on a widget, for a player that draws by itself.
//
// It is a bare window of the window system: Qt paints around it and hears nothing of it. What Qt
// paints above the widget would lie below the window, so the window has holes there; and what no
// player takes of its presses falls to the widget.
#pragma once

#include <QObject>
#include <QRect>
#include <functional>

class QWidget;

namespace korvane {

class NativeSurface : private QObject {
 public:
  using Drawer = std::function<void(quintptr window)>;

  static bool possible();  // on X11 alone

  // `on` outlives it. `drawer` is given the window when it shows and 0 before it hides or goes.
  NativeSurface(QWidget& on, Drawer drawer);
  ~NativeSurface() override;

  void show();  // black until something is drawn; kept in step with `on` and what lies above it
  void hide();
  bool shown() const { return shown_; }
  quint32 window() const { return window_; }  // 0 before the first show

  // Whether a press on it reaches the player now: not below a modal form.
  bool takesPresses() const { return shown_ && takes_; }
  void setPressed(bool on);  // whether presses are the player's; else they fall to the widget

 private:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void make();
  void follow();  // takes over the widget's place and what lies above it now
  void shape(const QRegion& region);

  QWidget& on_;
  const Drawer drawer_;
  quint32 window_ = 0, parent_ = 0;
  bool shown_ = false, pressed_ = true, takes_ = false, due_ = false;
  QRect place_;
};

}  // namespace korvane
