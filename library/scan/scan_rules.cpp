#include "library/scan/scan_rules.h"

#include <QRegularExpression>

#include "library/scan/stamp.h"

namespace korvane {
namespace {

constexpr QLatin1StringView kAlways[] = {".MP3"_L1, ".WMA"_L1, ".WAV"_L1};

bool endsWithKind(QStringView name, QStringView kind) {
  return name.size() > kind.size() && name[name.size() - kind.size() - 1] == u'.' &&
         name.endsWith(kind, Qt::CaseInsensitive);
}

}  // namespace

bool ScanRules::isSong(QStringView fileName) const {
  for (const auto& kind : kAlways)
    if (fileName.endsWith(kind, Qt::CaseInsensitive)) return true;
  return std::any_of(kinds.begin(), kinds.end(),
                     [&](const QString& kind) { return endsWithKind(fileName, kind); });
}

QString ScanRules::withoutKind(const QString& fileName) const {
  QString name = fileName;
  // One test after the other on what the one before left: "a.wav.mp3" loses both.
  for (const auto& kind : kAlways)
    if (name.endsWith(kind, Qt::CaseInsensitive)) name.chop(kind.size());
  for (const QString& kind : kinds)
    if (endsWithKind(name, kind)) name.chop(kind.size() + 1);
  return name;
}

quint64 ScanRules::stamp() const {
  const QString text = QString::number(fullTags) + u'|' + codePage + u'|' + kinds.join(u' ');
  return stampOf(text.toUtf8());
}

ScanRules scanRules(const Settings& settings) {
  static const QRegularExpression separators(u"[\\s,;.]+"_s);
  QStringList kinds = settings.upper(key::FileKinds).split(separators, Qt::SkipEmptyParts);
  if (kinds == QStringList{u"NO"_s}) kinds.clear();
  return {settings.upper(key::Tags) == "FULL"_L1, settings.str(key::TagCodePage), kinds};
}

}  // namespace korvane
