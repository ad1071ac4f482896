// How programs are started: by an argument vector, with the usual signals and none of our streams.
#pragma once

#include <spawn.h>

#include <string>

namespace zorkanca {

/// Settings for posix_spawn. Standard input is empty; both outputs go to one file.
class SpawnSettings {
 public:
  /// What the program is started in.
  enum class Group {
    kOwnSession,  ///< apart from our terminal, so that it outlives us
    kOwnGroup,    ///< a process group, so that all that it starts can be ended together
  };

  /// @param outputFile  appended to, created when it is missing; "/dev/null" drops the output
  SpawnSettings(const std::string& outputFile, Group group);
  ~SpawnSettings();
  SpawnSettings(const SpawnSettings&) = delete;
  SpawnSettings& operator=(const SpawnSettings&) = delete;

  const posix_spawn_file_actions_t* actions() const { return &actions_; }
  const posix_spawnattr_t* attributes() const { return &attributes_; }

 private:
  posix_spawn_file_actions_t actions_{};
  posix_spawnattr_t attributes_{};
};

}  // namespace zorkanca
