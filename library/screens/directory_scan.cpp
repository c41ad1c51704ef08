#include "library/screens/directory_scan.h"

#include <exception>

namespace korvane {

void DirectoryScan::open(Way way) {
  way_ = way;
  ChooserRequest request;
  request.title = u"MP3 Setup"_s;
  request.pattern = uses_.import.musicPattern();
  request.places = {uses_.settings.str(key::MusicRoot)};
  request.work = this;
  if (way == ByFolders) request.asks = u"Listener Drive Letter"_s;
  uses_.chooser.open(request);
}

void DirectoryScan::dofiles(const QString& path) {
  way_ = ByFolders;
  try {
    run(path, {});
  } catch (const std::exception& failure) {
    uses_.messages.say(QString::fromUtf8(failure.what()));
  }
}

void DirectoryScan::run(const QString& directory, const QString& listenerDrive) {
  if (!uses_.files.FolderExists(directory))
    throw std::runtime_error("Go to setup and set the MP3 directory");
  uses_.settings.write(key::MusicRoot, directory);
  std::exception_ptr failure;
  const auto attempt = [&failure](const auto& work) {
    try {
      work();
    } catch (const std::exception&) {
      if (!failure) failure = std::current_exception();
    }
  };
  attempt([&] {
    const Busy busy(uses_.screen);
    finished(way_ == ByTags ? uses_.import.scanTagged(directory, *this)
                            : uses_.import.dofiles(directory, listenerDrive, *this));
  });
  // What was added until a failure is in the library: the lists show it.
  attempt([this] { uses_.news.songsChanged(); });
  if (failure) std::rethrow_exception(failure);
}

void DirectoryScan::importProgress(const ImportProgress& progress) {
  uses_.chooser.showStatus(progress.text,
                           u"%1 songs, %2 new, %3 songs a second"_s.arg(
                               QString::number(progress.files), QString::number(progress.added),
                               QString::number(std::lround(progress.filesPerSecond))));
}

void DirectoryScan::finished(const ImportResult& result) {
  const double rate = result.seconds > 0 ? result.files / result.seconds : result.files;
  QString text = result.stopped ? u"Stopped"_s : u"Finished"_s;
  if (result.failed > 0)
    text = u"%1, %2 could not be read (see log.txt)"_s.arg(text, QString::number(result.failed));
  importProgress({text, result.files, result.added, rate});
}

}  // namespace korvane
