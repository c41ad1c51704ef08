#include "services/master/master_service.h"

namespace korvane {
namespace {

constexpr qsizetype kMostFields = 8;

QString told(const ListenerEntry& entry) {
  return u"%1 \"%2\" at %3 port %4"_s.arg(entry.type, entry.description, entry.ip, entry.port);
}

}  // namespace

MasterService::MasterService(RecordServer& server, ServiceLog& log, WireText encoding)
    : server_(server), log_(log), encoding_(encoding) {
  server_.setService(this);
}

MasterService::~MasterService() {
  server_.setService(nullptr);
}

void MasterService::record(Peer peer, QByteArrayView bytes) {
  QStringList fields;
  for (const QByteArrayView field : fieldsOf(bytes, kMostFields))
    fields << decode(field, encoding_);
  if (fields.value(0) != "ML"_L1) return;
  const QString command = fields.value(1);
  if (command == "REG"_L1) enter(peer, fields);
  if (command == "IGET"_L1) answer(peer, u"IREQUEST"_s);
  if (command == "GET"_L1) answer(peer, u"REQUEST"_s);
}

void MasterService::enter(Peer peer, const QStringList& fields) {
  const std::optional<ListenerEntry> entry = registrationOf(fields, server_.address(peer));
  if (!entry) {
    log_.warn(u"connection %1: a registration without a known type or a port: %2"_s.arg(peer).arg(
        printable(fields.mid(2).join(u'|'))));
    return;
  }
  const bool known = table_.entries().contains(*entry) && table_.owns(peer);
  if (!table_.add(peer, *entry)) {
    log_.warn(u"connection %1: no room for %2"_s.arg(peer).arg(told(*entry)));
    return;
  }
  if (known) return;
  log_.say(u"entered %1"_s.arg(told(*entry)));
  const QByteArray news = listRecord(u"NEW"_s, {*entry});
  for (const Peer other : table_.owners())
    if (other != peer) server_.send(other, news);
}

void MasterService::answer(Peer peer, const QString& keyword) {
  server_.send(peer, listRecord(keyword, table_.entries()));
}

void MasterService::left(Peer peer) {
  for (const ListenerEntry& entry : table_.remove(peer)) log_.say(u"gone: %1"_s.arg(told(entry)));
}

QByteArray MasterService::listRecord(const QString& keyword,
                                     const QList<ListenerEntry>& entries) const {
  QStringList fields{keyword};
  for (const ListenerEntry& entry : entries) fields << entryField(entry);
  return encode(fields.join(QChar(u'\0')) + QLatin1Char(kRecordEnd), encoding_);
}

}  // namespace korvane
