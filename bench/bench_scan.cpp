// korvane-bench scan TREE HOME: a first and a second scan by tags, yields and status included.
#include <QFile>

#include "bench/bare_scan.h"
#include "bench/bench.h"
#include "bench/bench_library.h"
#include "library/scan/scanner.h"
#include "library/schema.h"

namespace korvane {
namespace {

class Status : public ScanEvents {
 public:
  void scanStatus(const ScanProgress&) override { ++told; }
  void scanError(const QString& text) override { std::fprintf(stderr, "%s\n", qPrintable(text)); }
  int told = 0;
};

bool isWhole(Database& database) {
  OpenedDatabase open(database);
  auto check = open->run("PRAGMA integrity_check");
  return check.step() && check.text(0) == "ok"_L1;
}

}  // namespace

int benchScan(const QStringList& arguments) {
  if (arguments.size() != 2) return 2;
  const QByteArray tree = arguments[0].toUtf8();
  Database database(arguments[1]);
  createEmptyDatabase(database.path());
  bareStat(tree);  // both find the tree in memory

  MeasuringPump pump;
  Status status;
  Scanner scanner(database, pump, status);
  ScanResult first, second;
  pump.start();
  const Cost firstCost = measure([&] { first = scanner.scanTagged(arguments[0], {}); });
  const double gap = pump.maxGapMs();
  const Cost secondCost = measure([&] { second = scanner.scanTagged(arguments[0], {}); });

  int bareAdded = 0, bareFiles = 0;
  const QByteArray bare = (arguments[1] + u"/bare.mdb"_s).toUtf8();
  const Cost bareCost = measure([&] { bareAdded = bareScan(tree, bare); });
  const double bareSecond = fastest(3, [&] { bareFiles = bareStat(tree); });

  const bool right = first.files == bareFiles && second.files == bareFiles && second.added == 0 &&
                     first.failed == 0 && isWhole(database);
  Json("scan")
      .add("files", first.files)
      .add("added", first.added)
      .add("bare_added", bareAdded)
      .add(firstCost)
      .add("max_gap_ms", gap)
      .add("status", status.told)
      .add("bare_seconds", bareCost.seconds)
      .add("bare_cpu_s", bareCost.cpuSeconds)
      .add("ratio", firstCost.seconds / bareCost.seconds)
      .add("second_seconds", secondCost.seconds)
      .add("bare_stat_seconds", bareSecond)
      .add("second_ratio", secondCost.seconds / bareSecond)
      .add("right", right)
      .print();
  return right ? 0 : 1;
}

}  // namespace korvane
