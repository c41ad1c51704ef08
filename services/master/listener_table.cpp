#include "services/master/listener_table.h"

#include "services/server/ip_address.h"

namespace korvane {
namespace {

QString plain(const QString& text) {
  QString clean =
      text.trimmed().first(std::min(text.trimmed().size(), ListenerTable::kLongestText));
  for (QChar& c : clean)
    if (c.unicode() < 0x20) c = u' ';
  return clean.trimmed();
}

// The address as all consoles write it; empty for one that no machine can connect to.
QString usable(const QString& ip) {
  const std::optional<IpAddress> address = ipAddressOf(ip);
  const bool any = !address || *address == IpAddress{} || textOf(*address) == "0.0.0.0"_L1;
  return any ? QString() : textOf(*address);
}

bool isPort(const QString& port) {
  bool number = false;
  return port.toUShort(&number) > 0 && number;
}

}  // namespace

bool ListenerTable::add(Peer owner, const ListenerEntry& entry) {
  const auto ofOwner = [owner](const Row& row) { return row.owner == owner; };
  const auto same = std::find_if(rows_.begin(), rows_.end(), [&](const Row& row) {
    return ofOwner(row) && row.entry == entry;
  });
  if (same != rows_.end()) return true;
  rows_.removeIf([&](const Row& row) {
    return ofOwner(row) && row.entry.type == entry.type && row.entry.port == entry.port;
  });
  const auto ofAddress = std::count_if(rows_.begin(), rows_.end(),
                                       [&](const Row& row) { return row.entry.ip == entry.ip; });
  if (rows_.size() >= kMostEntries || ofAddress >= kMostOfAddress ||
      std::count_if(rows_.begin(), rows_.end(), ofOwner) >= kMostOfOne)
    return false;
  rows_ << Row{owner, entry};
  return true;
}

QList<ListenerTable::Row> ListenerTable::settle() {
  QList<Row> news;
  for (Row& row : rows_) {
    if (row.stands || holder(row.entry) != 0) continue;
    row.stands = true;
    news << row;
  }
  return news;
}

QList<ListenerEntry> ListenerTable::remove(Peer owner) {
  QList<ListenerEntry> gone;
  rows_.removeIf([&](const Row& row) {
    if (row.owner == owner && row.stands) gone << row.entry;
    return row.owner == owner;
  });
  return gone;
}

QList<ListenerEntry> ListenerTable::entries() const {
  QList<ListenerEntry> all;
  for (const Row& row : rows_)
    if (row.stands) all << row.entry;
  return all;
}

ListenerTable::Peer ListenerTable::holder(const ListenerEntry& entry) const {
  const auto found = std::find_if(rows_.begin(), rows_.end(),
                                  [&](const Row& row) { return row.stands && row.entry == entry; });
  return found == rows_.end() ? 0 : found->owner;
}

QList<ListenerTable::Peer> ListenerTable::owners() const {
  QList<Peer> all;
  for (const Row& row : rows_)
    if (!all.contains(row.owner)) all << row.owner;
  return all;
}

std::optional<ListenerEntry> registrationOf(
    const QStringList& fields, const QString& from,
    const std::function<bool(const QString& address)>& mayAdvertise) {
  ListenerEntry entry{plain(fields.value(2)), usable(plain(fields.value(3))),
                      plain(fields.value(4)), plain(fields.value(5)).toUpper()};
  const bool own = ipAddressOf(entry.ip) == ipAddressOf(from);
  if (entry.ip.isEmpty() || own || !mayAdvertise(entry.ip)) entry.ip = from;
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
