// Registry export files ("Windows Registry Editor Version 5.00"): the text and what it says.
//
//   [HKEY_CURRENT_USER\Software\A]   a key            [-HKEY_CURRENT_USER\Software\A]   the key is deleted
//   "Name"="text"                    \\ and \" stand for \ and "                @=...  the default value
//   "Name"=dword:0000002a            32-bit number    "Name"=-                          the value is deleted
//   "Name"=hex(7):61,00,\            bytes of a REG_ kind, "\" goes on with the next line; "hex:" is kind 3
//   ; comment
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/registry.h"
#include "runtime/text.h"

namespace zorkanca {

/// A line under a key: a value, or the deletion of one.
struct RegLine {
  Text name;  ///< empty for the default value
  std::optional<RegistryValue> value;
};

/// A key, or the deletion of one, and the lines below it.
struct RegSection {
  Text path;  ///< with the root's name, as in the file
  bool deleted = false;
  std::vector<RegLine> lines;
  int lineNumber = 0;  ///< from 1
};

/// Reads a file: UTF-16 little-endian with byte-order mark, or UTF-8 with or without one.
/// @param origin  name of the file for messages
/// Errors: 75 with `origin` and the number of the line for everything that the format does not know.
std::vector<RegSection> ParseReg(std::string_view bytes, const Text& origin);

/// Raises error 75 "origin, line N: reason".
[[noreturn]] void RaiseRegError(const Text& origin, int lineNumber, TextView reason);

/// Root and key of a path that begins with the full name of a root, case ignored; nothing for any other path.
std::optional<std::pair<RegistryHive, Text>> SplitRegPath(TextView path);

/// The full name of a root: "HKEY_CURRENT_USER".
TextView RegRootName(RegistryHive hive);

/// Writes a file in UTF-16 little-endian with byte-order mark and CR LF.
class RegWriter {
 public:
  RegWriter();
  void AddKey(RegistryHive hive, TextView key);
  void AddDeletedKey(RegistryHive hive, TextView key);
  /// A value of the key added last; nothing for a deleted value.
  void AddValue(TextView name, const std::optional<RegistryValue>& value);
  /// The bytes of all that was added.
  std::string Bytes() const;

 private:
  void AddSection(TextView opening, RegistryHive hive, TextView key);
  void AppendQuoted(TextView text);
  void AppendHex(std::uint32_t type, const std::vector<std::byte>& bytes, std::size_t lineStart);

  Text text_;
};

}  // namespace zorkanca
