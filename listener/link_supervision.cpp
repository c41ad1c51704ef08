#include "listener/link_supervision.h"

#include <QScopedValueRollback>

namespace korvane {
namespace {

constexpr int kTickMs = 250;
constexpr int kTop = 4, kRoom = 122;  // of both labels in their frame

}  // namespace

void LinkSupervision::Link::linkTries() {
  watch.tries(of->now());
  of->look();
}

void LinkSupervision::Link::linkStands() {
  watch.stands(of->now());
  of->look();
}

void LinkSupervision::Link::linkAsks() {
  watch.asks(of->now());
  of->look();
}

void LinkSupervision::Link::linkHears() {
  watch.hears(of->now());
  of->look();
}

void LinkSupervision::Link::linkEnds(const QString& why) {
  watch.ends(of->now(), why);
  of->look();
}

void LinkSupervision::Link::linkChanged() {
  of->look();
}

LinkSupervision::LinkSupervision(Form& form, Uses uses) : uses_(uses), panel_(form) {
  panel_.LinkTimer->interval = kTickMs;
  master_.of = music_.of = this;
  uses_.master.setLinkNews(&master_);
  uses_.music.setLinkNews(&music_);
  form.on(u"LinkTimer", Event::Tick, [this](auto&, auto&) { look(); });
  form.on(u"cmdLink", Event::Click, [this](auto&, auto&) { cmdLink_Click(); });
}

LinkSupervision::~LinkSupervision() {
  uses_.master.setLinkNews(nullptr);
  uses_.music.setLinkNews(nullptr);
}

bool LinkSupervision::masterWanted() const {
  return uses_.settings.flag(key::LinkSupervision) && uses_.master.isNamed();
}

bool LinkSupervision::musicWanted() const {
  return uses_.settings.flag(key::LinkSupervision) && !uses_.state.gLocalListener &&
         !uses_.state.gMusicListenerIP.isEmpty();
}

bool LinkSupervision::musicSpeaks() const {
  return !uses_.state.gLocalListener && uses_.state.gPlayMode == PlayMode::Playing;
}

void LinkSupervision::look() {
  if (looking_) return;
  const QScopedValueRollback looking(looking_, true);
  lookAtMaster();
  lookAtMusic();
  const bool rests = master_.watch.rests() && music_.watch.rests() && !musicSpeaks();
  panel_.LinkTimer->enabled = !rests;
  show();
}

void LinkSupervision::lookAtMaster() {
  if (master_.watch.look(now(), masterWanted(), false, uses_.master.connectionState()))
    uses_.master.connectAgain();
}

void LinkSupervision::lookAtMusic() {
  if (music_.watch.look(now(), musicWanted(), musicSpeaks(), uses_.music.connectionState()))
    uses_.music.connectAgain();
}

void LinkSupervision::cmdLink_Click() {
  master_.watch.again();
  music_.watch.again();
  look();
}

void LinkSupervision::listHeard(const QList<ListenerEntry>& entries, bool all) {
  AppState& state = uses_.state;
  const ListenerEntry current{state.gMusicListenerName, state.gMusicListenerIP,
                              state.gMusicListenerPort, u"MUSIC"_s};
  const bool stands = uses_.music.connectionState() == Winsock::Connected;
  const auto other = inPlaceOf(current, entries);
  const bool follows = other && (all || other->description == current.description);
  if (musicWanted() && !stands && follows) {
    state.gMusicListenerName = other->description;
    state.gMusicListenerIP = other->ip;
    state.gMusicListenerPort = other->port;
  }
  if (!stands) music_.watch.again();
  look();
}

QString LinkSupervision::words(bool music) const {
  return (music ? music_ : master_).watch.words(now());
}

// In the place of the cover, while there is none or a link is in trouble. One that alone is in
// trouble has the room of both for its words.
void LinkSupervision::show() {
  const bool wanted[] = {masterWanted(), musicWanted()};
  const Link* const links[] = {&master_, &music_};
  const auto inTrouble = [&](size_t i) {
    return wanted[i] && links[i]->watch.state() != LinkWatch::State::Stands;
  };
  const QString names[] = {u"Master"_s, u"Music"_s};
  for (const size_t i : {0, 1}) {
    Label& label = *panel_.lblLink[i];
    const bool alone = inTrouble(i) && !inTrouble(1 - i);
    Rect place = label.design;
    if (alone) place = {place.left, kTop, place.width, kRoom};
    label.rect = place;
    label.visible = wanted[i] && (alone || inTrouble(i) == inTrouble(1 - i));
    if (inTrouble(i))
      label.caption =
          u"○ %1: %2"_s.arg(names[i], alone ? links[i]->watch.words(now()) : links[i]->watch.why());
    else
      label.caption = u"● %1"_s.arg(names[i]);
    Colours ink;
    ink.fore = inTrouble(i) ? uses_.palette.back(u"Accent") : uses_.palette.fore(u"Surface");
    label.colours = ink;
  }
  const bool trouble = inTrouble(0) || inTrouble(1);
  const bool page = panel_.musicTab->tagged() && !uses_.state.playListEditing;
  if (page && inTrouble(1)) panel_.coverArt->visible = false;
  panel_.cmdLink->visible = trouble;
  panel_.framLink->visible = page && (wanted[1] || trouble) && !panel_.coverArt->visible();
}

}  // namespace korvane
