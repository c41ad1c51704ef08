#include "listener/master_listener.h"

namespace korvane {
namespace {

constexpr int kConnectedWaitMs = 300;
constexpr qint64 kUnaskedMs = 60'000;  // between two lists that nobody has asked for
constexpr qsizetype kLongestRecord = 1 << 20;

}  // namespace

MasterListener::MasterListener(Uses uses)
    : uses_(uses),
      link_({uses_.connectionML, uses_.pump, uses_.settings, uses_.log,
             uses_.state.gMasterListenerIP, uses_.state.gMasterListenerPort, "connectionMLConnect"},
            this) {}

bool MasterListener::isNamed() const {
  const QString& ip = uses_.state.gMasterListenerIP;
  return !ip.isEmpty() && ip != "NO"_L1 && link_.hasPort();
}

void MasterListener::connectionMLConnect() {
  if (!isNamed() || connectionState() == Winsock::Connected) return;
  forget();
  if (!link_.connect()) return;
  uses_.pump.doEvents();
  link_.letStand(kConnectedWaitMs);
}

void MasterListener::connectAgain() {
  forget();
  link_.connectAgain();
}

void MasterListener::close() {
  forget();
  link_.close();
}

void MasterListener::forget() {
  unfinished_.clear();
  listAsked_ = false;
}

void MasterListener::mlreset() {
  if (uses_.screen.busy()) return;
  const Busy busy(uses_.screen, Screen::Custom);
  if (connectionState() != Winsock::Connected) {
    connectionMLConnect();
    link_.letStand();
  }
  listAsked_ = connectionState() == Winsock::Connected;
  if (listAsked_)
    send({u"ML"_s, u"GET"_s, u"ALL"_s});
  else
    uses_.messages.say(u"Master Listener is not running, unable to connect."_s);
}

void MasterListener::send(std::initializer_list<QString> fields, bool answered) {
  QString record = replyRecord(fields);
  record.replace(QLatin1Char(kSubFieldEnd), u' ');  // it would end a sub-field of the list
  link_.send(record, answered);
}

void MasterListener::linkStands() {
  unfinished_.clear();
  failure_.clear();
  send({u"ML"_s, u"REG"_s, uses_.state.gMasterListenerMyName, link_.localIP(), u"N/A"_s,
        u"CLIENT"_s, u"CLIENT"_s});
  send({u"ML"_s, u"IGET"_s, u"ALL"_s}, true);
}

void MasterListener::linkCloses() {
  forget();
}

// A supervised link fails every two seconds while there is no Master Listener.
void MasterListener::linkFails(const QString& description) {
  forget();
  if (std::exchange(failure_, description) != description)
    uses_.log.logIt(u"Error in connectionML "_s + description);
}

// As the records of a Listener, a piece without its end is dropped; a supervised link joins it with
// what follows, since a long list comes in several deliveries.
void MasterListener::linkDelivers(const QByteArray& delivery) {
  const QByteArray block = unfinished_ + delivery;
  unfinished_.clear();
  const qsizetype end = block.lastIndexOf(kRecordEnd) + 1;
  if (end > 0) link_.heard();  // half a record is no answer
  if (uses_.settings.flag(key::LinkSupervision) && block.size() - end <= kLongestRecord)
    unfinished_ = block.sliced(end);
  forEachRecord(block, [this](QByteArrayView record) {
    handle(record);
    return true;
  });
}

void MasterListener::handle(QByteArrayView record) {
  const QByteArrayView name = ListenerRecord(record, link_.wireText()).name();
  const bool all = name == "IREQUEST";
  if (all || name == "NEW") {
    const QList<ListenerEntry> entries = listenerEntries(record, link_.wireText());
    applyListenerList(entries);
    if (listHeard) listHeard(entries, all);
  }
  if (name == "REQUEST") showNetwork(listenerEntries(record, link_.wireText()));
}

void MasterListener::showNetwork(const QList<ListenerEntry>& entries) {
  const bool asked = std::exchange(listAsked_, false);
  const bool early = shownMs_ && uses_.clock.monotonicMs() - *shownMs_ < kUnaskedMs;
  if (!networkAsked || (early && !asked)) return;
  shownMs_ = uses_.clock.monotonicMs();  // what comes while it is open is not shown behind it
  networkAsked(entries);
  shownMs_ = uses_.clock.monotonicMs();
}

void MasterListener::applyListenerList(const QList<ListenerEntry>& entries) {
  AppState& state = uses_.state;
  const auto take = [](const ListenerEntry& entry, QString& ip, QString& port, QString& name) {
    if (!ip.isEmpty()) return;
    ip = entry.ip;
    port = entry.port;
    name = entry.description;
  };
  for (const ListenerEntry& entry : entries) {
    if (entry.type == "MOVIES"_L1)
      take(entry, state.gMovieListenerIP, state.gMovieListenerPort, state.gMovieListenerName);
    if (entry.type == "MUSIC"_L1)
      take(entry, state.gMusicListenerIP, state.gMusicListenerPort, state.gMusicListenerName);
  }
}

}  // namespace korvane
