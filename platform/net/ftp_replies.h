// The replies of an FTP server as they come in, line by line (RFC 959, 4.2): "ddd text", or a
// block from "ddd-text" to "ddd text".
#pragma once

#include <initializer_list>
#include <vector>

#include "platform/text.h"

namespace korvane {

class FtpReplies {
 public:
  struct Reply {
    QByteArray command;  // the verb that it answers, where sent() heard of it; else empty
    int code = 0;
    QByteArray text;  // as it came, all lines, without the last line end
    bool refuses() const { return code >= 400; }
  };

  void sent(QByteArrayView command);  // a command line has gone out
  void line(QByteArrayView line);     // one has come in; what is no reply is ignored

  const Reply& last() const { return last_; }
  bool transferBegan() const { return began_; }
  // The first answer to a command of that verb which refused it; null when there is none.
  const Reply* refusal(std::initializer_list<const char*> verbs) const;
  // The first answer with that code; null when there is none.
  const Reply* answer(int code) const;

 private:
  QByteArray command_;
  QByteArray block_;  // the lines of a reply that is not complete
  int blockCode_ = 0;
  Reply last_;
  std::vector<Reply> all_;
  bool began_ = false;
};

// The path between the quotes of a reply 257 to PWD, its doubled quotes single; empty for another.
QByteArray quotedPath(QByteArrayView reply);

// Server's words as a text: UTF-8 where they are, else Windows-1252.
QString ftpText(QByteArrayView bytes);

}  // namespace korvane
