#include "platform/imaging/gif_writer.h"

#include <unordered_map>

#include "platform/text.h"

namespace korvane {
namespace {

constexpr int kColours = 256;

struct Indexed {
  std::vector<uchar> pixels;
  std::vector<QRgb> colours;
  int clear = -1;  // the index of the clear pixels; -1 for none
};

// The index of each pixel's colour; false when there are too many.
bool indexByColour(const QImage& image, Indexed& made) {
  std::unordered_map<QRgb, uchar> indices;
  made = {};
  made.pixels.reserve(static_cast<size_t>(image.width()) * static_cast<size_t>(image.height()));
  for (int y = 0; y < image.height(); ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      const QRgb colour = qAlpha(row[x]) < 128 ? 0 : row[x] | 0xff000000;
      const auto [at, isNew] = indices.try_emplace(colour, static_cast<uchar>(made.colours.size()));
      if (isNew) {
        if (made.colours.size() == kColours) return false;
        if (colour == 0) made.clear = static_cast<int>(made.colours.size());
        made.colours.push_back(colour);
      }
      made.pixels.push_back(at->second);
    }
  }
  return true;
}

// The codes of LZW, 9 to 12 bits each, in sub-blocks of at most 255 bytes.
class CodeStream {
 public:
  explicit CodeStream(QByteArray& out) : out_(out) {}

  void put(unsigned code, int bits) {
    held_ |= code << count_;
    for (count_ += bits; count_ >= 8; count_ -= 8, held_ >>= 8)
      addByte(static_cast<char>(held_ & 0xff));
  }
  void end() {
    if (count_ > 0) addByte(static_cast<char>(held_ & 0xff));
    flush();
    out_ += '\0';
  }

 private:
  void addByte(char byte) {
    block_ += byte;
    if (block_.size() == 255) flush();
  }
  void flush() {
    if (block_.isEmpty()) return;
    out_ += static_cast<char>(block_.size());
    out_ += block_;
    block_.clear();
  }

  QByteArray& out_;
  QByteArray block_;
  unsigned held_ = 0;
  int count_ = 0;  // of bits held
};

void compress(const std::vector<uchar>& pixels, QByteArray& out) {
  constexpr unsigned kClear = kColours, kEnd = kClear + 1, kMostCodes = 4096;
  CodeStream codes(out);
  std::unordered_map<unsigned, unsigned> known;  // code of a run and the pixel behind it, to code
  int bits = 9;
  unsigned next = kEnd + 1, run = pixels.front();
  codes.put(kClear, bits);
  for (size_t i = 1; i < pixels.size(); ++i) {
    const auto [at, isNew] = known.try_emplace(run << 8 | pixels[i], next);
    if (!isNew) {
      run = at->second;
      continue;
    }
    codes.put(run, bits);
    run = pixels[i];
    if (next == kMostCodes - 1) {
      codes.put(kClear, bits);
      known.clear();
      bits = 9;
      next = kEnd + 1;
      continue;
    }
    if (next++ == 1U << bits) ++bits;
  }
  codes.put(run, bits);
  codes.put(kEnd, next == 1U << bits && bits < 12 ? bits + 1 : bits);
  codes.end();
}

void addNumber(QByteArray& out, int number) {
  out += static_cast<char>(number & 0xff);
  out += static_cast<char>(number >> 8);
}

}  // namespace

QByteArray gifOf(const QImage& image) {
  constexpr int kLongest = 0xffff;
  if (image.isNull() || image.width() > kLongest || image.height() > kLongest) return {};
  Indexed indexed;
  if (!indexByColour(image.convertToFormat(QImage::Format_ARGB32), indexed)) {
    const QImage fewer = image.convertToFormat(QImage::Format_Indexed8);
    if (!indexByColour(fewer.convertToFormat(QImage::Format_ARGB32), indexed)) return {};
  }
  QByteArray out("GIF89a");
  addNumber(out, image.width());
  addNumber(out, image.height());
  out += QByteArrayView("\xF7\0\0", 3);  // a table of 256 colours for the whole file
  indexed.colours.resize(kColours, 0);
  for (const QRgb colour : indexed.colours)
    for (const int part : {qRed(colour), qGreen(colour), qBlue(colour)})
      out += static_cast<char>(part);
  if (indexed.clear >= 0) {
    out += QByteArrayView("\x21\xF9\x04\x01\0\0", 6);
    out += static_cast<char>(indexed.clear);
    out += '\0';
  }
  out += ',';
  for (const int number : {0, 0, image.width(), image.height()}) addNumber(out, number);
  out += QByteArrayView("\0\x08", 2);  // no table of its own; 8 bits a pixel
  compress(indexed.pixels, out);
  out += ';';
  return out;
}

}  // namespace korvane
