#include "ripper/names/cls_cddb.h"

#include "ripper/names/c_spti.h"
#include "ripper/names/disc_database.h"
#include "ripper/names/disc_id.h"

namespace korvane {
namespace {

constexpr qsizetype kMostPieces = 100;  // 99 tracks and the lead-out

std::optional<DiscNames> namesIn(const QString& path, const QString& discId) {
  static const std::string statement = "SELECT Artist, Album, " + titleColumns() +
                                       " FROM cdData WHERE DISCID = ?1 COLLATE TEXTORDER";
  // Writing is for what an import that was killed has left to be undone; a file that may only be
  // read is opened so.
  sql::Connection database(path, sql::Connection::ReadWrite);
  sql::Run row = database.run(statement, discId);
  if (!row.step()) return std::nullopt;
  DiscNames names;
  names.artist = row.text(0);
  names.album = row.text(1);
  for (int i = 0; i < DiscNames::kTitles; ++i)
    names.titles[static_cast<size_t>(i)] = row.text(2 + i).trimmed();
  return names;
}

}  // namespace

QString myCddbPath(const QString& home) {
  return home + u"/mycddb.mdb"_s;
}

QString cddbDirectory(const QString& home, const QString& cddbPath) {
  const QString path = FileSystem::slashed(cddbPath.trimmed());
  return path.isEmpty() || path == "NO"_L1 ? home : path;
}

CdDataPaths cdDataPaths(const QString& directory) {
  // Three names bring a separator of their own, which makes two; that is as good as one.
  constexpr const char16_t* kNames[] = {u"cddata1.mdb", u"cddata2.mdb", u"/cddata3.mdb",
                                        u"/cddata4.mdb", u"/cddata5.mdb"};
  const QString folder = directory.endsWith(u'/') ? directory : directory + u'/';
  CdDataPaths paths;
  std::ranges::transform(kNames, paths.begin(),
                         [&](const char16_t* name) { return folder + QString::fromUtf16(name); });
  return paths;
}

clscddb::clscddb(Uses uses)
    : uses_(std::move(uses)), paths_(cdDataPaths(cddbDirectory(uses_.home, uses_.cddbPath))) {
  std::ranges::transform(paths_, there_.begin(),
                         [&](const QString& path) { return uses_.files.FileExists(path); });
}

QString clscddb::getIDFromCD(const QString& drive) {
  cSPTI table(uses_.packets);
  return table.InitMediaToc(drive) ? figureid(table.GetTOC()) : QString();
}

QString clscddb::figureid(const QString& toc) {
  const QString text = toc.trimmed();
  std::vector<int> frames;
  if (!text.isEmpty())
    for (const QString& piece : text.split(u' ').first(std::min(kMostPieces, text.count(u' ') + 1)))
      frames.push_back(piece.toInt());
  return QString::fromLatin1(discIdentifier(frames));
}

bool clscddb::IsDataAvailable() const {
  return std::ranges::any_of(there_, std::identity());
}

std::optional<DiscNames> clscddb::GetInfo(const QString& discId, bool useMyDatabase) {
  if (discId.isEmpty()) return std::nullopt;
  const QString mine = myCddbPath(uses_.home);
  const std::span<const QString> searched =
      useMyDatabase ? std::span<const QString>(&mine, 1) : std::span<const QString>(paths_);
  for (const QString& path : searched) {
    try {
      const std::optional<QString> found = uses_.files.resolve(path);
      if (!found) throw DatabaseError(DatabaseError::Missing, path);
      if (auto names = namesIn(*found, discId)) return names;
    } catch (const DatabaseError& failure) {
      const bool beforeTheFirstRip = useMyDatabase && failure.kind() == DatabaseError::Missing;
      if (!beforeTheFirstRip)
        uses_.log.error(5, discDatabaseTrouble(failure, path), "GetInfo", "Class Module clscddb");
      return std::nullopt;
    }
  }
  return std::nullopt;
}

}  // namespace korvane
