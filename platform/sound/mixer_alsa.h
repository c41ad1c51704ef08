// The speakers' volume over the ALSA mixer (alsa-lib's "simple mixer interface"): the element
// "Master" of the default device, else the first with a playback volume.
#pragma once

#include <QSocketNotifier>
#include <memory>
#include <thread>
#include <vector>

#include "platform/machine.h"

struct _snd_mixer;
struct _snd_mixer_elem;

namespace korvane {

class MixerAlsa final : public Mixer {
 public:
  // `device` is an ALSA control device, as "default" or "hw:0".
  explicit MixerAlsa(QString device = u"default"_s) : device_(std::move(device)) {}
  ~MixerAlsa() override;  // waits for a look that openLater() began
  bool open() override;
  void openLater(std::function<void(bool)> opened) override;
  int maximum() const override { return maximum_; }  // 0 while not open
  int level() const override;
  bool setLevel(int value) override;
  void watch(std::function<void()> changed) override;

 private:
  struct Opened {
    _snd_mixer* mixer = nullptr;
    _snd_mixer_elem* element = nullptr;
    long lowest = 0;
    int maximum = 0;  // 0 when there is no such device
  };
  static Opened find(const QByteArray& device);  // any thread may
  bool take(const Opened& opened);               // owns it from now on; false when there is none
  void close();
  void listen();
  void heard();

  QString device_;
  _snd_mixer* mixer_ = nullptr;
  _snd_mixer_elem* element_ = nullptr;
  long lowest_ = 0;
  int maximum_ = 0;
  int known_ = 0;  // the level as last read or set here
  std::function<void()> changed_;
  std::vector<std::unique_ptr<QSocketNotifier>> notifiers_;
  QObject here_;          // while it lives, what the thread found is taken
  std::jthread finding_;  // ends before the rest goes
};

}  // namespace korvane
