#include "ripper/names/cddb_client.h"

#include <QElapsedTimer>
#include <QUrl>

#include "ripper/names/cddb_protocol.h"

namespace korvane {
namespace {

constexpr double kSeconds = 5;       // for both commands
constexpr int kMostBytes = 1 << 18;  // of an answer; a record has a few thousand

// Of one look-up.
struct Asked {
  QString place;
  qsizetype tracks;
  CddbClient::Done done;
  QElapsedTimer since;

  Http::Request request(const QString& url) const {
    return {url, "korvane/" KORVANE_VERSION, kSeconds - static_cast<double>(since.elapsed()) / 1000,
            kMostBytes};
  }
  void fails(const QString& words) const {
    done({}, u"The server %1 %2"_s.arg(QUrl(place).host(), words));
  }
  // Whether there is an answer of the server's own; what is wrong is said.
  bool answered(const Http::Answer& answer) const {
    if (!answer.trouble.isEmpty())
      done({}, answer.trouble);
    else if (answer.status == 404)
      fails(u"has no disc database at that address."_s);
    else if (answer.status != 200)
      fails(u"refuses with the HTTP status %1."_s.arg(answer.status));
    else
      return true;
    return false;
  }
  // Whether it is what was asked for; what is wrong is said.
  template <typename Found>
  bool holds(const Found& found) const {
    if (const auto* trouble = std::get_if<CddbTrouble>(&found)) fails(trouble->words);
    if (std::holds_alternative<CddbUnknown>(found)) done({}, {});
    return found.index() == 0;
  }
};

}  // namespace

void CddbClient::lookUp(const QString& server, const CddbQuery& query, Done done) {
  const auto asked =
      std::make_shared<Asked>(Asked{cddbPlace(server), query.starts.size(), std::move(done), {}});
  asked->since.start();
  running_ = http_.get(
      asked->request(cddbQueryUrl(asked->place, query)), [this, asked](const Http::Answer& found) {
        if (!asked->answered(found)) return;
        const CddbFound entry = readCddbQuery(found.body);
        if (!asked->holds(entry)) return;
        running_ = http_.get(asked->request(cddbReadUrl(asked->place, std::get<CddbEntry>(entry))),
                             [asked](const Http::Answer& read) {
                               if (!asked->answered(read)) return;
                               CddbRead record = readCddbRecord(read.body);
                               if (!asked->holds(record)) return;
                               auto& names = std::get<CddbNames>(record);
                               names.titles.resize(asked->tracks);
                               asked->done(names, {});
                             });
      });
}

}  // namespace korvane
