#include "files/spawn_settings.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

namespace zorkanca {

SpawnSettings::SpawnSettings(const std::string& outputFile, Group group) {
  posix_spawn_file_actions_init(&actions_);
  posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions_, STDOUT_FILENO, outputFile.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
  posix_spawn_file_actions_adddup2(&actions_, STDOUT_FILENO, STDERR_FILENO);
  posix_spawnattr_init(&attributes_);
  sigset_t none;
  sigemptyset(&none);
  sigset_t usual = none;  // what this process ignores or holds back must reach the program and all that it starts
  for (const int number : {SIGPIPE, SIGINT, SIGQUIT, SIGHUP, SIGTERM, SIGCHLD, SIGXFSZ}) sigaddset(&usual, number);
  posix_spawnattr_setsigdefault(&attributes_, &usual);
  posix_spawnattr_setsigmask(&attributes_, &none);
  posix_spawnattr_setpgroup(&attributes_, 0);
  const int apart = group == Group::kOwnSession ? POSIX_SPAWN_SETSID : POSIX_SPAWN_SETPGROUP;
  posix_spawnattr_setflags(&attributes_, static_cast<short>(apart | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK));
}

SpawnSettings::~SpawnSettings() {
  posix_spawnattr_destroy(&attributes_);
  posix_spawn_file_actions_destroy(&actions_);
}

}  // namespace zorkanca
