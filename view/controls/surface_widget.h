// The area of a Surface: black, with the frames of a player painted on it or a native window in
// which a player draws by itself.
#pragma once

#include "view/controls/press_widget.h"
#include "view/controls/video_surface.h"
#include "view/window/native_surface.h"

namespace korvane {

class SurfaceWidget : public PressWidget {
 public:
  SurfaceWidget(Surface& control, Face& face, QWidget* parent);

  void mirror(Aspect aspect) override;
  void detach() override;

  const VideoSurface& frames() const { return frames_; }
  // Where a player draws by itself; null without one, and where the window system has no such
  // windows.
  NativeSurface* native() const { return native_.get(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void follow();

  Surface& surface_;
  VideoSurface frames_{*this};
  std::unique_ptr<NativeSurface> native_;
  bool seen_ = false, released_ = false;
};

}  // namespace korvane
