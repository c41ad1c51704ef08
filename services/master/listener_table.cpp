#include "services/master/listener_table.h"

#include <arpa/inet.h>

namespace korvane {
namespace {

QString plain(const QString& text) {
  QString clean =
      text.trimmed().first(std::min(text.trimmed().size(), ListenerTable::kLongestText));
  for (QChar& c : clean)
    if (c.unicode() < 0x20) c = u' ';
  return clean.trimmed();
}

// An address that another machine can connect to.
bool isUsable(const QString& ip) {
  std::array<quint8, 16> bytes{};
  const QByteArray text = ip.toLatin1();
  const bool v4 = inet_pton(AF_INET, text.constData(), bytes.data()) == 1;
  if (!v4 && inet_pton(AF_INET6, text.constData(), bytes.data()) != 1) return false;
  return std::any_of(bytes.begin(), bytes.end(), [](quint8 byte) { return byte != 0; });
}

bool isPort(const QString& port) {
  bool number = false;
  return port.toUShort(&number) > 0 && number;
}

}  // namespace

bool ListenerTable::add(Peer owner, const ListenerEntry& entry) {
  rows_.removeIf([&](const Row& row) {
    const bool own =
        row.owner == owner && row.entry.type == entry.type && row.entry.port == entry.port;
    return own || row.entry == entry;
  });
  const auto ofOwner = std::count_if(rows_.begin(), rows_.end(),
                                     [owner](const Row& row) { return row.owner == owner; });
  if (rows_.size() >= kMostEntries || ofOwner >= kMostOfOne) return false;
  rows_ << Row{owner, entry};
  return true;
}

QList<ListenerEntry> ListenerTable::remove(Peer owner) {
  QList<ListenerEntry> gone;
  rows_.removeIf([&](const Row& row) {
    if (row.owner == owner) gone << row.entry;
    return row.owner == owner;
  });
  return gone;
}

QList<ListenerEntry> ListenerTable::entries() const {
  QList<ListenerEntry> all;
  for (const Row& row : rows_) all << row.entry;
  return all;
}

bool ListenerTable::owns(Peer owner) const {
  return std::any_of(rows_.begin(), rows_.end(),
                     [owner](const Row& row) { return row.owner == owner; });
}

QList<ListenerTable::Peer> ListenerTable::owners() const {
  QList<Peer> all;
  for (const Row& row : rows_)
    if (!all.contains(row.owner)) all << row.owner;
  return all;
}

std::optional<ListenerEntry> registrationOf(const QStringList& fields, const QString& from) {
  ListenerEntry entry{plain(fields.value(2)), plain(fields.value(3)), plain(fields.value(4)),
                      plain(fields.value(5)).toUpper()};
  if (!isUsable(entry.ip)) entry.ip = from;
  const bool client = entry.type == "CLIENT"_L1;
  if (client) entry.port = u"N/A"_s;
  if (entry.description.isEmpty()) entry.description = entry.ip;
  const bool listener =
      entry.type == "MUSIC"_L1 || entry.type == "MOVIES"_L1 || entry.type == "X10"_L1;
  if (!client && !(listener && isPort(entry.port))) return std::nullopt;
  return entry;
}

QString entryField(const ListenerEntry& entry) {
  return QStringList{entry.description, entry.ip, entry.port, entry.type}.join(
      QLatin1Char(kSubFieldEnd));
}

}  // namespace korvane
