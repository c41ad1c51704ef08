#include "core/graphics.h"

namespace korvane {

bool isThemeName(QStringView text) {
  const bool path = text.contains(u'/') || text.contains(u'\\');
  return !path && !text.isEmpty() && text != "."_L1 && text != ".."_L1 && text != "NO"_L1;
}

Graphics::Graphics(const FileSystem& files, const AppState& state, const QString& home)
    : files_(files), state_(state), root_(home + u"/krvgraphics"_s) {}

void Graphics::initGraphicsCache() {
  graphicsIndex_.clear();
  graphicsPictures_.clear();
}

QString Graphics::themeDirectory() const {
  return root_ + u'/' + state_.gTheme;
}

bool Graphics::themeExists() const {
  return isThemeName(state_.gTheme) && files_.FolderExists(themeDirectory());
}

PicturePtr Graphics::loadGraphic(const QString& group, const QString& pictureName) {
  QString stem = themeDirectory() + u'/';
  QStringList endings{u".gif"_s, u".jpg"_s, u".svg"_s};
  if (pictureName.compare("splash"_L1, Qt::CaseInsensitive) == 0) {
    stem += u"splash"_s;
    endings = {u".jpg"_s, u".svg"_s};
  } else if (group.compare("root"_L1, Qt::CaseInsensitive) == 0) {
    stem += pictureName;
  } else {
    stem += group + u'/' + pictureName;
  }

  if (const auto known = graphicsIndex_.constFind(stem); known != graphicsIndex_.constEnd())
    return graphicsPictures_[static_cast<size_t>(*known)];

  for (const QString& ending : endings) {
    const std::optional<QString> path = files_.resolve(stem + ending);
    if (!path) continue;
    const std::optional<QByteArray> bytes = files_.read(*path);
    if (!bytes || bytes->isEmpty()) return nullptr;
    graphicsPictures_.push_back(std::make_shared<const PictureFile>(PictureFile{*path, *bytes}));
    addGraphicIndex(stem, static_cast<int>(graphicsPictures_.size()) - 1);
    return graphicsPictures_.back();
  }
  return nullptr;
}

void Graphics::addGraphicIndex(const QString& title, int position) {
  graphicsIndex_.insert(title, position);
}

QStringList Graphics::themes(FileSystem& files) const {
  files.CreateFolder(root_);
  QStringList found;
  for (const QString& folder : files.SubFolders(root_)) {
    if (!isThemeName(folder.toUpper())) continue;
    QStringList inside;
    for (const QString& inner : files.SubFolders(root_ + u'/' + folder)) inside << inner.toUpper();
    if (inside.contains("MUSIC"_L1) && inside.contains("MORE"_L1) && inside.contains("MAIN"_L1))
      found << folder;
  }
  found.sort(Qt::CaseInsensitive);
  return found;
}

}  // namespace korvane
