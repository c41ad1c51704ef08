// Addresses of FTP for libcurl, which takes them as URLs (RFC 1738, 3.2).
#pragma once

#include "platform/text.h"

namespace korvane {

// "ftp://host:port" of what an owner types: a name, an IPv4 or IPv6 address, with or without a port
// or the scheme. Empty where that is no address, or of another scheme.
QByteArray ftpAddress(const QString& typed);

// The URL of a folder, or of a file, by its path from the server's root.
QByteArray ftpFolderUrl(const QByteArray& address, QByteArrayView path);
QByteArray ftpFileUrl(const QByteArray& address, QByteArrayView path);

}  // namespace korvane
