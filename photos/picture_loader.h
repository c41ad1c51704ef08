// Pictures decoded on the threads of the pump's pool, as many at once as the machine has cores;
// what could not be read is a line of the log. Of the event loop; the decoding itself touches
// nothing here.
#pragma once

#include <deque>
#include <functional>

#include "core/log.h"
#include "platform/imaging.h"
#include "platform/pump.h"

namespace korvane {

class PictureLoader {
 public:
  struct Uses {
    const Imaging& imaging;  // all three outlive the work in hand
    Pump& pump;
    Log& log;
  };
  explicit PictureLoader(Uses uses) : uses_(uses) {}

  // `done` is called once, from the event loop, unless forget() came before or the loader has gone.
  using Done = std::function<void(const Imaging::Loaded& loaded)>;
  void load(const QString& path, const Imaging::Reading& reading, Done done);
  // The same, before all that wait.
  void loadNext(const QString& path, const Imaging::Reading& reading, Done done);
  void forget();  // what waits or is being decoded: its `done` is not called any more

  // "Error loading Imagefile '<path>'" and what was wrong, as a line of the log.
  static void logFailure(Log& log, const QString& path, const QString& error);

 private:
  struct Job {
    QString path;
    Imaging::Reading reading;
    Done done;
  };
  void start();

  Uses uses_;
  std::deque<Job> waiting_;
  int atWork_ = 0;
  std::shared_ptr<int> round_ = std::make_shared<int>(0);  // forget() begins another
};

}  // namespace korvane
