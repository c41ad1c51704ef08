// A music connection between fakes, and the few words its tests are written in.
#pragma once

#include "listener/music_connection.h"
#include "platform/files/profile.h"
#include "tests/fakes/fake_media_player.h"
#include "tests/fakes/fake_messages.h"
#include "tests/fakes/fake_system.h"
#include "tests/fakes/fake_winsock.h"

namespace korvane {

// The transport above, which only keeps what it hears.
struct HeardNews : TransportNews {
  void playerPaused() override { heard << u"paused"_s; }
  void playerStopped() override { heard << u"stopped"_s; }
  void endOfStream() override { heard << u"end"_s; }
  void songFailed(int inARow) override {
    heard << u"failed %1"_s.arg(inARow);
    if (onFailed) onFailed(inARow);
  }
  QStringList heard;
  std::function<void(int)> onFailed;
};

// "MUSIC|PLAY" as a record: '|' for the end of a field, '$' for the end of the record.
inline QByteArray bytes(QByteArray text) {
  return text.replace('|', '\0').replace('$', '\1');
}

struct MusicParts {
  MusicParts() {
    system.files.put(u"/home/Morvanta.INI"_s, "[STARTUP]\n");
    music.setNews(&news);
  }

  void setting(const QByteArray& line) {  // before the first command
    system.files.put(u"/home/Morvanta.INI"_s, "[STARTUP]\n" + line + "\n");
  }
  QString ini(const QString& section, const QString& name) {
    return profileValue(system.files.bytes(u"/home/Morvanta.INI"_s), section, name)
        .value_or(u"NO"_s);
  }
  QString log() { return QString::fromUtf8(system.files.bytes(u"/home/log.txt"_s)); }
  template <class T>
  T& control(const char* name, int index = -1) {
    return dynamic_cast<T&>(*form.find(QString::fromLatin1(name), index));
  }
  QString caption(const char* name) { return control<Label>(name).caption(); }
  QString picture(const char* name, int index) {
    return control<Image>(name, index).picture->group + u'/' +
           control<Image>(name, index).picture->name;
  }
  void musicPageOpen() { control<Image>("imgTabs", 0).tag = u"1"_s; }

  FakeSystem system;
  AppState state;
  Settings settings{system.files, system.pump, state, u"/home"_s};
  Log logger{system.files, system.clock, u"/home"_s};
  Form form{u"frmMain"_s, mainInventory()};
  FakeMessages messages;
  FakeMediaPlayer player;
  FakeWinsock socket;
  HeardNews news;
  PlayerLevel level{player, system.mixer};
  QByteArray coverImage;  // what every song holds
  MusicConnection music{{form, state, settings, messages, logger, system.pump, system.files, player,
                         level, socket, [this](const QString&) {
                           return coverImage.isEmpty() ? std::nullopt : std::optional(coverImage);
                         }}};
  Slider& Slider1 = control<Slider>("Slider1");
  Timer& MusicTimer = control<Timer>("MusicTimer");
  Control& coverArt = control<Control>("coverArt");
};

}  // namespace korvane
