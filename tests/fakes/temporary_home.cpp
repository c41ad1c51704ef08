#include "tests/fakes/temporary_home.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <stdexcept>

namespace korvane {

TemporaryHome::TemporaryHome() {
  if (!directory_.isValid()) throw std::runtime_error("no temporary directory");
  put(u"Morvanta.INI"_s, "[STARTUP]\r\nTheme=test\r\nMainPage=CB\r\nADDSON=NO\r\n");
  put(u"krvgraphics/TEST/COLORS.INI"_s, "[COLORS]\r\nGridBACK=1315860\r\nGridFOR=15790320\r\n");
  for (const QString& group : {u"MUSIC"_s, u"MORE"_s, u"MAIN"_s, u"ROOT"_s})
    folder(u"krvgraphics/TEST/"_s + group);
}

QString TemporaryHome::put(const QString& name, const QByteArray& bytes) const {
  const QString path = *this / name;
  if (!QDir().mkpath(QFileInfo(path).path())) throw std::runtime_error("no folder for the file");
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
    throw std::runtime_error(file.errorString().toStdString());
  return path;
}

QByteArray TemporaryHome::get(const QString& name) const {
  QFile file(*this / name);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TemporaryHome::folder(const QString& name) const {
  if (!QDir().mkpath(*this / name)) throw std::runtime_error("no such folder can be made");
}

}  // namespace korvane
