// The 8-bit text of tags: Windows-1252, or the code page an owner's files were written in.
#pragma once

#include "platform/text.h"

namespace korvane {

class CodePage {
 public:
  // A name as ICU knows it ("windows-1251", "shift_jis", "UTF-8"). Empty, "NO" and unknown names
  // mean Windows-1252.
  explicit CodePage(const QString& name = {});

  QString decode(QByteArrayView bytes) const;  // from any thread

 private:
  QByteArray converter_;  // empty for Windows-1252
};

}  // namespace korvane
