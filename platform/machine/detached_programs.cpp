#include "platform/machine/detached_programs.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <csignal>
#include <cstring>

#include "platform/machine/window_raiser.h"
#include "platform/path_text.h"

namespace korvane {
namespace {

constexpr int kFirstOfOurs = 3;  // the descriptors behind standard input, output and error

// What the program starts with: no descriptor of ours but the three, its own folder, its own
// session, and the signals as every program expects them.
class Birth {
 public:
  explicit Birth(const QByteArray& folder) {
    posix_spawn_file_actions_init(&actions_);
    posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addchdir_np(&actions_, folder.constData());
    posix_spawn_file_actions_addclosefrom_np(&actions_, kFirstOfOurs);
    posix_spawnattr_init(&attributes_);
    sigset_t all, none;
    sigfillset(&all);
    sigemptyset(&none);
    posix_spawnattr_setsigdefault(&attributes_, &all);
    posix_spawnattr_setsigmask(&attributes_, &none);
    posix_spawnattr_setflags(
        &attributes_,
        static_cast<short>(POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK));
  }
  ~Birth() {
    posix_spawn_file_actions_destroy(&actions_);
    posix_spawnattr_destroy(&attributes_);
  }
  Birth(const Birth&) = delete;

  int spawn(QByteArray path, pid_t* made) {
    char* const arguments[] = {path.data(), nullptr};
    return posix_spawn(made, path.constData(), &actions_, &attributes_, arguments, environ);
  }

 private:
  posix_spawn_file_actions_t actions_;
  posix_spawnattr_t attributes_;
};

bool hasExited(pid_t process) {
  return waitpid(process, nullptr, WNOHANG) != 0;
}

}  // namespace

struct DetachedPrograms::Task {
  ~Task() {
    exited.reset();
    if (descriptor >= 0) ::close(descriptor);
  }
  int descriptor = -1;  // -1 where the kernel has none: the end is seen at the next start
  std::unique_ptr<QSocketNotifier> exited;
  std::function<void()> ended;
};

DetachedPrograms::DetachedPrograms() = default;
DetachedPrograms::~DetachedPrograms() = default;

bool DetachedPrograms::runnable(const QString& path) const {
  const QByteArray file = fromPath(path);
  struct stat found {};
  return ::stat(file.constData(), &found) == 0 && S_ISREG(found.st_mode) &&
         ::access(file.constData(), X_OK) == 0;
}

// What ended unseen, where the kernel reports no ends.
void DetachedPrograms::sweep() {
  std::vector<int> unseen;
  for (const auto& [process, task] : tasks_)
    if (!task->exited) unseen.push_back(process);
  for (const int process : unseen) finish(process);
}

int DetachedPrograms::start(const QString& path, std::function<void()> ended, QString* error) {
  sweep();
  const QByteArray file = fromPath(path);
  const qsizetype slash = file.lastIndexOf('/');
  int failure = slash < 0 ? ENOENT : 0;
  pid_t process = 0;
  if (failure == 0) failure = Birth(slash == 0 ? "/" : file.first(slash)).spawn(file, &process);
  if (failure != 0) {
    *error = QString::fromLocal8Bit(std::strerror(failure));
    return 0;
  }
  auto task = std::make_unique<Task>();
  task->ended = std::move(ended);
  task->descriptor = static_cast<int>(::syscall(SYS_pidfd_open, process, 0));
  if (task->descriptor >= 0) {
    task->exited = std::make_unique<QSocketNotifier>(task->descriptor, QSocketNotifier::Read);
    QObject::connect(task->exited.get(), &QSocketNotifier::activated, task->exited.get(),
                     [this, process] { finish(process); });
  }
  tasks_[process] = std::move(task);
  return process;
}

void DetachedPrograms::finish(int task) {
  const auto found = tasks_.find(task);
  if (found == tasks_.end() || !hasExited(task)) return;
  const std::unique_ptr<Task> done = std::move(found->second);
  tasks_.erase(found);
  if (done->exited) {
    done->exited->setEnabled(false);
    done->exited.release()->deleteLater();  // it may be what called
  }
  if (done->ended) done->ended();
}

bool DetachedPrograms::running(int task) const {
  const auto found = tasks_.find(task);
  if (found == tasks_.end()) return false;
  siginfo_t state{};
  return waitid(P_PID, static_cast<id_t>(task), &state, WEXITED | WNOHANG | WNOWAIT) == 0 &&
         state.si_pid == 0;
}

bool DetachedPrograms::activate(int task) {
  return running(task) && raiseWindowOf(task);
}

}  // namespace korvane
