#include "listener/record_link.h"

namespace korvane {
namespace {

constexpr int kClosingWaitMs = 300;
constexpr int kTypeMismatch = 13;  // as the log numbers it
constexpr const char* kLogOwner = "Form frmMain";

}  // namespace

RecordLink::RecordLink(Uses uses, Owner* owner) : uses_(uses), owner_(owner ? *owner : nobody_) {
  uses_.socket.setEvents(this);
}

RecordLink::~RecordLink() {
  uses_.socket.setEvents(nullptr);
}

std::optional<quint16> RecordLink::portNumber() const {
  if (!isNumeric(uses_.port)) return std::nullopt;
  const double number = std::round(val(uses_.port));
  if (number < 1 || number > 65535) return std::nullopt;
  return static_cast<quint16>(number);
}

// Of the network card that the owner of the console has chosen; empty for any.
QString RecordLink::chosenAddress() const {
  const QString card = uses_.settings.upper(key::NICCard);
  return card == "ANY"_L1 || card == "NO"_L1 ? QString() : card;
}

bool RecordLink::beingMade() const {
  switch (state()) {
    case Winsock::ConnectionPending:
    case Winsock::ResolvingHost:
    case Winsock::HostResolved:
    case Winsock::Connecting:
      return true;
    case Winsock::Closed:
    case Winsock::Open:
    case Winsock::Listening:
    case Winsock::Connected:
    case Winsock::Closing:
    case Winsock::Error:
      break;
  }
  return false;
}

bool RecordLink::connect() {
  bool tries = false;
  uses_.log.guard(uses_.procedure, kLogOwner, [&] {
    if (state() == Winsock::Connected) return;
    uses_.socket.Close();
    tries = hasPort();
    if (!tries) uses_.log.error(kTypeMismatch, u"Type mismatch"_s, uses_.procedure, kLogOwner);
    if (tries && !uses_.host.isEmpty())
      uses_.pump.wait(kClosingWaitMs, [this] { return state() == Winsock::Closed; });
    connectAgain();
  });
  return tries;
}

void RecordLink::connectAgain() {
  uses_.socket.Close();
  const std::optional<quint16> port = portNumber();
  if (!port) return ended(u"its port is no number"_s);
  wireText_ = wireTextOf(uses_.settings.upper(key::ListenerEncoding));
  uses_.socket.RemotePort = *port;
  uses_.socket.RemoteHost = uses_.host;
  uses_.socket.LocalHost = chosenAddress();
  uses_.socket.Connect();
  if (news_) news_->linkTries();
}

void RecordLink::close() {
  waiting_.clear();
  uses_.socket.Close();
}

void RecordLink::send(const QString& record, bool answered) {
  if (waiting_.empty() && !beingMade()) return write({record, answered});
  waiting_.push_back({record, answered});
  if (waiting_.size() > 1) return;  // the first one waits for all
  uses_.pump.doEvents();
  uses_.pump.wait(kMakingWaitMs, [this] {
    return waiting_.empty() || !(beingMade() || state() == Winsock::Connected);
  });
  waiting_.clear();
  uses_.pump.doEvents();
}

void RecordLink::write(const Waiting& record) {
  if (state() != Winsock::Connected) return;
  uses_.socket.SendData(encode(record.record, wireText_));
  if (news_ && record.answered) news_->linkAsks();
}

bool RecordLink::letStand(int milliseconds) {
  uses_.pump.wait(milliseconds, [this] { return !beingMade(); });
  uses_.pump.doEvents();
  return state() == Winsock::Connected;
}

void RecordLink::heard() {
  if (news_) news_->linkHears();
}

void RecordLink::wantedChanged() {
  if (news_) news_->linkChanged();
}

void RecordLink::Connect() {
  const std::vector<Waiting> waiting = std::exchange(waiting_, {});
  if (news_) news_->linkStands();
  owner_.linkStands();
  for (const Waiting& record : waiting) write(record);
}

void RecordLink::DataArrival(qint64 bytesTotal) {
  if (beingMade()) letStand();
  owner_.linkDelivers(uses_.socket.GetData(bytesTotal));
}

void RecordLink::Close() {
  close();
  ended(u"it ended the connection"_s);
  owner_.linkCloses();
}

void RecordLink::Error(const QString& description) {
  if (!owner_.heedsFailures()) return;
  close();
  ended(description);
  owner_.linkFails(description);
}

// Before the owner hears of it: what it does then may yield, and the next try has its time.
void RecordLink::ended(const QString& why) {
  if (news_) news_->linkEnds(why);
}

}  // namespace korvane
