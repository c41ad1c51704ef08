#include "movies/movie_posters.h"

#include <QCryptographicHash>

#include <algorithm>

namespace korvane {
namespace {

constexpr size_t kMostWishes = 64;  // rows of some pages; what was scrolled past longer ago waits
constexpr qint64 kLargestStill = 1 << 20;

// A kept still is its length in seconds as text, a line feed and the JPEG.
QByteArray packed(const MovieStill& still) {
  return QByteArray::number(still.seconds, 'f', 1) + '\n' + still.jpeg;
}

std::optional<MovieStill> unpacked(const QByteArray& bytes) {
  const qsizetype end = bytes.indexOf('\n');
  bool number = false;
  const double seconds = bytes.first(std::max<qsizetype>(end, 0)).toDouble(&number);
  if (!number || seconds < 0) return {};
  return MovieStill{bytes.mid(end + 1), seconds};
}

QString nameOf(const QString& path, const FileSystem::Stamp& stamp) {
  QCryptographicHash hash(QCryptographicHash::Sha1);
  hash.addData(path.toUtf8());
  hash.addData(QByteArray::number(stamp.size) + ' ' + QByteArray::number(stamp.modified));
  return QString::fromLatin1(hash.result().toHex()) + u".still"_s;
}

}  // namespace

std::optional<Picture> MoviePosters::poster(const MovieRow& row) const {
  if (row.dvd) return Picture{u"movies"_s, u"noposterdvd"_s, nullptr};
  const auto known = known_.find(row.path);
  if (known != known_.end())
    return known->second.jpeg ? Picture{{}, {}, known->second.jpeg}
                              : Picture{u"movies"_s, u"noposter"_s, nullptr};
  wish(row.path);
  return std::nullopt;
}

double MoviePosters::seconds(const QString& path) const {
  const auto known = known_.find(path);
  return known == known_.end() ? 0 : known->second.seconds;
}

void MoviePosters::wish(const QString& path) const {
  std::erase(wishes_, path);
  wishes_.push_front(path);
  if (wishes_.size() > kMostWishes) wishes_.pop_back();
  if (busy_ || std::exchange(asked_, true)) return;
  uses_.pump.later([&looks = looks_, alive = std::weak_ptr<bool>(alive_)] {
    if (!alive.expired()) looks();
  });
}

void MoviePosters::look() {
  asked_ = false;
  next();
}

void MoviePosters::next() {
  while (!busy_ && !wishes_.empty()) {
    const QString path = std::exchange(wishes_.front(), {});
    wishes_.pop_front();
    if (known_.contains(path)) continue;
    busy_ = true;
    lookInCache(path);
  }
}

void MoviePosters::lookInCache(const QString& path) {
  struct Found {
    QString kept;
    std::optional<QByteArray> bytes;
  };
  const auto found = std::make_shared<Found>();
  uses_.pump.aside(
      [found, path, cache = uses_.cache, &files = uses_.files] {
        found->kept = FileSystem::BuildPath(cache, nameOf(path, files.stamp(path)));
        if (files.FileExists(found->kept)) found->bytes = files.read(found->kept, kLargestStill);
      },
      [this, alive = std::weak_ptr<bool>(alive_), found, path] {
        if (alive.expired()) return;
        const auto still = found->bytes ? unpacked(*found->bytes) : std::nullopt;
        if (!still) return make(path, found->kept);
        know(path, still->jpeg, still->seconds);
      });
}

void MoviePosters::make(const QString& path, const QString& kept) {
  uses_.stills.make(path, kWidth, kHeight, [this, path, kept](const MovieStill& still) {
    keep(kept, still);
    know(path, still.jpeg, still.seconds);
  });
}

// Off the form's thread, since a save waits for the disk.
void MoviePosters::keep(const QString& kept, const MovieStill& still) {
  uses_.pump.inBackground(
      [kept, bytes = packed(still), cache = uses_.cache, &files = uses_.files] {
        if (files.CreateFolder(cache)) files.replace(kept, bytes);
      },
      {});
}

void MoviePosters::know(const QString& path, const QByteArray& jpeg, double seconds) {
  known_[path] = {jpeg.isEmpty() ? nullptr : std::make_shared<const QByteArray>(jpeg), seconds};
  order_.push_back(path);
  if (order_.size() > kMostKept) {
    known_.erase(order_.front());
    order_.pop_front();
  }
  busy_ = false;
  uses_.came();
  next();
}

void MoviePosters::forgetWishes() {
  wishes_.clear();
}

void MoviePosters::stop() {
  wishes_.clear();
  uses_.stills.stop();
}

}  // namespace korvane
