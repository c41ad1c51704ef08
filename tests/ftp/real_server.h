// A server of FTP on this machine for the time of a test, as the present user: vsftpd.
#pragma once

#include <pwd.h>
#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QThread>
#include <stdexcept>

#include "platform/text.h"

namespace korvane {

// On both loopbacks. Guests may do everything below `folder`; "/" is the machine's own.
class RealServer {
  static void must(bool held, const char* what) {
    if (!held) throw std::runtime_error(what);
  }

 public:
  explicit RealServer(bool tls = false) {
    must(directory_.isValid(), "no folder to serve");
    folder = directory_.filePath(u"served"_s);
    QDir().mkpath(folder);
    QTcpServer free;
    free.listen(QHostAddress::LocalHost);
    port = free.serverPort();
    free.close();
    QByteArray lines =
        "listen_ipv6=YES\nbackground=NO\nrun_as_launching_user=YES\nanonymous_enable=YES\n"
        "no_anon_password=YES\nanon_world_readable_only=NO\nwrite_enable=YES\n"
        "anon_upload_enable=YES\nanon_mkdir_write_enable=YES\nanon_other_write_enable=YES\n"
        "anon_umask=022\nseccomp_sandbox=NO\nconnect_from_port_20=NO\nxferlog_enable=NO\n"
        "ascii_upload_enable=YES\nascii_download_enable=YES\nlisten_port=" +
        QByteArray::number(port) + "\nanon_root=" + folder.toUtf8() +
        "\nftp_username=" + ::getpwuid(::getuid())->pw_name + "\n";
    if (tls) {
      const QString key = directory_.filePath(u"key.pem"_s),
                    own = directory_.filePath(u"own.pem"_s);
      must(QProcess::execute(u"openssl"_s, {u"req"_s, u"-x509"_s, u"-newkey"_s, u"rsa:2048"_s,
                                            u"-nodes"_s, u"-subj"_s, u"/CN=localhost"_s, u"-days"_s,
                                            u"2"_s, u"-keyout"_s, key, u"-out"_s, own}) == 0,
           "openssl made no certificate");
      lines +=
          "ssl_enable=YES\nallow_anon_ssl=YES\nforce_anon_logins_ssl=YES\n"
          "force_anon_data_ssl=YES\nrsa_cert_file=" +
          own.toUtf8() + "\nrsa_private_key_file=" + key.toUtf8() + "\n";
    }
    QFile settings(directory_.filePath(u"vsftpd.conf"_s));
    must(settings.open(QIODevice::WriteOnly), "no settings for vsftpd");
    settings.write(lines);
    settings.close();
    process_.setProcessChannelMode(QProcess::ForwardedChannels);
    process_.start(u"/usr/sbin/vsftpd"_s, {settings.fileName()});
    must(process_.waitForStarted(), "no vsftpd");
    QElapsedTimer waited;
    for (waited.start(); waited.elapsed() < 10'000; QThread::msleep(20)) {
      QTcpSocket probe;
      probe.connectToHost(u"127.0.0.1"_s, port);
      if (probe.waitForConnected(200)) return;
    }
    must(false, "vsftpd does not serve");
  }
  ~RealServer() {
    process_.terminate();
    if (!process_.waitForFinished(3000)) process_.kill();
    process_.waitForFinished(3000);
  }
  QString address(const QString& host = u"127.0.0.1"_s) const {
    return u"%1:%2"_s.arg(host).arg(port);
  }

  QString folder;
  quint16 port = 0;

 private:
  QTemporaryDir directory_;
  QProcess process_;
};

}  // namespace korvane
