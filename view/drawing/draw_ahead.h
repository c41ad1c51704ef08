// Draws pictures on a thread of its own before a paint asks for them. One thread asks and takes.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

#include "view/drawing/picture_drawing.h"

namespace korvane {

class DrawAhead {
 public:
  // `drawnNow` is called on the drawing thread after each picture that askNow() has asked for.
  explicit DrawAhead(std::function<void()> drawnNow) : drawnNow_(std::move(drawnNow)) {}
  // Ends within the drawing of one picture.
  ~DrawAhead();

  // A picture asked for twice is drawn once. One that fills the screen comes first.
  void ask(const PictureKey& key, const PictureSource& source);

  // For what is in view already: the last one asked for comes first, and of very many the oldest
  // are left out.
  void askNow(const PictureKey& key, const PictureSource& source);

  struct Drawn {
    PictureSource source;
    QImage image;
  };
  // All that askNow() has asked for and that is drawn. Never waits.
  QHash<PictureKey, Drawn> takeNow();

  // What ask() has drawn; waits while it is being drawn. Nothing when it was not asked for or has
  // not begun: it leaves the queue then.
  std::optional<QImage> take(const PictureKey& key);

 private:
  struct Job {
    PictureKey key;
    PictureSource source;
    bool now = false;
  };
  void queue(Job job);  // with the lock held
  void work(const std::stop_token& stop);

  std::mutex mutex_;
  std::condition_variable_any changed_;
  std::deque<Job> queue_;
  std::optional<Job> drawing_;
  QHash<PictureKey, Drawn> drawn_, now_;
  std::function<void()> drawnNow_;
  std::jthread thread_;  // from the first picture on
};

}  // namespace korvane
