#include "ads/screens/view_adds_form.h"

namespace korvane {
namespace {

constexpr unsigned All = Left | Top | Right | Bottom;
constexpr Colour kBlack = 0;
constexpr int kShiftSeconds = 10;                 // from one pixel to the next
constexpr int kShiftAcross = 12, kShiftDown = 7;  // at most, either way

constexpr InventoryRow kRows[] = {
    {"imageframe", -1, Kind::Frame, kSurface, All, ""},
    {"picTransition", -1, Kind::PictureArea, kSurface, All, "Ad", "imageframe"},
    {"pictimer", -1, Kind::Timer, {}, Left | Top, ""},
};

// There and back again, a step at a time.
int swing(int step, int reach) {
  const int at = step % (4 * reach);
  return at <= reach ? at : at <= 3 * reach ? 2 * reach - at : at - 4 * reach;
}

}  // namespace

ViewAddsForm::ViewAddsForm(Uses uses)
    : Dialog(uses.dialog, u"frmViewAdds"_s, kRows),
      uses_(std::move(uses)),
      panel_(form_),
      loader_(uses_.loading) {
  panel_.picTransition->rounded = false;
  onClick(u"picTransition", [this](int) { leave(); });
  form_.on(Event::KeyDown, [this](Control&, const Event&) { leave(); });
  form_.on(u"pictimer", Event::Tick, [this](Control&, const Event&) { pictimer_Timer(); });
}

void ViewAddsForm::open() {
  if (run([this] { Form_Load(); })) Form_Unload();
}

void ViewAddsForm::Form_Load() {
  uses_.screen.MousePointer = Screen::Custom;
  Colours black;
  black.back = kBlack;
  form_.colours = black;
  panel_.imageframe->colours = black;
  panel_.picTransition->colours = black;
  panel_.picTransition->shiftX = panel_.picTransition->shiftY = 0;
  count_ = seconds_ = 0;
  loadapic();
  panel_.pictimer->enabled = uses_.ads.adsList.RecordCount() > 0;
}

void ViewAddsForm::Form_Unload() {
  panel_.pictimer->enabled = false;
  wanted_.clear();
  showBlack();
  if (uses_.settings.flag(key::AdLog)) uses_.log.write();
}

void ViewAddsForm::pictimer_Timer() {
  if (uses_.plays()) return leave();
  if (uses_.settings.flag(key::AdShift)) shift();
  if (++count_ <= adSeconds_) return;
  count_ = 0;
  loadapic();
  uses_.ads.adsList.MoveNext();
  decodeAhead();
}

void ViewAddsForm::loadapic() {
  const Ad* ad = uses_.ads.adsList.take(uses_.ads.hour());
  wanted_ = ad ? ad->aPath : QString();
  wantedName_ = ad ? ad->aName : QString();
  adSeconds_ = ad ? ad->aTime : 0;
  if (!ad)
    showBlack();
  else if (wanted_ == shown_)
    uses_.log.begins(wantedName_);
  else if (next_.path != wanted_)
    decode(wanted_);
  else if (next_.done)
    put();
}

void ViewAddsForm::showBlack() {
  loader_.forget();
  next_ = {};
  shown_.clear();
  panel_.picTransition->picture = Picture();
  uses_.log.ends();
}

// A file that cannot be read leaves the picture that was there.
void ViewAddsForm::put() {
  const std::shared_ptr<const Pixels> pixels = std::exchange(next_, {}).pixels;
  if (!pixels) return;
  panel_.picTransition->picture = Picture{{}, {}, nullptr, pixels};
  shown_ = wanted_;
  uses_.log.begins(wantedName_);
}

void ViewAddsForm::decode(const QString& path) {
  const auto pixels = [this](int units) {
    return static_cast<int>(std::lround(units * uses_.frmMain.scale));
  };
  loader_.forget();
  next_ = {path, nullptr, false};
  loader_.load(path,
               {.width = pixels(uses_.frmMain.width()),
                .height = pixels(uses_.frmMain.height()),
                .upright = uses_.settings.flag(key::PhotoTurn)},
               [this](const Imaging::Loaded& loaded) {
                 next_.pixels = loaded.pixels;
                 next_.done = true;
                 if (next_.path != wanted_) return;
                 put();
                 decodeAhead();
               });
}

void ViewAddsForm::decodeAhead() {
  const Ad* ad = uses_.ads.adsList.take(uses_.ads.hour());
  const bool busy = !next_.path.isEmpty();
  if (ad && !busy && ad->aPath != shown_ && ad->aPath != wanted_) decode(ad->aPath);
}

void ViewAddsForm::shift() {
  const int step = ++seconds_ / kShiftSeconds;
  panel_.picTransition->shiftX = swing(step, kShiftAcross);
  panel_.picTransition->shiftY = swing(step, kShiftDown);
}

}  // namespace korvane
