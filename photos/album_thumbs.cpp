#include "photos/album_thumbs.h"

#include <QCryptographicHash>

namespace korvane {
namespace {

constexpr int kQuality = 60;

}  // namespace

AlbumThumbs::AlbumThumbs(const Uses& uses, QString directory, const Imaging::Reading& reading,
                         bool byName)
    : files_(&uses.files),
      imaging_(&uses.imaging),
      cache_(uses.cache),
      directory_(std::move(directory)),
      reading_(reading),
      byName_(byName) {}

QString AlbumThumbs::cacheOf() const {
  const QByteArray hash =
      QCryptographicHash::hash(directory_.toUtf8(), QCryptographicHash::Sha1).toHex();
  return FileSystem::BuildPath(cache_, QString::fromLatin1(hash));
}

QStringList AlbumThumbs::filesOf(const QString& name) const {
  if (!byName_) return {FileSystem::BuildPath(folder(), name.section(u'.', 0, 0) + u".JPG"_s)};
  const QString file = name + u".JPG"_s;
  return {FileSystem::BuildPath(folder(), file), FileSystem::BuildPath(cacheOf(), file)};
}

QString AlbumThumbs::freshOf(const QString& name) const {
  const qint64 changed = files_->stamp(directory_ + name).modified;
  for (const QString& file : filesOf(name)) {
    const QString there = files_->resolve(file).value_or(QString());
    if (there.isEmpty()) continue;
    const FileSystem::Stamp stamp = files_->stamp(there);
    if (stamp.size > 0 && stamp.modified >= changed) return there;
  }
  return {};
}

AlbumThumbs::Made AlbumThumbs::make(const QString& name) const {
  Made made;
  const Imaging::Loaded loaded = imaging_->load(directory_ + name, reading_);
  made.pixels = loaded.pixels;
  made.readError = loaded.error;
  if (!made.pixels) return made;
  const QByteArray bytes = imaging_->jpeg(*made.pixels, kQuality);
  if (bytes.isEmpty()) {
    made.saveError = u"There is no memory for it."_s;
    return made;
  }
  QString error;
  for (const QString& file : filesOf(name)) {
    error.clear();
    const bool stands = files_->CreateFolder(FileSystem::GetParentFolderName(file));
    if (stands && files_->replace(file, bytes, &error)) {
      made.path = file;
      return made;
    }
    if (error.isEmpty()) error = u"Its folder cannot be made."_s;
    if (made.saveError.isEmpty()) made.saveError = error;  // of the place where it should be
  }
  return made;
}

void AlbumThumbs::remove(const QString& name) const {
  for (const QString& file : filesOf(name))
    if (files_->FileExists(file)) files_->DeleteFile(file);
}

void AlbumThumbs::removeAll() const {
  if (files_->FolderExists(folder())) files_->DeleteFolder(folder());
  if (byName_ && files_->FolderExists(cacheOf())) files_->DeleteFolder(cacheOf());
}

}  // namespace korvane
