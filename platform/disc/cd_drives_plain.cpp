#include "platform/disc/cd_drives_plain.h"

#include <QFile>

#include "platform/disc/disc_reader_cdio.h"

namespace korvane {
namespace {

constexpr int kBetweenLooks = 3000;  // ms
constexpr qint64 kLongest = 1 << 16;

// A file of the kernel's; empty when there is none.
QString textOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.read(kLongest)) : QString();
}

// The kernel's names, as "sr0", from the line "drive name:\t\tsr1\tsr0".
QStringList kernelNames(const QString& info) {
  for (const QString& line : info.split(u'\n'))
    if (line.startsWith("drive name:"_L1)) return line.simplified().split(u' ').sliced(2);
  return {};
}

}  // namespace

CdDrivesPlain::CdDrivesPlain(Pump& pump, QString root) : pump_(pump), root_(std::move(root)) {
  look_.setInterval(kBetweenLooks);
  look_.callOnTimeout([this] {
    const std::vector<SwdCDRipper::Drive> before = known_;
    if (drives() != before) changed();
  });
}

std::vector<SwdCDRipper::Drive> CdDrivesPlain::drives() const {
  if (!look_.isActive()) look_.start();
  QStringList names = kernelNames(textOf(root_ + u"/proc/sys/dev/cdrom/info"_s));
  names.sort();
  known_.clear();
  for (const QString& name : names) {
    const QString device = root_ + u"/sys/block/"_s + name + u"/device/"_s;
    const QString source = u"/dev/"_s + name;
    known_.push_back(
        {source, nameOf(textOf(device + u"vendor"_s), textOf(device + u"model"_s), source)});
  }
  return known_;
}

void CdDrivesPlain::eject(const QString& source) {
  pump_.aside([source] { DiscReaderCdio().eject(source); }, [] {});
}

QString CdDrivesPlain::nameOf(const QString& maker, const QString& model, const QString& device) {
  const QString both = (maker + u' ' + model).simplified();
  return u"%1 (%2)"_s.arg(both.isEmpty() ? u"CD drive"_s : both, device.section(u'/', -1));
}

}  // namespace korvane
