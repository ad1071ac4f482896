#include "foundation/registry_key_cursor.h"

#include <optional>

#include "runtime/error.h"

namespace zorkanca {

namespace {

TextView ShortName(RegistryHive root) {
  switch (root) {
    case RegistryHive::kClassesRoot:
      return u"HKCR";
    case RegistryHive::kCurrentUser:
      return u"HKCU";
    case RegistryHive::kLocalMachine:
      return u"HKLM";
  }
  return u"?";
}

}  // namespace

void RegistryKeyCursor::Root(RegistryHive root) {
  root_ = root;
  key_ = kCursorStart;
}

void RegistryKeyCursor::OpenKey(TextView name) {
  Text path = PathOf(name);
  if (!registry_.KeyExists(root_, path)) {
    Raise(RuntimeError::kPathNotFound, u"Klíč registru " + Shown(path) + u" neexistuje.");
  }
  key_ = std::move(path);
}

void RegistryKeyCursor::OpenParent() {
  if (key_.size() > kCursorStart.size()) key_.resize(key_.rfind(u'\\'));
}

void RegistryKeyCursor::CreateKey(TextView name) {
  Text path = PathOf(name);
  registry_.CreateKey(root_, path);
  key_ = std::move(path);
}

std::vector<Text> RegistryKeyCursor::EnumKeys() const {
  return registry_.SubkeyNames(root_, key_);
}

template <typename Kind>
Kind RegistryKeyCursor::Read(TextView name, Kind defaultValue) const {
  const std::optional<RegistryValue> value = registry_.Read(root_, key_, name);
  if (!value) return defaultValue;
  if (const Kind* found = std::get_if<Kind>(&*value)) return *found;
  Text description = u"Hodnota \"" + Text(name) + u"\" klíče registru " + Shown(key_) + u" je jiného typu.";
  Raise(RuntimeError::kTypeMismatch, std::move(description));
}

Text RegistryKeyCursor::GetValue(TextView name, TextView defaultValue) const {
  return Read(name, Text(defaultValue));
}

std::int32_t RegistryKeyCursor::GetValue(TextView name, std::int32_t defaultValue) const {
  return Read(name, defaultValue);
}

void RegistryKeyCursor::SetValue(TextView name, const RegistryValue& value) {
  registry_.Write(root_, key_, name, value);
}

void RegistryKeyCursor::SetValueAt(TextView keyPath, TextView name, const RegistryValue& value) {
  registry_.Write(root_, Text(kCursorStart).append(u"\\").append(keyPath), name, value);
}

bool RegistryKeyCursor::DeleteKey(TextView name, bool recursive) {
  const Text path = PathOf(name);
  if (!recursive && !registry_.SubkeyNames(root_, path).empty()) {
    Raise(RuntimeError::kPathFileAccess, u"Klíč registru " + Shown(path) + u" má podřízené klíče.");
  }
  return registry_.DeleteKey(root_, path);
}

// The path of a sub-key of the current key.
Text RegistryKeyCursor::PathOf(TextView name) const {
  if (name.empty() || name.find(u'\\') != TextView::npos) {
    Raise(RuntimeError::kInvalidCall, u"\"" + Text(name) + u"\" nemůže být jménem klíče registru.");
  }
  return Text(key_).append(u"\\").append(name);
}

Text RegistryKeyCursor::Shown(TextView path) const {
  return Text(u"\"").append(ShortName(root_)).append(u"\\").append(path).append(u"\"");
}

}  // namespace zorkanca
