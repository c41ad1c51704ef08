#include "platform/machine/service_pump.h"

#include <QCoreApplication>
#include <QThreadPool>

namespace korvane {
namespace {
constexpr int kYieldMs = 4, kLookMs = 15;
}  // namespace

ServicePump::ServicePump() {
  sinceYield_.start();
}

ServicePump::~ServicePump() {
  QThreadPool::globalInstance()->waitForDone();
}

void ServicePump::doEvents() {
  QCoreApplication::processEvents();
  sinceYield_.restart();
}

void ServicePump::breathe() {
  if (sinceYield_.elapsed() >= kYieldMs) doEvents();
}

bool ServicePump::wait(int milliseconds, const std::function<bool()>& done) {
  QElapsedTimer waited;
  for (waited.start(); !done(); QCoreApplication::processEvents(QEventLoop::AllEvents, kLookMs))
    if (waited.elapsed() > milliseconds) return false;
  return true;
}

void ServicePump::later(std::function<void()> work) {
  QMetaObject::invokeMethod(&here_, std::move(work), Qt::QueuedConnection);
}

void ServicePump::inBackground(std::function<void()> work, std::function<void()> done) {
  QThreadPool::globalInstance()->start([this, work = std::move(work), done = std::move(done)] {
    work();
    if (done) later(done);
  });
}

}  // namespace korvane
