#include "platform/disc/cd_drives_udisks.h"

namespace korvane {
namespace {

constexpr int kEjectSeconds = 30;  // a disc that turns is first stopped

bool isOptical(const QVariantMap& drive) {
  const QStringList media = drive.value(u"MediaCompatibility"_s).toStringList();
  return std::ranges::any_of(media,
                             [](const QString& one) { return one.startsWith("optical"_L1); });
}

struct Found {
  SwdCDRipper::Drive drive;
  QDBusObjectPath object;  // of the service, of the drive itself
};

std::vector<Found> opticalDrives(const Udisks::Objects& objects) {
  std::vector<Found> all;
  for (const Udisks::Object& object : objects) {
    const QVariantMap block = object.value(u"Block"_s);
    const QDBusObjectPath path = block.value(u"Drive"_s).value<QDBusObjectPath>();
    const QVariantMap drive = objects.value(path).value(u"Drive"_s);
    if (object.contains(u"Partition"_s) || !isOptical(drive)) continue;
    const QString device = Udisks::pathOf(block.value(u"Device"_s));
    const QString name = CdDrivesPlain::nameOf(drive.value(u"Vendor"_s).toString(),
                                               drive.value(u"Model"_s).toString(), device);
    if (!device.isEmpty()) all.push_back({{device, name}, path});
  }
  std::ranges::sort(all, {}, [](const Found& one) { return one.drive.source; });
  return all;
}

}  // namespace

CdDrivesUdisks::CdDrivesUdisks(std::unique_ptr<Udisks> udisks, std::unique_ptr<CdDrives> plain)
    : udisks_(std::move(udisks)), plain_(std::move(plain)) {
  udisks_->changed = plain_->changed = [this] { look(); };
}

void CdDrivesUdisks::look() {
  const std::vector<SwdCDRipper::Drive> before = known_;
  if (drives() != before) changed();
}

std::vector<SwdCDRipper::Drive> CdDrivesUdisks::drives() const {
  udisks_->start();
  known_.clear();
  if (!udisks_->runs()) return known_ = plain_->drives();
  for (const Found& one : opticalDrives(udisks_->objects())) known_.push_back(one.drive);
  return known_;
}

void CdDrivesUdisks::eject(const QString& source) {
  for (const Found& one : opticalDrives(udisks_->objects()))
    if (one.drive.source == source)
      return udisks_->call(one.object, u"Drive"_s, u"Eject"_s, {QVariantMap()}, kEjectSeconds,
                           [this, source](const QString& trouble) {
                             if (!trouble.isEmpty()) plain_->eject(source);
                           });
  plain_->eject(source);
}

std::unique_ptr<CdDrives> makeCdDrives(Pump& pump) {
  return std::make_unique<CdDrivesUdisks>(std::make_unique<Udisks>(pump),
                                          std::make_unique<CdDrivesPlain>(pump));
}

}  // namespace korvane
