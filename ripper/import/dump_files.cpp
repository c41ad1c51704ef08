#include "ripper/import/dump_files.h"

#include <archive.h>
#include <archive_entry.h>

#include "platform/path_text.h"
#include "ripper/names/xmcd_record.h"

namespace korvane {
namespace {

constexpr qint64 kLongestRecord = 1 << 20;  // bytes
constexpr int kDeepest = 16;                // folders in folders, where links may go round
constexpr size_t kBlock = 1 << 18;

using Take = std::function<bool(QByteArrayView)>;

// False when no more are wanted.
bool walk(const FileSystem& files, const QString& folder, int depth, const Take& take) {
  QStringList names = files.Files(folder);
  names.sort();  // which of two records with one identifier is kept does not hang on the disk
  for (const QString& name : names)
    if (!take(files.read(folder + u'/' + name, kLongestRecord).value_or(QByteArray())))
      return false;
  QStringList folders = files.SubFolders(folder);
  folders.sort();
  for (const QString& name : folders)
    if (depth < kDeepest && !walk(files, folder + u'/' + name, depth + 1, take)) return false;
  return true;
}

struct Close {
  void operator()(archive* tar) const { archive_read_free(tar); }
};
using OpenTar = std::unique_ptr<archive, Close>;

bool readEntry(archive* tar, qint64 size, QByteArray& bytes) {
  bytes.resize(size);
  return archive_read_data(tar, bytes.data(), static_cast<size_t>(size)) == size;
}

QString readTar(const QString& path, const Take& take) {
  const OpenTar tar(archive_read_new());
  archive_read_support_filter_gzip(tar.get());
  archive_read_support_filter_bzip2(tar.get());
  archive_read_support_filter_xz(tar.get());
  archive_read_support_filter_zstd(tar.get());
  archive_read_support_format_tar(tar.get());
  const auto trouble = [&] {
    const char* why = archive_error_string(tar.get());
    return u"%1 cannot be read to its end: %2."_s.arg(
        path, why ? QString::fromLocal8Bit(why) : u"it is no tar"_s);
  };
  if (archive_read_open_filename(tar.get(), fromPath(path).constData(), kBlock) != ARCHIVE_OK)
    return trouble();
  QByteArray bytes;
  archive_entry* entry = nullptr;
  for (;;) {
    const int code = archive_read_next_header(tar.get(), &entry);
    if (code == ARCHIVE_EOF) return {};
    if (code < ARCHIVE_WARN) return trouble();
    if (archive_entry_filetype(entry) != AE_IFREG) continue;
    const qint64 size = archive_entry_size(entry);
    const bool tooLong = size > kLongestRecord;
    if (!tooLong && !readEntry(tar.get(), size, bytes)) return trouble();
    if (!take(tooLong ? QByteArrayView() : QByteArrayView(bytes))) return {};
  }
}

}  // namespace

QString readDumpFiles(const FileSystem& files, const QString& path, const Take& take) {
  if (files.FolderExists(path)) {
    walk(files, path, 0, take);
    return {};
  }
  if (!files.FileExists(path)) return u"There is no file or directory %1."_s.arg(path);
  if (const auto bytes = files.read(path, kLongestRecord);
      bytes && !bytes->contains('\0') && readXmcd(*bytes)) {
    take(*bytes);
    return {};
  }
  return readTar(files.resolve(path).value_or(path), take);
}

}  // namespace korvane
