#include "listener/listener_list.h"

#include "core/settings.h"

namespace korvane {
namespace {

constexpr int kMostEntries = 4096;
constexpr qsizetype kLongestText = 200;

QString plain(QByteArrayView bytes, WireText encoding) {
  QString text = decode(bytes.first(std::min(bytes.size(), 4 * kLongestText)), encoding);
  for (QChar& c : text)
    if (c.category() == QChar::Other_Control) c = u' ';
  return text.left(kLongestText);
}

// The bytes up to `end`, and `rest` moved behind it; nothing when `rest` is spent.
std::optional<QByteArrayView> nextPiece(std::optional<QByteArrayView>& rest, char end) {
  if (!rest) return std::nullopt;
  const qsizetype at = rest->indexOf(end);
  const QByteArrayView piece = at < 0 ? *rest : rest->first(at);
  if (at < 0)
    rest.reset();
  else
    rest = rest->sliced(at + 1);
  return piece;
}

ListenerEntry entryOf(QByteArrayView field, WireText encoding) {
  std::optional<QByteArrayView> rest = field;
  ListenerEntry entry;
  for (QString* text : {&entry.description, &entry.ip, &entry.port, &entry.type})
    if (const auto piece = nextPiece(rest, kSubFieldEnd)) *text = plain(*piece, encoding);
  return entry;
}

}  // namespace

bool ListenerEntry::isAt(const QString& otherIp, const QString& otherPort) const {
  return ip == otherIp && val(port) == val(otherPort);
}

QList<ListenerEntry> listenerEntries(QByteArrayView record, WireText encoding) {
  std::optional<QByteArrayView> rest = record;
  nextPiece(rest, kFieldEnd);  // the keyword
  QList<ListenerEntry> entries;
  while (entries.size() < kMostEntries) {
    const auto field = nextPiece(rest, kFieldEnd);
    if (!field) break;
    entries << entryOf(*field, encoding);
  }
  return entries;
}

std::optional<ListenerEntry> inPlaceOf(const ListenerEntry& current,
                                       const QList<ListenerEntry>& entries) {
  std::optional<ListenerEntry> first;
  for (const ListenerEntry& entry : entries) {
    if (entry.type != current.type || entry.ip.isEmpty()) continue;
    if (entry.isAt(current.ip, current.port)) return std::nullopt;
    const bool namesake = first && first->description == current.description;
    if (!first || (!namesake && entry.description == current.description)) first = entry;
  }
  return first;
}

}  // namespace korvane
