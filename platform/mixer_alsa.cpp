#include "platform/mixer_alsa.h"

#include <alsa/asoundlib.h>

namespace korvane {
namespace {

// A machine without a sound device is no news for standard error.
void beSilent(const char*, int, const char*, int, const char*, ...) {}

snd_mixer_elem_t* speakers(snd_mixer_t* mixer) {
  snd_mixer_elem_t* first = nullptr;
  for (auto* e = snd_mixer_first_elem(mixer); e; e = snd_mixer_elem_next(e)) {
    if (!snd_mixer_selem_is_active(e) || !snd_mixer_selem_has_playback_volume(e)) continue;
    if (qstrcmp(snd_mixer_selem_get_name(e), "Master") == 0) return e;
    if (!first) first = e;
  }
  return first;
}

}  // namespace

MixerAlsa::~MixerAlsa() {
  close();
}

void MixerAlsa::close() {
  for (auto& each : notifiers_) {
    each->setEnabled(false);
    each.release()->deleteLater();  // it may be the one that is speaking
  }
  notifiers_.clear();
  if (mixer_) snd_mixer_close(mixer_);
  mixer_ = nullptr;
  element_ = nullptr;
  maximum_ = 0;
}

bool MixerAlsa::open() {
  close();
  snd_lib_error_set_handler(beSilent);
  if (snd_mixer_open(&mixer_, 0) < 0) {
    mixer_ = nullptr;
    return false;
  }
  long highest = 0;
  if (snd_mixer_attach(mixer_, device_.toUtf8().constData()) >= 0 &&
      snd_mixer_selem_register(mixer_, nullptr, nullptr) >= 0 && snd_mixer_load(mixer_) >= 0)
    element_ = speakers(mixer_);
  if (element_ && snd_mixer_selem_get_playback_volume_range(element_, &lowest_, &highest) >= 0)
    maximum_ = static_cast<int>(highest - lowest_);
  if (maximum_ > 0) {
    known_ = level();
    listen();
    return true;
  }
  close();
  return false;
}

int MixerAlsa::level() const {
  if (!element_) return 0;
  long value = lowest_;
  snd_mixer_selem_get_playback_volume(element_, SND_MIXER_SCHN_FRONT_LEFT, &value);
  return static_cast<int>(value - lowest_);
}

bool MixerAlsa::setLevel(int value) {
  if (!element_) return false;
  const int bounded = std::clamp(value, 0, maximum_);
  if (snd_mixer_selem_set_playback_volume_all(element_, lowest_ + bounded) < 0) return false;
  known_ = bounded;
  return true;
}

void MixerAlsa::watch(std::function<void()> changed) {
  changed_ = std::move(changed);
}

void MixerAlsa::listen() {
  const int count = snd_mixer_poll_descriptors_count(mixer_);
  std::vector<pollfd> polled(static_cast<size_t>(std::max(count, 0)));
  if (snd_mixer_poll_descriptors(mixer_, polled.data(), static_cast<unsigned>(polled.size())) < 0)
    return;
  for (const pollfd& each : polled) {
    notifiers_.push_back(std::make_unique<QSocketNotifier>(each.fd, QSocketNotifier::Read));
    QObject::connect(notifiers_.back().get(), &QSocketNotifier::activated, [this] { heard(); });
  }
}

void MixerAlsa::heard() {
  if (snd_mixer_handle_events(mixer_) < 0) {
    close();
    if (changed_) changed_();
    return;
  }
  const int now = level();
  if (std::abs(now - known_) > maximum_ / 200) {  // beyond what the card rounds
    known_ = now;
    if (changed_) changed_();
  }
}

}  // namespace korvane
