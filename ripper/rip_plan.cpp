#include "ripper/rip_plan.h"

#include <QDir>
#include <QLocale>

namespace korvane {
namespace {

constexpr double kQuality = 0.75;
constexpr int kBitRate = 192000;
constexpr qint64 kFlacBytes = 176400 * 7 / 10;  // of a second, about
constexpr qint64 kMostCover = 16 << 20;

QString megabytes(qint64 bytes) {
  return QLocale(QLocale::English).toString((bytes + 999'999) / 1'000'000) + u" MB"_s;
}

}  // namespace

RipFormat RipPlan::format() const {
  const QString stored = uses_.settings.upper(key::RipFormat);
  if (stored == "FLAC"_L1) return RipFormat::Flac;
  return stored == "OPUS"_L1 ? RipFormat::Opus : RipFormat::Mp3;
}

qint64 RipPlan::freeSpace(const QString& folder) const {
  QString at = FileSystem::slashed(folder);
  while (!at.isEmpty() && !uses_.files.FolderExists(at)) at = FileSystem::GetParentFolderName(at);
  return uses_.freeSpace(at.isEmpty() ? u"/"_s : at);
}

bool RipPlan::hasRoom(const RipRequest& request, RipFormat format, QString* why) const {
  qint64 needed = 0;
  for (const RipRequest::Row& row : request.rows)
    needed += row.seconds * (format == RipFormat::Flac ? kFlacBytes : kBitRate / 8);
  const qint64 room = freeSpace(request.ripPath);
  if (room == 0 || needed <= room) return true;
  *why =
      u"There is not enough room in %1: the chosen tracks need about %2 and %3 are free, so %4 "
      "are missing. Delete something there, choose fewer tracks or another folder."_s.arg(
          request.ripPath, megabytes(needed), megabytes(room), megabytes(needed - room));
  return false;
}

bool RipPlan::makeFolders(const QStringList& folders, QString* why) const {
  for (const QString& folder : folders) {
    if (uses_.files.FolderExists(folder) || uses_.files.CreateFolder(folder)) continue;
    *why =
        u"The folder %1 cannot be made. Choose a folder that you may write to, or shorter "
        "names."_s.arg(folder);
    return false;
  }
  return true;
}

std::optional<RipTags> RipPlan::tagsOf(const RipRequest& request, const RipRequest::Row& row,
                                       const QByteArray& cover) const {
  if (!uses_.settings.flag(key::RipTags)) return {};
  return RipTags{row.title,
                 request.artist.trimmed(),
                 request.album.trimmed(),
                 request.year,
                 request.genre,
                 row.track,
                 cover};
}

std::optional<RipOrder> RipPlan::make(const RipRequest& request, QString* why) const {
  const RipFormat kind = format();
  const bool safe = uses_.settings.flag(key::RipNames);
  const QString artist = request.artist.trimmed(), album = request.album.trimmed();
  const QStringList folders = albumFolders(request.ripPath, artist, album, safe);
  if (!hasRoom(request, kind, why) || !makeFolders(folders, why)) return {};

  RipOrder order{request.source,
                 artist,
                 album,
                 {},
                 {},
                 {kind, kQuality, kBitRate},
                 uses_.settings.flag(key::RipSecure),
                 uses_.settings.flag(key::RipBoth)};
  const QString& folder = folders.back();
  const QByteArray cover =
      uses_.files.read(FileSystem::BuildPath(folder, u"coverArt.jpg"_s), kMostCover)
          .value_or(QByteArray());
  for (const RipRequest::Row& row : request.rows) {
    const QString output = FileSystem::BuildPath(folder, outputName(row.track, row.title, safe));
    const QString stored =
        FileSystem::BuildPath(folder, storedName(row.track, row.title, safe)) + endingOf(kind);
    // The file of the same name is replaced when its track is done, and not before.
    if (stored != output + endingOf(kind) && uses_.files.FileExists(stored))
      uses_.files.DeleteFile(stored);
    order.queue.push_back(
        {storedNames(artist, album, row.track, row.title), safe ? QString() : stored, row.track});
    order.jobs.push_back({request.source, row.track, output, tagsOf(request, row, cover)});
  }
  return order;
}

}  // namespace korvane
