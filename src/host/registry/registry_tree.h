// A hive in memory: the user's own tree of keys over one that the system gives. The own tree holds what was added and
// hides what was deleted; the lower one is never changed.
#pragma once

#include <optional>
#include <vector>

#include "host/registry/name_table.h"
#include "host/registry/reg_format.h"
#include "platform/registry.h"

namespace zorkanca {

/// A key of one layer.
struct RegistryNode {
  bool exists = false;                             ///< false for a node that only leads to others or hides a key below
  bool hidesLower = false;                         ///< nothing of the lower layer shows at this key and under it
  NameTable<std::optional<RegistryValue>> values;  ///< nothing for a value that is hidden
  NameTable<RegistryNode> keys;
};

/// The parts of a key name. Errors: 5 for an empty part, one over 255 units, a line break or NUL, over 512 parts.
std::vector<TextView> SplitRegistryKey(TextView key);

/// Two layers seen as one. Names as in platform/registry.h; errors: 5 for unsound names.
class RegistryTree {
 public:
  RegistryTree() { own_.exists = true; }

  /// @param lower  the layer below, null for none; belongs to somebody else and outlives the calls
  void SetLower(const RegistryNode* lower) { lower_ = lower; }
  const RegistryNode& own() const { return own_; }

  bool KeyExists(TextView key) const;
  std::optional<RegistryValue> Read(TextView key, TextView name) const;
  std::vector<Text> SubkeyNames(TextView key) const;
  std::vector<Text> ValueNames(TextView key) const;

  // Each returns whether it changed anything.
  bool CreateKey(TextView key);
  bool Write(TextView key, TextView name, const RegistryValue& value);
  bool DeleteValue(TextView key, TextView name);
  bool DeleteKey(TextView key);

  /// What deletions in a file are: done at once, or kept because they hide what the lower layer has or may get.
  enum class Deletions { kDone, kKept };
  /// Replaces the own layer by the sections of a file; it stays as it was when they are unsound.
  /// Errors: 75 with file and line for a key of another root, the deletion of a root, and for unsound names.
  void Load(const std::vector<RegSection>& sections, RegistryHive hive, Deletions deletions, const Text& origin);
  /// The own layer as a file of the same meaning.
  std::string Save(RegistryHive hive) const;

 private:
  // The same key in both layers; null where a layer has none that shows.
  struct Place {
    const RegistryNode* own;
    const RegistryNode* lower;
    bool Exists() const { return (own && own->exists) || lower; }
  };
  Place Find(TextView key) const;
  static Place Child(const Place& place, TextView part);
  RegistryNode& OwnNode(TextView key, bool exists);
  void LoadSection(TextView key, const RegSection& section, Deletions deletions);

  RegistryNode own_;
  const RegistryNode* lower_ = nullptr;
};

}  // namespace zorkanca
