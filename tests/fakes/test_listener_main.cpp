// test_listener [--port N] [--log FILE] [--song SECONDS] [--speed FACTOR] [--cover FILE]
//               [--vanish SECONDS] [--pieces BYTES] [--files]
//
// Prints "PORT <number>" and serves until it is ended. Each record it receives is a line of the
// log, its separators written \0 and \1. --speed plays faster than time; --vanish drops the
// connection that many seconds after the first song began; --pieces cuts every delivery; --files
// answers ERROR for a path that does not exist.
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <cstdio>

#include "tests/fakes/test_listener.h"

int main(int argc, char** argv) {
  using namespace korvane;
  const QCoreApplication application(argc, argv);
  QCommandLineParser line;
  for (const char* name : {"port", "log", "song", "speed", "cover", "vanish", "pieces"})
    line.addOption({QString::fromLatin1(name), {}, u"value"_s});
  line.addOption(QCommandLineOption(u"files"_s));
  line.process(application);

  TestListener listener(line.value(u"port"_s).toUShort());
  if (line.isSet(u"song"_s)) listener.songSeconds = line.value(u"song"_s).toDouble();
  if (line.isSet(u"speed"_s)) listener.speed = line.value(u"speed"_s).toDouble();
  listener.pieceBytes = line.value(u"pieces"_s).toInt();
  if (line.isSet(u"files"_s))
    listener.plays = [](const QString& path) { return QFile::exists(path); };
  if (QFile cover(line.value(u"cover"_s));
      line.isSet(u"cover"_s) && cover.open(QIODevice::ReadOnly))
    listener.cover = cover.readAll();

  QFile log(line.value(u"log"_s));
  if (line.isSet(u"log"_s) && !log.open(QIODevice::WriteOnly | QIODevice::Append)) {
    std::fprintf(stderr, "test_listener: cannot write %s\n", qUtf8Printable(log.fileName()));
    return 1;
  }
  bool vanishes = line.isSet(u"vanish"_s);
  listener.onRecord = [&](const QByteArray& record) {
    if (log.isOpen()) {
      log.write(TestListener::escaped(record) + '\n');
      log.flush();
    }
    if (std::exchange(vanishes, vanishes && !record.contains("PLAY")) && !vanishes)
      QTimer::singleShot(static_cast<int>(line.value(u"vanish"_s).toDouble() * 1000),
                         [&] { listener.vanish(); });
  };
  std::printf("PORT %d\n", listener.port());
  std::fflush(stdout);
  return QCoreApplication::exec();
}
