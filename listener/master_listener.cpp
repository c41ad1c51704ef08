#include "listener/master_listener.h"

namespace korvane {
namespace {

constexpr int kClosingWaitMs = 300, kConnectedWaitMs = 300, kResetWaitMs = 500;
constexpr qsizetype kLongestRecord = 1 << 20;

}  // namespace

MasterListener::MasterListener(Uses uses) : uses_(uses) {
  uses_.connectionML.setEvents(this);
}

MasterListener::~MasterListener() {
  uses_.connectionML.setEvents(nullptr);
}

bool MasterListener::isNamed() const {
  const QString& ip = uses_.state.gMasterListenerIP;
  return !ip.isEmpty() && ip != "NO"_L1 && uses_.state.gMasterListenerPort.toUShort() > 0;
}

void MasterListener::connectionMLConnect() {
  uses_.log.guard("connectionMLConnect", "Form frmMain", [this] { connectNow(); });
}

void MasterListener::connectNow() {
  if (connectionState() == Winsock::Connected || !isNamed()) return;
  uses_.connectionML.Close();
  uses_.pump.wait(kClosingWaitMs, [this] { return connectionState() == Winsock::Closed; });
  connectAgain();
  uses_.pump.doEvents();
  uses_.pump.wait(kConnectedWaitMs, [this] { return connectionState() == Winsock::Connected; });
}

void MasterListener::connectAgain() {
  close();
  wireText_ = wireTextOf(uses_.settings.upper(key::ListenerEncoding));
  uses_.connectionML.RemotePort = uses_.state.gMasterListenerPort.toUShort();
  uses_.connectionML.RemoteHost = uses_.state.gMasterListenerIP;
  uses_.connectionML.Connect();
  if (news_) news_->linkTries();
}

void MasterListener::close() {
  unfinished_.clear();
  uses_.connectionML.Close();
}

void MasterListener::mlreset() {
  if (uses_.screen.busy()) return;
  const Busy busy(uses_.screen, Screen::Custom);
  if (connectionState() != Winsock::Connected) {
    connectionMLConnect();
    uses_.pump.wait(kResetWaitMs, [this] { return connectionState() == Winsock::Connected; });
    uses_.pump.doEvents();
  }
  if (connectionState() == Winsock::Connected)
    send({u"ML"_s, u"GET"_s, u"ALL"_s});
  else
    uses_.messages.say(u"Master Listener is not running, unable to connect."_s);
}

void MasterListener::send(std::initializer_list<QString> fields) {
  QString record = replyRecord(fields);
  record.replace(QLatin1Char(kSubFieldEnd), u' ');  // it would end a sub-field of the list
  uses_.connectionML.SendData(encode(record, wireText_));
}

void MasterListener::Connect() {
  unfinished_.clear();
  if (news_) news_->linkStands();
  send({u"ML"_s, u"REG"_s, uses_.state.gMasterListenerMyName, uses_.connectionML.LocalIP(),
        u"N/A"_s, u"CLIENT"_s, u"CLIENT"_s});
  if (connectionState() != Winsock::Connected) return;
  send({u"ML"_s, u"IGET"_s, u"ALL"_s});
  if (news_) news_->linkAsks();
}

void MasterListener::Close() {
  ended(u"it ended the connection"_s);
}

void MasterListener::Error(const QString& description) {
  ended(description);
}

void MasterListener::ended(const QString& why) {
  close();
  if (news_) news_->linkEnds(why);
}

// As the records of a Listener, a piece without its end is dropped; a supervised link joins it with
// what follows, since a long list comes in several deliveries.
void MasterListener::DataArrival(qint64 bytesTotal) {
  const QByteArray block = unfinished_ + uses_.connectionML.GetData(bytesTotal);
  unfinished_.clear();
  const qsizetype end = block.lastIndexOf(kRecordEnd) + 1;
  if (news_ && end > 0) news_->linkHears();  // half a record is no answer
  if (uses_.settings.flag(key::LinkSupervision) && block.size() - end <= kLongestRecord)
    unfinished_ = block.sliced(end);
  forEachRecord(block, [this](QByteArrayView record) { return handle(record); });
}

bool MasterListener::handle(QByteArrayView record) {
  const QByteArrayView name = ListenerRecord(record, wireText_).name();
  const bool all = name == "IREQUEST";
  if (all || name == "NEW") {
    const QList<ListenerEntry> entries = listenerEntries(record, wireText_);
    applyListenerList(entries);
    if (listHeard) listHeard(entries, all);
  }
  if (name == "REQUEST" && networkAsked) networkAsked(listenerEntries(record, wireText_));
  return true;
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
