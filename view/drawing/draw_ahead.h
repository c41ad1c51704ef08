// Draws pictures on a thread of its own before a paint asks for them.
#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <thread>

#include "view/drawing/picture_drawing.h"

namespace korvane {

class DrawAhead {
 public:
  // Ends within the drawing of one picture.
  ~DrawAhead();

  // A picture asked for twice is drawn once. One that fills the screen comes first.
  void ask(const PictureKey& key, const PictureSource& source);

  // What was drawn; waits while it is being drawn. Nothing when it was not asked for or has not
  // begun: it leaves the queue then.
  std::optional<QImage> take(const PictureKey& key);

 private:
  struct Job {
    PictureKey key;
    PictureSource source;
  };
  struct Drawn {
    std::shared_ptr<const void> owner;
    QImage image;
  };
  void work(const std::stop_token& stop);

  std::mutex mutex_;
  std::condition_variable_any changed_;
  std::deque<Job> queue_;
  std::optional<PictureKey> drawing_;
  QHash<PictureKey, Drawn> drawn_;
  std::jthread thread_;  // from the first picture on
};

}  // namespace korvane
