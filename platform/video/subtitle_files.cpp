#include "platform/video/subtitle_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include "platform/path_text.h"

namespace korvane {
namespace {

constexpr size_t kMostFiles = 16;
constexpr qsizetype kHead = 16384;  // bytes in which the first line of times is sought

bool holdsTimes(const QByteArray& path) {
  // Without waiting: what has the name may be a pipe.
  const int file = ::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (file < 0) return false;
  QByteArray head(kHead, Qt::Uninitialized);
  head.truncate(std::max<ssize_t>(0, ::read(file, head.data(), kHead)));
  ::close(file);
  return head.replace('\0', "").contains("-->");  // in UTF-16 too
}

}  // namespace

std::vector<SubtitleFile> subtitleFiles(const QString& movie) {
  std::vector<SubtitleFile> found;
  const qsizetype slash = movie.lastIndexOf(u'/');
  const QString folder = movie.first(slash + 1);
  const QString file = movie.sliced(slash + 1);
  const qsizetype dot = file.lastIndexOf(u'.');
  const QString stem = dot > 0 ? file.first(dot) : file;
  DIR* directory = opendir(folder.isEmpty() ? "." : fromPath(folder).constData());
  if (!directory) return found;
  while (const dirent* entry = readdir(directory)) {
    const QString name = toPath(QByteArray(entry->d_name));
    if (!name.endsWith(".srt"_L1, Qt::CaseInsensitive) ||
        !foldedName(name).startsWith(foldedName(stem)))
      continue;
    const QString beyond = name.sliced(std::min(stem.size(), name.size() - 4)).chopped(4);
    if (!beyond.isEmpty() && !beyond.startsWith(u'.')) continue;  // of another movie
    const QByteArray path = fromPath(folder) + entry->d_name;
    if (!holdsTimes(path)) continue;
    found.push_back({path, beyond.size() > 1 ? beyond.sliced(1) : name.chopped(4)});
  }
  closedir(directory);
  std::sort(found.begin(), found.end(), [](const SubtitleFile& a, const SubtitleFile& b) {
    return foldedName(a.name) < foldedName(b.name);
  });
  if (found.size() > kMostFiles) found.resize(kMostFiles);
  return found;
}

}  // namespace korvane
