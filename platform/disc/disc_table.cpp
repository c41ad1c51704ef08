#include "platform/disc/disc_table.h"

#include <cdio/cdtext.h>
#include <cdio/logging.h>

#include <QStringDecoder>

namespace korvane {
namespace {

// Between the sound of a disc and the data of its second session: lead-out, lead-in and pregap.
constexpr int kSessionGap = 11400;

thread_local QString complaint;

void keepComplaint(cdio_log_level_t level, const char* text) {
  if (level >= CDIO_LOG_WARN) complaint = QString::fromLocal8Bit(text).trimmed();
}

// libcdio reads the texts of a CUE sheet as Latin-1; many are UTF-8.
QString textOf(const char* bytes) {
  const QString text = QString::fromUtf8(bytes).trimmed();
  for (const QChar c : text)
    if (c.unicode() > 0xff) return text;
  QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  const QString twice = utf8(text.toLatin1());
  return utf8.hasError() ? text : twice;
}

QString textOf(const cdtext_t* texts, cdtext_field_t field, int track) {
  const char* text = texts ? cdtext_get_const(texts, field, static_cast<track_t>(track)) : nullptr;
  return text ? textOf(text) : QString();
}

DiscLook noDisc(const QString& name, const QString& why) {
  DiscLook look;
  look.state = DiscLook::NoDisc;
  look.trouble = u"Cannot read %1: %2."_s.arg(name, why);
  return look;
}

int endOfTrack(CdIo_t* disc, const DiscTrack& track, const DiscTrack* next, int leadOut) {
  if (!next || next->first > leadOut) return leadOut;
  lsn_t session = 0;
  const bool secondSession = track.audio && !next->audio &&
                             cdio_get_last_session(disc, &session) == DRIVER_OP_SUCCESS &&
                             session == next->first && next->first - kSessionGap > track.first;
  return secondSession ? next->first - kSessionGap : next->first;
}

}  // namespace

QString takeCdioComplaint() {
  static const bool still = [] {
    cdio_log_set_handler(keepComplaint);
    return true;
  }();
  Q_UNUSED(still)
  return std::exchange(complaint, QString());
}

DiscLook tableOf(CdIo_t* disc, const QString& name) {
  const int firstTrack = cdio_get_first_track_num(disc), count = cdio_get_num_tracks(disc);
  if (firstTrack < 1 || firstTrack > CDIO_CD_MAX_TRACKS || count < 1 || count > CDIO_CD_MAX_TRACKS)
    return noDisc(name, u"it holds no tracks"_s);
  const int leadOut = cdio_get_track_lsn(disc, CDIO_CDROM_LEADOUT_TRACK);
  std::vector<DiscTrack> tracks;
  for (int i = firstTrack; i < firstTrack + count; ++i) {
    const auto number = static_cast<track_t>(i);
    DiscTrack track;
    track.first = cdio_get_track_lsn(disc, number);
    track.audio = cdio_get_track_format(disc, number) == TRACK_FORMAT_AUDIO;
    if (track.first < 0 || (!tracks.empty() && track.first <= tracks.back().first))
      return noDisc(name, u"its tracks are not in order; all must stand in one file"_s);
    tracks.push_back(track);
  }

  DiscLook look;
  look.state = DiscLook::Ready;
  const cdtext_t* texts = cdio_get_cdtext(disc);
  look.disc.title = textOf(texts, CDTEXT_FIELD_TITLE, 0);
  look.disc.performer = textOf(texts, CDTEXT_FIELD_PERFORMER, 0);
  for (size_t i = 0; i < tracks.size() && tracks[i].first < leadOut; ++i) {
    DiscTrack& track = tracks[i];
    const DiscTrack* next = i + 1 < tracks.size() ? &tracks[i + 1] : nullptr;
    track.sectors = endOfTrack(disc, track, next, leadOut) - track.first;
    track.title = textOf(texts, CDTEXT_FIELD_TITLE, firstTrack + static_cast<int>(i));
    track.performer = textOf(texts, CDTEXT_FIELD_PERFORMER, firstTrack + static_cast<int>(i));
    look.disc.tracks.push_back(track);
  }
  const size_t kept = look.disc.tracks.size();
  if (kept == 0) return noDisc(name, u"there is nothing on it"_s);
  if (kept < tracks.size())
    look.trouble =
        u"%1 is cut short: it ends in track %2 of %3."_s.arg(name).arg(kept).arg(tracks.size());
  return look;
}

}  // namespace korvane
