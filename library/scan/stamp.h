// 64-bit marks of what was read, the same on every machine.
#pragma once

#include "platform/text.h"

namespace korvane {

inline quint64 mixed(quint64 value) {  // the finalizer of MurmurHash3
  value = (value ^ value >> 33) * 0xFF51AFD7ED558CCDU;
  value = (value ^ value >> 33) * 0xC4CEB9FE1A85EC53U;
  return value ^ value >> 33;
}

inline quint64 stampOf(QByteArrayView bytes, quint64 seed = 0) {  // FNV-1a, finished
  quint64 hash = 0xCBF29CE484222325U ^ seed;
  for (const char c : bytes) hash = (hash ^ static_cast<uchar>(c)) * 0x100000001B3U;
  return mixed(hash);
}

}  // namespace korvane
