#include "library/index/all_songs.h"

#include "library/data/sql_functions.h"

namespace korvane {

namespace {
constexpr char kRow[] =
    "SELECT trim(iif(mid(songTitle,4,1) = '-', mid(songTitle,5),SongTitle)), artist, songpath, "
    "album, year "
    "FROM Songs WHERE SongID = ?1";
}

AllSongs::AllSongs(std::shared_ptr<const IndexImage> image, OpenDatabase open,
                   Unreadable unreadable)
    : image_(std::move(image)),
      open_(std::move(open)),
      unreadable_(std::move(unreadable)),
      position_(image_->songs() > 0 ? 1 : 0) {}

QString AllSongs::cell(int column, int row) const {
  const Block* found = column < 1 || column > kColumns ? nullptr : find(row);
  if (!found) return {};
  return found->rows[static_cast<size_t>((row - 1) % kBlock)][static_cast<size_t>(column - 1)];
}

bool AllSongs::emphasised(int row) const {
  const Block* found = find(row);
  return found && found->favourite[static_cast<size_t>((row - 1) % kBlock)];
}

const AllSongs::Block* AllSongs::find(int row) const {
  if (row < 1 || row > rowCount()) return nullptr;
  try {
    return &block((row - 1) / kBlock);
  } catch (const DatabaseError& failure) {
    if (!std::exchange(failing_, true)) unreadable_(failure.text());
    return nullptr;
  }
}

const AllSongs::Block& AllSongs::block(int number) const {
  const auto known = std::find_if(blocks_.begin(), blocks_.end(),
                                  [&](const Block& block) { return block.number == number; });
  if (known != blocks_.end()) {
    blocks_.splice(blocks_.begin(), blocks_, known);
    return blocks_.front();
  }
  Block fresh;
  sql::Connection& connection = open_();
  sql::Transaction locked(connection, sql::Transaction::Reading);  // one lock, not one a row
  for (int i = 0; i < kBlock && number * kBlock + i < rowCount(); ++i) {
    auto run = connection.run(kRow, qint64{image_->songId(number * kBlock + i)});
    if (!run.step()) continue;
    for (int column = 0; column < kColumns; ++column)
      fresh.rows[static_cast<size_t>(i)][static_cast<size_t>(column)] = run.text(column);
    fresh.favourite[static_cast<size_t>(i)] = run.bytes(kColumns) == "-1";
  }
  locked.commit();
  failing_ = false;
  fresh.number = number;
  if (blocks_.size() == kBlocks) blocks_.pop_back();
  blocks_.push_front(std::move(fresh));
  return blocks_.front();
}

void AllSongs::setAbsolutePosition(int row) {
  position_ = std::clamp(row, 0, rowCount());
}

int AllSongs::Find(const QString& text) {
  const QByteArray utf8 = text.toUtf8();
  const auto key = text_order::key16({utf8.constData(), static_cast<size_t>(utf8.size())});
  auto [first, last] = image_->range(key);
  if (!key.isWhole()) first = resolve(first, last, utf8);
  setAbsolutePosition(first + 1);
  return first + 1;
}

// Titles of one key that go on beyond its 16 bytes: decided by the titles themselves.
int AllSongs::resolve(int first, int last, const QByteArray& text) {
  const std::string_view wanted(text.constData(), static_cast<size_t>(text.size()));
  while (first < last) {
    const int middle = first + (last - first) / 2;
    const QByteArray title = cell(1, middle + 1).toUtf8();
    if (text_order::compare({title.constData(), static_cast<size_t>(title.size())}, wanted) < 0)
      first = middle + 1;
    else
      last = middle;
  }
  return first;
}

}  // namespace korvane
