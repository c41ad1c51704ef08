// What the directory chooser shows of a place on the disk: decisions apart from any control.
#pragma once

#include "platform/file_system.h"

namespace korvane {

inline constexpr char kFolderUp[] = "..";

// The file's name fits one of the patterns "*.mp3;*.wma", in any case.
bool fitsPattern(QStringView fileName, QStringView patterns);

// The folders of `path` in the order of their names, ".." first below the root.
QStringList folderRows(const FileSystem& files, const QString& path);
// The files of `path` that fit the patterns, in the order of their names.
QStringList fileRows(const FileSystem& files, const QString& path, QStringView patterns);

// Where a press on a row of folderRows leads.
QString folderAt(const QString& path, const QString& row);

// The volume of `volumes` that holds `path`: the longest one. Its place in the list, -1 for none.
int volumeOf(const QStringList& volumes, const QString& path);

QString withSeparator(const QString& folder);  // '/' added where it has none at its end

// The word that an entry of the chooser stands for: its trimmed first 14 characters. Empty for
// the first entry (index 0) and for none (-1): there the chosen file is taken.
QString customSelected(const QStringList& entries, int index);

}  // namespace korvane
