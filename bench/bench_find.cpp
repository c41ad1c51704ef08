// korvane-bench find HOME: a typed prefix found among all titles.
#include <random>

#include "bench/bench.h"
#include "bench/bench_library.h"
#include "library/data/database.h"

namespace korvane {

int benchFind(const QStringList& arguments) {
  if (arguments.size() != 1) return 2;
  Database db(arguments[0]);
  const auto songs = db.getAllSongs();
  std::mt19937 random(1);
  QStringList typed;
  for (int i = 0; i < 2000; ++i) {
    const int row = 1 + static_cast<int>(random() % static_cast<unsigned>(songs->rowCount()));
    typed << songs->cell(1, row).left(1 + static_cast<int>(random() % 8)).toLower();
  }
  bool right = true;
  for (const QString& text : typed) {
    const int row = songs->Find(text);
    const auto before = [&](int at) {
      return text_order::compare(songs->cell(1, at).toStdString(), text.toStdString()) < 0;
    };
    right = right && (row == 1 || before(row - 1)) && (row > songs->rowCount() || !before(row));
  }
  int sum = 0;
  const double seconds = fastest(20, [&] {
    for (const QString& text : typed) sum += songs->Find(text) & 1;
  });
  Json("find")
      .add("songs", songs->rowCount())
      .add("find_us", seconds * 1e6 / static_cast<double>(typed.size()))
      .add("peak_mib", measure([] {}).peakMib)
      .add("right", right && sum >= 0)
      .print();
  return right ? 0 : 1;
}

}  // namespace korvane
