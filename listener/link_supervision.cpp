#include "listener/link_supervision.h"

#include <QScopedValueRollback>

namespace korvane {
namespace {

constexpr int kTickMs = 250;
constexpr int kTop = 4, kRoom = 122;           // of both labels of the Music page in their frame
constexpr int kMoviesRoom = 124;               // of the frame on the Movies page, above its buttons
constexpr Rect kMoviesTry = {4, 50, 214, 72};  // cmdLink there

constexpr QStringView kNames[] = {u"Master", u"Music", u"Movies"};

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
  for (Link& link : links_) link.of = this;
  uses_.master.setLinkNews(&links_[Master]);
  uses_.music.setLinkNews(&links_[Music]);
  uses_.movies.setLinkNews(&links_[Movies]);
  form.on(u"LinkTimer", Event::Tick, [this](auto&, auto&) { look(); });
  form.on(u"cmdLink", Event::Click, [this](auto&, auto&) { cmdLink_Click(); });
}

LinkSupervision::~LinkSupervision() {
  uses_.master.setLinkNews(nullptr);
  uses_.music.setLinkNews(nullptr);
  uses_.movies.setLinkNews(nullptr);
}

bool LinkSupervision::wanted(size_t peer) const {
  const AppState& state = uses_.state;
  if (!uses_.settings.flag(key::LinkSupervision)) return false;
  if (peer == Master) return uses_.master.isNamed();
  if (peer == Music) return !state.gLocalListener && !state.gMusicListenerIP.isEmpty();
  return state.gMovieListener && !state.gMovieListenerIP.isEmpty();
}

bool LinkSupervision::speaks(size_t peer) const {
  const AppState& state = uses_.state;
  if (peer == Music) return !state.gLocalListener && state.gPlayMode == PlayMode::Playing;
  return peer == Movies && uses_.movies.playsThere();
}

Winsock::State LinkSupervision::socket(size_t peer) const {
  if (peer == Master) return uses_.master.connectionState();
  return peer == Music ? uses_.music.connectionState() : uses_.movies.connectionState();
}

void LinkSupervision::connectAgain(size_t peer) {
  if (peer == Master) return uses_.master.connectAgain();
  peer == Music ? uses_.music.connectAgain() : uses_.movies.connectAgain();
}

bool LinkSupervision::inTrouble(size_t peer) const {
  return wanted(peer) && links_[peer].watch.state() != LinkWatch::State::Stands;
}

void LinkSupervision::look() {
  if (looking_) return;
  const QScopedValueRollback looking(looking_, true);
  bool rests = true;
  for (size_t peer = 0; peer < kPeers; ++peer) {
    LinkWatch& watch = links_[peer].watch;
    if (watch.look(now(), wanted(peer), speaks(peer), socket(peer))) connectAgain(peer);
    rests = rests && watch.rests() && !speaks(peer);
  }
  panel_.LinkTimer->enabled = !rests;
  show();
}

void LinkSupervision::cmdLink_Click() {
  for (Link& link : links_) link.watch.again();
  look();
}

void LinkSupervision::listHeard(const QList<ListenerEntry>& entries, bool all) {
  AppState& state = uses_.state;
  follow(Music, state.gMusicListenerName, state.gMusicListenerIP, state.gMusicListenerPort, entries,
         all);
  follow(Movies, state.gMovieListenerName, state.gMovieListenerIP, state.gMovieListenerPort,
         entries, all);
  look();
}

void LinkSupervision::follow(Peer peer, QString& name, QString& ip, QString& port,
                             const QList<ListenerEntry>& entries, bool all) {
  if (socket(peer) == Winsock::Connected) return;
  links_[peer].watch.again();
  const auto other = inPlaceOf({name, ip, port, peer == Music ? u"MUSIC"_s : u"MOVIES"_s}, entries);
  if (!wanted(peer) || !other || !(all || other->description == name)) return;
  name = other->description;
  ip = other->ip;
  port = other->port;
}

void LinkSupervision::show() {
  const bool movies = panel_.moviesTab->tagged();
  movies ? showOnMovies() : showOnMusic();
  Rect place = panel_.framLink->laid;
  if (movies) place.height = kMoviesRoom;
  panel_.framLink->rect = place;
  panel_.cmdLink->rect = movies ? kMoviesTry : panel_.cmdLink->design;
}

// In the place of the cover, while there is none or a link is in trouble. One that alone is in
// trouble has the room of both for its words.
void LinkSupervision::showOnMusic() {
  for (const size_t i : {Master, Music}) {
    Label& label = *panel_.lblLink[i];
    const bool alone = inTrouble(i) && !inTrouble(1 - i);
    Rect place = label.design;
    if (alone) place = {place.left, kTop, place.width, kRoom};
    label.rect = place;
    label.visible = wanted(i) && (alone || inTrouble(i) == inTrouble(1 - i));
    write(label, i, alone);
  }
  panel_.lblLink[Movies]->visible = false;
  const bool trouble = inTrouble(Master) || inTrouble(Music);
  const bool page = panel_.musicTab->tagged() && !uses_.state.playListEditing;
  if (page && inTrouble(Music)) panel_.coverArt->visible = false;
  panel_.cmdLink->visible = trouble;
  panel_.framLink->visible = page && (wanted(Music) || trouble) && !panel_.coverArt->visible();
}

// There is room for one label and the button: for the link to the Movie Listener, but where that to
// the Master Listener alone is in trouble, for that one.
void LinkSupervision::showOnMovies() {
  const Peer peer = inTrouble(Master) && !inTrouble(Movies) ? Master : Movies;
  for (const size_t i : {Master, Music, Movies}) panel_.lblLink[i]->visible = i == Movies;
  write(*panel_.lblLink[Movies], peer, false);
  panel_.cmdLink->visible = inTrouble(peer);
  panel_.framLink->visible = uses_.state.gMovieListener && (wanted(Movies) || inTrouble(Master));
}

// `whole`: with when it is tried again.
void LinkSupervision::write(Label& label, size_t peer, bool whole) {
  const bool trouble = inTrouble(peer);
  const LinkWatch& watch = links_[peer].watch;
  if (trouble)
    label.caption = u"○ %1: %2"_s.arg(kNames[peer], whole ? watch.words(now()) : watch.why());
  else
    label.caption = u"● %1"_s.arg(kNames[peer]);
  Colours ink;
  ink.fore = trouble ? uses_.palette.back(u"Accent") : uses_.palette.fore(u"Surface");
  label.colours = ink;
}

}  // namespace korvane
