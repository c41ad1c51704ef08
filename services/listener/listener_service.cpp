#include "services/listener/listener_service.h"

namespace korvane {
namespace {

constexpr qsizetype kMostFields = 4;
// Of what one console sends and all are sent: a long one would fill their queues.
constexpr qsizetype kLongestNumber = 32;

}  // namespace

std::optional<double> numberIn(const QString& text) {
  return text.size() <= kLongestNumber ? numberOf(text.toLatin1()) : std::nullopt;
}

QString withoutPath(QString description, const QString& path, const QString& nameAsked) {
  if (!path.isEmpty()) description.replace(path, nameAsked);
  return description.contains(u'/') ? u"Cannot play %1"_s.arg(nameAsked) : description;
}

ListenerService::ListenerService(Uses uses)
    : uses_(uses),
      level_(
          [this](int level) {
            for (ListenerPart* part : parts_) part->setVolume(level);
          },
          uses_.mixer) {
  uses_.server.setService(this);
  uses_.mixer.watch([this] {
    level_.changedOutside();
    uses_.server.sendAll(recordOf({u"VOLUME"_s, QString::number(level_.now())}));
  });
}

ListenerService::~ListenerService() {
  uses_.mixer.watch({});
  uses_.server.setService(nullptr);
}

void ListenerService::record(Peer peer, QByteArrayView bytes) {
  const QList<QByteArrayView> fields = fieldsOf(bytes, kMostFields);
  if (fields.size() < 2) return;
  const auto text = [&](qsizetype i) {
    return i < fields.size() ? decode(fields[i], uses_.encoding) : QString();
  };
  const auto part = std::find_if(parts_.begin(), parts_.end(),
                                 [&](const auto* each) { return each->takes(fields[0]); });
  if (part == parts_.end()) return;
  uses_.server.keep(peer, groupOf(**part));
  const ListenerCommand command{peer, fields[0], fields[1], text(2), text(3)};
  if (!performShared(**part, command)) (*part)->perform(command);
}

void ListenerService::left(Peer peer) {
  for (ListenerPart* part : parts_) part->left(peer);
}

bool ListenerService::performShared(ListenerPart& part, const ListenerCommand& command) {
  if (command.name == "STATUS")
    status(part, command.peer);
  else if (command.name == "VOLUME")
    volume(command);
  else if (command.name == "MUTE=TRUE" || command.name == "MUTE=FALSE")
    part.setMute(command.name == "MUTE=TRUE");
  else
    return false;
  return true;
}

void ListenerService::status(ListenerPart& part, Peer peer) {
  part.status(peer);
  if (!uses_.tellVolume) return;
  tell(peer, {u"MAXVOLUME"_s, QString::number(level_.maximum())});
  tell(peer, {u"VOLUME"_s, QString::number(level_.now())});
}

// The level is the machine's, so all hear of it, whatever they are for.
void ListenerService::volume(const ListenerCommand& command) {
  const std::optional<double> asked = numberIn(command.argument1);
  if (!asked) return tell(command.peer, {u"VOLUME"_s, command.argument1});
  level_.set(*asked);
  uses_.server.sendAll(recordOf({u"VOLUME"_s, command.argument1}));
}

void ListenerService::tell(Peer peer, std::initializer_list<QString> fields) {
  uses_.server.send(peer, recordOf(fields));
}

void ListenerService::tellAll(const ListenerPart& part, std::initializer_list<QString> fields) {
  uses_.server.sendAll(recordOf(fields), groupOf(part));
}

void ListenerService::lightPlay(const ListenerPart& part, Peer asker) {
  for (const Peer peer : peers(part))
    if (peer != asker) tell(peer, {u"PAUSETOPLAY"_s});
}

void ListenerService::tellPicture(const ListenerPart& part, const QByteArray& picture) {
  uses_.server.sendAllPicture(recordOf({u"RECEIVEJPG"_s, QString::number(picture.size())}), picture,
                              groupOf(part));
}

void ListenerService::starts(const ListenerPart& part) {
  for (ListenerPart* other : parts_)
    if (other != &part) other->fallSilent();
}

unsigned ListenerService::groupOf(const ListenerPart& part) const {
  if (parts_.size() < 2) return 0;
  const auto at = std::find(parts_.begin(), parts_.end(), &part) - parts_.begin();
  return 1u << static_cast<unsigned>(at);
}

QByteArray ListenerService::recordOf(std::initializer_list<QString> fields) const {
  return encode(replyRecord(fields), uses_.encoding);
}

}  // namespace korvane
