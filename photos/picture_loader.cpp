#include "photos/picture_loader.h"

#include <QThread>

namespace korvane {

void PictureLoader::load(const QString& path, const Imaging::Reading& reading, Done done) {
  waiting_.push_back({path, reading, std::move(done)});
  start();
}

void PictureLoader::loadNext(const QString& path, const Imaging::Reading& reading, Done done) {
  waiting_.push_front({path, reading, std::move(done)});
  start();
}

// What is being decoded belongs to a round that is over: it finds nobody.
void PictureLoader::forget() {
  waiting_.clear();
  atWork_ = 0;
  round_ = std::make_shared<int>(*round_ + 1);
}

void PictureLoader::start() {
  while (!waiting_.empty() && atWork_ < std::max(QThread::idealThreadCount(), 1)) {
    Job job = std::move(waiting_.front());
    waiting_.pop_front();
    ++atWork_;
    const auto loaded = std::make_shared<Imaging::Loaded>();
    uses_.pump.inBackground([loaded, path = job.path, reading = job.reading,
                             &imaging = uses_.imaging] { *loaded = imaging.load(path, reading); },
                            [this, round = std::weak_ptr<int>(round_), loaded, path = job.path,
                             done = std::move(job.done)] {
                              if (round.expired()) return;
                              --atWork_;
                              start();
                              if (!loaded->pixels) logFailure(uses_.log, path, loaded->error);
                              done(*loaded);
                            });
  }
}

void PictureLoader::logFailure(Log& log, const QString& path, const QString& error) {
  log.logIt(u"Error loading Imagefile '%1'\n%2"_s.arg(path, error));
}

}  // namespace korvane
