// The names of an audio disc from a CDDB server over HTTP: protocol level 6, so all is UTF-8
// (commands "cddb query" and "cddb read" of the CDDB protocol, sent to /~cddb/cddb.cgi).
#pragma once

#include <optional>

#include "platform/http.h"

namespace korvane {

struct CddbQuery {
  QList<int> starts;  // of the tracks, in frames of 1/75 s with the lead-in of 150
  int leadOut = 0;    // the same
};

struct CddbNames {
  QString artist, album, year, genre;
  QStringList titles;  // of track 1 on; as many as the disc has tracks
};

class CddbClient {
 public:
  explicit CddbClient(Http& http) : http_(http) {}  // not owned; must outlive this

  // `server`: "host", "host:port" or a URL. `done` comes once from the event loop, never from
  // inside the call: the names, or nothing with `trouble` in words (empty when the server does not
  // know the disc). 5 s at most in all. A new look-up or cancel() ends the one before, which is not
  // heard of.
  using Done = std::function<void(const std::optional<CddbNames>& names, const QString& trouble)>;
  void lookUp(const QString& server, const CddbQuery& query, Done done);
  void cancel() { running_.reset(); }

 private:
  Http& http_;
  std::unique_ptr<Http::Running> running_;
};

}  // namespace korvane
