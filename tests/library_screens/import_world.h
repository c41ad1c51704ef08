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

class FakeImportNews : public ImportNews {
 public:
  void songsChanged() override { heard << u"songs"_s; }
  void movieDirectoryChanged() override { heard << u"movies"_s; }
  void photoDirectoryChanged() override { heard << u"photos"_s; }
  QStringList heard;
};

struct ImportWorld : FormWorld {
  ImportWorld() {
    for (const char* song : {"music/Abba/Gold/01-Waterloo.mp3", "music/Abba/Gold/b.WMA",
                             "music/Abba/Gold/cover.jpg", "music/zz top/Eliminator/Legs.wav"})
      home.put(QString::fromLatin1(song), song);
  }

  QString music(const QString& below = {}) const { return home / (u"music"_s + below); }
  static void tap(Form& form, const QString& list, const QString& row) {
    auto* grid = dynamic_cast<Grid*>(form.find(list));
    for (int r = 1; r <= grid->maxRows(); ++r) {
      if (grid->cell(1, r) != row) continue;
      grid->row = r;
      form.fire(*grid, {Event::Click, 1, r});
      return;
    }
    ADD_FAILURE() << qUtf8Printable(list) << " has no " << qUtf8Printable(row);
  }
  static QStringList rows(Form& form, const QString& list) {
    auto* grid = dynamic_cast<Grid*>(form.find(list));
    QStringList all;
    for (int r = 1; r <= grid->maxRows(); ++r) all << grid->cell(1, r);
    return all;
  }

  Screen screen;
  FakeSongImport import;
  FakeImportNews news;
  DirectorysForm directorys{
      {host, palette, state, settings, files, screen, messages, import, news}};
  SingleSongForm single{{host, palette, files, pump, screen, messages, import, news, directorys}};
  Mp3SetupForm setup{{host, palette, settings, messages, import, news, directorys, single}};
};

}  // namespace korvane
