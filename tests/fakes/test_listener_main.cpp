// test_listener [--log FILE] [--song SECONDS] [--speed FACTOR]
//
// Prints "PORT <number>" and serves until it is ended. Each record it receives is a line of the
// log, its separators written \0 and \1. --speed plays faster than time.
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <cstdio>

#include "tests/fakes/test_listener.h"

int main(int argc, char** argv) {
  using namespace korvane;
  const QCoreApplication application(argc, argv);
  QCommandLineParser line;
  for (const char* name : {"log", "song", "speed"})
    line.addOption({QString::fromLatin1(name), {}, u"value"_s});
  line.process(application);

  TestListener listener;
  if (line.isSet(u"song"_s)) listener.songSeconds = line.value(u"song"_s).toDouble();
  if (line.isSet(u"speed"_s)) listener.speed = line.value(u"speed"_s).toDouble();
  QFile log(line.value(u"log"_s));
  if (line.isSet(u"log"_s) && !log.open(QIODevice::WriteOnly | QIODevice::Append)) {
    std::fprintf(stderr, "test_listener: cannot write %s\n", qUtf8Printable(log.fileName()));
    return 1;
  }
  listener.onRecord = [&](const QByteArray& record) {
    if (!log.isOpen()) return;
    log.write(TestListener::escaped(record) + '\n');
    log.flush();
  };
  std::printf("PORT %d\n", listener.port());
  std::fflush(stdout);
  return QCoreApplication::exec();
}
