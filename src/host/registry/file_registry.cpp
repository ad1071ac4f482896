#include "host/registry/file_registry.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <memory>

#include "files/atomic_file.h"
#include "files/native_path.h"
#include "files/system_error.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

void MakeFolders(const std::string& path) {
  if (mkdir(path.c_str(), 0700) == 0 || errno == EEXIST) return;
  if (errno != ENOENT) RaiseRegistryFileError(errno, path);
  MakeFolders(ParentFolder(path));
  if (mkdir(path.c_str(), 0700) != 0 && errno != EEXIST) RaiseRegistryFileError(errno, path);
}

}  // namespace

FileRegistry::FileRegistry(const std::string& homeFolder, const std::string& systemFolder)
    : home_(AbsolutePath(homeFolder)),
      system_(RegistryHive::kLocalMachine, JoinPath(AbsolutePath(systemFolder), "HKLM.reg"),
              RegistryTree::Deletions::kDone),
      classes_(RegistryHive::kClassesRoot, JoinPath(home_, "HKCR.reg"), RegistryTree::Deletions::kDone),
      user_(RegistryHive::kCurrentUser, JoinPath(home_, "HKCU.reg"), RegistryTree::Deletions::kDone),
      machine_(RegistryHive::kLocalMachine, JoinPath(home_, "HKLM.reg"), RegistryTree::Deletions::kKept) {
  machine_.tree().SetLower(&system_.tree().own());
}

HiveFile& FileRegistry::FileOf(RegistryHive hive) {
  switch (hive) {
    case RegistryHive::kClassesRoot:
      return classes_;
    case RegistryHive::kCurrentUser:
      return user_;
    case RegistryHive::kLocalMachine:
      return machine_;
  }
  Raise(RuntimeError::kInvalidCall);
}

// The hive as its file has it now; within a change, as the change left it.
HiveFile& FileRegistry::Current(RegistryHive hive) {
  HiveFile& file = FileOf(hive);
  if (&file == &machine_) {
    system_.Refresh();
    if (changing_) system_.Hold();
  }
  file.Refresh();
  if (changing_) file.Hold();
  return file;
}

bool FileRegistry::KeyExists(RegistryHive hive, TextView key) {
  return Current(hive).tree().KeyExists(key);
}

std::optional<RegistryValue> FileRegistry::Read(RegistryHive hive, TextView key, TextView name) {
  return Current(hive).tree().Read(key, name);
}

std::vector<Text> FileRegistry::SubkeyNames(RegistryHive hive, TextView key) {
  return Current(hive).tree().SubkeyNames(key);
}

std::vector<Text> FileRegistry::ValueNames(RegistryHive hive, TextView key) {
  return Current(hive).tree().ValueNames(key);
}

// `edit(tree)` tells whether it changed anything.
template <typename Edit>
void FileRegistry::ChangeHive(RegistryHive hive, Edit edit) {
  Change([&] {
    HiveFile& file = Current(hive);
    if (edit(file.tree())) file.MarkChanged();
  });
}

void FileRegistry::CreateKey(RegistryHive hive, TextView key) {
  if (KeyExists(hive, key)) return;  // the usual case; no lock, no folder
  ChangeHive(hive, [&](RegistryTree& tree) { return tree.CreateKey(key); });
}

void FileRegistry::Write(RegistryHive hive, TextView key, TextView name, const RegistryValue& value) {
  ChangeHive(hive, [&](RegistryTree& tree) { return tree.Write(key, name, value); });
}

bool FileRegistry::DeleteValue(RegistryHive hive, TextView key, TextView name) {
  bool deleted = false;
  if (!Read(hive, key, name)) return false;
  ChangeHive(hive, [&](RegistryTree& tree) { return deleted = tree.DeleteValue(key, name); });
  return deleted;
}

bool FileRegistry::DeleteKey(RegistryHive hive, TextView key) {
  bool deleted = false;
  if (!KeyExists(hive, key)) return false;
  ChangeHive(hive, [&](RegistryTree& tree) { return deleted = tree.DeleteKey(key); });
  return deleted;
}

FileDescriptor FileRegistry::LockHome() const {
  MakeFolders(home_);
  const std::string path = JoinPath(home_, "registry.lock");
  FileDescriptor lock(Uninterrupted([&] { return open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600); }));
  if (!lock || Uninterrupted([&] { return flock(lock.get(), LOCK_EX); }) != 0) RaiseRegistryFileError(errno, path);
  return lock;
}

void FileRegistry::Change(const std::function<void()>& changes) {
  if (changing_) return changes();
  const FileDescriptor lock = LockHome();
  struct Ending {
    FileRegistry& registry;
    ~Ending() {
      registry.changing_ = false;
      for (HiveFile* file : {&registry.system_, &registry.classes_, &registry.user_, &registry.machine_}) {
        file->Release();
      }
    }
  } ending{*this};
  changing_ = true;
  changes();
  Save();
}

// All files are complete before the first of them takes its place.
void FileRegistry::Save() {
  std::vector<std::pair<HiveFile*, std::unique_ptr<AtomicFile>>> saved;
  for (HiveFile* file : {&classes_, &user_, &machine_}) {
    if (!file->changed()) continue;
    auto output =
        std::make_unique<AtomicFile>(file->path(), AtomicFile::Options{.durability = AtomicFile::Durability::kSynced});
    output->Write(file->tree().Save(file->hive()));
    saved.emplace_back(file, std::move(output));
  }
  for (const auto& [file, output] : saved) {
    output->Commit();
    file->MarkSaved();
  }
}

}  // namespace zorkanca
