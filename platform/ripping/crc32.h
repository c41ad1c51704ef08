// CRC-32 of ISO 3309, as in ZIP and PNG.
#pragma once

#include <QByteArrayView>

#include <array>

namespace korvane {

class Crc32 {
 public:
  void add(QByteArrayView bytes);
  quint32 value() const { return ~rest_; }

 private:
  quint32 rest_ = ~0U;
};

}  // namespace korvane
