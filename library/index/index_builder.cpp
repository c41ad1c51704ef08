#include "library/index/index_builder.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "library/data/sql_functions.h"
#include "library/data/statements.h"
#include "platform/path_text.h"

namespace korvane {
namespace {

using text_order::Key;

struct Title {
  Key key;
  uint32_t id = 0;
  uint32_t text = 0, length = 0;  // in the texts kept for keys that are not whole
};

// Gives way to a writer: the engine asks every few thousand steps.
class Cancellable {
 public:
  Cancellable(sql::Connection& connection, const std::atomic<bool>& cancel)
      : connection_(connection), cancel_(cancel) {
    connection_.onProgress(
        [](void* flag) -> int { return static_cast<const std::atomic<bool>*>(flag)->load(); },
        const_cast<std::atomic<bool>*>(&cancel_));
  }
  ~Cancellable() { connection_.onProgress(nullptr, nullptr); }
  Cancellable(const Cancellable&) = delete;

 private:
  sql::Connection& connection_;
  const std::atomic<bool>& cancel_;
};

class Titles {
 public:
  void read(sql::Connection& connection) {
    auto run = connection.run("SELECT SongID, SongTitle FROM Songs");
    while (run.step()) add(static_cast<uint32_t>(run.number(0)), run.bytes(1));
  }

  void sort() {
    std::sort(titles.begin(), titles.end(), [this](const Title& a, const Title& b) {
      if (a.key != b.key) return a.key < b.key;
      const int order = a.key.isWhole() ? 0 : text_order::compare(textOf(a), textOf(b));
      return order != 0 ? order < 0 : a.id < b.id;
    });
  }

  std::vector<Title> titles;

 private:
  void add(uint32_t id, QByteArrayView stored) {
    const auto shown = sql::shownTitle({stored.data(), static_cast<size_t>(stored.size())});
    Title title{text_order::key16(shown), id};
    if (!title.key.isWhole()) {
      title.text = static_cast<uint32_t>(texts_.size());
      title.length = static_cast<uint32_t>(shown.size());
      texts_ += shown;
    }
    titles.push_back(title);
  }
  std::string_view textOf(const Title& title) const {
    return std::string_view(texts_).substr(title.text, title.length);
  }

  std::string texts_;
};

struct Lists {
  std::vector<uint32_t> artists{0}, albums{0};
  QByteArray text;
  uint32_t albumNames = 0;

  void add(std::vector<uint32_t>& offsets, QByteArrayView name) {
    text.append(name);
    offsets.push_back(static_cast<uint32_t>(text.size()));
  }

  void read(sql::Connection& connection) {
    for (auto run = connection.run(statement::kAllArtists); run.step();) add(artists, run.bytes(0));
    albums.back() = artists.back();
    for (auto run = connection.run(statement::kAllAlbums); run.step();) {
      add(albums, run.bytes(0));
      add(albums, run.bytes(1));
      albumNames += isNewAlbum();
    }
  }

 private:
  std::string_view name(size_t at) const {
    return {text.constData() + albums[at], albums[at + 1] - albums[at]};
  }
  // The album added last has another name than the one before it.
  bool isNewAlbum() const {
    const size_t last = albums.size() - 3;
    return last < 2 || text_order::compare(name(last - 2), name(last)) != 0;
  }
};

class Writer {
 public:
  explicit Writer(const IndexHeader& header) : header_(header) {
    bytes_.resize(sizeof(IndexHeader), '\0');
  }
  template <class T>
  void section(IndexHeader::Section which, const T* data, size_t count) {
    while (bytes_.size() % 8 != 0) bytes_.append('\0');
    header_.sections[which] = {static_cast<uint64_t>(bytes_.size()), count * sizeof(T)};
    bytes_.append(reinterpret_cast<const char*>(data), static_cast<qsizetype>(count * sizeof(T)));
  }
  QByteArray finish() {
    std::memcpy(bytes_.data(), &header_, sizeof header_);
    return std::move(bytes_);
  }

 private:
  IndexHeader header_;
  QByteArray bytes_;
};

void writeTitles(Writer& writer, const std::vector<Title>& titles) {
  std::vector<uint64_t> half(titles.size());
  const auto fill = [&](auto member) {
    std::transform(titles.begin(), titles.end(), half.begin(), member);
  };
  fill([](const Title& title) { return title.key.high; });
  std::vector<uint64_t> sample;
  for (size_t i = 0; i < half.size(); i += IndexImage::kSampleStep) sample.push_back(half[i]);
  writer.section(IndexHeader::Sample, sample.data(), sample.size());
  writer.section(IndexHeader::High, half.data(), half.size());
  fill([](const Title& title) { return title.key.low; });
  writer.section(IndexHeader::Low, half.data(), half.size());
  std::vector<uint32_t> ids(titles.size());
  std::transform(titles.begin(), titles.end(), ids.begin(), [](const Title& t) { return t.id; });
  writer.section(IndexHeader::Ids, ids.data(), ids.size());
}

}  // namespace

QByteArray buildIndex(sql::Connection& connection, const std::atomic<bool>& cancel) {
  const Cancellable cancellable(connection, cancel);
  Titles titles;
  Lists lists;
  IndexHeader header;
  try {
    sql::Transaction snapshot(connection, sql::Transaction::Reading);
    titles.read(connection);
    lists.read(connection);
    header.stamp = DatabaseStamp::of(connection.header()).value_or(DatabaseStamp{});
    snapshot.commit();
  } catch (const DatabaseError&) {
    if (cancel) return {};
    throw;
  }
  titles.sort();
  header.textOrder = text_order::version();
  header.albumNames = lists.albumNames;
  header.songs = titles.titles.size();
  header.artists = lists.artists.size() - 1;
  header.albums = (lists.albums.size() - 1) / 2;
  Writer writer(header);
  writeTitles(writer, titles.titles);
  writer.section(IndexHeader::Artists, lists.artists.data(), lists.artists.size());
  writer.section(IndexHeader::Albums, lists.albums.data(), lists.albums.size());
  writer.section(IndexHeader::Text, lists.text.constData(), static_cast<size_t>(lists.text.size()));
  return writer.finish();
}

bool writeIndex(const QString& path, const QByteArray& bytes) {
  const QByteArray target = fromPath(path), fresh = target + ".new";
  FILE* file = std::fopen(fresh.constData(), "wb");
  if (!file) return false;
  const auto size = static_cast<size_t>(bytes.size());
  bool good = std::fwrite(bytes.constData(), 1, size, file) == size;
  good = std::fflush(file) == 0 && ::fdatasync(::fileno(file)) == 0 && good;
  good = std::fclose(file) == 0 && good;
  if (good && std::rename(fresh.constData(), target.constData()) == 0) return true;
  ::unlink(fresh.constData());
  return false;
}

}  // namespace korvane
