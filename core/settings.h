// Every setting: "Morvanta.INI" and the theme's "COLORS.INI" by readSetting and writeSetting, the
// per-user values by GetSetting and SaveSetting (user.ini of the program directory).
#pragma once

#include "core/app_state.h"
#include "core/conversions.h"
#include "core/settings_keys.h"
#include "platform/file_system.h"
#include "platform/pump.h"

namespace korvane {

class Log;

class Settings {
 public:
  // `home` is the program directory. The theme of "COLORS" is the one `state` names at the call.
  // A write that fails leaves a line in `log`, which may be null; all but `home` must outlive this.
  Settings(FileSystem& files, Pump& pump, const AppState& state, QString home,
           const Log* log = nullptr);

  // The stored text as it stands, "NO" when absent. Section "COLORS", so spelt, reads the theme's
  // colours. What any program wrote is read: a file is held only as long as its stamp stands.
  QString readSetting(QStringView section, QStringView key) const;
  // Stores, then yields. False when that failed: the file is as it was, the log says which setting
  // of which file and why, and `error` gets the same in words for a user. Yields.
  bool writeSetting(QStringView section, QStringView key, const QString& value,
                    QString* error = nullptr);

  // Empty when absent.
  QString GetSetting(const QString& application, const QString& section, const QString& key) const;
  // False when it failed, as writeSetting; does not yield.
  bool SaveSetting(const QString& application, const QString& section, const QString& key,
                   const QString& value);

  // The readers' conversions, each key by its rule in the table of keys.
  QString str(const SettingKey& key) const;    // blanks cut, "NO" when absent
  QString upper(const SettingKey& key) const;  // blanks cut and in upper case
  QString raw(const SettingKey& key) const;    // as stored
  bool flag(const SettingKey& key) const;      // by the key's rule
  int number(const SettingKey& key) const;     // within the key's range, else its default
  bool write(const SettingKey& key, const QString& value, QString* error = nullptr);  // Yields.

  const QString& home() const { return home_; }

 private:
  QString path(QStringView section) const;
  struct Remembered {
    QString path;
    FileSystem::Stamp stamp;
    QByteArray bytes;
  };
  const QByteArray& bytesOf(const QString& path) const;
  bool put(const QString& file, QStringView section, QStringView name, const QString& value,
           QString* error);

  FileSystem& files_;
  Pump& pump_;
  const AppState& state_;
  QString home_;
  const Log* log_;
  mutable Remembered remembered_[2];
};

// Writes settings one by one until one fails: what follows is left out, and error() says why. So a
// screen that saves many of them says it once.
class SettingsToSave {
 public:
  explicit SettingsToSave(Settings& settings) : settings_(settings) {}

  void write(const SettingKey& key, const QString& value);  // Yields.
  bool good() const { return error_.isEmpty(); }
  const QString& error() const { return error_; }  // in words for a user; empty while all is well

 private:
  Settings& settings_;
  QString error_;
};

}  // namespace korvane
