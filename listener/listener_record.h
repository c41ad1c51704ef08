// The records that this console and the Listeners exchange over TCP.
//
// A record is field 0, 0x00, field 1, 0x00, ..., field n, 0x01. Fields are plain text, one byte a
// character; numbers are decimal text. There is no length, no checksum and no escape: a separator
// inside a field cannot be sent, so building a record turns it into a blank.
#pragma once

#include <cstring>
#include <initializer_list>
#include <optional>

#include "platform/text.h"

namespace korvane {

inline constexpr char kFieldEnd = 0, kRecordEnd = 1;

enum class WireText { Windows1252, Utf8 };

// The encoding that a setting's text means: "UTF-8", in any case, or else Windows-1252.
WireText wireTextOf(QStringView setting);

// With '?' for a character that the encoding does not have.
QByteArray encode(QStringView text, WireText encoding);
// Never fails; what is no text of the encoding becomes a replacement character.
QString decode(QByteArrayView bytes, WireText encoding);

// A record without its 0x01, in bytes that outlive it.
class ListenerRecord {
 public:
  static constexpr int kMostFields = 4;            // further ones are not looked at
  static constexpr qsizetype kLongestText = 1000;  // bytes of a field that text() takes

  // Texts of the fields are decoded by `encoding` when they are asked for.
  ListenerRecord(QByteArrayView bytes, WireText encoding) : encoding_(encoding) {
    while (count_ < kMostFields) {
      const void* end =
          bytes.isEmpty() ? nullptr : std::memchr(bytes.data(), kFieldEnd, length(bytes));
      if (!end) {
        fields_[count_++] = bytes;
        return;
      }
      const qsizetype size = static_cast<const char*>(end) - bytes.data();
      fields_[count_++] = bytes.first(size);
      bytes = bytes.sliced(size + 1);
    }
  }

  int count() const { return count_; }  // of the fields that are looked at, 1 at least
  QByteArrayView name() const { return fields_[0]; }
  // Empty when there is no such field.
  QByteArrayView field(int index) const {
    return index < count_ ? fields_[index] : QByteArrayView();
  }

  std::optional<QString> text(int index) const;   // nothing when there is no such field
  std::optional<double> number(int index) const;  // nothing unless the field is one finite number
  std::optional<double> whole(int index) const;   // the same, rounded; a half to the even number

 private:
  static size_t length(QByteArrayView bytes) { return static_cast<size_t>(bytes.size()); }

  QByteArrayView fields_[kMostFields];
  int count_ = 0;
  WireText encoding_;
};

// Calls visit(QByteArrayView) for each record of a delivery, without its 0x01 and without copying,
// as long as it returns true. What stands behind the last 0x01 is no record.
template <class Visit>
void forEachRecord(QByteArrayView block, Visit&& visit) {
  while (!block.isEmpty()) {
    const void* end = std::memchr(block.data(), kRecordEnd, static_cast<size_t>(block.size()));
    if (!end) return;
    const qsizetype size = static_cast<const char*>(end) - block.data();
    if (!visit(block.first(size))) return;
    block = block.sliced(size + 1);
  }
}

// The text of a command. An empty `command` gives `target` alone, without an end; an empty
// `argument1` before an `argument2` gives a record that ends twice.
QString commandRecord(const QString& target, const QString& command, const QString& argument1,
                      const QString& argument2);

// Without the blanks at its ends, as commands have always been trimmed: a title may begin with a
// tab.
QString blanksTrimmed(const QString& text);

// Whether a Listener always has something to say to that command.
bool isAnswered(const QString& command);

// A whole record of these fields.
QString replyRecord(std::initializer_list<QString> fields);

// Numbers as fields: with the decimal sign of the locale; read with either sign.
QString numberText(double number);
std::optional<double> numberOf(QByteArrayView field);
// Whether a reported number of seconds can be a position or a length.
bool isTime(double seconds);

// Seconds as M:SS, cut to whole ones; minutes are not folded into hours. Below 0 reads "0:00".
QString minutesAndSeconds(double seconds);

// What the slider says of a file that plays, of these seconds.
QString fileTimes(double position, double length);
// And of a disc.
QString discTimes(int chapter, int chapters, int position, int length);

}  // namespace korvane
