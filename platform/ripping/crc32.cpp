#include "platform/ripping/crc32.h"

#include <QtEndian>

namespace korvane {
namespace {

constexpr size_t kAtOnce = 8;  // bytes, for the speed: a table for the place of each
using Tables = std::array<std::array<quint32, 256>, kAtOnce>;

constexpr Tables makeTables() {
  Tables tables{};
  for (quint32 i = 0; i < 256; ++i) {
    quint32 rest = i;
    for (int bit = 0; bit < 8; ++bit) rest = rest >> 1 ^ (rest & 1 ? 0xEDB88320U : 0);
    tables[0][i] = rest;
  }
  for (size_t place = 1; place < kAtOnce; ++place)
    for (size_t i = 0; i < 256; ++i) {
      const quint32 before = tables[place - 1][i];
      tables[place][i] = before >> 8 ^ tables[0][before & 0xff];
    }
  return tables;
}

constexpr Tables kTables = makeTables();

}  // namespace

void Crc32::add(QByteArrayView bytes) {
  const auto* at = reinterpret_cast<const uchar*>(bytes.data());
  qsizetype left = bytes.size();
  for (; left >= qsizetype{kAtOnce}; left -= kAtOnce, at += kAtOnce) {
    const quint32 low = qFromLittleEndian<quint32>(at) ^ rest_;
    const quint32 high = qFromLittleEndian<quint32>(at + 4);
    rest_ = kTables[7][low & 0xff] ^ kTables[6][low >> 8 & 0xff] ^ kTables[5][low >> 16 & 0xff] ^
            kTables[4][low >> 24] ^ kTables[3][high & 0xff] ^ kTables[2][high >> 8 & 0xff] ^
            kTables[1][high >> 16 & 0xff] ^ kTables[0][high >> 24];
  }
  for (; left > 0; --left, ++at) rest_ = rest_ >> 8 ^ kTables[0][(rest_ ^ *at) & 0xff];
}

}  // namespace korvane
