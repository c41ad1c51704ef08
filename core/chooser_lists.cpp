#include "core/chooser_lists.h"

#include "core/natural_order.h"

namespace korvane {
namespace {

QString parentOf(const QString& path) {
  const qsizetype at = path.lastIndexOf(u'/', path.endsWith(u'/') ? -2 : -1);
  return at <= 0 ? u"/"_s : path.left(at);
}

QStringList sorted(QStringList names) {
  std::ranges::sort(names, naturalOrder());
  return names;
}

}  // namespace

bool fitsPattern(QStringView fileName, QStringView patterns) {
  for (QStringView pattern : patterns.split(u';', Qt::SkipEmptyParts)) {
    pattern = pattern.trimmed();
    if (pattern == u"*" || pattern == u"*.*") return true;
    const QStringView ending = pattern.startsWith(u'*') ? pattern.mid(1) : pattern;
    if (fileName.endsWith(ending, Qt::CaseInsensitive)) return true;
  }
  return false;
}

QStringList folderRows(const FileSystem& files, const QString& path) {
  QStringList rows = sorted(files.SubFolders(path));
  rows.removeIf([](const QString& name) { return name.startsWith(u'.'); });
  if (path != "/"_L1) rows.prepend(QString::fromLatin1(kFolderUp));
  return rows;
}

QStringList fileRows(const FileSystem& files, const QString& path, QStringView patterns) {
  QStringList rows = files.Files(path);
  rows.removeIf([&](const QString& name) { return !fitsPattern(name, patterns); });
  return sorted(rows);
}

QString folderAt(const QString& path, const QString& row) {
  return row == QLatin1StringView(kFolderUp) ? parentOf(path) : FileSystem::BuildPath(path, row);
}

int volumeOf(const QStringList& volumes, const QString& path) {
  const QString inside = withSeparator(path);
  int best = -1;
  for (int i = 0; i < volumes.size(); ++i) {
    if (!inside.startsWith(withSeparator(volumes[i]))) continue;
    if (best < 0 || volumes[i].size() > volumes[best].size()) best = i;
  }
  return best;
}

QString withSeparator(const QString& folder) {
  const QString path = FileSystem::slashed(folder);
  return path.endsWith(u'/') ? path : path + u'/';
}

QString customSelected(const QStringList& entries, int index) {
  constexpr qsizetype kWordWidth = 14;
  if (index <= 0 || index >= entries.size()) return {};
  return entries[index].left(kWordWidth).trimmed();
}

}  // namespace korvane
