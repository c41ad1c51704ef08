// A drive in a test's hand: it answers when the test says so, holds what it is given and plays to a
// place.
#pragma once

#include <optional>

#include "platform/disc_drive.h"

namespace korvane {

class FakeDiscDrive : public DiscDrive {
 public:
  void setEvents(Events* events) override { events_ = events; }
  void open(const QString& source) override {
    if (opened != source) calls << u"open "_s + source;
    opened = source;
  }
  void close() override {
    calls << u"close"_s;
    opened.reset();
  }
  bool looked() const override { return answers && opened; }
  const Disc* disc() const override { return looked() && held ? &*held : nullptr; }
  QString trouble() const override { return troubleText; }
  void play(int track, int seconds) override {
    calls << u"play %1 %2"_s.arg(track).arg(seconds);
    now = Seek;
    at = {track, seconds * kSectorsPerSecond};
  }
  void pause() override {
    calls << u"pause"_s;
    now = Paused;
  }
  void stop() override {
    calls << u"stop"_s;
    now = Stopped;
  }
  void eject() override { calls << u"eject"_s; }
  Mode mode() const override { return held ? now : doorOpen ? Open : NotReady; }
  Place place() const override { return at; }

  // A disc of tracks that long, in seconds, with their names; null takes it out.
  void put(const QList<std::pair<int, QString>>& tracks, bool audio = true) {
    held = Disc();
    int first = 0;
    for (const auto& [seconds, title] : tracks) {
      held->tracks.push_back({first, seconds * kSectorsPerSecond, audio, title, {}});
      first += seconds * kSectorsPerSecond;
    }
    now = Stopped;
  }
  void takeOut(bool door) {
    held.reset();
    doorOpen = door;
  }
  void tell() { events_->discChanged(); }
  void sound(int track, int seconds) {
    now = Playing;
    at = {track, seconds * kSectorsPerSecond};
  }

  QStringList calls;
  std::optional<QString> opened;
  std::optional<Disc> held;
  QString troubleText;
  Mode now = Stopped;
  Place at;
  bool answers = true, doorOpen = false;

 private:
  Events* events_ = nullptr;
};

}  // namespace korvane
