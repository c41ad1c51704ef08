#include "photos/photo_rows.h"

#include "core/natural_order.h"

namespace korvane {
namespace {

constexpr int kFirstFolder = 2;  // behind the line of the directory

bool is(const QString& name, QLatin1StringView word) {
  return name.compare(word, Qt::CaseInsensitive) == 0;
}

}  // namespace

PhotoRows::PhotoRows(QString directory, bool up) : directory_(std::move(directory)), up_(up) {}

void PhotoRows::PICdoallfolders(const FileSystem& files, PhotoOrder order) {
  for (const QString& name : files.SubFolders(directory_)) {
    if (is(name, "thumbs"_L1) || name.startsWith(u'.')) continue;
    const QString path = FileSystem::BuildPath(directory_, name);
    folders_.push_back({name, path, files.Files(path).size()});
  }
  if (order == PhotoOrder::Disk) return;
  folders_ = inNaturalOrder(std::move(folders_), [](const Folder& each) { return each.name; });
}

void PhotoRows::PICdoallfiles(const FileSystem& files, const Imaging& imaging, PhotoOrder order,
                              int mostRows) {
  QStringList names = files.Files(directory_);
  names.removeIf([](const QString& name) { return is(name, "thumbs.db"_L1); });
  files_ = inPhotoOrder(names, directory_, order, files, imaging);
  const qsizetype most = std::max(mostRows - rowCount() + static_cast<int>(files_.size()), 0);
  cut_ = files_.size() > most;
  if (cut_) files_ = files_.first(most);
}

int PhotoRows::rowCount() const {
  return 1 + static_cast<int>(folders_.size()) + static_cast<int>(files_.size());
}

const PhotoRows::Folder* PhotoRows::folder(int row) const {
  const int at = row - kFirstFolder;
  return at < 0 || at >= static_cast<int>(folders_.size()) ? nullptr
                                                           : &folders_[static_cast<size_t>(at)];
}

bool PhotoRows::isFolder(int row) const {
  return row == 1 ? up_ : folder(row) != nullptr;
}

QString PhotoRows::cell(int column, int row) const {
  const Folder* of = folder(row);
  if (column == Path) return of ? of->path : QString();
  if (column != Name) return {};
  if (row == 1) return directory_;
  if (of) return u"%1 (%2)"_s.arg(of->name, QString::number(of->files));
  return files_.value(row - kFirstFolder - static_cast<int>(folders_.size()));
}

std::optional<Picture> PhotoRows::picture(int column, int row) const {
  if (column != Icon || !isFolder(row)) return Picture();
  return Picture{u"photos"_s, row == 1 ? u"UpDirectory"_s : u"folderclosed"_s, nullptr};
}

bool PhotoRows::operator==(const PhotoRows& other) const {
  return directory_ == other.directory_ && up_ == other.up_ && cut_ == other.cut_ &&
         folders_ == other.folders_ && files_ == other.files_;
}

}  // namespace korvane
