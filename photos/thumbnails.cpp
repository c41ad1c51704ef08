#include "photos/thumbnails.h"

#include <numeric>

#include "core/chooser_lists.h"

namespace korvane {

void Thumbnails::begin(const AlbumThumbs& of, const QString& pattern, Way way) {
  const auto stop = [this] {
    if (pass_.running()) return pass_.stop();
    round_.reset();  // a disk that never answers
    end();
  };
  if (!uses_.work.begin(stop)) return;
  thumbs_ = of;
  notSaved_ = 0;
  round_ = std::make_shared<int>();
  uses_.cells.begin(of.reading());
  const auto album = std::make_shared<Album>();
  uses_.pump.aside(
      [album, of, &files = uses_.files, pattern, way] { *album = look(of, files, pattern, way); },
      [this, album, way, round = std::weak_ptr<int>(round_)] {
        if (!round.expired()) found(std::move(*album), way);
      });
}

void Thumbnails::drop() {
  round_.reset();
  pass_.drop();
  uses_.work.end();
}

// The order of the disk is another one on each volume. What pairs by position needs one that is
// the same for pictures and thumbnails, that of their names.
QStringList Thumbnails::filesIn(const FileSystem& files, const QString& folder) {
  return files.FolderExists(folder) ? fileRows(files, folder, u"*") : QStringList();
}

Thumbnails::Album Thumbnails::look(const AlbumThumbs& of, FileSystem& files, const QString& pattern,
                                   Way way) {
  Album album;
  album.names = fileRows(files, of.directory(), pattern);
  if (album.names.isEmpty() || of.isThumbs() || way == None) return album;
  if (way == Force) of.removeAll();
  if (of.byName()) {
    for (const QString& name : std::as_const(album.names)) album.thumbs << of.freshOf(name);
    return album;
  }
  files.CreateFolder(of.folder());
  album.thumbs = filesIn(files, of.folder());
  return album;
}

void Thumbnails::found(Album album, Way way) {
  album_ = std::move(album);
  uses_.listed(album_.names);
  if (album_.names.isEmpty()) return end();
  if (way == None) return LoadNoThumbs();
  if (thumbs_->isThumbs()) return end();
  if (thumbs_->byName()) return fillByName();
  if (album_.thumbs.size() < album_.names.size()) return makeInOrder();
  showByPosition();
}

void Thumbnails::LoadNoThumbs() {
  PooledPass::Job job;
  job.count = static_cast<int>(album_.names.size());
  job.work = [this](int at) -> PooledPass::Work {
    const QString path = thumbs_->directory() + album_.names[at];
    return [this, at, path, &imaging = uses_.imaging, reading = thumbs_->reading()] {
      return [this, at, path, loaded = imaging.load(path, reading)] {
        const QString& name = album_.names[at];
        uses_.work.show(at, static_cast<int>(album_.names.size()), u"Thumb Nail "_s + name);
        if (!loaded.pixels) return PictureLoader::logFailure(uses_.log, path, loaded.error);
        uses_.cells.put(uses_.cells.size(), PictureCell::of(thumbs_->directory(), name),
                        loaded.pixels);
      };
    };
  };
  job.end = [this](bool) { end(); };
  pass_.run(std::move(job));
}

void Thumbnails::make(std::vector<int> which,
                      std::function<void(int, const AlbumThumbs::Made&)> made,
                      std::function<void(bool)> then) {
  PooledPass::Job job;
  job.count = static_cast<int>(which.size());
  job.work = [this, which = std::move(which), made = std::move(made)](int at) -> PooledPass::Work {
    const int index = which[static_cast<size_t>(at)];
    return [this, index, made, thumbs = *thumbs_, name = album_.names[index]] {
      return [this, index, made, name, result = thumbs.make(name)] {
        uses_.work.show(index, static_cast<int>(album_.names.size()), u"Thumb Nail "_s + name);
        if (!result.pixels)
          PictureLoader::logFailure(uses_.log, thumbs_->directory() + name, result.readError);
        else if (result.path.isEmpty())
          saveFailed(name, result.saveError);
        made(index, result);
      };
    };
  };
  job.end = std::move(then);
  pass_.run(std::move(job));
}

// Every one is made again, whatever there is. The sheet shows those that are done while the others
// are at work; which file belongs to which name is settled behind the last.
void Thumbnails::makeInOrder() {
  std::vector<int> all(static_cast<size_t>(album_.names.size()));
  std::iota(all.begin(), all.end(), 0);
  const auto made = [this](int index, const AlbumThumbs::Made& result) {
    if (!result.pixels) return;
    uses_.cells.put(uses_.cells.size(),
                    PictureCell::of(thumbs_->directory(), album_.names[index], result.path),
                    result.pixels);
  };
  make(std::move(all), made, [this](bool stopped) {
    if (stopped || notSaved_ > 0) return end();
    const auto thumbs = std::make_shared<QStringList>();
    uses_.pump.aside([thumbs, &files = uses_.files,
                      folder = thumbs_->folder()] { *thumbs = filesIn(files, folder); },
                     [this, thumbs, round = std::weak_ptr<int>(round_)] {
                       if (round.expired()) return;
                       album_.thumbs = std::move(*thumbs);
                       showByPosition();
                     });
  });
}

// The k-th thumbnail that can be read belongs to the k-th name.
void Thumbnails::showByPosition() {
  const auto shown = std::make_shared<int>(0);
  PooledPass::Job job;
  job.count = static_cast<int>(album_.thumbs.size());
  job.work = [this, shown](int at) -> PooledPass::Work {
    const QString path = FileSystem::BuildPath(thumbs_->folder(), album_.thumbs[at]);
    Imaging::Reading reading = thumbs_->reading();
    reading.upright = reading.enlarge = false;
    return [this, shown, path, &imaging = uses_.imaging, reading] {
      return [this, shown, path, loaded = imaging.load(path, reading)] {
        if (!loaded.pixels) return PictureLoader::logFailure(uses_.log, path, loaded.error);
        const int index = (*shown)++;
        if (index >= album_.names.size()) return;
        const QString& name = album_.names[index];
        uses_.work.show(index, static_cast<int>(album_.names.size()), name);
        uses_.cells.put(index, PictureCell::of(thumbs_->directory(), name, path), loaded.pixels);
      };
    };
  };
  job.end = [this, shown](bool stopped) {
    if (!stopped) uses_.cells.truncate(std::min(*shown, static_cast<int>(album_.names.size())));
    end();
  };
  pass_.run(std::move(job));
}

void Thumbnails::fillByName() {
  std::vector<int> missing;
  for (int index = 0; index < album_.names.size(); ++index) {
    PictureCell cell =
        PictureCell::of(thumbs_->directory(), album_.names[index], album_.thumbs[index]);
    cell.coming = cell.thumb.isEmpty();
    if (cell.coming) missing.push_back(index);
    uses_.cells.put(index, std::move(cell));
  }
  const auto made = [this](int index, const AlbumThumbs::Made& result) {
    uses_.cells.give(index, result.pixels, result.path);
  };
  make(std::move(missing), made, [this](bool) {
    uses_.cells.nothingComes();
    end();
  });
}

void Thumbnails::saveFailed(const QString& name, const QString& error) {
  ++notSaved_;
  saveError_ = error;
  uses_.log.logIt(u"Error saving the thumbnail of '"_s + thumbs_->directory() + name + u"' "_s +
                  error);
}

void Thumbnails::end() {
  uses_.work.end();
  uses_.ended();
  if (notSaved_ == 0) return;
  uses_.messages.say(
      u"%1 cannot be kept. %2 What was made is shown all the same, and Force creation makes it "
      "again."_s.arg(counted(std::exchange(notSaved_, 0), u"thumbnail"_s), saveError_));
}

}  // namespace korvane
