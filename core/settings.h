// Every setting: "Morvanta.INI" and the theme's "COLORS.INI" by readSetting and writeSetting, the
// per-user values by GetSetting and SaveSetting (user.ini of the program directory).
#pragma once

#include "core/app_state.h"
#include "core/settings_keys.h"
#include "platform/file_system.h"
#include "platform/pump.h"

namespace korvane {

class Settings {
 public:
  // `home` is the program directory. The theme of "COLORS" is the one `state` names at the call.
  Settings(FileSystem& files, Pump& pump, const AppState& state, QString home);

  // The stored text as it stands, "NO" when absent. Section "COLORS", so spelt, reads the theme's
  // colours. Nothing is cached: what any program wrote is read.
  QString readSetting(QStringView section, QStringView key) const;
  // Stores, then yields. A failure changes nothing and shows in the log only. Yields.
  void writeSetting(QStringView section, QStringView key, const QString& value);

  QString GetSetting(const QString& application, const QString& section, const QString& key) const;
  void SaveSetting(const QString& application, const QString& section, const QString& key,
                   const QString& value);

  // The readers' conversions, each key by its rule in the table of keys.
  QString str(const SettingKey& key) const;    // trimmed, "NO" when absent
  QString upper(const SettingKey& key) const;  // trimmed and in upper case
  QString raw(const SettingKey& key) const;    // as stored
  bool flag(const SettingKey& key) const;      // by the key's rule
  int number(const SettingKey& key) const;     // by the key's range, else its default
  void write(const SettingKey& key, const QString& value);

  const QString& home() const { return home_; }

 private:
  QString path(QStringView section) const;
  struct Remembered {
    QString path;
    qint64 modified = -1, size = -1;
    quint64 inode = 0;
    QByteArray bytes;
  };
  const QByteArray& bytesOf(const QString& path) const;

  FileSystem& files_;
  Pump& pump_;
  const AppState& state_;
  QString home_;
  mutable Remembered remembered_[2];
};

// The conversions of setting texts.
double val(QStringView text);      // the number a text begins with, blanks skipped; 0 for none
bool isNumeric(QStringView text);  // the whole text is one number

}  // namespace korvane
