#include "ads/screens/adds_form.h"

namespace korvane {
namespace {

constexpr unsigned TLR = Left | Top | Right, TR = Top | Right, BR = Bottom | Right;

constexpr InventoryRow row(const char* name, Kind kind, Rect rect, unsigned anchors,
                           const char* text, Look look = {}) {
  look.caption = kind == Kind::Slider ? "" : text;
  return {name, -1, kind, rect, anchors, text, "", true, look};
}

constexpr Look kValue{.text = 32, .align = 1, .bold = true};
constexpr Look kHint{.text = 28};

constexpr InventoryRow kRows[] = {
    row("lblTitle", Kind::Label, {24, 16, 860, 64}, TLR, "Adds Maintenance",
        {.text = 44, .bold = true}),
    row("chkaddson", Kind::Check, {24, 92, 1232, 96}, TLR, "Enable ads/Screen saver"),
    row("Label1", Kind::Label, {24, 200, 900, 48}, TLR, "Seconds before ad begins", {.text = 32}),
    row("lblSeconds", Kind::Label, {956, 200, 300, 48}, TR, "", kValue),
    row("seconds", Kind::Slider, {24, 248, 1232, 88}, TLR, "Seconds before ad begins"),
    row("Label2", Kind::Label, {24, 344, 900, 48}, TLR, "Seconds between each ad", {.text = 32}),
    row("lblBetween", Kind::Label, {956, 344, 300, 48}, TR, "", kValue),
    row("between", Kind::Slider, {24, 392, 1232, 88}, TLR, "Seconds between each ad"),
    row("Label3", Kind::Label, {24, 496, 1232, 44}, TLR,
        "Files with  .tim can contain individual durations.    (ex: ad1.tim)", kHint),
    row("Label4", Kind::Label, {24, 540, 1232, 44}, TLR,
        "Only  jpg files will be recognized     (ex: ad1.jpg)", kHint),
    row("Label5", Kind::Label, {24, 584, 1232, 44}, TLR,
        "Ads will be displayed in alphanumerica order", kHint),
    row("lblpath", Kind::Label, {24, 636, 800, 116}, Left | BR, "", {.text = 28, .wraps = true}),
    row("cmdok", Kind::Button, {856, 656, 400, 96}, BR, "OK", {.accent = true}),
};

constexpr int kLongestStart = 360, kLongestBetween = 60;  // seconds

QString secondsText(double value) {
  return QString::number(std::lround(value));
}

}  // namespace

AddsForm::AddsForm(Uses uses)
    : Dialog(uses.dialog, u"frmAdds"_s, kRows), uses_(std::move(uses)), panel_(form_) {
  onClick(u"chkaddson", [this](int) { chkaddson_Click(); });
  onClick(u"cmdok", [this](int) { cmdok_Click(); });
  for (const QStringView slider : {u"seconds", u"between"})
    form_.on(slider, Event::Change, [this](Control&, const Event&) { showValues(); });
}

void AddsForm::open() {
  run([this] { Form_Load(); });
}

// A show that began at once would leave no time to press anything: a second is the least.
void AddsForm::Form_Load() {
  constexpr double kStandard = 5;
  Slider &seconds = *panel_.seconds, &between = *panel_.between;
  seconds.minimum = between.minimum = 1;
  seconds.maximum = kLongestStart;
  between.maximum = kLongestBetween;
  seconds.value = kStandard;
  panel_.chkaddson->checked = uses_.state.gAddsOn;
  if (uses_.ads.addsStart > 0) seconds.value = std::min(uses_.ads.addsStart, kLongestStart);
  if (uses_.ads.addsBetween > 0) between.value = std::min(uses_.ads.addsBetween, kLongestBetween);
  if (!uses_.files.FolderExists(uses_.directory)) uses_.files.CreateFolder(uses_.directory);
  panel_.lblpath->caption = u"Adds must be placed in "_s + uses_.directory;
  chkaddson_Click();
  showValues();
}

void AddsForm::chkaddson_Click() {
  panel_.seconds->enabled = panel_.between->enabled = panel_.chkaddson->checked();
}

void AddsForm::showValues() {
  panel_.lblSeconds->caption = secondsText(panel_.seconds->value());
  panel_.lblBetween->caption = secondsText(panel_.between->value());
}

void AddsForm::cmdok_Click() {
  const int start = static_cast<int>(std::lround(panel_.seconds->value()));
  const int between = static_cast<int>(std::lround(panel_.between->value()));
  const bool on = panel_.chkaddson->checked();
  SettingsToSave save(uses_.settings);
  save.write(key::ADDSON, on ? u"YES"_s : u"NO"_s);
  save.write(key::ADDSTART, QString::number(start));
  save.write(key::ADDSBETWEEN, QString::number(between));
  if (!save.good()) {
    dialog_.messages.say(save.error());
    return;
  }
  uses_.state.gAddsOn = on;
  uses_.ads.addsStart = start;
  uses_.ads.addsBetween = between;
  uses_.setupAds();
  leave();
}

}  // namespace korvane
