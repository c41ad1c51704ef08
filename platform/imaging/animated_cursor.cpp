#include "platform/imaging/animated_cursor.h"

#include <QtEndian>

namespace korvane {

QByteArrayView firstCursorFrame(QByteArrayView bytes) {
  constexpr qsizetype kHead = 8, kForm = 4;  // bytes: name and length of a chunk; name of a list
  qsizetype at = kHead + kForm;
  while (at >= 0 && at <= bytes.size() - kHead) {
    const QByteArrayView name = bytes.sliced(at, 4);
    const qsizetype length = qFromLittleEndian<quint32>(bytes.data() + at + 4);
    at += kHead;
    if (name == "icon") return bytes.sliced(at, std::min(length, bytes.size() - at));
    // Into the list of frames, over all else; a chunk of odd length has a filler behind it.
    const bool frames =
        name == "LIST" && at <= bytes.size() - kForm && bytes.sliced(at, kForm) == "fram";
    at += frames ? kForm : length + length % 2;
  }
  return {};
}

}  // namespace korvane
