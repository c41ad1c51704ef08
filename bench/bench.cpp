#include "bench/bench.h"

#include <sys/resource.h>

#include <QCoreApplication>
#include <QFile>
#include <ctime>

namespace korvane {
namespace {

double cpuSeconds(const rusage& usage) {
  const auto of = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return of(usage.ru_utime) + of(usage.ru_stime);
}

}  // namespace

Cost measure(const std::function<void()>& work) {
  rusage before{}, after{};
  getrusage(RUSAGE_SELF, &before);
  QElapsedTimer timer;
  timer.start();
  work();
  const double seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
  getrusage(RUSAGE_SELF, &after);
  return {seconds, cpuSeconds(after) - cpuSeconds(before),
          static_cast<double>(after.ru_maxrss) / 1024};
}

double median(int runs, const std::function<void()>& work) {
  std::vector<double> times;
  for (int i = 0; i < runs; ++i) times.push_back(fastest(1, work));
  std::nth_element(times.begin(), times.begin() + runs / 2, times.end());
  return times[static_cast<size_t>(runs / 2)];
}

double fastest(int runs, const std::function<void()>& work) {
  double best = 1e9;
  for (int i = 0; i < runs; ++i) {
    QElapsedTimer timer;
    timer.start();
    work();
    best = std::min(best, static_cast<double>(timer.nsecsElapsed()) / 1e9);
  }
  return best;
}

double workedMs() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

int residentKib() {
  QFile status(u"/proc/self/status"_s);
  if (!status.open(QIODevice::ReadOnly)) return 0;
  const QByteArray text = status.readAll();
  return text.mid(text.indexOf("VmRSS:") + 6).simplified().split(' ').value(0).toInt();
}

Json& Json::field(const char* name, const QByteArray& value) {
  if (!fields_.isEmpty()) fields_ += ',';
  fields_ += '"' + QByteArray(name) + "\":" + value;
  return *this;
}

Json& Json::add(const char* name, const char* text) {
  return field(name, '"' + QByteArray(text) + '"');
}
Json& Json::add(const char* name, double number) {
  return field(name, QByteArray::number(number, 'g', 4));
}
Json& Json::add(const char* name, bool flag) {
  return field(name, flag ? "true" : "false");
}
Json& Json::add(const char* name, qint64 number) {
  return field(name, QByteArray::number(number));
}
Json& Json::add(const Cost& cost) {
  return add("seconds", cost.seconds).add("cpu_s", cost.cpuSeconds).add("peak_mib", cost.peakMib);
}

void MeasuringPump::start() {
  sinceTurn_.start();
  maxGapNs_ = 0;
}

void MeasuringPump::doEvents() {
  maxGapNs_ = std::max(maxGapNs_, sinceTurn_.nsecsElapsed());
  QCoreApplication::processEvents();
  sinceTurn_.start();
}

void MeasuringPump::breathe() {
  if (sinceTurn_.nsecsElapsed() >= 4'000'000) doEvents();
}

bool MeasuringPump::wait(int milliseconds, const std::function<bool()>& done) {
  QElapsedTimer timer;
  timer.start();
  while (!done() && timer.elapsed() < milliseconds) doEvents();
  return done();
}

void MeasuringPump::inBackground(std::function<void()> work, std::function<void()> done) {
  work();
  done();
}

}  // namespace korvane
