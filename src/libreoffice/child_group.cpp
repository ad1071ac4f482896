#include "libreoffice/child_group.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <string_view>

#include "files/file_descriptor.h"
#include "files/spawn_settings.h"
#include "files/system_error.h"

namespace zorkanca {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kTimeToEnd(2);
constexpr std::chrono::milliseconds kBetweenQuestions(100);
// Twenty times what five thousand pages need; what wants more is a document made to hurt.
constexpr rlim_t kAddressSpace = 8ULL << 30;

// This process's environment with some values of others.
std::vector<std::string> EnvironmentWith(const std::vector<std::string>& own) {
  std::vector<std::string> all = own;
  for (char** variable = environ; *variable; ++variable) {
    const std::string_view text = *variable;
    const std::string_view name = text.substr(0, text.find('=') + 1);
    const auto replaced = [&](const std::string& one) { return std::string_view(one).starts_with(name); };
    if (!name.empty() && std::none_of(own.begin(), own.end(), replaced)) all.emplace_back(text);
  }
  return all;
}

std::vector<char*> PointersTo(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

// A process group, and its leader that is our child. Nothing of it outlives this object.
class Group {
 public:
  explicit Group(const ChildCommand& command) {
    std::vector<std::string> arguments = command.arguments;
    std::vector<std::string> environment = EnvironmentWith(command.environment);
    const SpawnSettings settings(command.outputFile, SpawnSettings::Group::kOwnGroup);
    const int failure = posix_spawn(&leader_, arguments.front().c_str(), settings.actions(), settings.attributes(),
                                    PointersTo(arguments).data(), PointersTo(environment).data());
    if (failure != 0) RaisePathError(failure, arguments.front());
    const rlimit space{kAddressSpace, kAddressSpace};
    prlimit(leader_, RLIMIT_AS, &space, nullptr);  // a lower limit of this process stays where raising is not allowed
    handle_ = FileDescriptor(static_cast<int>(syscall(SYS_pidfd_open, leader_, 0)));
  }
  ~Group() {
    kill(-leader_, SIGKILL);  // fails where nothing is left
    int ignored = 0;
    if (!collected_) Uninterrupted([&] { return waitpid(leader_, &ignored, 0); });
  }
  Group(const Group&) = delete;
  Group& operator=(const Group&) = delete;

  void AskToEnd() const { kill(-leader_, SIGTERM); }

  // True when the leader has ended by then.
  bool EndedWithin(std::chrono::milliseconds patience) {
    if (handle_) {
      pollfd wait{handle_.get(), POLLIN, 0};
      poll(&wait, 1, static_cast<int>(patience.count()));
    } else {
      poll(nullptr, 0, static_cast<int>(patience.count()));  // an old kernel: the next question comes in time
    }
    int ignored = 0;
    const pid_t ended = Uninterrupted([&] { return waitpid(leader_, &ignored, WNOHANG); });
    collected_ = ended == leader_ || (ended < 0 && errno == ECHILD);
    return collected_;
  }

 private:
  pid_t leader_ = 0;
  FileDescriptor handle_;
  bool collected_ = false;
};

}  // namespace

ChildEnd RunInGroup(const ChildCommand& command) {
  Group group(command);
  const auto end = Clock::now() + command.patience;
  ChildEnd result = ChildEnd::kTimedOut;
  for (;;) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
    if (left.count() <= 0) break;
    if (group.EndedWithin(std::min(left, kBetweenQuestions))) return ChildEnd::kExited;
    if (command.cancelled && command.cancelled()) {
      result = ChildEnd::kCancelled;
      break;
    }
  }
  group.AskToEnd();
  group.EndedWithin(kTimeToEnd);
  return result;
}

}  // namespace zorkanca
