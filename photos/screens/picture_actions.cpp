#include "photos/screens/picture_actions.h"

namespace korvane {

void PictureActions::forChosen(const QString& text, const Each& work,
                               const std::function<void()>& then, bool together) {
  const std::vector<int> chosen = uses_.cells.selected();
  if (chosen.empty() || !uses_.work.begin([this] { pass_.stop(); })) return;
  PooledPass::Job job;
  job.count = static_cast<int>(chosen.size());
  job.together = together;
  job.work = [this, chosen, work, text](int at) -> PooledPass::Work {
    const int index = chosen[static_cast<size_t>(at)];
    return [this, index, text, one = work(index)] {
      return [this, index, text, taken = one()] {
        uses_.work.show(index, uses_.cells.size(), text + uses_.cells[index].name());
        if (taken) taken();
      };
    };
  };
  job.end = [then](bool) { then(); };
  pass_.run(std::move(job));
}

void PictureActions::Rotate(int angle) {
  const bool keepKind = uses_.settings.flag(key::KeepKind);
  const bool upright = uses_.settings.flag(key::PhotoTurn);
  const auto turn = [this, angle, keepKind, upright](int index) -> PooledPass::Work {
    const AlbumThumbs& thumbs = *uses_.thumbnails.thumbs();
    return [this, index, angle, keepKind, upright, thumbs, name = uses_.cells[index].name(),
            &files = uses_.files, &imaging = uses_.imaging]() -> PooledPass::Taken {
      const QString path = thumbs.directory() + name;
      thumbs.remove(name);
      QString unread, unsaved;
      const QByteArray turned = imaging.turned(path, angle, keepKind, upright, &unread);
      if (turned.isEmpty())
        return [this, path, unread] { PictureLoader::logFailure(uses_.log, path, unread); };
      files.replace(path, turned, &unsaved);
      return [this, index, path, unsaved, made = thumbs.make(name)] {
        if (!unsaved.isEmpty()) failed(path, unsaved);
        uses_.cells.give(index, made.pixels, made.path);
      };
    };
  };
  forChosen(
      u"Rotating "_s, turn, [this] { end(u"%1 could not be turned. %2"_s); }, true);
}

PictureActions::Removed PictureActions::putInTrash(Trash& trash, const FileSystem& files,
                                                   const AlbumThumbs& thumbs, const QString& name) {
  Removed removed;
  const QString path = thumbs.directory() + name;
  const auto put = trash.put(path, &removed.error);
  removed.done = put.has_value();
  if (!put) return removed;
  removed.gone = {path, *put, {}};
  for (const QString& file : thumbs.filesOf(name)) {
    const auto thumb = files.resolve(file);
    const auto thumbPut = thumb ? trash.put(*thumb, nullptr) : std::nullopt;
    if (thumbPut) removed.gone.thumbs.emplace_back(*thumb, *thumbPut);
  }
  return removed;
}

void PictureActions::mnuDeleted() {
  if (uses_.cells.selected().empty() || uses_.work.busy()) return;
  if (!uses_.messages.confirm(
          u"You are about to delete all highlighted pictures!  Are you sure?"_s))
    return;
  const bool toTrash = uses_.settings.flag(key::PhotoTrash);
  gone_.clear();
  const auto remove = [this, toTrash](int index) -> PooledPass::Work {
    return [this, index, toTrash, thumbs = *uses_.thumbnails.thumbs(),
            name = uses_.cells[index].name(), &files = uses_.files, &trash = uses_.trash] {
      Removed removed;
      const QString path = thumbs.directory() + name;
      if (toTrash)
        removed = putInTrash(trash, files, thumbs, name);
      else if (!files.DeleteFile(path) && files.FileExists(path))
        removed.error = u"Is its disk write-protected?"_s;
      else
        removed.done = true;
      return [this, index, path, toTrash, removed] {
        if (!removed.done) return failed(path, removed.error);
        if (toTrash) gone_.push_back(removed.gone);
        uses_.cells.setVisible(index, false);
      };
    };
  };
  forChosen(
      u"Deleting "_s, remove,
      [this] {
        end(u"%1 could not be deleted. %2"_s);
        if (!gone_.empty()) uses_.trashed();
      },
      false);
}

void PictureActions::takeBack() {
  if (gone_.empty() || !uses_.work.begin([this] { pass_.stop(); })) return;
  PooledPass::Job job;
  job.count = inTrash();
  job.together = false;
  job.work = [this, gone = std::exchange(gone_, {})](int at) -> PooledPass::Work {
    return [this, one = gone[static_cast<size_t>(at)], &trash = uses_.trash] {
      QString error;
      const bool done = trash.takeBack(one.trashed, one.path, &error);
      for (const auto& [path, trashed] : one.thumbs)
        if (done) trash.takeBack(trashed, path, nullptr);
      return [this, one, done, error] { broughtBack(one, done, error); };
    };
  };
  job.end = [this](bool) { end(u"%1 could not be taken back. %2"_s); };
  pass_.run(std::move(job));
}

// The sheet may show another directory by now.
void PictureActions::broughtBack(const Gone& gone, bool done, const QString& error) {
  if (!done) return failed(gone.path, error);
  for (int index = 0; index < uses_.cells.size(); ++index)
    if (!uses_.cells[index].Visible && uses_.cells[index].path() == gone.path)
      uses_.cells.setVisible(index, true);
}

void PictureActions::mnuGroup(clsPicture& pictures, bool listed) {
  if (uses_.work.busy()) return;
  if (!listed) {
    uses_.messages.say(
        u"You must first point to a directory with pictures to import. The current directory does "
        "not have any pictures."_s);
    return;
  }
  if (uses_.cells.selected().empty()) {
    uses_.messages.say(u"You did not select any pictures to import!"_s);
    return;
  }
  for (;;) {
    QString name = uses_.messages.ask(u"Enter the new directory"_s);
    if (name.isEmpty()) return;
    const QString fault = pictures.AddDirectory(name);
    if (fault.isEmpty()) return copyTo(name);
    if (!uses_.messages.confirm(fault + u" Do you want to try again?"_s)) return;
  }
}

void PictureActions::copyTo(const QString& folder) {
  const auto copy = [this, folder](int index) -> PooledPass::Work {
    const PictureCell& cell = uses_.cells[index];
    return [this, path = cell.path(), to = FileSystem::BuildPath(folder, cell.name()),
            &files = uses_.files]() -> PooledPass::Taken {
      QString error;
      if (files.copyInPieces(
              path, to, [](qint64) { return true; }, &error))
        return {};
      return [this, path, error] { failed(path, error); };
    };
  };
  const auto copied = [this] {
    uses_.foldersChanged();
    end(u"%1 could not be copied. %2"_s);
  };
  forChosen({}, copy, copied, false);
}

void PictureActions::failed(const QString& path, const QString& error) {
  ++failures_;
  error_ = error.isEmpty() ? u"See log.txt."_s : error;
  uses_.log.logIt(u"'%1': %2"_s.arg(path, error_));
}

void PictureActions::end(const QString& failure) {
  uses_.work.end();
  uses_.ended();
  if (const int failures = std::exchange(failures_, 0); failures > 0)
    uses_.messages.say(failure.arg(counted(failures, u"picture"_s), error_));
}

void PictureActions::drop() {
  pass_.drop();
  failures_ = 0;
  gone_.clear();
}

}  // namespace korvane
