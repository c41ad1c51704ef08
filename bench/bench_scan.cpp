// korvane-bench scan TREE HOME: a first and a second scan by tags, yields and status included.
#include <QDir>
#include <algorithm>
#include <vector>

#include "bench/bare_scan.h"
#include "bench/bench.h"
#include "bench/bench_library.h"
#include "library/data/schema.h"
#include "library/scan/scanner.h"

namespace korvane {
namespace {

constexpr int kRounds = 3;

class Status : public ScanEvents {
 public:
  void scanStatus(const ScanProgress&) override { ++reports; }
  void scanError(const QString& text) override { std::fprintf(stderr, "%s\n", qPrintable(text)); }
  int reports = 0;
};

bool isWhole(Database& database) {
  OpenedDatabase open(database);
  auto check = open->run("PRAGMA integrity_check");
  return check.step() && check.text(0) == "ok"_L1;
}

// One first and one second scan into a new library, and the bare loops beside them.
struct Round {
  Round(const QString& tree, const QString& home);

  Cost first, bareFirst;
  double second = 0, bareSecond = 0, gap = 0;
  int files = 0, added = 0, bareAdded = 0, reports = 0;
  bool right = false;
};

Round::Round(const QString& tree, const QString& home) {
  QDir().mkpath(home);
  const QByteArray bareTree = tree.toUtf8(), bareHome = (home + u"/bare.mdb"_s).toUtf8();
  Database database(home);
  createEmptyDatabase(database.path());
  MeasuringPump pump;
  Status status;
  Scanner scanner(database, pump, status);
  ScanResult found, again;
  pump.start();
  first = measure([&] { found = scanner.scanTagged(tree, {}); });
  gap = pump.maxGapMs();
  bareFirst = measure([&] { bareAdded = bareScan(bareTree, bareHome); });
  second = measure([&] { again = scanner.scanTagged(tree, {}); }).seconds;
  int bareFiles = 0;
  bareSecond = fastest(1, [&] { bareFiles = bareStat(bareTree); });
  files = found.files;
  added = found.added;
  reports = status.reports;
  right = files == bareFiles && again.files == bareFiles && again.added == 0 && found.failed == 0 &&
          isWhole(database);
}

}  // namespace

// The fastest of the rounds, part by part: what a machine does besides only ever makes one slower.
// The gap is the longest of all.
int benchScan(const QStringList& arguments) {
  if (arguments.size() != 2) return 2;
  bareStat(arguments[0].toUtf8());  // all find the tree in memory
  std::vector<Round> rounds;
  for (int i = 0; i < kRounds; ++i)
    rounds.emplace_back(arguments[0], arguments[1] + u"/%1"_s.arg(i));
  const auto least = [&](auto part) { return part(*std::ranges::min_element(rounds, {}, part)); };
  const auto seconds = [](Cost Round::*cost) {
    return [cost](const Round& round) { return (round.*cost).seconds; };
  };
  const double first = least(seconds(&Round::first)), bare = least(seconds(&Round::bareFirst));
  const double second = least([](const Round& round) { return round.second; });
  const double bareSecond = least([](const Round& round) { return round.bareSecond; });
  const bool right = std::ranges::all_of(rounds, &Round::right);
  Json("scan")
      .add("files", rounds[0].files)
      .add("added", rounds[0].added)
      .add("bare_added", rounds[0].bareAdded)
      .add("seconds", first)
      .add("cpu_s", least([](const Round& round) { return round.first.cpuSeconds; }))
      .add("peak_mib", rounds[0].first.peakMib)
      .add("max_gap_ms", std::ranges::max(rounds, {}, &Round::gap).gap)
      .add("status", rounds[0].reports)
      .add("bare_seconds", bare)
      .add("ratio", first / bare)
      .add("second_seconds", second)
      .add("bare_stat_seconds", bareSecond)
      .add("second_ratio", second / bareSecond)
      .add("right", right)
      .print();
  return right ? 0 : 1;
}

}  // namespace korvane
