#include "library/screens/scanner_import.h"

#include <QStorageInfo>

namespace korvane {
namespace {

ImportResult resultOf(const ScanResult& result) {
  return {result.files, result.added, result.failed, result.seconds, result.stopped};
}

}  // namespace

ScannerImport::ScannerImport(Database& database, Pump& pump, const Settings& settings,
                             const Log& log)
    : database_(database), settings_(settings), log_(log), scanner_(database, pump, *this) {}

ImportResult ScannerImport::dofiles(const QString& root, const QString& listenerDrive,
                                    ImportWatch& watch) {
  watch_ = &watch;
  return resultOf(scanner_.dofiles(root, scanRules(settings_), listenerDrive));
}

ImportResult ScannerImport::scanTagged(const QString& root, ImportWatch& watch) {
  watch_ = &watch;
  return resultOf(scanner_.scanTagged(root, scanRules(settings_)));
}

bool ScannerImport::AddOneSong(const QString& path, const QString& fileName) {
  return scanner_.AddOneSong(path, fileName, scanRules(settings_));
}

bool ScannerImport::addSong(const QString& artist, const QString& album, const QString& fileName,
                            const QString& path) {
  const Song song = songByFolders(artist, album, fileName, path, scanRules(settings_));
  if (database_.hasSong(song.Artist, song.album, song.SongTitle)) return false;
  database_.insertSong(song);
  return true;
}

int ScannerImport::addArtistsFromListing(QByteArrayView listing) {
  return korvane::addArtistsFromListing(database_, listing);
}

QString ScannerImport::musicPattern() const {
  QString pattern = u"*.mp3;*.wma;*.wav"_s;
  for (const QString& kind : scanRules(settings_).kinds) pattern += u";*."_s + kind.toLower();
  return pattern;
}

qint64 ScannerImport::freeSpace(const QString& folder) const {
  return std::max<qint64>(QStorageInfo(folder).bytesAvailable(), 0);
}

void ScannerImport::scanStatus(const ScanProgress& progress) {
  if (watch_)
    watch_->importProgress(
        {progress.text, progress.files, progress.added, progress.filesPerSecond});
}

void ScannerImport::scanError(const QString& text) {
  log_.logIt(text);
}

}  // namespace korvane
