// A whole console over fakes: "given songs, press, the player is asked for".
#pragma once

#include <gtest/gtest.h>

#include <QRegularExpression>

#include "app/console.h"
#include "library/data/schema.h"
#include "platform/files/disk_file_system.h"
#include "tests/fakes/fake_form_host.h"
#include "tests/fakes/fake_media_player.h"
#include "tests/fakes/fake_system.h"
#include "tests/fakes/fake_winsock.h"
#include "tests/fakes/full_disk.h"
#include "tests/fakes/print.h"
#include "tests/fakes/temporary_home.h"

namespace korvane {

class CabinTest : public testing::Test {
 protected:
  CabinTest() { createEmptyDatabase(home / u"Morvanta.mdb"_s); }

  // A song and its (empty) file.
  QString given(const QString& artist, const QString& album, const QString& title) {
    const QString path = home.put(u"Music/%1/%2/%3.mp3"_s.arg(artist, album, title), "x");
    Database(home.path()).insertSong({artist, album, title, {}, {}, path});
    return path;
  }
  // Three songs of one album; their paths.
  QStringList givenDays() {
    return {given(u"Ada"_s, u"Days"_s, u"001-Dawn"_s), given(u"Ada"_s, u"Days"_s, u"002-Noon"_s),
            given(u"Ada"_s, u"Days"_s, u"003-Dusk"_s)};
  }
  void setting(const QByteArray& lines) {
    home.put(u"Morvanta.INI"_s, "[STARTUP]\nTheme=test\nMainPage=CB\nShowPhoto=1\n" + lines);
  }

  // `before` sees the console made and not yet started.
  Console& start(const std::function<void(Console&)>& before = {}) {
    console_.reset();
    console_ = std::make_unique<Console>(
        system_,
        [this](Graphics&) {
          auto made = std::make_unique<FakeFormHost>();
          host = made.get();
          return made;
        },
        home.path(), [this] { ended = true; });
    if (before) before(*console_);
    started = console_->SubMain();
    return *console_;
  }
  Console& console() { return *console_; }
  Form& form() { return console_->desk.frmMain; }

  Control& control(const QString& name, int index = -1) {
    if (Control* found = form().find(name, index)) return *found;
    throw std::runtime_error("no control " + name.toStdString());
  }
  Grid& grid(int index) { return dynamic_cast<Grid&>(control(u"Grid"_s, index)); }
  Slider& slider() { return dynamic_cast<Slider&>(control(u"Slider1"_s)); }
  bool shown(const QString& name, int index = -1) { return control(name, index).visible(); }
  QString caption(const QString& name) { return control(name).caption(); }
  QString picture(const QString& name, int index = -1) {
    return control(name, index).picture().name;
  }

  void press(const QString& name, int index = -1) { fire(name, Event::Click, index); }
  void fire(const QString& name, Event::Type type, int index = -1) {
    EXPECT_TRUE(form().fire(control(name, index), {type}))
        << "nothing hears " << name.toStdString();
    system().pump.settle();
  }
  void pressRow(int list, int row) { fireRow(Event::Click, list, row); }
  void playRow(int list, int row) { fireRow(Event::DblClick, list, row); }

  // The message box that comes next says that, and is answered.
  enum Answer { Yes, No, Ok };
  void answer(const QString& contains, Answer button = Ok) {
    host->onModal(u"frmMsgBox"_s, [contains, button](Form& box) {
      EXPECT_TRUE(textOf(box, u"msg"_s).contains(contains)) << textOf(box, u"msg"_s).toStdString();
      korvane::press(box, u"cmdControls"_s, button);
    });
  }

  // The Music tab, and there a page by its button.
  void openPage(int button) {
    press(u"imgTabs"_s, kMusicTab);
    press(u"cmdTop"_s, button);
  }
  // An artist, the album of that row.
  void openAlbum(int artistRow, int albumRow) {
    openPage(0);
    pressRow(0, artistRow);
    pressRow(2, albumRow);
  }
  // The on-screen keyboard comes up next and that is typed.
  void typed(const QString& text, bool password = false) {
    host->onModal(u"frmKeyboard"_s, [text, password](Form& keyboard) {
      auto& input = dynamic_cast<TextBox&>(*keyboard.find(u"txtInput"));
      EXPECT_EQ(!input.passwordChar().isEmpty(), password);
      input.text = text;
      korvane::press(keyboard, u"KEY"_s, 26);  // Enter
    });
  }

  static QStringList column(const Grid& of, int number) {
    QStringList cells;
    for (int row = 1; row <= of.maxRows(); ++row) cells << of.cell(number, row);
    return cells;
  }
  QString playing() {
    const QStringList opened = player.calls.filter(QRegularExpression(u"^open "_s));
    return opened.isEmpty() ? QString() : opened.last().section(u'/', -1).section(u'.', 0, 0);
  }
  void songEnds() {
    player.end();
    system().pump.settle();
  }

  FakeSystem& system() { return fakes_; }

  TemporaryHome home;
  FullDisk diskCalls;
  FakeMediaPlayer player;
  FakeFormHost* host = nullptr;
  std::vector<FakeWinsock*> sockets;  // music, movie, master, lights
  bool started = false, ended = false;

 private:
  void fireRow(Event::Type type, int list, int row) {
    EXPECT_TRUE(form().fire(grid(list), {type, 1, row})) << "list " << list << " hears nothing";
    system().pump.settle();
  }

  FakeSystem fakes_;
  DiskFileSystem disk_{diskCalls};
  System system_ = fakes_.with(
      player,
      [this] {
        auto made = std::make_unique<FakeWinsock>();
        sockets.push_back(made.get());
        return made;
      },
      &disk_);
  std::unique_ptr<Console> console_;
};

}  // namespace korvane
