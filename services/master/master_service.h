// The Master Listener: keeps the table, answers what is asked and tells newcomers to the others.
#pragma once

#include "services/master/listener_table.h"
#include "services/server/record_server.h"

namespace korvane {

class MasterService : private RecordService {
 public:
  struct Uses {  // all must outlive the service
    RecordServer& server;
    ServiceLog& log;
    WireText encoding;
    const AllowList& allowAdvertise;  // addresses that any peer may register as its own
    std::function<bool(const QString& address)> isOfThisMachine;
  };
  explicit MasterService(Uses uses);  // it is the server's service until it ends
  ~MasterService() override;

  // Changes with what peers send, inside calls of the server.
  const ListenerTable& table() const { return table_; }

 private:
  void record(Peer peer, QByteArrayView bytes) override;
  void left(Peer peer) override;
  void enter(Peer peer, const QStringList& fields);
  void announce();
  bool mayAdvertise(Peer peer, const QString& address) const;
  void answer(Peer peer, const QString& keyword);
  QByteArray listRecord(const QString& keyword, const QList<ListenerEntry>& entries) const;

  const Uses uses_;
  ListenerTable table_;
};

}  // namespace korvane
