#include "platform/disc/disc_reader_cdio.h"

#include <fcntl.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDirIterator>
#include <QFile>

#include <mutex>

#include "platform/disc/cue_sheet.h"
#include "platform/disc/device_sectors.h"
#include "platform/disc/disc_table.h"
#include "platform/files/mount_table.h"
#include "platform/path_text.h"

namespace korvane {
namespace {

constexpr qint64 kLongestSheet = 1 << 20;
constexpr qsizetype kMostSongs = 10'000;

// Held for each call of libcdio. Its parser of CUE sheets (strtok) and its log keep state of the
// process: two threads in the one break a good sheet, in the other they end the program.
std::mutex cdio;

struct Destroy {
  void operator()(CdIo_t* disc) const { cdio_destroy(disc); }
  void operator()(char* text) const { free(text); }
};
using OpenDisc = std::unique_ptr<CdIo_t, Destroy>;
using OwnedText = std::unique_ptr<char, Destroy>;

OpenDisc openDisc(const QByteArray& path) {  // under the lock
  return OpenDisc(cdio_open(path.constData(), isDevice(path) ? DRIVER_DEVICE : DRIVER_BINCUE));
}

DiscLook nothing(DiscLook::State state, const QString& trouble) {
  DiscLook look;
  look.state = state;
  look.trouble = trouble;
  return look;
}

// What differs between two states of an image's file.
QByteArray markOf(const struct stat& file) {
  return QByteArray::number(qint64{file.st_size}) + ' ' + QByteArray::number(quint64{file.st_ino}) +
         ' ' + QByteArray::number(qint64{file.st_mtim.tv_sec}) + '.' +
         QByteArray::number(qint64{file.st_mtim.tv_nsec}) + ';';
}

DiscLook openTable(const QByteArray& path, const QString& name) {
  takeCdioComplaint();
  const std::lock_guard lock(cdio);
  const OpenDisc disc = openDisc(path);
  if (disc) return tableOf(disc.get(), name);
  const QString why = takeCdioComplaint();
  return nothing(DiscLook::NoDisc,
                 why.isEmpty() ? u"Cannot read %1: it is no disc that can be played."_s.arg(name)
                               : u"Cannot read %1: %2."_s.arg(name, why));
}

// The path of the data beside a sheet; null for what libcdio does not take for one.
OwnedText dataOf(const QByteArray& sheet) {
  takeCdioComplaint();
  const std::lock_guard lock(cdio);
  return OwnedText(cdio_is_cuefile(sheet.constData()));
}

QString sheetTrouble(const QByteArray& path) {
  QFile sheet(QFile::decodeName(path));
  if (!sheet.open(QIODevice::ReadOnly)) return sheet.errorString();
  return cueTrouble(sheet.read(kLongestSheet));
}

DiscLook lookAtImage(const QByteArray& path, const DiscLook& before) {
  const QString name = toPath(path);
  struct stat sheet {
  }, data{};
  if (stat(path.constData(), &sheet) != 0)
    return nothing(DiscLook::DoorOpen, u"There is no %1."_s.arg(name));
  if (!S_ISREG(sheet.st_mode) || sheet.st_size > kLongestSheet ||
      !name.endsWith(u".cue"_s, Qt::CaseInsensitive))
    return nothing(
        DiscLook::NoDisc,
        u"Cannot play %1: a disc image is a CUE sheet with its BIN beside it."_s.arg(name));
  if (const QString trouble = sheetTrouble(path); !trouble.isEmpty())
    return nothing(DiscLook::NoDisc,
                   u"Cannot read %1: it is no CUE sheet (%2)."_s.arg(name, trouble));
  const OwnedText bin = dataOf(path);
  if (!bin)
    return nothing(DiscLook::NoDisc,
                   u"Cannot read %1: it is no CUE sheet (%2)."_s.arg(name, takeCdioComplaint()));
  if (stat(bin.get(), &data) != 0 || !S_ISREG(data.st_mode) || access(bin.get(), R_OK) != 0)
    return nothing(
        DiscLook::DoorOpen,
        u"Cannot read %1: its data must stand beside it as %2, which cannot be read."_s.arg(
            name, toPath(bin.get())));
  const QByteArray mark = markOf(sheet) + markOf(data);
  if (before.mark == mark) return before;
  DiscLook look = openTable(path, name);
  look.mark = mark;
  if (look.state != DiscLook::Ready || !look.trouble.isEmpty()) return look;
  if (!look.disc.tracks.front().audio)
    look.trouble = u"%1 is the image of a data disc, not of music."_s.arg(name);
  const bool sound = std::ranges::all_of(look.disc.tracks, &DiscTrack::audio);
  if (sound && data.st_size % kSectorBytes != 0)
    look.trouble = u"%1 is cut short: it ends within a sector."_s.arg(toPath(bin.get()));
  return look;
}

QStringList songsBelow(const QStringList& folders) {
  QStringList songs;
  for (const QString& folder : folders) {
    QDirIterator walk(QFile::decodeName(fromPath(folder)), {u"*.mp3"_s, u"*.wav"_s, u"*.wma"_s},
                      QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext() && songs.size() < kMostSongs)
      songs << toPath(QFile::encodeName(walk.next()));
  }
  songs.sort(Qt::CaseInsensitive);
  return songs;
}

// A data disc is walked again when it is mounted somewhere else.
void addSongs(DiscLook& look, const QByteArray& device) {
  QFile table(u"/proc/self/mountinfo"_s);
  if (!table.open(QIODevice::ReadOnly)) return;
  const OwnedText real(realpath(device.constData(), nullptr));
  const QStringList folders =
      mountsOf(table.readAll(), toPath(real ? real.get() : device.constData()));
  const QByteArray mark = "mounted " + folders.join(u'\n').toUtf8();
  if (look.mark == mark) return;
  look.mark = mark;
  look.disc.mounted = !folders.isEmpty();
  look.disc.songs = songsBelow(folders);
  look.trouble = folders.isEmpty()           ? u"The disc holds data and is not mounted."_s
                 : look.disc.songs.isEmpty() ? u"The disc holds no music files."_s
                                             : QString();
}

DiscLook lookAtDevice(const QByteArray& path, const DiscLook& before) {
  const QString name = toPath(path);
  const int drive = open(path.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (drive < 0)
    return nothing(errno == ENOMEDIUM ? DiscLook::NoDisc : DiscLook::NoDrive,
                   u"Cannot open the drive %1: %2."_s.arg(name, qt_error_string(errno)));
  const int status = ioctl(drive, CDROM_DRIVE_STATUS, CDSL_CURRENT);
  const bool changed = ioctl(drive, CDROM_MEDIA_CHANGED, CDSL_CURRENT) > 0;
  ::close(drive);
  const bool same = before.state == DiscLook::Ready && !changed;
  switch (status) {
    case CDS_TRAY_OPEN:
      return nothing(DiscLook::DoorOpen, {});
    case CDS_NO_DISC:
      return nothing(DiscLook::NoDisc, {});
    case CDS_DRIVE_NOT_READY:  // it spins up, with a new disc or the one that it knew
      return same ? before : nothing(DiscLook::NoDisc, {});
    default:
      break;
  }
  DiscLook look = same ? before : openTable(path, name);
  if (look.state == DiscLook::Ready && !look.disc.tracks.front().audio) addSongs(look, path);
  return look;
}

class CdioSectors final : public SectorReader {
 public:
  explicit CdioSectors(OpenDisc disc) : disc_(std::move(disc)) {}
  ~CdioSectors() override {
    const std::lock_guard lock(cdio);
    disc_.reset();
  }
  bool read(int first, int count, char* to) override {
    const std::lock_guard lock(cdio);
    return cdio_read_audio_sectors(disc_.get(), to, first, static_cast<uint32_t>(count)) ==
           DRIVER_OP_SUCCESS;
  }

 private:
  OpenDisc disc_;
};

}  // namespace

QByteArray discPath(const QString& source) {
  if (!source.isEmpty()) return fromPath(source);
  const std::lock_guard lock(cdio);
  const OwnedText found(cdio_get_default_device(nullptr));
  return found ? QByteArray(found.get()) : QByteArray();
}

bool isDevice(const QByteArray& path) {
  struct stat is {};
  return stat(path.constData(), &is) == 0 && S_ISBLK(is.st_mode);
}

DiscLook DiscReaderCdio::look(const QString& source, const DiscLook& before) {
  takeCdioComplaint();
  const QByteArray path = discPath(source);
  if (path.isEmpty()) return nothing(DiscLook::NoDrive, u"This machine has no CD drive."_s);
  struct stat is {};
  const bool device =
      stat(path.constData(), &is) == 0 ? S_ISBLK(is.st_mode) : path.startsWith("/dev/");
  return device ? lookAtDevice(path, before) : lookAtImage(path, before);
}

std::unique_ptr<SectorReader> DiscReaderCdio::sectors(const QString& source) {
  takeCdioComplaint();
  const QByteArray path = discPath(source);
  if (!isDevice(path) && !sheetTrouble(path).isEmpty()) return nullptr;
  const std::lock_guard lock(cdio);
  OpenDisc disc = openDisc(path);
  return disc ? std::make_unique<CdioSectors>(std::move(disc)) : nullptr;
}

std::unique_ptr<SectorReader> DiscReaderCdio::carefulSectors(const QString& source, bool pointing) {
  const QByteArray path = discPath(source);
  return isDevice(path) ? DeviceSectors::open(path, pointing) : sectors(source);
}

void DiscReaderCdio::eject(const QString& source) {
  takeCdioComplaint();
  const QByteArray path = discPath(source);
  if (!isDevice(path)) return;
  const std::lock_guard lock(cdio);
  cdio_eject_media_drive(path.constData());
}

}  // namespace korvane
