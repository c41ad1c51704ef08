#include "library/tags/any_cover.h"

#include <taglib/aifffile.h>
#include <taglib/attachedpictureframe.h>
#include <taglib/fileref.h>
#include <taglib/flacfile.h>
#include <taglib/flacpicture.h>
#include <taglib/id3v2tag.h>
#include <taglib/mp4file.h>
#include <taglib/mpegfile.h>
#include <taglib/wavfile.h>
#include <taglib/xiphcomment.h>

#include "library/tags/cover_art.h"
#include "platform/path_text.h"

namespace korvane {
namespace {

constexpr unsigned kMostPicture = 64U << 20;

TagLib::ByteVector ofFrames(const TagLib::ID3v2::Tag* tag) {
  if (!tag) return {};
  for (const TagLib::ID3v2::Frame* frame : tag->frameListMap()["APIC"])
    if (const auto* found = dynamic_cast<const TagLib::ID3v2::AttachedPictureFrame*>(frame))
      return found->picture();
  return {};
}

TagLib::ByteVector ofPictures(const TagLib::List<TagLib::FLAC::Picture*>& pictures) {
  return pictures.isEmpty() ? TagLib::ByteVector() : pictures.front()->data();
}

TagLib::ByteVector ofItems(const TagLib::MP4::Tag* tag) {
  if (!tag || !tag->contains("covr")) return {};
  const TagLib::MP4::CoverArtList covers = tag->item("covr").toCoverArtList();
  return covers.isEmpty() ? TagLib::ByteVector() : covers.front().data();
}

TagLib::ByteVector pictureIn(TagLib::File* file) {
  if (auto* mpeg = dynamic_cast<TagLib::MPEG::File*>(file)) return ofFrames(mpeg->ID3v2Tag());
  if (auto* mp4 = dynamic_cast<TagLib::MP4::File*>(file)) return ofItems(mp4->tag());
  if (auto* wav = dynamic_cast<TagLib::RIFF::WAV::File*>(file)) return ofFrames(wav->ID3v2Tag());
  if (auto* aiff = dynamic_cast<TagLib::RIFF::AIFF::File*>(file)) return ofFrames(aiff->tag());
  if (auto* flac = dynamic_cast<TagLib::FLAC::File*>(file)) {
    const TagLib::ByteVector own = ofPictures(flac->pictureList());
    return own.isEmpty() ? ofFrames(flac->ID3v2Tag()) : own;
  }
  if (auto* xiph = dynamic_cast<TagLib::Ogg::XiphComment*>(file->tag()))  // Vorbis, Opus, Speex
    return ofPictures(xiph->pictureList());
  return {};
}

}  // namespace

std::optional<QByteArray> anyCoverArtBytes(const QString& path) {
  if (auto attached = coverArtBytes(path)) return attached;
  const TagLib::FileRef file(fromPath(path).constData(), false);
  if (file.isNull()) return {};
  const TagLib::ByteVector found = pictureIn(file.file());
  if (found.isEmpty() || found.size() > kMostPicture) return {};
  return QByteArray(found.data(), static_cast<qsizetype>(found.size()));
}

}  // namespace korvane
