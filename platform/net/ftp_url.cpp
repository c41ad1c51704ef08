#include "platform/net/ftp_url.h"

namespace korvane {
namespace {

constexpr char kScheme[] = "ftp://";

bool plainHost(QStringView host) {
  return !host.isEmpty() && std::ranges::all_of(host, [](QChar c) {
    return c.isLetterOrNumber() || c == u'.' || c == u'-' || c == u'_' || c == u':' || c == u'%';
  });
}

QByteArray encoded(QByteArrayView path) {
  // A slash in front is written out: else the path would begin where the login does.
  const bool rooted = path.startsWith('/');
  return (rooted ? "%2F" : "") +
         (rooted ? path.sliced(1) : path).toByteArray().toPercentEncoding("/");
}

}  // namespace

QByteArray ftpAddress(const QString& typed) {
  QString text = typed.trimmed();
  if (text.startsWith("ftp://"_L1, Qt::CaseInsensitive)) text.remove(0, 6);
  while (text.endsWith(u'/')) text.chop(1);
  QString host = text, port;
  if (text.startsWith(u'[')) {
    const qsizetype end = text.indexOf(u']');
    if (end < 0) return {};
    host = text.mid(1, end - 1);
    port = text.mid(end + 1);
    if (!port.isEmpty() && !port.startsWith(u':')) return {};
    port.remove(0, 1);
  } else if (text.count(u':') == 1) {
    host = text.section(u':', 0, 0);
    port = text.section(u':', 1);
  }
  if (!plainHost(host)) return {};
  if (host.contains(u':')) host = u'[' + host.replace(u'%', u"%25"_s) + u']';
  if (!port.isEmpty()) {
    bool number = false;
    if (port.toUShort(&number) == 0 || !number) return {};
    host += u':' + port;
  }
  return kScheme + host.toUtf8();
}

QByteArray ftpFolderUrl(const QByteArray& address, QByteArrayView path) {
  if (path.isEmpty()) return address + '/';
  return address + '/' + encoded(path) + (path.endsWith('/') && path.size() > 1 ? "" : "/");
}

QByteArray ftpFileUrl(const QByteArray& address, QByteArrayView path) {
  return address + '/' + encoded(path);
}

}  // namespace korvane
