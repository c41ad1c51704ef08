// The CDDB protocol over HTTP (freedb's "CDDB Protocol", level 6, in which all is UTF-8): the
// addresses of its two commands and what is answered to them. Pure.
//
// An answer is a line of a three-digit code and words, and for some codes further lines up to one
// that is a single full stop. Lines end with CR LF or LF.
#pragma once

#include <variant>

#include "ripper/names/cddb_client.h"

namespace korvane {

// The identifier that CDDB servers know a disc by: eight hexadecimal digits. The databases of this
// machine use another, see clscddb::figureid().
QString cddbDiscId(const CddbQuery& query);

// A record of the server's.
struct CddbEntry {
  QString category, discId;  // fit for an address as they are
};

// What a server answers to either command: what was asked for, or that it does not know the disc,
// or why there is no answer.
struct CddbUnknown {};
struct CddbTrouble {
  QString words;  // goes on from "The server ... "
};
using CddbFound = std::variant<CddbEntry, CddbUnknown, CddbTrouble>;
using CddbRead = std::variant<CddbNames, CddbUnknown, CddbTrouble>;

CddbFound readCddbQuery(QByteArrayView answer);  // of several records the first
CddbRead readCddbRecord(QByteArrayView answer);

// The place of a server's commands; `server` as CddbClient::lookUp() takes it. Text that is no
// address stays as it is, which no web server answers to.
QString cddbPlace(const QString& server);
QString cddbQueryUrl(const QString& place, const CddbQuery& query);
QString cddbReadUrl(const QString& place, const CddbEntry& entry);

}  // namespace korvane
