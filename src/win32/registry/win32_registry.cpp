#include "win32/registry/win32_registry.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "runtime/error.h"
#include "win32/system.h"
#include "win32/system_message.h"
#include "win32/wide_text.h"

namespace zorkanca::win32 {

namespace {

// The system's own limits.
constexpr std::size_t kMostUnitsOfPart = 255;
constexpr std::size_t kMostParts = 512;
constexpr std::size_t kMostUnitsOfValueName = 16383;

class Key {
 public:
  Key() = default;
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;
  ~Key() {
    if (key_) RegCloseKey(key_);
  }
  HKEY get() const { return key_; }
  HKEY* Receive() { return &key_; }
  explicit operator bool() const { return key_ != nullptr; }

 private:
  HKEY key_ = nullptr;
};

bool IsMissing(LSTATUS status) {
  return status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND || status == ERROR_KEY_DELETED;
}

void RequireSuccess(LSTATUS status, TextView key) {
  if (status == ERROR_SUCCESS) return;
  const RuntimeError error =
      status == ERROR_ACCESS_DENIED ? RuntimeError::kPermissionDenied : RuntimeError::kPathFileAccess;
  Raise(error, SystemMessage(static_cast<std::uint32_t>(status)).append(u": ").append(key));
}

HKEY RootOf(RegistryHive hive) {
  switch (hive) {
    case RegistryHive::kClassesRoot:
      return HKEY_CLASSES_ROOT;
    case RegistryHive::kCurrentUser:
      return HKEY_CURRENT_USER;
    case RegistryHive::kLocalMachine:
      return HKEY_LOCAL_MACHINE;
  }
  Raise(RuntimeError::kInvalidCall);
}

// The name of a key as the calls take it.
Text SoundName(TextView key) {
  const std::vector<TextView> parts = Split(key, u'\\');
  const bool sound = parts.size() <= kMostParts && key.find(u'\0') == TextView::npos &&
                     std::all_of(parts.begin(), parts.end(),
                                 [](TextView part) { return !part.empty() && part.size() <= kMostUnitsOfPart; });
  if (!sound && !key.empty()) {
    Raise(RuntimeError::kInvalidCall, Text(u"Unsound name of a registry key: ").append(key));
  }
  return Text(key);
}

Text SoundValueName(TextView name) {
  if (name.size() > kMostUnitsOfValueName || name.find(u'\0') != TextView::npos) {
    Raise(RuntimeError::kInvalidCall, Text(u"Unsound name of a registry value: ").append(name));
  }
  return Text(name);
}

// @return false when the key is missing
bool Open(Key& opened, RegistryHive hive, TextView key, REGSAM access) {
  const LSTATUS status = RegOpenKeyExW(RootOf(hive), Wide(SoundName(key)), 0, access, opened.Receive());
  if (IsMissing(status)) return false;
  RequireSuccess(status, key);
  return true;
}

void OpenOrMake(Key& opened, RegistryHive hive, TextView key, REGSAM access) {
  const LSTATUS status = RegCreateKeyExW(RootOf(hive), Wide(SoundName(key)), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                         access, nullptr, opened.Receive(), nullptr);
  RequireSuccess(status, key);
}

// A text ends at its zero unit, which others may have left out.
Text TextOf(const std::vector<std::byte>& bytes) {
  Text text(bytes.size() / sizeof(char16_t), u'\0');
  if (!text.empty()) std::memcpy(text.data(), bytes.data(), text.size() * sizeof(char16_t));
  if (text.ends_with(u'\0')) text.pop_back();
  return text;
}

RegistryValue ValueOf(DWORD type, std::vector<std::byte> bytes) {
  if (type == REG_SZ) return TextOf(bytes);
  std::int32_t number = 0;
  if (type == REG_DWORD && bytes.size() == sizeof number) {
    std::memcpy(&number, bytes.data(), sizeof number);
    return number;
  }
  return RawRegistryValue{.type = type, .bytes = std::move(bytes)};
}

// What a value is stored as.
struct Stored {
  DWORD type = REG_NONE;
  const void* bytes = nullptr;
  std::size_t size = 0;
};

Stored StoredAs(const RegistryValue& value) {
  if (const Text* text = std::get_if<Text>(&value)) {
    return {.type = REG_SZ, .bytes = text->c_str(), .size = (text->size() + 1) * sizeof(char16_t)};
  }
  if (const std::int32_t* number = std::get_if<std::int32_t>(&value)) {
    return {.type = REG_DWORD, .bytes = number, .size = sizeof *number};
  }
  const auto& raw = std::get<RawRegistryValue>(value);
  return {.type = raw.type, .bytes = raw.bytes.data(), .size = raw.bytes.size()};
}

// All names that `next(index, room, length)` gives, each of at most so many units.
template <typename Next>
std::vector<Text> NamesBy(std::size_t mostUnits, TextView key, Next next) {
  std::vector<Text> names;
  Text room;
  for (DWORD index = 0;; ++index) {
    auto length = static_cast<DWORD>(mostUnits + 1);
    const LSTATUS status = next(index, WideRoom(room, mostUnits + 1), &length);
    if (status == ERROR_NO_MORE_ITEMS) return names;
    RequireSuccess(status, key);
    names.emplace_back(room, 0, length);
  }
}

}  // namespace

bool Win32Registry::KeyExists(RegistryHive hive, TextView key) {
  Key opened;
  return Open(opened, hive, key, KEY_QUERY_VALUE);
}

std::optional<RegistryValue> Win32Registry::Read(RegistryHive hive, TextView key, TextView name) {
  Key opened;
  if (!Open(opened, hive, key, KEY_QUERY_VALUE)) return std::nullopt;
  const Text valueName = SoundValueName(name);
  std::vector<std::byte> bytes(256);
  for (;;) {
    DWORD type = REG_NONE;
    auto size = static_cast<DWORD>(bytes.size());
    const LSTATUS status =
        RegQueryValueExW(opened.get(), Wide(valueName), nullptr, &type, reinterpret_cast<BYTE*>(bytes.data()), &size);
    if (IsMissing(status)) return std::nullopt;
    bytes.resize(size);  // that of the value, which may grow between two calls
    if (status == ERROR_MORE_DATA) continue;
    RequireSuccess(status, key);
    return ValueOf(type, std::move(bytes));
  }
}

std::vector<Text> Win32Registry::SubkeyNames(RegistryHive hive, TextView key) {
  Key opened;
  if (!Open(opened, hive, key, KEY_ENUMERATE_SUB_KEYS)) return {};
  return NamesBy(kMostUnitsOfPart, key, [&](DWORD index, wchar_t* room, DWORD* length) {
    return RegEnumKeyExW(opened.get(), index, room, length, nullptr, nullptr, nullptr, nullptr);
  });
}

std::vector<Text> Win32Registry::ValueNames(RegistryHive hive, TextView key) {
  Key opened;
  if (!Open(opened, hive, key, KEY_QUERY_VALUE)) return {};
  return NamesBy(kMostUnitsOfValueName, key, [&](DWORD index, wchar_t* room, DWORD* length) {
    return RegEnumValueW(opened.get(), index, room, length, nullptr, nullptr, nullptr, nullptr);
  });
}

void Win32Registry::CreateKey(RegistryHive hive, TextView key) {
  Key opened;
  OpenOrMake(opened, hive, key, KEY_QUERY_VALUE);
}

void Win32Registry::Write(RegistryHive hive, TextView key, TextView name, const RegistryValue& value) {
  const Text valueName = SoundValueName(name);
  Key opened;
  OpenOrMake(opened, hive, key, KEY_SET_VALUE);
  const Stored stored = StoredAs(value);
  RequireSuccess(RegSetValueExW(opened.get(), Wide(valueName), 0, stored.type, static_cast<const BYTE*>(stored.bytes),
                                static_cast<DWORD>(stored.size)),
                 key);
}

bool Win32Registry::DeleteValue(RegistryHive hive, TextView key, TextView name) {
  Key opened;
  if (!Open(opened, hive, key, KEY_SET_VALUE)) return false;
  const LSTATUS status = RegDeleteValueW(opened.get(), Wide(SoundValueName(name)));
  if (IsMissing(status)) return false;
  RequireSuccess(status, key);
  return true;
}

bool Win32Registry::DeleteKey(RegistryHive hive, TextView key) {
  const Text name = SoundName(key);
  if (name.empty()) Raise(RuntimeError::kInvalidCall, u"A root of the registry cannot be deleted");
  const LSTATUS status = RegDeleteTreeW(RootOf(hive), Wide(name));
  if (IsMissing(status)) return false;
  RequireSuccess(status, key);
  return true;
}

}  // namespace zorkanca::win32
