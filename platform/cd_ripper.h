// SwdCDRipper: the sound of audio discs into files. It knows the machine's CD drives and what is in
// them, reads the tracks that are queued, encodes them and says how far it is.
//
// All calls are made from the event loop's thread; none waits for a drive.
#pragma once

#include "platform/disc_drive.h"

namespace korvane {

enum class RipFormat { Mp3, Flac, Opus };

// Of the files of a format, with its dot.
inline QString endingOf(RipFormat format) {
  switch (format) {
    case RipFormat::Mp3:
      return u".mp3"_s;
    case RipFormat::Flac:
      return u".flac"_s;
    case RipFormat::Opus:
      return u".opus"_s;
  }
  Q_UNREACHABLE();
}

// SwdMP3Encoder: how files are encoded.
struct SwdMP3Encoder {
  RipFormat format = RipFormat::Mp3;
  // Effort, 0 to 1 (best) of the encoder's own scale: 0.75 is LAME's 2, FLAC's 6, Opus's 8.
  double quality = 0.75;
  int bitRate = 192000;  // bit/s, of MP3 (constant) and Opus; FLAC keeps every bit
};

struct RipTags {
  QString title, artist, album, year, genre;  // empty ones are left out
  int track = 0;
  QByteArray cover;  // a JPEG or PNG file; empty for none
};

struct RipJob {
  QString source;  // the drive, as drives() names it
  int track = 0;   // of the disc in it
  // The file without its ending, which the format gives; its folder exists. A file of that name is
  // replaced, as a whole and when the track is done; a run that ends before leaves it.
  QString output;
  std::optional<RipTags> tags;
};

struct RipResult {
  // Clean: read without doubt. Repaired: what was in doubt was read again until it agreed.
  // Doubtful: a place could not be read, and is silent or as it came.
  enum Reading { Unchecked, Clean, Repaired, Doubtful };
  QString path;  // of the file
  Reading reading = Unchecked;
  QList<int> doubtful;   // seconds of the track, where it is not clean
  quint32 checksum = 0;  // CRC-32 (ISO 3309) of the samples as they were read, 16 bit little-endian
};

class SwdCDRipper {
 public:
  struct Drive {
    QString source;  // a device, or the path of a CUE sheet
    QString name;    // for the user
    bool operator==(const Drive&) const = default;
  };

  // Heard from the event loop, never from inside a call. Jobs count from 0, begin and end in order.
  class Events {
   public:
    virtual ~Events() = default;
    virtual void OnExtractionStart(int job) = 0;
    virtual void OnExtractionEnd(int job, const RipResult& result) = 0;
    virtual void OnProgress(double track, double total) = 0;  // percent, of the first not done
    virtual void OnCDChange(const QString& source) = 0;       // first answer of a drive, and every
                                                         // other; empty: there are other drives
    // The run is over; half-made files are gone. In words: what happened, to what.
    virtual void OnError(const QString& text) = 0;
  };

  virtual ~SwdCDRipper() = default;
  virtual void setEvents(Events* events) = 0;  // not owned; nullptr for silence

  // Looks for drives and at the discs in them until close(). `also`: a further drive, as the image
  // that an owner has set; empty for none.
  virtual void open(const QString& also) = 0;
  virtual void close() = 0;  // a run goes on
  virtual std::vector<Drive> drives() const = 0;
  virtual bool looked(const QString& source) const = 0;  // it has answered since open()
  // Null while there is none. The ripper's; stands until the next turn of the loop.
  virtual const Disc* disc(const QString& source) const = 0;
  // Why there is no disc, or what is wrong with the one at hand; empty when all is well.
  virtual QString trouble(const QString& source) const = 0;

  // Of the next run.
  virtual void setEncoder(const SwdMP3Encoder& encoder) = 0;
  virtual void setSecure(bool on) = 0;      // doubtful places are read twice, and told
  virtual void setSideBySide(bool on) = 0;  // reads on while it encodes, on all cores
  virtual void queueTrack(const RipJob& job) = 0;

  virtual void start() = 0;  // what is queued; OnExtractionEnd of the last job ends the run
  virtual void abort() = 0;  // half-made files are gone when running() is false; no further event
  virtual bool running() const = 0;
  virtual void finish(const QString& source) = 0;  // opens the door of that drive, a moment later
};

}  // namespace korvane
