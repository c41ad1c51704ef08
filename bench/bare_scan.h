// The unavoidable work of a scan, and nothing else: the measure for bench_scan.
#pragma once

#include "platform/text.h"

namespace korvane {

// Walks `tree` three levels deep, opens each file, reads its first 10 and last 128 bytes, looks for
// the song by an index and inserts it when it is new, all in one transaction into a database made
// at `path`. The rows inserted.
int bareScan(const QByteArray& tree, const QByteArray& path);

// Walks `tree` and stats each file; how many.
int bareStat(const QByteArray& tree);

}  // namespace korvane
