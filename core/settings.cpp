#include "core/settings.h"

#include "core/log.h"
#include "platform/files/profile.h"

namespace korvane {
namespace {

constexpr qint64 kLargestProfile = 64 << 20;
constexpr auto kNotSet = "NO"_L1;

}  // namespace

Settings::Settings(FileSystem& files, Pump& pump, const AppState& state, QString home,
                   const Log* log)
    : files_(files), pump_(pump), state_(state), home_(std::move(home)), log_(log) {}

QString Settings::path(QStringView section) const {
  if (section == u"COLORS") return home_ + u"/krvgraphics/"_s + state_.gTheme + u"/COLORS.INI"_s;
  return home_ + u"/Morvanta.INI"_s;
}

const QByteArray& Settings::bytesOf(const QString& file) const {
  Remembered& held = remembered_[file.endsWith("COLORS.INI"_L1) ? 1 : 0];
  const QString real = held.path == file ? held.path : files_.resolve(file).value_or(file);
  const FileSystem::Stamp now = files_.stamp(real);
  if (held.path != real || held.stamp != now)
    held = {real, now, files_.read(real, kLargestProfile).value_or(QByteArray())};
  return held.bytes;
}

QString Settings::readSetting(QStringView section, QStringView name) const {
  return profileValue(bytesOf(path(section)), section, name).value_or(kNotSet);
}

bool Settings::put(const QString& file, QStringView section, QStringView name, const QString& value,
                   QString* error) {
  const QString real = files_.resolve(file).value_or(file);
  const std::optional<QByteArray> bytes = files_.read(real, kLargestProfile);
  QString why;
  // A file that is there but cannot be read is not replaced by a file of one key.
  if (!bytes && files_.FileExists(real))
    why = u"Could not read %1, so nothing is written to it. Check the file."_s.arg(real);
  else if (files_.replace(
               real, withProfileValue(bytes.value_or(QByteArray()), section, name, value), &why))
    return true;
  const QString whole = u"The setting %1 of [%2] is not stored. %3"_s.arg(name, section, why);
  if (log_) log_->logIt(whole);
  if (error) *error = whole;
  return false;
}

bool Settings::writeSetting(QStringView section, QStringView name, const QString& value,
                            QString* error) {
  const bool stored = put(path(section), section, name, value, error);
  pump_.doEvents();
  return stored;
}

QString Settings::GetSetting(const QString& application, const QString& section,
                             const QString& name) const {
  const QByteArray bytes =
      files_.read(home_ + u"/user.ini"_s, kLargestProfile).value_or(QByteArray());
  return profileValue(bytes, application + u'\\' + section, name).value_or(QString());
}

bool Settings::SaveSetting(const QString& application, const QString& section, const QString& name,
                           const QString& value) {
  return put(home_ + u"/user.ini"_s, application + u'\\' + section, name, value, nullptr);
}

QString Settings::raw(const SettingKey& k) const {
  return readSetting(QString::fromLatin1(k.section), QString::fromLatin1(k.name));
}
QString Settings::str(const SettingKey& k) const {
  return trimBlanks(raw(k));
}
QString Settings::upper(const SettingKey& k) const {
  return trimBlanks(raw(k).toUpper());
}

bool Settings::flag(const SettingKey& k) const {
  const auto isOff = [](const QString& text) { return text == "0"_L1 || text == kNotSet; };
  switch (k.rule) {
    case Rule::Flag1:
      return str(k) == "1"_L1;
    case Rule::FlagYes:
      return upper(k) == "YES"_L1;
    case Rule::FlagExactYes:
      return str(k) == "YES"_L1;
    case Rule::FlagVal:
      return val(raw(k)) != 0;
    case Rule::Flag1NoIsZero:
      return raw(k) == "1"_L1;
    case Rule::Shown:
      return !isOff(str(k));
    case Rule::ShownAnyCase:
      return !isOff(raw(k).toUpper());
    case Rule::Str:
    case Rule::UStr:
    case Rule::Text:
    case Rule::Number:
      break;
  }
  return upper(k) != kNotSet;
}

int Settings::number(const SettingKey& k) const {
  const std::optional<double> stored = numeric(raw(k));
  const bool usable = stored && *stored >= k.low && *stored <= k.high;
  return usable ? toInteger(*stored) : k.standard;
}

bool Settings::write(const SettingKey& k, const QString& value, QString* error) {
  return writeSetting(QString::fromLatin1(k.section), QString::fromLatin1(k.name), value, error);
}

void SettingsToSave::write(const SettingKey& key, const QString& value) {
  if (good()) settings_.write(key, value, &error_);
}

}  // namespace korvane
