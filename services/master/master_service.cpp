#include "services/master/master_service.h"

namespace korvane {
namespace {

constexpr qsizetype kMostFields = 8;

QString wordsOf(const ListenerEntry& entry) {
  return u"%1 \"%2\" at %3 port %4"_s.arg(entry.type, entry.description, entry.ip, entry.port);
}

}  // namespace

MasterService::MasterService(Uses uses) : uses_(std::move(uses)) {
  uses_.server.setService(this);
}

MasterService::~MasterService() {
  uses_.server.setService(nullptr);
}

void MasterService::record(Peer peer, QByteArrayView bytes) {
  QStringList fields;
  for (const QByteArrayView field : fieldsOf(bytes, kMostFields))
    fields << decode(field, uses_.encoding);
  if (fields.value(0) != "ML"_L1) return;
  const QString command = fields.value(1);
  if (command == "REG"_L1) enter(peer, fields);
  if (command == "IGET"_L1) answer(peer, u"IREQUEST"_s);
  if (command == "GET"_L1) answer(peer, u"REQUEST"_s);
}

// Its own; one that the owner names; and, when it runs beside this service, any of this machine,
// since such a peer may come over the loopback and be reached over the network.
bool MasterService::mayAdvertise(Peer peer, const QString& address) const {
  const QString from = uses_.server.address(peer);
  if (uses_.allowAdvertise.holds(address)) return true;
  if (uses_.isOfThisMachine(from) && uses_.isOfThisMachine(address)) return true;
  uses_.log.warn(
      u"connection %1 advertises %2, which is not its own: %3 is entered; see --allow-advertise"_s
          .arg(peer)
          .arg(address, from));
  return false;
}

void MasterService::enter(Peer peer, const QStringList& fields) {
  const std::optional<ListenerEntry> entry =
      registrationOf(fields, uses_.server.address(peer),
                     [&](const QString& address) { return mayAdvertise(peer, address); });
  if (!entry) {
    uses_.log.warn(
        u"connection %1: a registration without a known type or a port: %2"_s.arg(peer).arg(
            printable(fields.mid(2).join(u'|'))));
    return;
  }
  if (!table_.add(peer, *entry)) {
    uses_.log.warn(u"connection %1: no room for %2"_s.arg(peer).arg(wordsOf(*entry)));
    return;
  }
  uses_.server.keep(peer);
  announce();
  if (const Peer holder = table_.holder(*entry); holder != peer)
    uses_.log.warn(
        u"connection %1 waits: connection %2 is %3"_s.arg(peer).arg(holder).arg(wordsOf(*entry)));
}

void MasterService::announce() {
  for (const auto& [owner, entry, stands] : table_.settle()) {
    uses_.log.say(u"entered %1"_s.arg(wordsOf(entry)));
    const QByteArray news = listRecord(u"NEW"_s, {entry});
    for (const Peer other : table_.owners())
      if (other != owner) uses_.server.send(other, news);
  }
}

void MasterService::answer(Peer peer, const QString& keyword) {
  uses_.server.send(peer, listRecord(keyword, table_.entries()));
}

void MasterService::left(Peer peer) {
  for (const ListenerEntry& entry : table_.remove(peer))
    uses_.log.say(u"gone: %1"_s.arg(wordsOf(entry)));
  announce();
}

QByteArray MasterService::listRecord(const QString& keyword,
                                     const QList<ListenerEntry>& entries) const {
  QStringList fields{keyword};
  for (const ListenerEntry& entry : entries) fields << entryField(entry);
  return encode(fields.join(QChar(u'\0')) + QLatin1Char(kRecordEnd), uses_.encoding);
}

}  // namespace korvane
