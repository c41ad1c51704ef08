#include "platform/disc/disc_sound.h"

#include <QtEndian>

#include <cstring>
#include <thread>

namespace korvane {
namespace {

constexpr int kChunkSectors = 25;
constexpr size_t kChunksAhead = 12;  // 4 s
constexpr int kGiveUpSectors = 3 * kSectorsPerSecond;
constexpr int kRate = 44100, kFrameBytes = 4;

// The 44 bytes before plain PCM: Microsoft's "Multimedia Programming Interface and Data
// Specifications 1.0", RIFF WAVE.
QByteArray waveHeader(qint64 soundBytes) {
  QByteArray header;
  const auto number = [&header]<class T>(T value) {
    char bytes[sizeof(T)];
    qToLittleEndian(value, bytes);
    header.append(bytes, sizeof(T));
  };
  header += "RIFF";
  number(static_cast<quint32>(soundBytes + 36));
  header += "WAVEfmt ";
  number(quint32{16});
  number(quint16{1});  // PCM
  number(quint16{2});  // channels
  number(quint32{kRate});
  number(quint32{kRate * kFrameBytes});
  number(quint16{kFrameBytes});
  number(quint16{16});  // bits
  header += "data";
  number(static_cast<quint32>(soundBytes));
  return header;
}

}  // namespace

std::shared_ptr<DiscSound> DiscSound::make(std::shared_ptr<DiscReader> reader,
                                           const QString& source, int first, int end) {
  const std::shared_ptr<DiscSound> sound(new DiscSound(first, end));
  sound->chunks_.push_back(waveHeader(qint64{end - first} * kSectorBytes));
  std::thread([sound, reader = std::move(reader), source] {
    sound->run(*reader, source);
  }).detach();
  return sound;
}

qint64 DiscSound::size() const {
  return 44 + qint64{end_ - first_} * kSectorBytes;
}

void DiscSound::run(DiscReader& reader, const QString& source) {
  const std::unique_ptr<SectorReader> disc = reader.sectors(source);
  bool going = disc != nullptr;
  int at = first_;
  while (going && at < end_) {
    const int count = std::min(kChunkSectors, end_ - at);
    QByteArray chunk(qsizetype{count} * kSectorBytes, '\0');
    going = readChunk(*disc, at, count, chunk.data()) && put(std::move(chunk));
    at += count;
  }
  const std::lock_guard lock(mutex_);
  broken_ = !going && !cancelled_;
  over_ = true;
  wake_.notify_all();
}

bool DiscSound::readChunk(SectorReader& disc, int from, int count, char* to) {
  if (disc.read(from, count, to)) {
    unreadable_ = 0;
    return true;
  }
  for (int i = 0; i < count; ++i) {
    char* sector = to + qsizetype{i} * kSectorBytes;
    if (disc.read(from + i, 1, sector)) {
      unreadable_ = 0;
      continue;
    }
    std::memset(sector, 0, kSectorBytes);
    const std::lock_guard lock(mutex_);
    if (++unreadable_ >= kGiveUpSectors || cancelled_) return false;
  }
  return true;
}

bool DiscSound::put(QByteArray chunk) {
  std::unique_lock lock(mutex_);
  wake_.wait(lock, [this] { return cancelled_ || chunks_.size() < kChunksAhead; });
  if (cancelled_) return false;
  chunks_.push_back(std::move(chunk));
  wake_.notify_all();
  return true;
}

qsizetype DiscSound::read(std::span<char> to) {
  std::unique_lock lock(mutex_);
  wake_.wait(lock, [this] { return cancelled_ || over_ || !chunks_.empty(); });
  if (cancelled_ || chunks_.empty()) return 0;
  const QByteArray& front = chunks_.front();
  const qsizetype count = std::min(static_cast<qsizetype>(to.size()), front.size() - taken_);
  std::memcpy(to.data(), front.constData() + taken_, static_cast<size_t>(count));
  taken_ += count;
  if (front.size() > 44) begun_ = true;
  if (taken_ == front.size()) {
    chunks_.pop_front();
    taken_ = 0;
    wake_.notify_all();
  }
  return count;
}

void DiscSound::cancel() {
  const std::lock_guard lock(mutex_);
  cancelled_ = true;
  chunks_.clear();
  taken_ = 0;
  wake_.notify_all();
}

}  // namespace korvane
