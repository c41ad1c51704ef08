#include "movies/movie_marks.h"

#include <algorithm>

#include "core/conversions.h"

namespace korvane {
namespace {

constexpr double kEdgeSeconds = 5;  // of the beginning and the end
constexpr qint64 kLargest = 1 << 20;

bool canBeKept(const QString& path) {
  return !path.contains(u'\n') && !path.contains(u'\t');
}

}  // namespace

MovieMarks::MovieMarks(FileSystem& files, const Log& log, const QString& home)
    : files_(files), log_(log), file_(FileSystem::BuildPath(home, u"MoviePlaces.txt"_s)) {}

std::deque<MovieMarks::Mark>& MovieMarks::marks() const {
  if (marks_) return *marks_;
  marks_.emplace();
  const auto bytes = files_.FileExists(file_) ? files_.read(file_, kLargest) : std::nullopt;
  if (!bytes) return *marks_;
  for (const QString& line : QString::fromUtf8(*bytes).split(u'\n')) {
    const auto seconds = numeric(line.section(u'\t', 0, 0));
    const auto length = numeric(line.section(u'\t', 1, 1));
    const QString path = line.section(u'\t', 2);
    if (seconds && length && *seconds > 0 && *length >= 0 && !path.isEmpty() &&
        marks_->size() < kMost)
      marks_->push_back({path, *seconds, *length});
  }
  return *marks_;
}

const MovieMarks::Mark* MovieMarks::find(const QString& path) const {
  const auto found = std::ranges::find(marks(), path, &Mark::path);
  return found == marks().end() ? nullptr : &*found;
}

double MovieMarks::secondsOf(const QString& path) const {
  const Mark* mark = find(path);
  return mark ? mark->seconds : 0;
}

QString MovieMarks::seen(const QString& path) const {
  const Mark* mark = find(path);
  if (!mark || mark->length <= 0) return {};
  return u"%1 %"_s.arg(std::clamp(std::round(100 * mark->seconds / mark->length), 1.0, 99.0));
}

bool MovieMarks::drop(const QString& path) {
  return std::erase_if(marks(), [&](const Mark& mark) { return mark.path == path; }) > 0;
}

void MovieMarks::remember(const QString& path, double seconds, double length) {
  const bool begun = seconds >= kEdgeSeconds && (length <= 0 || seconds <= length - kEdgeSeconds);
  if (!begun || !canBeKept(path)) return forget(path);
  drop(path);
  marks().push_front({path, seconds, length});
  if (marks().size() > kMost) marks().pop_back();
  save();
}

void MovieMarks::forget(const QString& path) {
  if (drop(path)) save();
}

void MovieMarks::save() {
  QString text;
  for (const Mark& mark : marks())
    text +=
        u"%1\t%2\t%3\n"_s.arg(mark.seconds, 0, 'f', 1).arg(mark.length, 0, 'f', 1).arg(mark.path);
  QString error;
  if (!files_.replace(file_, text.toUtf8(), &error))
    log_.logIt(u"%1 cannot be written: %2"_s.arg(file_, error));
  changed();
}

}  // namespace korvane
