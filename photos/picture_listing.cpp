#include "photos/picture_listing.h"

#include <QElapsedTimer>

#include "core/natural_order.h"

namespace korvane {
namespace {

constexpr qint64 kDatesMs = 3000;
constexpr qint64 kNsPerMs = 1'000'000;

struct Dated {
  QString name;
  qint64 when = 0;  // ms since 1970
};

std::vector<Dated> dated(const QStringList& names, const QString& directory,
                         const FileSystem& files, const Imaging& imaging) {
  QElapsedTimer looking;
  looking.start();
  std::vector<Dated> rows;
  rows.reserve(static_cast<size_t>(names.size()));
  for (const QString& name : names) {
    const QString path = FileSystem::BuildPath(directory, name);
    QDateTime taken;
    if (!looking.hasExpired(kDatesMs)) taken = imaging.about(path, false).taken;
    rows.push_back({name, taken.isValid() ? taken.toMSecsSinceEpoch()
                                          : files.stamp(path).modified / kNsPerMs});
  }
  return rows;
}

}  // namespace

PhotoOrder photoOrderOf(const Settings& settings) {
  const QString stored = settings.upper(key::PhotoSort);
  if (stored == "NAME"_L1) return PhotoOrder::Name;
  return stored == "DATE"_L1 ? PhotoOrder::Date : PhotoOrder::Disk;
}

QStringList inPhotoOrder(QStringList names, const QString& directory, PhotoOrder order,
                         const FileSystem& files, const Imaging& imaging) {
  if (order == PhotoOrder::Disk) return names;
  std::vector<Dated> rows;
  if (order == PhotoOrder::Date)
    rows = dated(names, directory, files, imaging);
  else
    for (const QString& name : names) rows.push_back({name});
  rows = inNaturalOrder(std::move(rows), [](const Dated& row) { return row.name; });
  std::ranges::stable_sort(rows, {}, &Dated::when);
  names.clear();
  for (const Dated& row : rows) names.append(row.name);
  return names;
}

}  // namespace korvane
