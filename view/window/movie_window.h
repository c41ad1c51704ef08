// The screen of a Listener that plays movies: a window without a frame on the machine's display.
#pragma once

#include <QCoreApplication>
#include <QRect>
#include <memory>

#include "platform/movie_screen.h"

namespace korvane {

class MovieWindow : public MovieScreen {
 public:
  // The application that a window needs; null with `error` in words where there is no display.
  // `argc` and `argv` must outlive it.
  static std::unique_ptr<QCoreApplication> application(int& argc, char** argv, QString* error);

  // `place`: the number of a screen, from 0, for all of it, or "WxH+X+Y" for a part of the display.
  // Null with `error` for one that is none. The window shows at once, black.
  static std::unique_ptr<MovieScreen> make(const QString& place, QString* error);

  ~MovieWindow() override;
  void showFrames(VideoPicture& picture) override;
  void showDisc(DvdPlayer& player) override;
  void showNothing() override;
  void setLarge(bool large) override;

 private:
  class Page;
  MovieWindow(QRect room, bool whole);

  const QRect room_;  // of the display, in its own pixels
  const bool whole_;  // a screen, and not a part of one
  std::unique_ptr<Page> page_;
  DvdPlayer* disc_ = nullptr;  // that has the native window
};

}  // namespace korvane
