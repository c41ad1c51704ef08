// An FTP server in memory, and a client of it that misbehaves on purpose. A transfer moves one
// piece a wait.
#pragma once

#include <map>

#include "platform/ftp_client.h"

namespace korvane {

struct FakeFtpServer {
  std::map<QByteArray, QByteArray> files;  // by path
  QByteArray listing;                      // of every folder, in the form of ls
  QByteArray folder = "/";                 // where a session begins
  std::map<QByteArray, qint64> sizes;      // given in place of the true ones
  std::map<FtpClient::Order::What, FtpClient::Result> failures;
  qint64 breakAfter = -1;  // a transfer breaks behind so many bytes, once
  qint64 piece = 1000;
  bool knowsSizes = true;  // else SIZE gives none
  QStringList orders;      // what was asked for
  FtpClient::Login login;
};

class FakeFtpClient : public FtpClient {
 public:
  explicit FakeFtpClient(FakeFtpServer& server) : server_(server) {}

  void begin(Order order) override {
    order_ = std::move(order);
    moved_ = 0;
    done_ = false;
    cancelled_ = false;
    result_ = {};
    static constexpr const char* kNames[] = {"open",   "enter", "make", "remove",   "delete",
                                             "rename", "size",  "list", "download", "upload"};
    server_.orders << u"%1 %2%3"_s.arg(QLatin1StringView(kNames[order_.what]),
                                       QString::fromUtf8(order_.path), extra());
  }
  bool wait(int) override {
    if (!done_) done_ = step();
    return done_;
  }
  qint64 moved() const override { return moved_; }
  Result result() override { return result_; }
  void cancel() override { cancelled_ = true; }

 private:
  QString extra() const {
    QString text;
    if (order_.what == Order::Rename) text += u" to "_s + QString::fromUtf8(order_.to);
    if (order_.from > 0) text += u" from "_s + QString::number(order_.from);
    if (order_.ascii) text += u" ascii"_s;
    return text;
  }
  bool fails(int number, const QString& text) {
    result_.number = number;
    result_.text = text;
    return true;
  }
  bool step() {
    if (cancelled_) return fails(kCancelled, u"Cancelled"_s);
    if (const auto failure = server_.failures.find(order_.what);
        failure != server_.failures.end()) {
      result_ = failure->second;
      return true;
    }
    const bool known = server_.files.contains(order_.path);
    switch (order_.what) {
      case Order::Open:
        server_.login = order_.login;
        result_.bytes = server_.folder;
        return true;
      case Order::Enter:
        result_.bytes = order_.path.endsWith("/..") ? QByteArray("/") : order_.path;
        return true;
      case Order::Size:
        if (!known) return fails(kNotFound, u"Remote file not found"_s);
        if (server_.knowsSizes) result_.size = announcedSize();
        return true;
      case Order::List:
        result_.bytes = server_.listing;
        return true;
      case Order::Download:
        return known ? download() : fails(kNotFound, u"Remote file not found"_s);
      case Order::Upload:
        return upload();
      case Order::Delete:
        server_.files.erase(order_.path);
        return true;
      case Order::MakeFolder:
      case Order::RemoveFolder:
      case Order::Rename:
        return true;
    }
    return true;
  }
  qint64 announcedSize() const {
    const auto lie = server_.sizes.find(order_.path);
    return lie != server_.sizes.end() ? lie->second : server_.files[order_.path].size();
  }
  bool breaks() {
    if (server_.breakAfter < 0 || moved_ < server_.breakAfter) return false;
    server_.breakAfter = -1;
    return fails(56, u"Failure when receiving data from the peer"_s);
  }
  qint64 most() const {
    return server_.breakAfter < 0 ? server_.piece
                                  : std::min(server_.piece, server_.breakAfter - moved_);
  }
  bool download() {
    result_.began = true;
    const QByteArray bytes = server_.files[order_.path].mid(order_.from + moved_, most());
    if (!bytes.isEmpty() && !order_.sink->put(bytes)) return fails(23, u"Write failed"_s);
    moved_ += bytes.size();
    return breaks() || order_.from + moved_ >= server_.files[order_.path].size();
  }
  bool upload() {
    result_.began = true;
    QByteArray& file = server_.files[order_.path];
    if (moved_ == 0) file.truncate(order_.from);
    QByteArray bytes(most(), '\0');
    const qint64 got = order_.source->take(bytes.data(), bytes.size());
    if (got < 0) return fails(42, u"Read failed"_s);
    file += bytes.first(got);
    moved_ += got;
    return breaks() || got == 0;
  }

  FakeFtpServer& server_;
  Order order_;
  Result result_;
  qint64 moved_ = 0;
  bool done_ = true, cancelled_ = false;
};

}  // namespace korvane
