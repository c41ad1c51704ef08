// Deliveries of a Music Listener, split and handled. A byte of 2 ends a delivery.
#include "tests/listener/music_parts.h"

namespace {

using namespace korvane;

void require(bool held) {
  if (!held) __builtin_trap();
}

// The records and their ends are the delivery up to its last 0x01; the fields are the record.
void checkSplit(QByteArrayView delivery) {
  QByteArray joined;
  forEachRecord(delivery, [&](QByteArrayView bytes) {
    joined += bytes.toByteArray() + kRecordEnd;
    const ListenerRecord record(bytes, WireText::Utf8);
    QByteArray fields = record.name().toByteArray();
    for (int i = 1; i < record.count(); ++i) fields += kFieldEnd + record.field(i).toByteArray();
    require(bytes.startsWith(fields));
    require(record.count() == ListenerRecord::kMostFields || bytes.size() == fields.size());
    return true;
  });
  require(joined == delivery.first(delivery.lastIndexOf(kRecordEnd) + 1));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const QByteArray stream(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  static MusicParts parts;
  parts.music.ConnectionMP3Close();
  parts.socket.setState(Winsock::Connected);
  parts.system.files.DeleteFile(u"/home/coverArt.jpg"_s);
  for (const QByteArray& delivery : stream.split('\2')) {
    checkSplit(delivery);
    parts.socket.arrive(delivery);
    parts.system.pump.settle();
    parts.messages.texts.clear();
    parts.news.heard.clear();
  }
  require(parts.Slider1.maximum() >= 0);
  return 0;
}
