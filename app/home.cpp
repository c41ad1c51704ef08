#include "app/home.h"

#include <unistd.h>

#include <QDir>

#include "library/data/database.h"
#include "library/data/schema.h"
#include "platform/path_text.h"

namespace korvane {
namespace {

constexpr char kSettings[] = "Morvanta.INI";

bool copyTree(FileSystem& files, const QString& from, const QString& to) {
  if (!files.CreateFolder(to)) return false;
  for (const QString& name : files.Files(from))
    if (!files.FileExists(FileSystem::BuildPath(to, name)) &&
        !files.CopyFile(FileSystem::BuildPath(from, name), FileSystem::BuildPath(to, name)))
      return false;
  for (const QString& name : files.SubFolders(from))
    if (!copyTree(files, FileSystem::BuildPath(from, name), FileSystem::BuildPath(to, name)))
      return false;
  return true;
}

}  // namespace

QString chooseHome(const QString& asked, const QString& executableDirectory,
                   const FileSystem& files) {
  if (!asked.isEmpty()) return QDir(asked).absolutePath();
  if (const QString set = qEnvironmentVariable("KORVANE_HOME"); !set.isEmpty())
    return QDir(set).absolutePath();
  if (files.FileExists(FileSystem::BuildPath(executableDirectory, QString::fromLatin1(kSettings))))
    return executableDirectory;
  const QString data = qEnvironmentVariable("XDG_DATA_HOME");
  return (data.isEmpty() ? QDir::homePath() + u"/.local/share"_s : data) + u"/korvane"_s;
}

QString starterDirectory(const QString& executableDirectory, const FileSystem& files) {
  for (const QString& candidate :
       {executableDirectory + u"/starter"_s, executableDirectory + u"/../share/korvane/starter"_s,
        QStringLiteral(KORVANE_SOURCE_STARTER)})
    if (files.FolderExists(candidate)) return QDir(candidate).canonicalPath();
  return {};
}

bool makeHome(const QString& home, const QString& starter, FileSystem& files, QString* error) {
  const auto failed = [&](const QString& what) {
    *error =
        u"%1 could not be made. Check that the disk is writable and has room, or choose another "
        "directory with --home."_s.arg(what);
    return false;
  };
  if (!files.CreateFolder(home)) return failed(home);
  const QString settings = FileSystem::BuildPath(home, QString::fromLatin1(kSettings));
  const bool first = !files.FileExists(settings);
  if (first && !starter.isEmpty() && !copyTree(files, starter, home)) return failed(settings);

  const QString themes = home + u"/krvgraphics"_s;
  const QString shipped = starter + u"/../themes/krvgraphics"_s;
  if (first && !files.FolderExists(themes) && files.FolderExists(shipped) &&
      !copyTree(files, shipped, themes))
    return failed(themes);

  const QString database = FileSystem::BuildPath(home, QString::fromLatin1(Database::kFileName));
  if (first && !files.FileExists(database)) {
    try {
      createEmptyDatabase(database);
    } catch (const std::exception& failure) {
      *error = QString::fromUtf8(failure.what());
      return false;
    }
  }
  return true;
}

}  // namespace korvane
