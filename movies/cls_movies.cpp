#include "movies/cls_movies.h"

namespace korvane {

void clsMovies::PlayMovie(const QString& path) {
  switch (player_.state()) {
    case VideoPlayer::Closed:
      MoviePic_.video = &player_.picture();
      MoviePic_.visible = true;
      player_.open(path);
      return player_.play();
    case VideoPlayer::Paused:
      player_.play();
      return setFullScreen(true);
    case VideoPlayer::Stopped:
    case VideoPlayer::Playing:
      return;
  }
}

void clsMovies::PauseMovie() {
  if (player_.state() == VideoPlayer::Playing) player_.pause();
}

void clsMovies::StopMovie() {
  player_.close();
  MoviePic_.video = nullptr;
}

void clsMovies::ResizeWindow() {
  if (player_.state() != VideoPlayer::Closed) setFullScreen(!isFullScreen());
}

QString clsMovies::getState() const {
  switch (player_.state()) {
    case VideoPlayer::Closed:
      return {};
    case VideoPlayer::Stopped:
      return u"STOPPED"_s;
    case VideoPlayer::Paused:
      return u"PAUSED"_s;
    case VideoPlayer::Playing:
      return u"PLAYING"_s;
  }
  Q_UNREACHABLE();
}

}  // namespace korvane
