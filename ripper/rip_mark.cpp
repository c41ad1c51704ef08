#include "ripper/rip_mark.h"

namespace korvane {
namespace {

constexpr Rect kVolume{952, 608, 320, 72}, kVolumeBesideMark{952, 608, 160, 72};

}  // namespace

RipMark::RipMark(Form& form, const AppState& state, const RipRun& run,
                 std::function<bool()> transport)
    : form_(form), state_(state), run_(run), transport_(std::move(transport)), panel_(form) {
  form_.observe(this);
}

RipMark::~RipMark() {
  form_.forget(this);
}

void RipMark::show() {
  const bool on = run_.atWork() && transport_();
  if (on) panel_.cmdRipMark->caption = u"CD %1 %"_s.arg(static_cast<int>(run_.total()));
  if (on == panel_.cmdRipMark->visible()) return;
  makeRoom(on);
  panel_.cmdRipMark->visible = on;
}

// Where an owner has put the volume somewhere else it stays as it is.
void RipMark::makeRoom(bool on) {
  Slider& volume = *panel_.scrollVolume;
  if (on && volume.design == kVolume) form_.moveDesign(volume, kVolumeBesideMark);
  if (!on && volume.design == kVolumeBesideMark) form_.moveDesign(volume, kVolume);
}

void RipMark::controlChanged(Control& control, Aspect aspect) {
  if (&control != panel_.discTracks || (aspect != Aspect::Visible && aspect != Aspect::Rows))
    return;
  panel_.cmdRip->visible = panel_.discTracks->visible() && state_.playsDiscAudio() &&
                           !state_.playListEditing && panel_.discTracks->cell(5, 1) == "AUDIO"_L1;
}

}  // namespace korvane
