// The list of photos on files of any names: each but "Thumbs.db" has a row, up to the limit of
// rows, whichever way they are sorted, and no name is cut or twice. The input is one name a line.
#include <cstdlib>
#include <set>

#include "photos/photo_rows.h"
#include "platform/path_text.h"
#include "tests/fakes/fake_imaging.h"

namespace {

using namespace korvane;

// A directory that has these files, and as folders the same.
class Names : public FileSystem {
 public:
  QStringList names;

  QStringList SubFolders(const QString&) const override { return names; }
  QStringList Files(const QString&) const override { return names; }
  std::optional<QString> resolve(const QString& path) const override { return path; }
  bool FileExists(const QString&) const override { return true; }
  bool FolderExists(const QString&) const override { return true; }
  bool CreateFolder(const QString&) override { return false; }
  bool DeleteFile(const QString&) override { return false; }
  bool DeleteFolder(const QString&) override { return false; }
  bool MoveFile(const QString&, const QString&) override { return false; }
  bool copyInPieces(const QString&, const QString&, const CopyWatch&, QString*) override {
    return false;
  }
  qint64 size(const QString&) const override { return 0; }
  Stamp stamp(const QString& path) const override { return {0, path.size() % 3 * 1'000'000, 0}; }
  std::optional<QByteArray> read(const QString&, qint64) const override { return {}; }
  bool replace(const QString&, const QByteArray&, QString*) override { return false; }
  bool append(const QString&, const QByteArray&) override { return false; }
  QStringList volumes() const override { return {}; }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  Names disk;
  std::set<QString> wanted;
  for (const QByteArray& name : bytes.split('\n')) {
    if (name.isEmpty() || name.contains('/') || name.contains('\0')) continue;
    const QString text = toPath(name);
    if (text.compare(u"thumbs.db"_s, Qt::CaseInsensitive) != 0 && !wanted.insert(text).second)
      continue;
    disk.names << text;
  }
  constexpr int kMost = 40;
  const FakeImaging imaging;
  for (const PhotoOrder order : {PhotoOrder::Disk, PhotoOrder::Name, PhotoOrder::Date}) {
    PhotoRows rows(u"/photos"_s, true);
    rows.PICdoallfiles(disk, imaging, order, kMost);
    const int all = static_cast<int>(wanted.size());
    if (rows.rowCount() != std::min(all + 1, kMost) || rows.cut() != (all + 1 > kMost))
      std::abort();
    std::set<QString> listed;
    for (int row = 2; row <= rows.rowCount(); ++row)
      if (!listed.insert(rows.cell(PhotoRows::Name, row)).second ||
          !wanted.contains(rows.cell(PhotoRows::Name, row)))
        std::abort();
    rows.PICdoallfolders(disk, order);
    for (int row = 1; row <= rows.rowCount() + 1; ++row)
      if (rows.isFolder(row) && row > 1 && !rows.cell(PhotoRows::Path, row).startsWith(u"/photos/"))
        std::abort();
  }
  return 0;
}
