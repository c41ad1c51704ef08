#include "tests/fakes/fake_file_system.h"

#include <QDir>

#include "platform/path_text.h"

namespace korvane {
namespace {

QString clean(const QString& path) {
  return QDir::cleanPath(FileSystem::slashed(path));
}

}  // namespace

QString FakeFileSystem::key(const QString& path) {
  return foldedName(clean(path));
}

const FakeFileSystem::Node* FakeFileSystem::node(const QString& path) const {
  const auto found = nodes_.find(key(path));
  return found == nodes_.end() ? nullptr : &found->second;
}

std::optional<QString> FakeFileSystem::resolve(const QString& path) const {
  const Node* found = node(path);
  return found ? std::optional(found->path) : std::nullopt;
}

bool FakeFileSystem::FileExists(const QString& path) const {
  const Node* found = node(path);
  return found && !found->folder;
}

bool FakeFileSystem::FolderExists(const QString& path) const {
  const Node* found = node(path);
  return clean(path) == "/"_L1 || (found && found->folder);
}

bool FakeFileSystem::CreateFolder(const QString& path) {
  if (FolderExists(path)) return true;
  if (path.isEmpty() || node(path)) return false;
  const QString parent = GetParentFolderName(clean(path));
  if (!parent.isEmpty() && !CreateFolder(parent)) return false;
  const QString name = clean(path).mid(clean(path).lastIndexOf(u'/') + 1);
  const QString folder = parent.isEmpty() ? QString() : resolve(parent).value_or(parent);
  nodes_[key(path)] = {BuildPath(folder, name), true, {}, 0};
  return true;
}

bool FakeFileSystem::DeleteFile(const QString& path) {
  return FileExists(path) && nodes_.erase(key(path)) == 1;
}

bool FakeFileSystem::DeleteFolder(const QString& path) {
  if (!FolderExists(path) || clean(path) == "/"_L1) return false;
  const QString folder = key(path);
  std::erase_if(nodes_, [&](const auto& entry) {
    return entry.first == folder || entry.first.startsWith(folder + u'/');
  });
  return true;
}

bool FakeFileSystem::MoveFile(const QString& from, const QString& to) {
  const auto bytes = read(from);
  return bytes && DeleteFile(from) && replace(to, *bytes);
}

bool FakeFileSystem::copyInPieces(const QString& from, const QString& to, const CopyWatch& watch,
                                  QString* error) {
  const auto bytes = read(from);
  const QString name = clean(from).mid(clean(from).lastIndexOf(u'/') + 1);
  if (!bytes || !watch(bytes->size())) return false;
  return replace(FolderExists(to) ? BuildPath(to, name) : to, *bytes, error);
}

qint64 FakeFileSystem::size(const QString& path) const {
  const Node* found = node(path);
  return found && !found->folder ? found->bytes.size() : -1;
}

QStringList FakeFileSystem::names(const QString& path, bool folders) const {
  const QString folder = clean(path) == "/"_L1 ? QString() : key(path);
  QStringList names;
  for (const auto& [at, entry] : nodes_) {
    const qsizetype slash = at.lastIndexOf(u'/');
    if (entry.folder == folders && slash == folder.size() && at.startsWith(folder))
      names.append(entry.path.mid(entry.path.lastIndexOf(u'/') + 1));
  }
  return names;
}

QStringList FakeFileSystem::SubFolders(const QString& path) const {
  return names(path, true);
}

QStringList FakeFileSystem::Files(const QString& path) const {
  return names(path, false);
}

FileSystem::Stamp FakeFileSystem::stamp(const QString& path) const {
  const Node* found = node(path);
  return found ? Stamp{found->bytes.size(), found->change, 0} : Stamp{};
}

std::optional<QByteArray> FakeFileSystem::read(const QString& path, qint64 limit) const {
  const Node* found = node(path);
  if (!found || found->folder || found->bytes.size() > limit) return std::nullopt;
  return found->bytes;
}

// Takes `count` bytes of the room that is left for a write to `path`.
bool FakeFileSystem::take(const QString& path, qint64 count, QString* error) {
  QString why;
  if (!FolderExists(GetParentFolderName(clean(path))))
    why = u"Its folder does not exist."_s;
  else if (FolderExists(path))
    why = u"A folder has that name."_s;
  else if (room >= 0 && count > room)
    why = u"The disk is full."_s;
  if (!why.isEmpty()) {
    if (error) *error = u"Could not save %1. %2"_s.arg(path, why);
    return false;
  }
  if (room >= 0) room -= count;
  return true;
}

bool FakeFileSystem::replace(const QString& path, const QByteArray& bytes, QString* error) {
  if (!take(path, bytes.size(), error)) return false;
  put(path, bytes);
  return true;
}

bool FakeFileSystem::append(const QString& path, const QByteArray& bytes) {
  if (!take(path, bytes.size(), nullptr)) return false;
  put(path, this->bytes(path) + bytes);
  return true;
}

void FakeFileSystem::put(const QString& path, const QByteArray& bytes) {
  const QString parent = GetParentFolderName(clean(path));
  if (!parent.isEmpty()) CreateFolder(parent);
  const QString name = clean(path).mid(clean(path).lastIndexOf(u'/') + 1);
  Node& file = nodes_[key(path)];
  if (file.path.isEmpty()) file.path = BuildPath(resolve(parent).value_or(parent), name);
  file.folder = false;
  file.bytes = bytes;
  file.change = ++changes_;
}

QByteArray FakeFileSystem::bytes(const QString& path) const {
  const Node* found = node(path);
  return found ? found->bytes : QByteArray();
}

}  // namespace korvane
