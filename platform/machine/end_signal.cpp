#include "platform/machine/end_signal.h"

#include <sys/signalfd.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <csignal>

namespace korvane {

namespace {

sigset_t heldSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGTERM);
  sigaddset(&signals, SIGINT);
  return signals;
}

}  // namespace

void EndSignal::hold() {
  const sigset_t signals = heldSignals();
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

EndSignal::EndSignal(std::function<void()> end) {
  hold();
  const sigset_t signals = heldSignals();
  std::signal(SIGPIPE, SIG_IGN);
  file_ = signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC);
  notifier_ = std::make_unique<QSocketNotifier>(file_, QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated,
                   [this, end = std::move(end)](QSocketDescriptor, QSocketNotifier::Type) {
                     signalfd_siginfo signal;
                     if (::read(file_, &signal, sizeof signal) == sizeof signal) end();
                   });
}

EndSignal::~EndSignal() {
  notifier_.reset();
  if (file_ >= 0) ::close(file_);
}

}  // namespace korvane
