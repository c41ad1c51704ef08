#include "core/settings.h"

#include <sys/stat.h>

#include "platform/files/profile.h"

namespace korvane {
namespace {

constexpr qint64 kLargestProfile = 64 << 20;

QString notSet() {
  return u"NO"_s;
}

}  // namespace

double val(QStringView text) {
  QString digits;
  bool point = false, exponent = false;
  for (const QChar c : text) {
    if (c.isSpace()) continue;
    const bool sign =
        (c == u'-' || c == u'+') && (digits.isEmpty() || digits.back().toLower() == u'e');
    if (c == u'.' && !point && !exponent)
      point = true;
    else if (c.toLower() == u'e' && !exponent && !digits.isEmpty())
      exponent = true;
    else if (!sign && !(c >= u'0' && c <= u'9'))
      break;
    digits += c;
  }
  while (!digits.isEmpty()) {
    bool ok = false;
    const double number = digits.toDouble(&ok);
    if (ok) return number;
    digits.chop(1);
  }
  return 0;
}

bool isNumeric(QStringView text) {
  bool ok = false;
  static_cast<void>(text.trimmed().toDouble(&ok));
  return ok;
}

Settings::Settings(FileSystem& files, Pump& pump, const AppState& state, QString home)
    : files_(files), pump_(pump), state_(state), home_(std::move(home)) {}

QString Settings::path(QStringView section) const {
  if (section == u"COLORS") return home_ + u"/krvgraphics/"_s + state_.gTheme + u"/COLORS.INI"_s;
  return home_ + u"/Morvanta.INI"_s;
}

const QByteArray& Settings::bytesOf(const QString& file) const {
  Remembered& held = remembered_[file.endsWith("COLORS.INI"_L1) ? 1 : 0];
  const QString real = held.path == file ? held.path : files_.resolve(file).value_or(file);
  struct stat facts {};
  const bool there = ::stat(real.toUtf8().constData(), &facts) == 0;
  const qint64 modified =
      there ? facts.st_mtim.tv_sec * 1'000'000'000LL + facts.st_mtim.tv_nsec : -2;
  if (held.path == real && held.modified == modified && held.size == facts.st_size &&
      held.inode == facts.st_ino)
    return held.bytes;
  held = {real, modified, facts.st_size, facts.st_ino,
          files_.read(real, kLargestProfile).value_or(QByteArray())};
  return held.bytes;
}

QString Settings::readSetting(QStringView section, QStringView name) const {
  return profileValue(bytesOf(path(section)), section, name).value_or(notSet());
}

void Settings::writeSetting(QStringView section, QStringView name, const QString& value) {
  const QString file = files_.resolve(path(section)).value_or(path(section));
  const std::optional<QByteArray> bytes = files_.read(file, kLargestProfile);
  // A file that is there but cannot be read is not replaced by a file of one key.
  if (bytes || !files_.FileExists(file))
    files_.replace(file, withProfileValue(bytes.value_or(QByteArray()), section, name, value));
  pump_.doEvents();
}

QString Settings::GetSetting(const QString& application, const QString& section,
                             const QString& name) const {
  const QByteArray bytes =
      files_.read(home_ + u"/user.ini"_s, kLargestProfile).value_or(QByteArray());
  return profileValue(bytes, application + u'\\' + section, name).value_or(QString());
}

void Settings::SaveSetting(const QString& application, const QString& section, const QString& name,
                           const QString& value) {
  const QString file = home_ + u"/user.ini"_s;
  const std::optional<QByteArray> bytes = files_.read(file, kLargestProfile);
  if (!bytes && files_.FileExists(file)) return;
  files_.replace(file, withProfileValue(bytes.value_or(QByteArray()), application + u'\\' + section,
                                        name, value));
}

QString Settings::raw(const SettingKey& k) const {
  return readSetting(QString::fromLatin1(k.section), QString::fromLatin1(k.name));
}
QString Settings::str(const SettingKey& k) const {
  return raw(k).trimmed();
}
QString Settings::upper(const SettingKey& k) const {
  return raw(k).toUpper().trimmed();
}

bool Settings::flag(const SettingKey& k) const {
  switch (k.rule) {
    case Rule::Flag1:
      return upper(k) == "1"_L1;
    case Rule::FlagYes:
      return upper(k) == "YES"_L1;
    case Rule::FlagVal:
      return val(raw(k)) != 0;
    case Rule::Flag1NoIsZero:
      return raw(k) == "1"_L1;
    case Rule::ShownUnless0:
      return upper(k) != "NO"_L1 && upper(k) != "0"_L1;
    case Rule::Str:
    case Rule::UStr:
    case Rule::Text:
    case Rule::Number:
      break;
  }
  return upper(k) != "NO"_L1;
}

int Settings::number(const SettingKey& k) const {
  const QString text = str(k);
  if (!isNumeric(text)) return k.standard;
  const double number = text.toDouble();
  return number < k.low || number > k.high ? k.standard : static_cast<int>(std::lround(number));
}

void Settings::write(const SettingKey& k, const QString& value) {
  writeSetting(QString::fromLatin1(k.section), QString::fromLatin1(k.name), value);
}

}  // namespace korvane
