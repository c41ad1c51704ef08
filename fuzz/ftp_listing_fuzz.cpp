// Any bytes as a listing of each kind: what comes of them are names without a line end in rows, or
// refused, and marks of 27 characters.
#include <cstdlib>

#include "ftp/ftp_rows.h"
#include "ftp/listing.h"
#include "platform/net/ftp_replies.h"

using namespace korvane;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size) {
  const QByteArrayView bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  const QDateTime now(QDate(2026, 3, 10), QTime(12, 0));
  for (const bool facts : {false, true}) {
    const auto list = std::make_shared<cDirList>();
    for (cDirItem& item : parseListing(bytes, facts, now).items) {
      if (item.bytes.isEmpty() || item.size < 0) std::abort();
      if (nameRefusal(item.bytes).isEmpty() &&
          (item.bytes.contains('/') || item.bytes == ".." || item.fileName.contains(u'\n')))
        std::abort();
      if (attributeText(item.attributes).size() != 27) std::abort();
      fitsFilter(item.fileName, u"*a?*");
      list->Add(std::move(item));
    }
    const FtpRows rows(list);
    for (int row = 1; row <= rows.rowCount(); ++row)
      for (int column = 1; column <= 4; ++column)
        if (rows.cell(column, row).contains(u'\n')) std::abort();
  }
  FtpReplies replies;
  qsizetype from = 0;
  for (qsizetype end; (end = bytes.indexOf('\n', from)) >= 0; from = end + 1)
    replies.line(bytes.sliced(from, end + 1 - from));
  quotedPath(replies.last().text);
  return 0;
}
