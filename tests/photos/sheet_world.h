// frmViewPic over fakes: an album in memory, whose thumbnails are known by their colours.
#pragma once

#include <gtest/gtest.h>

#include "photos/screens/view_pic_form.h"
#include "tests/fakes/fake_form_host.h"
#include "tests/fakes/fake_media_player.h"
#include "tests/fakes/fake_messages.h"
#include "tests/fakes/fake_system.h"
#include "tests/fakes/print.h"

namespace korvane {

struct SheetWorld : testing::Test {
  explicit SheetWorld(FileSystem* disk = nullptr, const QString& home = u"/home"_s,
                      Imaging* codecs = nullptr)
      : system(fakes.with(player, {}, disk, codecs)),
        log(system.files, system.clock, home),
        settings(system.files, system.pump, state, home, &log) {
    system.files.CreateFolder(home);
    fakes.files.CreateFolder(u"/trash"_s);
  }
  ~SheetWorld() override { EXPECT_TRUE(host.allDone()) << "a form did not come up"; }

  static QStringList words(const char* list) {
    return QString::fromUtf8(list).split(u' ', Qt::SkipEmptyParts);
  }
  void givenPictures(const QStringList& names) {
    for (const QString& name : names) fakes.files.put(u"/P/Alps/"_s + name, name.toUtf8());
  }
  // Thumbnails of one letter, which is their colour; one that is called x cannot be read.
  void givenThumbs(const QStringList& stems) {
    for (const QString& stem : stems) fakes.files.put(thumb(stem), stem.toUtf8());
  }
  QString thumb(const QString& stem) {
    const QString path = u"/P/Alps/thumbs/"_s + stem + u".JPG"_s;
    fakes.imaging.files[path].colour = 0xff000000U + stem[0].unicode();
    if (stem == "x"_L1) fakes.imaging.files[path].error = u"It is torn."_s;
    return path;
  }
  void on(const SettingKey& key) { settings.write(key, u"YES"_s); }

  // The form comes up, has shown the directory, and `use` has it in hand.
  void open(const std::function<void(Form&)>& use, const QString& directory = u"/P/Alps"_s) {
    settings.write(key::PDirectory, u"/P/"_s);
    host.onModal(u"frmViewPic"_s, [this, use](Form& form) {
      fakes.pump.settle();
      use(form);
      fakes.pump.settle();
    });
    pic.open(directory);
    EXPECT_FALSE(screen.busy());
  }
  void menu(const QString& entry) {
    press(pic.form(), u"cmdOptions"_s);
    press(pic.form(), entry);
    fakes.pump.settle();
  }
  Sheet& sheet() { return controlOf<Sheet>(pic.form(), u"picSlide"); }
  void touch(int cell) { pic.form().fire(sheet(), {Event::Click, 0, cell}); }

  // The cells: names, and behind '=' the letter of the thumbnail that each shows.
  QString cells() {
    QStringList shown;
    const CellSource& of = sheet().cells();
    for (int cell = 0; cell < of.count(); ++cell) {
      (void)of.picture(cell);
      fakes.pump.settle();
      const auto picture = of.picture(cell);
      const bool drawn = picture && picture->pixels;
      shown << of.caption(cell) + u'=' +
                   (drawn ? QChar(ushort{picture->pixels->bits[0]}) : QChar(u'-'));
    }
    return shown.join(u' ');
  }
  QString names() {
    QStringList shown;
    for (int cell = 0; cell < sheet().cells().count(); ++cell)
      shown << sheet().cells().caption(cell);
    return shown.join(u' ');
  }
  QString thumbs() { return fakes.files.Files(u"/P/Alps/thumbs"_s).join(u' '); }
  // Names of the pictures that were read since the last time.
  QString made() {
    QStringList read;
    for (const QString& path : std::exchange(fakes.imaging.loads, {}))
      if (!path.contains("/thumbs/"_L1)) read << path.section(u'/', -1);
    read.sort();
    return read.join(u' ');
  }
  QByteArray picture(const QString& name) { return fakes.files.bytes(u"/P/Alps/"_s + name); }
  qsizetype logged(const QString& text) {
    return fakes.files.bytes(u"/home/log.txt"_s).count(text.toUtf8());
  }

  FakeSystem fakes;
  FakeMediaPlayer player;
  System system;
  AppState state;
  Log log;
  Settings settings;
  Palette palette{settings};
  FakeFormHost host;
  FakeMessages messages;
  DialogUses dialog{host, palette, messages};
  Screen screen;
  ViewBigForm big{{dialog, screen, settings, system.imaging, system.pump, log}};
  ViewPicForm pic{{dialog, screen, system, settings, log, big, u"/cache"_s}};
};

}  // namespace korvane
