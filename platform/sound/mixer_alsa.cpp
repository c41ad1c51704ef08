#include "platform/sound/mixer_alsa.h"

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

MixerAlsa::Opened MixerAlsa::find(const QByteArray& device) {
  snd_lib_error_set_handler(beSilent);
  Opened found;
  if (snd_mixer_open(&found.mixer, 0) < 0) return {};
  long highest = 0;
  if (snd_mixer_attach(found.mixer, device.constData()) >= 0 &&
      snd_mixer_selem_register(found.mixer, nullptr, nullptr) >= 0 &&
      snd_mixer_load(found.mixer) >= 0)
    found.element = speakers(found.mixer);
  if (found.element &&
      snd_mixer_selem_get_playback_volume_range(found.element, &found.lowest, &highest) >= 0)
    found.maximum = static_cast<int>(highest - found.lowest);
  if (found.maximum > 0) return found;
  snd_mixer_close(found.mixer);
  return {};
}

bool MixerAlsa::take(const Opened& opened) {
  if (opened.maximum == 0) return false;
  mixer_ = opened.mixer;
  element_ = opened.element;
  lowest_ = opened.lowest;
  maximum_ = opened.maximum;
  known_ = level();
  listen();
  return true;
}

bool MixerAlsa::open() {
  close();
  return take(find(device_.toUtf8()));
}

void MixerAlsa::openLater(std::function<void(bool)> opened) {
  close();
  finding_ = std::jthread([this, opened = std::move(opened), device = device_.toUtf8()] {
    const Opened found = find(device);
    QMetaObject::invokeMethod(&here_, [this, opened, found] {
      const bool there = take(found);
      opened(there);
      if (there && changed_) changed_();
    });
  });
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
