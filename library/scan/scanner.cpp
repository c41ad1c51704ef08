#include "library/scan/scanner.h"

#include <QElapsedTimer>
#include <future>

#include "library/data/statements.h"
#include "library/data/vb_text.h"
#include "library/tags/full_tags.h"
#include "platform/path_text.h"

namespace korvane {
namespace {

constexpr qint64 kStatusMs = 16, kTransactionMs = 1000;
constexpr int kTransactionRows = 40000;  // its pages stay in memory until it is written

}  // namespace

// One run over one tree.
class Scanner::Pass {
 public:
  Pass(Scanner& scanner, ScanPlan plan)
      : scanner_(scanner),
        db_(scanner.database_),
        plan_(plan),
        prefetch_(plan, ScanMemory::load(*db_, plan.root)) {
    total_.start();
    status_.start();
    // A page that leaves the cache before its commit would lock out every reader.
    db_->script("PRAGMA cache_size = -65536; PRAGMA cache_spill = OFF");
  }
  ~Pass() {
    transaction_.reset();
    try {
      db_->script("PRAGMA cache_size = -2000; PRAGMA cache_spill = ON; PRAGMA shrink_memory");
    } catch (const DatabaseError&) {  // its file is gone: the next opening makes another connection
    }
  }

  ScanResult run() {
    std::vector<Batch> batches;
    Prefetch::Answer answer = Prefetch::NotYet;
    while (!scanner_.stopped_ && (answer = prefetch_.next(batches, 2)) != Prefetch::End) {
      if (answer == Prefetch::Ready)
        for (const Batch& batch : batches) take(batch);
      scanner_.pump_.breathe();
    }
    commit();
    result_.stopped = scanner_.stopped_;
    result_.seconds = static_cast<double>(total_.nsecsElapsed()) / 1e9;
    return result_;
  }

 private:
  void take(const Batch& batch) {
    if (scanner_.stopped_) return;
    if (!batch.failure.isEmpty()) return fail(batch.failure);
    for (const ScannedFile& file : batch.files) {
      scanner_.pump_.breathe();
      if (scanner_.stopped_) return;
      ++result_.files;
      takeFile(batch, file);
      commitWhenDue();
    }
    if (batch.endsDirectory) remember(batch.directory);
  }

  void takeFile(const Batch& batch, const ScannedFile& file) {
    if (!file.failure.isEmpty()) return fail(file.failure);
    stamps_.push_back(file.stamp);
    if (status_.elapsed() >= kStatusMs) tell(batch, file);
    if (!file.known) result_.added += add(file.song);
  }

  bool add(const Song& song) {
    if (db_->run(statement::kDuplicate, song.Artist, song.album, song.SongTitle).step())
      return false;
    write();
    ++rows_;
    if (plan_.byFolders)
      db_->execute(statement::kInsertUntagged, song.Artist, song.album, song.SongTitle,
                   song.SongPath);
    else
      db_->execute(statement::kInsert, song.Artist, song.album, song.SongTitle, song.year,
                   song.Comment, song.SongPath);
    return true;
  }

  void remember(const QByteArray& directory) {
    Stamps stamps = std::exchange(stamps_, {});
    std::sort(stamps.begin(), stamps.end());
    const Stamps* known = prefetch_.memory().find(directory);
    if (known ? *known == stamps : stamps.empty()) return;
    write();
    ScanMemory::write(*db_, directory, stamps);
  }

  void write() {
    if (transaction_) return;
    transaction_.emplace(*db_);
    open_.start();
    rows_ = 0;
  }

  void commitWhenDue() {
    if (transaction_ && (rows_ >= kTransactionRows || open_.elapsed() >= kTransactionMs)) commit();
  }

  // The disk takes its time on another thread, and the window goes on meanwhile.
  void commit() {
    if (!transaction_) return;
    const auto written = std::async(std::launch::async, [this] { transaction_->commit(); }).share();
    scanner_.database_.setWriting(written);
    while (written.wait_for(std::chrono::milliseconds(2)) != std::future_status::ready)
      scanner_.pump_.breathe();
    scanner_.database_.setWriting({});
    written.get();
    transaction_.reset();
  }

  void fail(const QString& reason) {
    ++result_.failed;
    scanner_.events_.scanError(u"Error in AddOneSong,database "_s + reason);
  }

  void tell(const Batch& batch, const ScannedFile& file) {
    status_.start();
    const Song& song = file.song;
    const double seconds = static_cast<double>(total_.nsecsElapsed()) / 1e9;
    scanner_.events_.scanStatus(
        {file.known ? toPath(batch.directory)
                    : song.SongTitle + u"; "_s + song.Artist + u"; "_s + song.album,
         result_.files, result_.added, result_.files / std::max(seconds, 0.001)});
  }

  Scanner& scanner_;
  OpenedDatabase db_;
  const ScanPlan plan_;
  Prefetch prefetch_;
  std::optional<sql::Transaction> transaction_;
  QElapsedTimer total_, status_, open_;
  int rows_ = 0;   // of the transaction
  Stamps stamps_;  // of the directory at hand
  ScanResult result_;
};

Scanner::Scanner(Database& database, Pump& pump, ScanEvents& events)
    : database_(database), pump_(pump), events_(events) {}

ScanResult Scanner::scan(ScanPlan plan) {
  while (plan.root.size() > 1 && plan.root.endsWith('/')) plan.root.chop(1);
  if (running_) return {0, 0, 0, 0, true};
  struct Running {
    bool& flag;
    explicit Running(bool& on) : flag(on) { flag = true; }
    ~Running() { flag = false; }
  } const running(running_);
  stopped_ = false;
  return Pass(*this, std::move(plan)).run();
}

ScanResult Scanner::dofiles(const QString& root, const ScanRules& rules,
                            const QString& listenerDrive) {
  return scan({fromPath(root), true, rules, listenerDrive});
}

ScanResult Scanner::scanTagged(const QString& root, const ScanRules& rules) {
  return scan({fromPath(root), false, rules, {}});
}

bool Scanner::AddOneSong(const QString& path, const QString& fileName, const ScanRules& rules) {
  const CodePage page(rules.codePage);
  auto tags = readID3v1(path, page);
  if (!tags && rules.fullTags) {
    setFullTagsPage(page);
    tags = readFullTags(path);
  }
  const Song song = songByTags(tags, nameShown(fromPath(fileName)), path, rules);
  if (database_.hasSong(song.Artist, song.album, song.SongTitle)) return false;
  database_.insertSong(song);
  return true;
}

int addArtistsFromListing(Database& database, QByteArrayView listing) {
  OpenedDatabase db(database);
  sql::Transaction whole(*db);
  int added = 0;
  for (const QByteArray& line : listing.toByteArray().split('\n')) {
    const qsizetype open = line.indexOf('['), close = line.indexOf(']', open + 1);
    if (open < 0 || close < 0) continue;
    const QString artist = nameShown(line.sliced(open + 1, close - open - 1));
    added += db->execute(statement::kInsertArtist, cut(artist, width::Artist));
  }
  whole.commit();
  return added;
}

}  // namespace korvane
