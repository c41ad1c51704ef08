// LoadGraphics: turns (group, name) into a picture of the active theme, cached for the whole run.
#pragma once

#include <memory>

#include "core/app_state.h"
#include "core/form/control.h"
#include "platform/file_system.h"

namespace korvane {

// A picture file's bytes. Decoding is the face's part.
struct PictureFile {
  QString path;
  QByteArray bytes;
  bool svg() const { return path.endsWith(".svg"_L1, Qt::CaseInsensitive); }
};
using PicturePtr = std::shared_ptr<const PictureFile>;

// Whether a text can be a theme: the plain name of a folder, so neither a path nor "NO", which
// stands for none.
bool isThemeName(QStringView text);

class Graphics {
 public:
  // `home` is the program directory. The theme is the one that `state` names at each call.
  Graphics(const FileSystem& files, const AppState& state, const QString& home);

  void initGraphicsCache();  // forgets all pictures

  // The theme's `<group>/<name>.gif`, else `.jpg`, else `.svg`; null when there is no such file or
  // it is empty. Each file is read once per run; a missing one is looked for again at each call.
  PicturePtr loadGraphic(const QString& group, const QString& name);

  QString themeDirectory() const;  // of the active theme
  bool themeExists() const;        // its name is plain, and there is such a folder
  // Themes by name: the folders of krvgraphics/ which have folders MUSIC, MORE and MAIN. Makes
  // krvgraphics/ when it is missing.
  QStringList themes(FileSystem& files) const;

 private:
  void addGraphicIndex(const QString& title, int key);

  const FileSystem& files_;
  const AppState& state_;
  QString root_;  // <home>/krvgraphics
  QHash<QString, int> graphicsIndex_;
  std::vector<PicturePtr> graphicsPictures_;
};

}  // namespace korvane
