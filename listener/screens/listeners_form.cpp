#include "listener/screens/listeners_form.h"

namespace korvane {
namespace {

constexpr unsigned TL = Left | Top;
constexpr int kPingMs = 500, kPauseMs = 1000;
constexpr Colour kGreen = 65280, kRed = 255;
constexpr const char* kNames[] = {"Movie ", "Music ", "Master "};

constexpr Look kTitle = {.caption = "IP Ping of Listeners ", .text = 44, .bold = true};
constexpr Look kAddress = {.text = 30}, kDone = {.caption = "Done", .accent = true};
constexpr Look kName = {.text = 34}, kState = {.text = 28}, kLamp = {.text = 64, .align = 0};

constexpr InventoryRow kRows[] = {
    {"Label1", -1, Kind::Label, {24, 16, 1232, 64}, TL, "IP Ping of Listeners", "", true, kTitle},
    {"lblIP", 0, Kind::Label, {136, 112, 1120, 56}, TL, "Movie Listener", "", true, kName},
    {"lblIP", 1, Kind::Label, {136, 256, 1120, 56}, TL, "Music Listener", "", true, kName},
    {"lblIP", 2, Kind::Label, {136, 400, 1120, 56}, TL, "Master Listener", "", true, kName},
    {"lblState", 0, Kind::Label, {136, 172, 1120, 48}, TL, "Movie state", "", true, kState},
    {"lblState", 1, Kind::Label, {136, 316, 1120, 48}, TL, "Music state", "", true, kState},
    {"lblState", 2, Kind::Label, {136, 460, 1120, 48}, TL, "Master state", "", true, kState},
    {"Shape", 0, Kind::Label, {40, 120, 80, 88}, TL, "Movie lamp", "", true, kLamp},
    {"Shape", 1, Kind::Label, {40, 264, 80, 88}, TL, "Music lamp", "", true, kLamp},
    {"Shape", 2, Kind::Label, {40, 408, 80, 88}, TL, "Master lamp", "", true, kLamp},
    {"lblthisIP", -1, Kind::Label, {40, 568, 900, 56}, TL, "This address", "", true, kAddress},
    {"cmdDone", -1, Kind::Button, {1000, 648, 256, 96}, TL, "Done", "", true, kDone},
    {"Timer1", -1, Kind::Timer, {}, TL, ""},
};

}  // namespace

ListenersForm::ListenersForm(const DialogUses& dialogs, Uses uses)
    : Dialog(dialogs, u"frmListeners"_s, kRows), uses_(uses), panel_(form_) {
  panel_.Timer1->interval = kPauseMs;
  panel_.Timer1->enabled = false;
  form_.on(u"Timer1", Event::Tick, [this](auto&, auto&) { Timer1_Timer(); });
  onClick(u"cmdDone", [this](int) { leave(); });
}

void ListenersForm::open() {
  const bool shown = run([this] {
    Form_Load();
    Timer1_Timer();
  });
  if (!shown) return;
  panel_.Timer1->enabled = false;
  uses_.network.cancelPing();
}

QString ListenersForm::address(size_t listener) const {
  const AppState& state = uses_.state;
  const QString* const addresses[] = {&state.gMovieListenerIP, &state.gMusicListenerIP,
                                      &state.gMasterListenerIP};
  return *addresses[listener] == "NO"_L1 ? QString() : *addresses[listener];
}

void ListenersForm::Form_Load() {
  for (size_t i = 0; i < kListeners; ++i) {
    panel_.lblIP[i]->caption = QString::fromLatin1(kNames[i]) + address(i);
    panel_.lblState[i]->caption = QString();
    panel_.Shape[i]->caption = u"○"_s;
  }
  panel_.lblthisIP->caption = u"This IP = "_s + uses_.connectionML.LocalIP();
}

// A round may take longer than a tick, so the timer rests meanwhile.
void ListenersForm::Timer1_Timer() {
  panel_.Timer1->enabled = false;
  next_ = 0;
  pingNext();
}

void ListenersForm::pingNext() {
  if (next_ == kListeners) {
    panel_.Timer1->enabled = true;
    return;
  }
  uses_.network.ping(address(next_), kPingMs, [this](Network::EchoStatus status) {
    lamp(next_, status);
    ++next_;
    pingNext();
  });
}

void ListenersForm::lamp(size_t listener, Network::EchoStatus status) {
  const QString ip = address(listener);
  panel_.lblIP[listener]->caption = QString::fromLatin1(kNames[listener]) + ip;
  panel_.lblState[listener]->caption = ip.isEmpty() ? u"no address"_s : Network::words(status);
  Label& shape = *panel_.Shape[listener];
  shape.caption = u"●"_s;
  Colours ink = shape.colours();
  ink.fore = status == Network::Reachable ? kGreen : kRed;
  shape.colours = ink;
}

}  // namespace korvane
