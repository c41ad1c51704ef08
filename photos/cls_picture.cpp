#include "photos/cls_picture.h"

#include "photos/picture_listing.h"

namespace korvane {
namespace {

constexpr int kLookMs = 5000;
constexpr qsizetype kFileNameSize = 70;
// With a small letter between, so that no ending matches across two of them.
constexpr QLatin1StringView kEndings = "BMPzJPGzGIFzANIzCURzICOzTIF"_L1;

QString lastThree(QStringView name) {
  return name.last(std::min<qsizetype>(name.size(), 3)).toString().toUpper();
}

}  // namespace

bool PhotoKindsRule::accepts(QStringView name) const {
  if (name.isEmpty()) return false;
  if (kEndings.contains(lastThree(name))) return true;
  if (kinds_ == "NO"_L1) return false;
  const qsizetype dot = name.lastIndexOf(u'.');
  const QString kind = name.sliced(dot + 1).toString().toUpper();
  return dot >= 0 && !kind.isEmpty() && kinds_.split(u' ', Qt::SkipEmptyParts).contains(kind) &&
         (!imaging_ || imaging_->mayRead(name));
}

QString photoRoot(const Settings& settings) {
  QString root = FileSystem::slashed(settings.str(key::PDirectory));
  if (root.isEmpty() || root == "NO"_L1) return u"NO"_s;
  const bool absolute = root.startsWith(u'/') || root.mid(1, 1) == ":"_L1;
  if (!absolute) root = FileSystem::BuildPath(settings.home(), root);
  return root.endsWith(u'/') ? root : root + u'/';
}

void PictureFiles::open(std::vector<PhotoFile> rows) {
  rows_ = std::move(rows);
  at_ = 0;
  open_ = true;
}

bool PictureFiles::setAbsolutePosition(int position) {
  if (position < 1 || position > RecordCount()) return false;
  at_ = position - 1;
  return true;
}

clsPicture::clsPicture(Uses uses)
    : loader({uses.imaging, uses.pump, uses.log}),
      uses_(uses),
      photoPath_(photoRoot(uses.settings)) {}

QString clsPicture::AddDirectory(QString& name) {
  const QString path = photoPath_ + name;
  if (uses_.files.FolderExists(path)) return u"Folder already exists"_s;
  if (!uses_.files.CreateFolder(path)) return u"The folder %1 cannot be made."_s.arg(path);
  name = path;
  return {};
}

QString clsPicture::PhotoPath() {
  return photoPath_ = photoRoot(uses_.settings);
}

void clsPicture::SetupRecordSet() {
  rsFiles.open({});
}

void clsPicture::SetupFiles(const QString& directory) {
  struct Found {
    bool answered = false, there = false;
    std::vector<PhotoFile> rows;
  };
  const auto found = std::make_shared<Found>();
  uses_.pump.aside(
      [found, directory, rule = PhotoKindsRule(uses_.settings, &uses_.imaging),
       order = photoOrderOf(uses_.settings), &files = uses_.files, &imaging = uses_.imaging] {
        const auto at = files.resolve(directory);
        found->there = at && files.FolderExists(*at);
        if (!found->there) return;
        QStringList names = files.Files(*at);
        names.removeIf([&rule](const QString& name) { return !rule.accepts(name); });
        for (const QString& name : inPhotoOrder(names, *at, order, files, imaging))
          found->rows.push_back(
              {name.left(kFileNameSize), FileSystem::BuildPath(*at, name), lastThree(name)});
      },
      [found] { found->answered = true; });
  uses_.pump.wait(kLookMs, [found] { return found->answered; });
  if (found->answered && found->there) rsFiles.open(std::move(found->rows));
}

Imaging::Reading clsPicture::readingFor(int width, int height) const {
  return {.width = width, .height = height, .upright = uses_.settings.flag(key::PhotoTurn)};
}

}  // namespace korvane
