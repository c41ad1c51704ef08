// What a CDDB server answers, and the records in it and in dumps: any bytes end in an entry that
// fits an address, in names that can be shown, or in a reason.
#include <QUrl>
#include <algorithm>

#include "ripper/names/cddb_protocol.h"
#include "ripper/names/xmcd_record.h"

namespace {

using namespace korvane;

void require(bool held) {
  if (!held) __builtin_trap();
}

void requireShown(const QString& text) {
  require(text == text.trimmed());
  for (const QChar c : text) require(c.category() != QChar::Other_Control);
}

void requireRecord(QByteArrayView bytes) {
  const auto record = readXmcd(bytes);
  if (!record) return;
  require(!record->artist.isEmpty() || !record->album.isEmpty());
  for (const QString& id : record->discIds) require(id.size() == 8 && id == id.toLower());
  require(record->offsets.size() <= 99 && record->titles.size() <= 99);
  require(std::ranges::is_sorted(record->offsets, std::less_equal()));
  require(record->seconds >= 0 && record->seconds <= 6000);
  require(record->year.isEmpty() || record->year.size() == 4);
  for (const QString& text :
       QStringList{record->artist, record->album, record->genre} + record->titles)
    requireShown(text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  // In a place of its own, so that a byte beyond its end is noticed.
  const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  requireRecord(bytes);
  const CddbFound found = readCddbQuery(bytes);
  if (const auto* entry = std::get_if<CddbEntry>(&found)) {
    const QUrl url(cddbReadUrl(u"http://names.example/cddb.cgi"_s, *entry), QUrl::StrictMode);
    require(url.isValid() && url.host() == "names.example"_L1 && url.path() == "/cddb.cgi"_L1);
    require(url.query().endsWith("&proto=6"_L1) && url.query().count(u'&') == 2 &&
            !url.hasFragment());
  }
  const CddbRead read = readCddbRecord(bytes);
  if (const auto* names = std::get_if<CddbNames>(&read)) requireShown(names->album);
  for (const CddbTrouble* trouble :
       {std::get_if<CddbTrouble>(&found), std::get_if<CddbTrouble>(&read)})
    require(!trouble || (!trouble->words.isEmpty() && trouble->words.size() < 200 &&
                         !trouble->words.contains(u'\n')));
  return 0;
}
