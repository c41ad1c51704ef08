// The Master Listener: keeps the table, answers what is asked and tells newcomers to the others.
#pragma once

#include "services/master/listener_table.h"
#include "services/server/record_server.h"

namespace korvane {

class MasterService : private RecordService {
 public:
  MasterService(RecordServer& server, ServiceLog& log, WireText encoding);
  ~MasterService() override;

  const ListenerTable& table() const { return table_; }

 private:
  void record(Peer peer, QByteArrayView bytes) override;
  void left(Peer peer) override;
  void enter(Peer peer, const QStringList& fields);
  void answer(Peer peer, const QString& keyword);
  QByteArray listRecord(const QString& keyword, const QList<ListenerEntry>& entries) const;

  RecordServer& server_;
  ServiceLog& log_;
  const WireText encoding_;
  ListenerTable table_;
};

}  // namespace korvane
