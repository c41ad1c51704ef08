#include "library/tags/full_tags.h"

#include <taglib/fileref.h>
#include <taglib/id3v1tag.h>
#include <taglib/id3v2tag.h>
#include <taglib/tag.h>

#include <mutex>

#include "library/data/vb_text.h"
#include "platform/path_text.h"

namespace korvane {
namespace {

QString text(const TagLib::String& string) {
  return trimBlanks(QString::fromStdWString(string.toWString()).remove(QChar(u'\0')));
}

TagLib::String decoded(const CodePage& page, const TagLib::ByteVector& data) {
  return TagLib::String(page.decode(QByteArrayView(data.data(), data.size())).toStdWString());
}

// The pages in force. Kept for the program's life: readers on other threads may hold them.
class Id3v2Text : public TagLib::ID3v2::Latin1StringHandler {
 public:
  explicit Id3v2Text(CodePage page) : page_(std::move(page)) {}
  TagLib::String parse(const TagLib::ByteVector& data) const override {
    return decoded(page_, data);
  }

 private:
  CodePage page_;
};

}  // namespace

void setFullTagsPage(const CodePage& page) {
  static std::mutex one;
  static std::vector<std::unique_ptr<Id3v2Text>> kept;
  const std::lock_guard lock(one);
  kept.push_back(std::make_unique<Id3v2Text>(page));
  TagLib::ID3v2::Tag::setLatin1StringHandler(kept.back().get());
}

std::optional<AudioTags> readFullTags(const QString& path) {
  const TagLib::FileRef file(fromPath(path).constData(), false);
  const TagLib::Tag* tag = file.isNull() ? nullptr : file.tag();
  if (!tag || tag->isEmpty()) return {};
  AudioTags tags;
  tags.Title = text(tag->title());
  tags.Artist = text(tag->artist());
  tags.Album = text(tag->album());
  tags.Comment = text(tag->comment());
  if (tag->year() > 0) tags.Year = QString::number(tag->year());
  tags.track = static_cast<int>(std::min(tag->track(), 9999U));
  return tags;
}

}  // namespace korvane
