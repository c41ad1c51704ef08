#include "view/window/qt_pump.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QThreadPool>
#include <QTimer>

#include <mutex>
#include <thread>

namespace korvane {
namespace {
constexpr int kYieldMs = 4;
constexpr int kLookMs = 15;  // how often a wait looks whether it is over when nothing happens
}  // namespace

struct QtPump::Door {
  std::mutex mutex;
  QtPump* pump;  // null once it is gone
};

QtPump::QtPump(PressGate& gate) : gate_(gate), door_(std::make_shared<Door>()) {
  door_->pump = this;
  sinceYield_.start();
}

QtPump::~QtPump() {
  {
    const std::lock_guard lock(door_->mutex);
    door_->pump = nullptr;
  }
  QThreadPool::globalInstance()->waitForDone();
}

void QtPump::doEvents() {
  QCoreApplication::processEvents();
  sinceYield_.restart();
}

void QtPump::breathe() {
  if (sinceYield_.elapsed() >= kYieldMs) doEvents();
}

bool QtPump::wait(int milliseconds, const std::function<bool()>& done) {
  if (done && done()) return true;
  const PressGate::Refuse refuse(gate_);
  QElapsedTimer waited;
  waited.start();
  QTimer look;
  look.setTimerType(Qt::PreciseTimer);
  look.start(std::clamp(milliseconds, 1, kLookMs));
  while (waited.elapsed() < milliseconds) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    if (done && done()) return true;
  }
  sinceYield_.restart();
  return false;
}

void QtPump::later(std::function<void()> work) {
  QMetaObject::invokeMethod(
      &here_, [this, work = std::move(work)] { wall.run(work); }, Qt::QueuedConnection);
}

void QtPump::inBackground(std::function<void()> work, std::function<void()> done) {
  QThreadPool::globalInstance()->start([this, work = std::move(work), done = std::move(done)] {
    try {
      work();
    } catch (...) {
      later([failure = std::current_exception()] { std::rethrow_exception(failure); });
    }
    if (done) later(done);
  });
}

void QtPump::aside(std::function<void()> work, std::function<void()> done) {
  std::thread([door = door_, work = std::move(work), done = std::move(done)] {
    std::exception_ptr failure;
    try {
      work();
    } catch (...) {
      failure = std::current_exception();
    }
    const std::lock_guard lock(door->mutex);
    if (!door->pump) return;
    if (failure) door->pump->later([failure] { std::rethrow_exception(failure); });
    if (done) door->pump->later(done);
  }).detach();
}

}  // namespace korvane
