#include "platform/net/ftp_replies.h"

#include <QStringDecoder>

#include "platform/windows1252.h"

namespace korvane {
namespace {

constexpr qsizetype kMostLines = 64 << 10;  // bytes of one reply that are kept
constexpr size_t kMostReplies = 64;         // of one order

// The code of a line "ddd..." with the sign behind it; 0 for another line.
int codeOf(QByteArrayView line, char& sign) {
  if (line.size() < 3) return 0;
  int code = 0;
  for (const char c : line.first(3)) {
    if (c < '0' || c > '9') return 0;
    code = code * 10 + (c - '0');
  }
  sign = line.size() > 3 ? line[3] : ' ';
  return code >= 100 && (sign == ' ' || sign == '-') ? code : 0;
}

QByteArrayView trimmedEnd(QByteArrayView line) {
  while (!line.isEmpty() && (line.back() == '\n' || line.back() == '\r')) line.chop(1);
  return line;
}

}  // namespace

void FtpReplies::sent(QByteArrayView command) {
  const QByteArrayView line = trimmedEnd(command);
  const qsizetype blank = line.indexOf(' ');
  command_ = (blank < 0 ? line : line.first(blank)).toByteArray().toUpper();
}

void FtpReplies::line(QByteArrayView bytes) {
  const QByteArrayView line = trimmedEnd(bytes);
  char sign = ' ';
  const int code = codeOf(line, sign);
  if (!blockCode_ && !code) return;
  if (block_.size() < kMostLines) block_ += (block_.isEmpty() ? "" : "\n") + line.toByteArray();
  if (!blockCode_ && sign == '-') blockCode_ = code;
  if (blockCode_ && (code != blockCode_ || sign == '-')) return;
  last_ = {command_, code, std::exchange(block_, {})};
  blockCode_ = 0;
  began_ = began_ || code == 125 || code == 150;
  if (all_.size() < kMostReplies) all_.push_back(last_);
}

const FtpReplies::Reply* FtpReplies::refusal(std::initializer_list<const char*> verbs) const {
  for (const Reply& reply : all_)
    if (reply.refuses() &&
        std::ranges::any_of(verbs, [&](const char* verb) { return reply.command == verb; }))
      return &reply;
  return nullptr;
}

const FtpReplies::Reply* FtpReplies::answer(int code) const {
  for (const Reply& reply : all_)
    if (reply.code == code) return &reply;
  return nullptr;
}

QByteArray quotedPath(QByteArrayView reply) {
  const qsizetype from = reply.indexOf('"');
  if (from < 0) return {};
  QByteArray path;
  for (qsizetype i = from + 1; i < reply.size(); ++i) {
    if (reply[i] == '"') {
      if (i + 1 >= reply.size() || reply[i + 1] != '"') return path;
      ++i;
    }
    path += reply[i];
  }
  return {};
}

QString ftpText(QByteArrayView bytes) {
  QStringDecoder utf8(QStringDecoder::Utf8);
  QString text = utf8(bytes);
  return utf8.hasError() ? fromWindows1252(bytes) : text;
}

}  // namespace korvane
