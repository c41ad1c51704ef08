// JPEG by libjpeg-turbo. Everything may be called from any thread.
#pragma once

#include "platform/imaging/pixel_buffer.h"
#include "platform/imaging/quarter_turn.h"

namespace korvane {

struct DecodedJpeg {
  std::shared_ptr<const Pixels> pixels;  // null when it could not be decoded
  bool unusual = false;                  // in how it stores colours: this decoder has no way for it
  QString fault;  // what is wrong with the file, in the decoder's words; it may be shown still
};
// As the file stores it, no turn. At least `atLeast` large and near to that where the decoder can
// have it so for less work, which is in steps of an eighth; else whole.
DecodedJpeg decodeJpeg(QByteArrayView bytes, FittedSize atLeast);

// 24 bits, transparent parts on white. Empty when there is no memory for it.
QByteArray encodeJpeg(const Pixels& pixels, int quality);

// The file with its picture turned, without loss where its size is a whole number of the blocks
// that it is made of, else decoded, turned and encoded anew. What it says beside its pixels is kept
// and set right: with `upright` its orientation too. A damaged file is refused.
QByteArray turnJpeg(QByteArrayView bytes, QuarterTurn turn, bool upright, QString* error);

}  // namespace korvane
