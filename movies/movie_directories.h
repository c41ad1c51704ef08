// The ten directories of movies: six whose folders hold a DVD each, four of movie files. Each may
// have a password, which is asked for once while the program runs.
#pragma once

#include <array>

#include "core/settings.h"

namespace korvane {

inline constexpr int kDvdDirectories = 6, kMovieDirectories = 10;

struct MovieDirectoryKeys {
  const SettingKey *directory, *password;
};
// By the number of the directory: 0 to 5 those of DVDs, 6 to 9 those of files.
extern const std::array<MovieDirectoryKeys, kMovieDirectories> kMovieDirectoryKeys;

class MovieDirectories {
 public:
  explicit MovieDirectories(Settings& settings) : settings_(settings) {}  // which outlives it

  // '/' inside and none at the end, one that is relative lies in the program directory; empty for
  // none.
  QString directory(int index) const;
  // A separator at its end is cut; empty for none. False with `error` when it cannot be stored.
  // Yields.
  bool setDirectory(int index, QString path, QString* error);

  QString password(int index) const;  // empty for none
  // Closes the directory, so that it is asked for again. Empty for none. Yields.
  bool setPassword(int index, const QString& password, QString* error);

  // Whether the password was given, or was not needed, since the program began or it was changed.
  bool opened(int index) const { return directoryOpened_[static_cast<size_t>(index)]; }
  void open(int index) { directoryOpened_[static_cast<size_t>(index)] = true; }

 private:
  Settings& settings_;
  std::array<bool, 21> directoryOpened_{};
};

// Whether a file is a movie by its name: what stands behind its first "." occurs in
// "AVIzMOVzMPEGzMPG", so a name with two dots is none; or what stands behind its last one is among
// `kinds`, words in upper case with blanks between.
bool isMovieName(const QString& name, const QString& kinds);

}  // namespace korvane
