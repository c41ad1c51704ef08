#include "platform/file_system.h"

namespace korvane {

QString FileSystem::slashed(QString path) {
  return path.replace(u'\\', u'/');
}

QString FileSystem::BuildPath(const QString& folder, const QString& name) {
  const QString left = slashed(folder), right = slashed(name);
  if (left.isEmpty() || right.isEmpty()) return left + right;
  const bool split = left.endsWith(u'/') || right.startsWith(u'/');
  return split ? left + right : left + u'/' + right;
}

QString FileSystem::GetParentFolderName(const QString& path) {
  QString parent = slashed(path);
  while (parent.size() > 1 && parent.endsWith(u'/')) parent.chop(1);
  const qsizetype slash = parent.lastIndexOf(u'/');
  if (slash < 0 || parent.size() == 1) return {};
  return parent.first(std::max<qsizetype>(slash, 1));
}

}  // namespace korvane
