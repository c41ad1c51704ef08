// The playlist reader on any bytes: it ends, every line is one of the file, none holds a line's
// end, and what is written for a line's path is read back as that path. The input is a file.
#include <cstdlib>

#include "library/lists/m3u_reader.h"
#include "platform/path_text.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace korvane;
  const QByteArray file(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  M3uReader reader(file);
  for (size_t lines = 0; reader.next(); ++lines) {
    if (lines > 2 * size) std::abort();
    const QStringList meanings = reader.meanings(u"/lists"_s);
    if (meanings.isEmpty() || meanings[0] != reader.text()) std::abort();
    if (!reader.ambiguous() && meanings.size() > 1) std::abort();
    for (const QString& path : meanings) {
      if (!path.startsWith(u'/') || path.contains(QChar(0xFFFD))) continue;
      if (toPath(fromPath(path)) != path || path.size() > 4000 || path.contains(u'\n') ||
          path.contains(u'\r') || path.contains(QChar(0)))
        continue;
      M3uReader again(playlistLine(path));
      if (!again.next() || !again.meanings(u"/lists"_s).contains(path)) std::abort();
    }
  }
  return 0;
}
