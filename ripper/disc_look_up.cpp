#include "ripper/disc_look_up.h"

namespace korvane {
namespace {

constexpr int kLeadIn = 150;  // frames before the first sector

struct Local {
  QString discId;
  std::optional<DiscNames> names;
  FoundNames::From from = FoundNames::Nobody;
};

// On a thread of the pool. The user's own discs are asked for only where a file of the five is
// there, unless `always`.
Local lookLocally(const clscddb::Uses& uses, const QString& source, bool always) {
  clscddb cddb(uses);
  Local local;
  local.discId = cddb.getIDFromCD(source);
  const bool available = cddb.IsDataAvailable();
  if (available) local.names = cddb.GetInfo(local.discId, false);
  if (local.names) {
    local.from = FoundNames::LocalDatabase;
  } else if (available || always) {
    local.names = cddb.GetInfo(local.discId, true);
    if (local.names) local.from = FoundNames::MyDatabase;
  }
  return local;
}

FoundNames namesOf(const DiscNames& names, FoundNames::From from) {
  return {from, names.artist, names.album,
          {},   {},           QStringList(names.titles.begin(), names.titles.end())};
}

FoundNames textOf(const Disc& disc) {
  FoundNames names{FoundNames::Disc, disc.performer, disc.title, {}, {}, {}};
  bool any = !disc.title.isEmpty();
  for (const DiscTrack& track : disc.tracks) {
    names.titles << track.title;
    any = any || !track.title.isEmpty();
  }
  return any ? names : FoundNames();
}

CddbQuery queryOf(const Disc& disc) {
  CddbQuery query;
  for (const DiscTrack& track : disc.tracks) query.starts << track.first + kLeadIn;
  query.leadOut = disc.tracks.back().first + disc.tracks.back().sectors + kLeadIn;
  return query;
}

}  // namespace

void DiscLookUp::cancel() {
  round_.reset();
  client_.cancel();
}

void DiscLookUp::begin(const QString& source, const korvane::Disc& disc) {
  cancel();
  round_ = std::make_shared<Round>(Round{disc});
  status(u"Checking local DB.."_s);
  const clscddb::Uses uses{uses_.files, uses_.packets, uses_.log, uses_.settings.home(),
                           uses_.settings.str(key::CDDBPath)};
  const bool always = uses_.settings.flag(key::CddbAlways);
  const auto local = std::make_shared<Local>();
  uses_.pump.inBackground(
      [local, uses, source, always] { *local = lookLocally(uses, source, always); },
      [this, local, round = std::weak_ptr(round_)] {
        if (round.expired()) return;
        identified(local->discId);
        if (!local->names) return askServer();
        status(local->from == FoundNames::LocalDatabase ? u"Data Found in local DB"_s
                                                        : u"Data Found in mydb"_s);
        end(namesOf(*local->names, local->from));
      });
}

void DiscLookUp::askServer() {
  status(u"Checking internet.."_s);
  const auto nobody = [this] {
    FoundNames names;
    if (uses_.settings.flag(key::CddbAlways)) names = textOf(round_->disc);
    status(names.from == FoundNames::Disc ? u"Names found on the disc"_s : u"No disk data found"_s);
    end(names);
  };
  const QString server = uses_.settings.str(key::CddbServer);
  if (server.isEmpty() || server == "NO"_L1) return nobody();
  client_.lookUp(server, queryOf(round_->disc),
                 [this, nobody, round = std::weak_ptr(round_)](
                     const std::optional<CddbNames>& names, const QString& trouble) {
                   if (round.expired()) return;
                   if (!trouble.isEmpty()) uses_.log.logIt(u"CDDB: "_s + trouble);
                   if (!names) return nobody();
                   status(u"Data found on internet"_s);
                   end({FoundNames::Internet, names->artist, names->album, names->year,
                        names->genre, names->titles});
                 });
}

void DiscLookUp::end(const FoundNames& names) {
  round_.reset();
  found(names);
}

}  // namespace korvane
