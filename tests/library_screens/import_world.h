// A music tree on the disk and a library that writes down what is asked of it.
#pragma once

#include "library/screens/mp3_setup_form.h"
#include "tests/fakes/form_world.h"

namespace korvane {

class FakeSongImport : public SongImport {
 public:
  ImportResult dofiles(const QString& root, const QString& drive, ImportWatch& watch) override {
    return scan(u"dofiles "_s + root + u'|' + drive, watch);
  }
  ImportResult scanTagged(const QString& root, ImportWatch& watch) override {
    return scan(u"scanTagged "_s + root, watch);
  }
  void stop() override { stopped = true; }
  bool AddOneSong(const QString& path, const QString& fileName) override {
    calls << u"AddOneSong "_s + path + u'|' + fileName;
    if (!failure.empty()) throw std::runtime_error(failure);
    return true;
  }
  bool addSong(const QString& artist, const QString& album, const QString& fileName,
               const QString& path) override {
    calls << QStringList{artist, album, fileName, path}.join(u'|');
    return true;
  }
  int addArtistsFromListing(QByteArrayView listing) override {
    calls << u"listing "_s + QString::fromUtf8(listing);
    if (!failure.empty()) throw std::runtime_error(failure);
    return static_cast<int>(listing.count('['));
  }
  QString musicPattern() const override { return u"*.mp3;*.wma;*.wav"_s; }
  qint64 freeSpace(const QString&) const override { return space; }

  QStringList calls;
  std::function<void()> during;  // while a scan runs, which ends when it has been stopped
  std::string failure;
  bool stopped = false;
  qint64 space = 1234567;

 private:
  ImportResult scan(const QString& call, ImportWatch& watch) {
    calls << call;
    stopped = false;
    watch.importProgress({u"Title; Artist; Album"_s, 5, 3, 2500});
    if (during) during();
    if (!failure.empty()) throw std::runtime_error(failure);
    return {10, stopped ? 3 : 8, 1, 0.5, stopped};
  }
};

struct FakeImportNews : ImportNews {
  void songsChanged() override { heard << u"songs"_s; }
  QStringList heard;
};

struct ImportWorld : FormWorld {
  ImportWorld() {
    for (const char* song : {"music/Abba/Gold/01-Waterloo.mp3", "music/Abba/Gold/b.WMA",
                             "music/Abba/Gold/cover.jpg", "music/zz top/Eliminator/Legs.wav"})
      home.put(QString::fromLatin1(song), song);
  }

  QString music(const QString& below = {}) const { return home / (u"music"_s + below); }
  Screen screen;
  FakeSongImport import;
  FakeImportNews news;
  Chooser chooser{dialog, files};
  DirectoryScan scan{{chooser, settings, files, screen, messages, import, news}};
  SingleSongForm single{{dialog, chooser, settings, files, pump, screen, import, news}};
  Mp3SetupForm setup{{dialog, chooser, settings, files, import, news, scan, single}};
};

}  // namespace korvane
