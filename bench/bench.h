// What the benchmark's modes share: measuring time, memory and gaps, and printing one line of JSON.
#pragma once

#include <QElapsedTimer>
#include <cstdio>
#include <functional>

#include "platform/pump.h"
#include "platform/text.h"

namespace korvane {

// What a piece of work took.
struct Cost {
  double seconds = 0, cpuSeconds = 0, peakMib = 0;  // the peak is the process's so far
};
Cost measure(const std::function<void()>& work);

// Seconds of the fastest of `runs` runs.
double fastest(int runs, const std::function<void()>& work);
// Seconds of the one in the middle.
double median(int runs, const std::function<void()>& work);

// What this thread has worked, in ms: others of a busy machine do not count.
double workedMs();
// Memory of this process that is in RAM now.
int residentKib();

// One line of JSON, built field by field.
class Json {
 public:
  explicit Json(const char* mode) { add("mode", mode); }
  Json& add(const char* name, const char* text);
  Json& add(const char* name, double number);
  Json& add(const char* name, bool flag);
  Json& add(const char* name, qint64 number);
  Json& add(const char* name, int number) { return add(name, qint64{number}); }
  Json& add(const Cost& cost);
  void print() const { std::printf("{%s}\n", fields_.constData()); }

 private:
  Json& field(const char* name, const QByteArray& value);
  QByteArray fields_;
};

// An event loop that remembers the longest time between two of its turns.
class MeasuringPump : public Pump {
 public:
  void doEvents() override;
  void breathe() override;
  bool wait(int milliseconds, const std::function<bool()>& done) override;
  void later(std::function<void()> work) override { work(); }
  void inBackground(std::function<void()> work, std::function<void()> done) override;

  void start();  // begins to count
  double maxGapMs() const { return static_cast<double>(maxGapNs_) / 1e6; }

 private:
  QElapsedTimer sinceTurn_;
  qint64 maxGapNs_ = 0;
};

}  // namespace korvane
