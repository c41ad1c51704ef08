// SongImport over the scanner, the database and the settings.
#pragma once

#include "core/log.h"
#include "core/settings.h"
#include "library/scan/scanner.h"
#include "library/screens/song_import.h"

namespace korvane {

class ScannerImport : public SongImport, private ScanEvents {
 public:
  // None owned; all must outlive it. What a file keeps from being read goes into the log.
  ScannerImport(Database& database, Pump& pump, const Settings& settings, const Log& log);

  ImportResult dofiles(const QString& root, const QString& listenerDrive,
                       ImportWatch& watch) override;
  ImportResult scanTagged(const QString& root, ImportWatch& watch) override;
  void stop() override { scanner_.stop(); }
  bool AddOneSong(const QString& path, const QString& fileName) override;
  bool addSong(const QString& artist, const QString& album, const QString& fileName,
               const QString& path) override;
  int addArtistsFromListing(QByteArrayView listing) override;
  QString musicPattern() const override;
  qint64 freeSpace(const QString& folder) const override;

  // The scanner that the calls above drive: one scan at a time.
  Scanner& scanner() { return scanner_; }

 private:
  void scanStatus(const ScanProgress& progress) override;
  void scanError(const QString& text) override;

  Database& database_;
  const Settings& settings_;
  const Log& log_;
  Scanner scanner_;
  ImportWatch* watch_ = nullptr;
};

}  // namespace korvane
