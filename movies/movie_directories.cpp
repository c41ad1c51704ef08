#include "movies/movie_directories.h"

namespace korvane {

const std::array<MovieDirectoryKeys, kMovieDirectories> kMovieDirectoryKeys{{
    {&key::DVD0, &key::PW0},
    {&key::DVD1, &key::PW1},
    {&key::DVD2, &key::PW2},
    {&key::DVD3, &key::PW3},
    {&key::DVD4, &key::PW4},
    {&key::DVD5, &key::PW5},
    {&key::MDirectory, &key::PW6},
    {&key::MDirectory1, &key::PW7},
    {&key::MDirectory2, &key::PW8},
    {&key::MDirectory3, &key::PW9},
}};

namespace {

const MovieDirectoryKeys& keysOf(int index) {
  return kMovieDirectoryKeys[static_cast<size_t>(index)];
}

QString cutAtEnd(QString path) {
  while (path.size() > 1 && (path.endsWith(u'/') || path.endsWith(u'\\'))) path.chop(1);
  return path;
}

}  // namespace

QString MovieDirectories::directory(int index) const {
  const QString stored = settings_.str(*keysOf(index).directory);
  if (stored.isEmpty() || stored == "NO"_L1) return {};
  const QString path = cutAtEnd(FileSystem::slashed(stored));
  const bool absolute = path.startsWith(u'/') || path.mid(1, 1) == ":"_L1;
  return absolute ? path : FileSystem::BuildPath(settings_.home(), path);
}

bool MovieDirectories::setDirectory(int index, QString path, QString* error) {
  return settings_.write(*keysOf(index).directory, cutAtEnd(std::move(path)), error);
}

QString MovieDirectories::password(int index) const {
  const QString stored = settings_.raw(*keysOf(index).password);
  return stored == "NO"_L1 ? QString() : stored;
}

bool MovieDirectories::setPassword(int index, const QString& password, QString* error) {
  if (!settings_.write(*keysOf(index).password, password.isEmpty() ? u"NO"_s : password, error))
    return false;
  directoryOpened_[static_cast<size_t>(index)] = false;
  return true;
}

bool isMovieName(const QString& name, const QString& kinds) {
  const QString behindFirst = name.mid(name.indexOf(u'.') + 1).toUpper();
  if (!behindFirst.isEmpty() && "AVIzMOVzMPEGzMPG"_L1.contains(behindFirst)) return true;
  const QString behindLast = name.section(u'.', -1).toUpper();
  return name.contains(u'.') && !behindLast.isEmpty() &&
         kinds.split(u' ', Qt::SkipEmptyParts).contains(behindLast);
}

}  // namespace korvane
