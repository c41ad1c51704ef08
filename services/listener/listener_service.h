// A Listener: one door for what plays on this machine, music, movies or both. It hands commands to
// the part that they are for, and does what the parts do alike: volume, mute, and that two of them
// never sound together.
//
// A console has a connection for music and one for movies, and each hears the reports of its own
// part alone. Where there is one part, everybody who is connected hears it.
#pragma once

#include "listener/player_level.h"
#include "services/server/record_server.h"

namespace korvane {

struct ListenerCommand {
  TcpServer::Peer peer;
  QByteArrayView target, name;  // last for the call
  QString argument1, argument2;
};

class ListenerPart {
 public:
  using Peer = TcpServer::Peer;
  virtual ~ListenerPart() = default;
  virtual bool takes(QByteArrayView target) const = 0;
  virtual void status(Peer peer) = 0;  // tells that one what plays; the level is told behind it
  virtual void perform(const ListenerCommand& command) = 0;  // unknown ones are passed over
  virtual void left(Peer peer) = 0;
  virtual void fallSilent() = 0;                        // another part begins to sound
  virtual void setVolume(int hundredthsOfDecibel) = 0;  // of its players; 0 is full, -10000 silence
  virtual void setMute(bool on) = 0;
};

class ListenerService : private RecordService {
 public:
  using Peer = TcpServer::Peer;
  struct Uses {  // all must outlive the service
    RecordServer& server;
    Mixer& mixer;
    WireText encoding = WireText::Windows1252;
    bool tellVolume = true;  // in the answer to STATUS
  };
  // It is the server's service and hears the mixer until it ends.
  explicit ListenerService(Uses uses);
  ~ListenerService() override;

  // A part enters itself before the server listens, and takes itself out when it ends.
  void add(ListenerPart& part) { parts_.push_back(&part); }
  void remove(ListenerPart& part) { std::erase(parts_, &part); }

  // By a part: to one, or to those who hear it.
  void tell(Peer peer, std::initializer_list<QString> fields);
  void tellAll(const ListenerPart& part, std::initializer_list<QString> fields);
  // The same to those who did not ask for what begins: the report alone does not light a console's
  // play button, and the one that asked has lit its own.
  void lightPlay(const ListenerPart& part, Peer asker);
  void tellPicture(const ListenerPart& part, const QByteArray& picture);
  void dropPictures() { uses_.server.dropPictures(); }
  QList<Peer> peers(const ListenerPart& part) const { return uses_.server.peers(groupOf(part)); }
  bool has(Peer peer) const { return uses_.server.has(peer); }
  qint64 nowMs() const { return uses_.server.nowMs(); }
  void starts(const ListenerPart& part);  // the others fall silent

 private:
  void record(Peer peer, QByteArrayView bytes) override;
  void left(Peer peer) override;

  bool performShared(ListenerPart& part, const ListenerCommand& command);
  void status(ListenerPart& part, Peer peer);
  void volume(const ListenerCommand& command);
  unsigned groupOf(const ListenerPart& part) const;
  QByteArray recordOf(std::initializer_list<QString> fields) const;

  const Uses uses_;
  std::vector<ListenerPart*> parts_;
  PlayerLevel level_;
};

// The seconds or the level that a field holds; nothing for a text that is none.
std::optional<double> numberIn(const QString& text);

// For the consoles: what a player says of a file names its place on this machine, which is no
// console's business; in its stead stands `nameAsked`, which a console sent.
QString withoutPath(QString description, const QString& path, const QString& nameAsked);

}  // namespace korvane
