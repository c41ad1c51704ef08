// The scan of a directory that an owner chooses: what frmDirectorys does where it is the scanner.
#pragma once

#include "core/chooser.h"
#include "core/screen.h"
#include "core/settings.h"
#include "library/screens/song_import.h"

namespace korvane {

class DirectoryScan : private DirectoryWork, private ImportWatch {
 public:
  struct Uses {
    Chooser& chooser;
    Settings& settings;
    const FileSystem& files;
    Screen& screen;
    Messages& messages;
    SongImport& import;
    ImportNews& news;
  };
  explicit DirectoryScan(Uses uses) : uses_(uses) {}

  // By what a song's artist and album are found: its tags, or the folders it lies in.
  enum Way { ByTags, ByFolders };

  // Has the owner choose a directory, as often as he likes, and scans it with its progress in the
  // form. Yields.
  void open(Way way);

  // By folders, at once and with no form; what fails is said. Yields.
  void dofiles(const QString& path);

 private:
  // DirectoryWork
  void run(const QString& directory, const QString& listenerDrive) override;
  void stop() override { uses_.import.stop(); }
  // ImportWatch
  void importProgress(const ImportProgress& progress) override;

  void finished(const ImportResult& result);

  Uses uses_;
  Way way_ = ByFolders;
};

}  // namespace korvane
