// The Air Show client: flight data from an Air Show server, over a socket that is handed to it.
//
// The server sends messages "<code|source|value|unit>", one after the other and in any deliveries:
// "<ALT|ADC1|35012|FT>". Case and outer blanks do not count. What the codes and sources mean stands
// in the tables TransPortCodes (code, meaning) and source (srcname, description) of the database,
// where an airline has put them.
#pragma once

#include "library/data/database.h"
#include "platform/winsock.h"

namespace korvane {

class AirNetwork {
 public:
  struct Message {
    QString code, source, value, unit;  // upper case; empty where it had none
    bool operator==(const Message&) const = default;
  };
  static constexpr qsizetype kLongestMessage = 4096;  // bytes; a longer one is passed over

  // Reads the tables. A database that lacks them, or that cannot be read, leaves them empty.
  explicit AirNetwork(Database& database);

  // Takes what has arrived at `socket`. A message that is cut is kept for the next delivery.
  void DataArrived(Winsock& socket, qint64 bytesTotal);

  const Message& last() const { return last_; }
  std::function<void(const Message&)> heard;  // each message

  QString meaning(const QString& code) const;  // the code itself where the table lacks it
  QStringList sources() const { return sources_; }

 private:
  void AirCodes(Database& database);
  void take(QByteArrayView part);

  QByteArray received_;  // the message that the last delivery cut
  bool passingOver_ = false;
  Message last_;
  QStringList sources_;
  QHash<QString, QString> meanings_;
};

}  // namespace korvane
