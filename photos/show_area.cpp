#include "photos/show_area.h"

namespace korvane {
namespace {

constexpr double kWide = 1.2;  // a wide area's width in its heights, at least

Picture pictureOf(const std::shared_ptr<const Pixels>& pixels) {
  return pixels ? Picture{{}, {}, nullptr, pixels} : Picture();
}

}  // namespace

ShowArea::ShowArea(Uses uses)
    : uses_(uses), loader_({uses.system.imaging, uses.system.pump, uses.log}) {}

void ShowArea::begin(bool atOnce) {
  end();
  seen_ = {};
  uses_.area.picture = uses_.area.beside = Picture();
  uses_.area.fade = uses_.settings.number(key::ShowFade);
  running_ = true;
  if (atOnce) return show(1, true);
  if (!files().EndOfFile()) load(files().AbsolutePosition() - 1, 1);
  restTimer();
}

void ShowArea::take(const Frame& seen) {
  end();
  seen_ = seen;
  uses_.area.picture = pictureOf(seen.picture);
  uses_.area.beside = pictureOf(seen.beside);
  uses_.area.fade = uses_.settings.number(key::ShowFade);
  running_ = true;
  if (seen.first < 0 && uses_.settings.flag(key::StartAtTouched)) return show(1, true);
  restTimer();
  if (seen.first != seen.last || !files().row(seen.first)) return decodeAhead();
  decode(seen.first, [this](const auto& pixels) {
    if (pixels) uses_.area.picture = pictureOf(seen_.picture = pixels);
    decodeAhead();
  });
}

void ShowArea::end() {
  loader_.forget();
  ahead_ = {};
  spare_.reset();
  spareAt_ = -1;
  running_ = decoding_ = awaited_ = false;
  restTimer();
}

void ShowArea::run(bool on) {
  running_ = on;
  restTimer();
}

// Off and on again where it runs already, so that a picture stays for the whole interval.
void ShowArea::restTimer() {
  uses_.timer.enabled = false;
  uses_.timer.enabled = running_ && !awaited_;
}

void ShowArea::PicTimer_Timer() {
  if (!files().isOpen() || !uses_.area.visible()) return restTimer();
  if (files().RecordCount() == 0) return run(false);
  if (files().EndOfFile()) files().MoveFirst();
  show(1, true);
}

// The position stands behind what is seen, or, without the key, wherever the last move has left it.
void ShowArea::step(int by) {
  if (files().RecordCount() == 0) return;
  running_ = true;
  const bool fromSeen = uses_.settings.flag(key::StartAtTouched);
  if (fromSeen && seen_.first >= 0)
    files().setAbsolutePosition((by > 0 ? seen_.last : seen_.first) + 1);
  if (by > 0) {
    files().MoveNext();
    if (files().EndOfFile()) files().MoveFirst();
  } else {
    files().MovePrevious();
    if (files().BOF()) files().MoveLast();
  }
  show(by, fromSeen);
}

void ShowArea::show(int by, bool moveOn) {
  const int at = files().AbsolutePosition() - 1;
  awaited_ = true;
  moveOn_ = moveOn;
  restTimer();
  const int ready = by > 0 ? ahead_.first : ahead_.last;
  if (ready != at || by != by_) return load(at, by);
  if (!decoding_) put(std::exchange(ahead_, {}));
}

void ShowArea::load(int at, int by) {
  loader_.forget();
  by_ = by;
  decoding_ = true;
  ahead_ = {at, at, nullptr, nullptr};
  decode(at, [this, at, by](const auto& pixels) {
    ahead_.picture = pixels;
    if (pixels && pairs(*pixels) && files().row(at + by)) return loadBeside(at, by);
    loaded(ahead_);
  });
}

void ShowArea::loadBeside(int at, int by) {
  decode(at + by, [this, at, by](const auto& pixels) {
    Frame frame = ahead_;
    if (pixels && pairs(*pixels)) {
      frame = by > 0 ? Frame{at, at + 1, frame.picture, pixels}
                     : Frame{at - 1, at, pixels, frame.picture};
    } else {
      spareAt_ = at + by;
      spare_ = pixels;
    }
    loaded(frame);
  });
}

void ShowArea::decode(int at, std::function<void(std::shared_ptr<const Pixels>)> done) {
  if (spare_ && at == spareAt_) return done(std::exchange(spare_, {}));
  const PhotoFile* file = files().row(at);
  if (!file) return done(nullptr);
  loader_.load(file->Path, reading(),
               [done = std::move(done)](const Imaging::Loaded& read) { done(read.pixels); });
}

void ShowArea::loaded(Frame frame) {
  decoding_ = false;
  ahead_ = std::move(frame);
  if (awaited_) put(std::exchange(ahead_, {}));
}

// A picture that could not be read leaves the one before on the screen.
void ShowArea::put(const Frame& frame) {
  awaited_ = false;
  const Frame before = std::exchange(seen_, frame);
  if (frame.picture) {
    uses_.area.zoom = 0;
    uses_.area.picture = pictureOf(frame.picture);
    uses_.area.beside = pictureOf(frame.beside);
  } else {
    seen_.picture = before.picture;
    seen_.beside = before.beside;
  }
  if (moveOn_ && files().setAbsolutePosition(frame.last + 1)) files().MoveNext();
  restTimer();
  changed();
  decodeAhead();
}

// What the next tick will show.
void ShowArea::decodeAhead() {
  if (uses_.settings.number(key::ShowFade) == 0 || files().RecordCount() < 2) return;
  load(files().EndOfFile() ? 0 : files().AbsolutePosition() - 1, 1);
}

bool ShowArea::pairs(const Pixels& pixels) const {
  const Rect area = uses_.area.rect();
  return pixels.height > pixels.width && area.width > kWide * area.height &&
         uses_.settings.number(key::ShowFade) > 0;
}

Imaging::Reading ShowArea::reading() const {
  const Rect area = uses_.area.rect();
  const double scale = uses_.area.form.scale;
  return uses_.pictures.readingFor(static_cast<int>(std::ceil(area.width * scale)),
                                   static_cast<int>(std::ceil(area.height * scale)));
}

}  // namespace korvane
