#include "listener/air_network.h"

#include "platform/windows1252.h"

namespace korvane {
namespace {

constexpr char kStart = '<', kEnd = '>', kFieldEnd = '|';

bool hasTable(sql::Connection& connection, const QString& name) {
  return connection.number(
             "select count(*) from sqlite_master where name = ? collate nocase "
             "and type in ('table', 'view')",
             name) > 0;
}

}  // namespace

AirNetwork::AirNetwork(Database& database) {
  AirCodes(database);
}

void AirNetwork::AirCodes(Database& database) {
  try {
    OpenedDatabase connection(database);
    if (hasTable(*connection, u"source"_s)) {
      sql::Run rows = connection->run("Select * from source order by srcname");
      while (rows.step()) sources_ << rows.text(0);
    }
    if (hasTable(*connection, u"TransPortCodes"_s)) {
      sql::Run rows = connection->run("Select * from TransPortCodes");
      while (rows.step())
        if (rows.columns() > 1) meanings_[rows.text(0).trimmed().toUpper()] = rows.text(1);
    }
  } catch (const DatabaseError&) {
    // The data of the flight needs no names.
  }
}

QString AirNetwork::meaning(const QString& code) const {
  return meanings_.value(code, code);
}

void AirNetwork::DataArrived(Winsock& socket, qint64 bytesTotal) {
  const QByteArray block = std::exchange(received_, {}) + socket.GetData(bytesTotal);
  qsizetype from = 0;
  for (qsizetype end; (end = block.indexOf(kEnd, from)) >= 0; from = end + 1) {
    const bool broken = std::exchange(passingOver_, false);
    if (!broken && end - from < kLongestMessage)
      take(QByteArrayView(block).sliced(from, end - from));
  }
  if (block.size() - from >= kLongestMessage)
    passingOver_ = true;
  else if (!passingOver_)
    received_ = block.sliced(from);
}

// The first character of a part is the start mark.
void AirNetwork::take(QByteArrayView part) {
  const QString text = fromWindows1252(part).toUpper().trimmed();
  if (text.isEmpty() || text[0] != QLatin1Char(kStart)) return;
  const QStringList fields = text.sliced(1).split(QLatin1Char(kFieldEnd));
  const auto field = [&fields](qsizetype i) { return fields.value(i).trimmed(); };
  last_ = {field(0), field(1), field(2), field(3)};
  if (heard) heard(last_);
}

}  // namespace korvane
