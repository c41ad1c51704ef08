#include "platform/video/subtitle_files.h"

#include <dirent.h>

#include "platform/path_text.h"

namespace korvane {
namespace {

constexpr size_t kMostFiles = 16;

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
    found.push_back(
        {fromPath(folder) + entry->d_name, beyond.size() > 1 ? beyond.sliced(1) : name.chopped(4)});
  }
  closedir(directory);
  std::sort(found.begin(), found.end(), [](const SubtitleFile& a, const SubtitleFile& b) {
    return foldedName(a.name) < foldedName(b.name);
  });
  if (found.size() > kMostFiles) found.resize(kMostFiles);
  return found;
}

}  // namespace korvane
