// What FTP servers write when they list a folder: MLSD (RFC 3659, 7), the output of ls -l of Unix
// servers, and that of DIR of DOS servers (IIS). A line that is none of these is left out, as are
// "." and "..".
#pragma once

#include "ftp/dir_list.h"

namespace korvane {

struct Listing {
  std::vector<cDirItem> items;
  QString badTime;  // the first time that no calendar knows; its entry has none
};

// `facts` for one of MLSD. Its times are UTC and become local; the others are the server's own and
// stay as they are. `now` tells the year where ls does not.
Listing parseListing(QByteArrayView text, bool facts, const QDateTime& now);

// Whether a name fits a pattern of FtpFindFirstFile: "*" stands for any characters, "?" for one,
// and "*.*" for every name; in any case.
bool fitsFilter(QStringView name, QStringView filter);

// Why a name of the server may not become the name of a file here, as a sentence; empty where it
// may. A name leads nowhere else than into the folder that was chosen.
QString nameRefusal(const QByteArray& name);

}  // namespace korvane
