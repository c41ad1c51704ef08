#include "platform/ripping/id3_tags.h"

#include <taglib/attachedpictureframe.h>
#include <taglib/id3v1genres.h>
#include <taglib/id3v1tag.h>
#include <taglib/id3v2tag.h>
#include <taglib/textidentificationframe.h>

namespace korvane {
namespace {

QByteArray bytesOf(const TagLib::ByteVector& bytes) {
  return {bytes.data(), static_cast<qsizetype>(bytes.size())};
}

TagLib::String wide(const QString& text) {
  return {text.toStdWString()};
}

TagLib::String latin(const QString& text) {
  return {text.toLatin1().toStdString(), TagLib::String::Latin1};
}

void add(TagLib::ID3v2::Tag& tag, const char* frame, const QString& text) {
  if (text.isEmpty()) return;
  auto* words = new TagLib::ID3v2::TextIdentificationFrame(frame, TagLib::String::UTF16);
  words->setText(wide(text));
  tag.addFrame(words);  // which owns it now
}

void addCover(TagLib::ID3v2::Tag& tag, const QByteArray& picture) {
  const QByteArray type = coverType(picture);
  if (type.isEmpty()) return;
  auto* frame = new TagLib::ID3v2::AttachedPictureFrame;
  frame->setMimeType(type.toStdString());
  frame->setType(TagLib::ID3v2::AttachedPictureFrame::FrontCover);
  frame->setPicture({picture.constData(), static_cast<unsigned>(picture.size())});
  tag.addFrame(frame);  // which owns it now
}

}  // namespace

QByteArray id3v2(const RipTags& tags) {
  TagLib::ID3v2::Tag tag;
  add(tag, "TIT2", tags.title);
  add(tag, "TPE1", tags.artist);
  add(tag, "TALB", tags.album);
  add(tag, "TDRC", tags.year);  // TYER in version 2.3
  add(tag, "TCON", tags.genre);
  if (tags.track > 0) add(tag, "TRCK", QString::number(tags.track));
  addCover(tag, tags.cover);
  return bytesOf(tag.render(TagLib::ID3v2::v3));
}

QByteArray id3v1(const RipTags& tags) {
  TagLib::ID3v1::Tag tag;
  tag.setTitle(latin(tags.title));
  tag.setArtist(latin(tags.artist));
  tag.setAlbum(latin(tags.album));
  tag.setYear(tags.year.left(4).toUInt());
  tag.setGenre(latin(tags.genre));
  tag.setTrack(static_cast<unsigned>(tags.track));
  return bytesOf(tag.render());
}

QByteArray coverType(const QByteArray& picture) {
  if (picture.startsWith("\xff\xd8\xff")) return "image/jpeg";
  return picture.startsWith("\x89PNG\r\n\x1a\n") ? "image/png" : QByteArray();
}

}  // namespace korvane
