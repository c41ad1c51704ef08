#include "photos/screens/view_big_form.h"

#include "photos/picture_loader.h"
#include "photos/screens/view_big_rows.h"

namespace korvane {
namespace {

constexpr double kSmallest = 1, kLargest = 800, kStep = 1.25;  // of a zoom, percent and factor
constexpr double kDotsPerInch = 96;
constexpr double kBrightness = 2.0, kContrast = 2.0;
constexpr int kSized = 6000;  // pixels of the box of a picture that is too large to be read whole

// Whole where its pixels fit into memory.
Imaging::Loaded loadLarge(const Imaging& imaging, const QString& path, bool upright) {
  const Imaging::About about = imaging.about(path, upright);
  Imaging::Reading reading{.upright = upright};
  if (qint64{4} * about.width * about.height > Imaging::kMostBytes)
    reading.width = reading.height = kSized;
  return imaging.load(path, reading);
}

}  // namespace

const std::array<ViewBigForm::Tool, 5> ViewBigForm::kTools{
    {{"butStartZoomPlus", PictureArea::Hand::ZoomIn},
     {"butStartZoomMinus", PictureArea::Hand::ZoomOut},
     {"butStartZoomWindow", PictureArea::Hand::ZoomWindow},
     {"butStartMove", PictureArea::Hand::Move},
     {"butStartMagnificationWindow", PictureArea::Hand::Magnify}}};

double zoomStep(double factor, bool larger) {
  return std::clamp(larger ? factor * kStep : factor / kStep, kSmallest, kLargest);
}

ViewBigForm::ViewBigForm(Uses uses)
    : Dialog(uses.dialog, u"frmViewBig"_s, viewBigInventory()), uses_(uses), panel_(form_) {
  panel_.scrollZoom->minimum = kSmallest;
  panel_.scrollZoom->maximum = kLargest;
  panel_.picBig->gestures = true;
  connectZoom();
  connectTools();
  onClick(u"butPrevious", [this](int) { go(-1); });
  onClick(u"butNext", [this](int) { go(1); });
  form_.on(u"picBig", Event::Swipe, [this](Control&, const Event& event) { go(event.column); });
  onClick(u"butPrint", [this](int) { butPrint_Click(); });
  onClick(u"optSize", [this](int) { panel_.optSize->marked = !panel_.optSize->marked(); });
  onClick(u"imgExit", [this](int) { leave(); });
}

void ViewBigForm::connectZoom() {
  onClick(u"butZoomPlus", [this](int) { zoomTo(zoomStep(factor(), true)); });
  onClick(u"butZoomMinus", [this](int) { zoomTo(zoomStep(factor(), false)); });
  onClick(u"butZoom100", [this](int) { zoomTo(100); });
  onClick(u"butZoomFit", [this](int) { zoomTo(0); });
  for (const Event::Type moved : {Event::Change, Event::Scroll})
    form_.on(u"scrollZoom", moved,
             [this](Control&, const Event&) { zoomTo(panel_.scrollZoom->value()); });
  form_.on(u"picBig", Event::Change, [this](Control&, const Event&) { showZoom(); });
}

void ViewBigForm::connectTools() {
  for (const Tool& tool : kTools)
    onClick(QString::fromLatin1(tool.button), [this, hand = tool.hand](int) {
      if (!uses_.screen.busy())
        take(panel_.picBig->hand() == hand ? PictureArea::Hand::Press : hand);
    });
  onClick(u"butRotate", [this](int) {
    changePicture(
        [](const Imaging& imaging, const Pixels& pixels) { return imaging.turned(pixels, 90); });
  });
  onClick(u"cmdBright", [this](int) {
    changePicture([](const Imaging& imaging, const Pixels& pixels) {
      return imaging.brightened(pixels, kBrightness, kContrast);
    });
  });
}

void ViewBigForm::open(std::vector<QString> paths, int at) {
  if (form_.shown() || at < 0 || at >= static_cast<int>(paths.size())) return;
  paths_ = std::move(paths);
  at_ = at;
  run([this] {
    panel_.optSize->marked = false;
    take(PictureArea::Hand::Press);
    LoadFile(paths_[static_cast<size_t>(at_)]);
  });
  round_.reset();
  busy_.reset();
  setPicture({});
}

void ViewBigForm::go(int by) {
  const int to = at_ + by;
  if (uses_.screen.busy() || to < 0 || to >= static_cast<int>(paths_.size())) return;
  at_ = to;
  LoadFile(paths_[static_cast<size_t>(at_)]);
}

void ViewBigForm::inBackground(std::function<void()> work, std::function<void()> done) {
  busy_.emplace(uses_.screen, Screen::Custom);
  round_ = std::make_shared<int>();
  uses_.pump.inBackground(std::move(work),
                          [this, round = std::weak_ptr<int>(round_), done = std::move(done)] {
                            if (round.expired()) return;
                            busy_.reset();
                            done();
                          });
}

// The picture before stays in view until this one has come.
void ViewBigForm::LoadFile(const QString& path) {
  panel_.lblName->caption = path.section(u'/', -1);
  panel_.butPrevious->enabled = at_ > 0;
  panel_.butNext->enabled = at_ + 1 < static_cast<int>(paths_.size());
  const auto loaded = std::make_shared<Imaging::Loaded>();
  inBackground([loaded, path, upright = uses_.settings.flag(key::PhotoTurn),
                &imaging = uses_.imaging] { *loaded = loadLarge(imaging, path, upright); },
               [this, loaded, path] {
                 if (!loaded->pixels) PictureLoader::logFailure(uses_.log, path, loaded->error);
                 show(*loaded);
               });
}

void ViewBigForm::show(const Imaging::Loaded& loaded) {
  panel_.lblMessage->visible = !loaded.pixels;
  panel_.lblMessage->caption =
      loaded.pixels ? QString() : u"This picture cannot be shown. "_s + loaded.error;
  setPicture(loaded.pixels);
  zoomTo(0);
  PicSizeUpdate(loaded.width, loaded.height);
}

void ViewBigForm::setPicture(Shared pixels) {
  panel_.picBig->picture = pixels ? Picture{{}, {}, nullptr, std::move(pixels)} : Picture();
}

void ViewBigForm::changePicture(std::function<Shared(const Imaging&, const Pixels&)> change) {
  const Shared before = panel_.picBig->picture().pixels;
  if (!before || uses_.screen.busy()) return;
  const auto after = std::make_shared<Shared>();
  inBackground([after, before, change = std::move(change),
                &imaging = uses_.imaging] { *after = change(imaging, *before); },
               [this, before, after] {
                 if (!*after) {
                   dialog_.messages.say(u"There is no memory for that."_s);
                   return;
                 }
                 const bool turned = (*after)->width != before->width;
                 setPicture(*after);
                 turned ? PicSizeUpdate(height_, width_) : PicSizeUpdate(width_, height_);
                 showZoom();
               });
}

void ViewBigForm::PicSizeUpdate(int width, int height) {
  width_ = width;
  height_ = height;
  panel_.lblSize->caption =
      width > 0 ? u"%1 x %2 inch"_s.arg(QString::number(width / kDotsPerInch, 'f', 2),
                                        QString::number(height / kDotsPerInch, 'f', 2))
                : QString();
}

double ViewBigForm::factor() const {
  return panel_.picBig->zoom() > 0 ? panel_.picBig->zoom() : panel_.picBig->fitted;
}

void ViewBigForm::zoomTo(double to) {
  if (uses_.screen.busy()) return;
  panel_.picBig->zoom = to;
  showZoom();
}

void ViewBigForm::showZoom() {
  panel_.tbZoomFactor->caption = QString::number(factor(), 'f', 2) + u'%';
  panel_.scrollZoom->value = std::clamp(std::round(factor()), kSmallest, kLargest);
}

void ViewBigForm::take(PictureArea::Hand hand) {
  panel_.picBig->hand = hand;
  for (const Tool& tool : kTools)
    controlOf<Button>(form_, QString::fromLatin1(tool.button)).marked = tool.hand == hand;
}

void ViewBigForm::butPrint_Click() {
  constexpr int kKeepAspect = 2;
  if (!print || uses_.screen.busy() || paths_.empty()) return;
  print({paths_[static_cast<size_t>(at_)]}, panel_.optSize->marked() ? 1 : 0, kKeepAspect,
        *panel_.picProgress, [this] { return !form_.shown(); });
}

}  // namespace korvane
