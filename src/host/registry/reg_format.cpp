#include "host/registry/reg_format.h"

#include <array>
#include <cstring>

#include "host/registry/reg_names.h"
#include "runtime/error.h"
#include "textfiles/utf16.h"

namespace zorkanca {

namespace {

constexpr std::size_t kLineWidth = 80;  // of the bytes of a value, as the system's own exports wrap them
constexpr TextView kDigits = u"0123456789abcdef";

std::vector<std::byte> BytesOfText(TextView text) {
  std::vector<std::byte> bytes((text.size() + 1) * sizeof(char16_t));  // with the NUL that ends texts in the registry
  std::memcpy(bytes.data(), text.data(), text.size() * sizeof(char16_t));
  return bytes;
}

bool FitsOnLine(TextView text) {
  return text.find_first_of(TextView(u"\r\n\0", 3)) == TextView::npos;
}

}  // namespace

void RaiseRegError(const Text& origin, int lineNumber, TextView reason) {
  Text description = origin + u", line ";
  AppendDecimal(description, lineNumber);
  Raise(RuntimeError::kPathFileAccess, description.append(u": ").append(reason));
}

std::optional<std::pair<RegistryHive, Text>> SplitRegPath(TextView path) {
  const std::size_t end = path.find(u'\\');
  const TextView root = path.substr(0, end);
  for (const RegistryHive hive : kRegistryHives) {
    if (!EqualsIgnoringCase(root, RegRootName(hive))) continue;
    return std::pair(hive, end == TextView::npos ? Text() : Text(path.substr(end + 1)));
  }
  return std::nullopt;
}

TextView RegRootName(RegistryHive hive) {
  switch (hive) {
    case RegistryHive::kClassesRoot:
      return u"HKEY_CLASSES_ROOT";
    case RegistryHive::kCurrentUser:
      return u"HKEY_CURRENT_USER";
    case RegistryHive::kLocalMachine:
      return u"HKEY_LOCAL_MACHINE";
  }
  Raise(RuntimeError::kInvalidCall);
}

RegWriter::RegWriter() : text_(kRegSignature) {
  text_.append(kCrLf);
}

void RegWriter::AddKey(RegistryHive hive, TextView key) {
  AddSection(u"[", hive, key);
}

void RegWriter::AddDeletedKey(RegistryHive hive, TextView key) {
  AddSection(u"[-", hive, key);
}

void RegWriter::AddSection(TextView opening, RegistryHive hive, TextView key) {
  text_.append(kCrLf).append(opening).append(RegRootName(hive));
  if (!key.empty()) text_.append(u"\\").append(key);
  text_.append(u"]").append(kCrLf);
}

void RegWriter::AddValue(TextView name, const std::optional<RegistryValue>& value) {
  const std::size_t lineStart = text_.size();
  if (name.empty()) {
    text_.push_back(u'@');
  } else {
    AppendQuoted(name);
  }
  text_.push_back(u'=');
  if (!value) {
    text_.push_back(u'-');
  } else if (const Text* text = std::get_if<Text>(&*value)) {
    if (FitsOnLine(*text)) {
      AppendQuoted(*text);
    } else {
      AppendHex(kRegText, BytesOfText(*text), lineStart);
    }
  } else if (const std::int32_t* number = std::get_if<std::int32_t>(&*value)) {
    text_.append(u"dword:");
    for (int shift = 28; shift >= 0; shift -= 4) {
      text_.push_back(kDigits[static_cast<std::uint32_t>(*number) >> shift & 0xF]);
    }
  } else {
    const RawRegistryValue& raw = std::get<RawRegistryValue>(*value);
    AppendHex(raw.type, raw.bytes, lineStart);
  }
  text_.append(kCrLf);
}

void RegWriter::AppendQuoted(TextView text) {
  text_.push_back(u'"');
  for (const char16_t unit : text) {
    if (unit == u'\\' || unit == u'"') text_.push_back(u'\\');
    text_.push_back(unit);
  }
  text_.push_back(u'"');
}

void RegWriter::AppendHex(std::uint32_t type, const std::vector<std::byte>& bytes, std::size_t lineStart) {
  text_.append(u"hex");
  if (type != kRegBinary) {
    Text number;
    for (std::uint32_t rest = type; rest != 0 || number.empty(); rest >>= 4) {
      number.insert(number.begin(), kDigits[rest & 0xF]);
    }
    text_.append(u"(").append(number).append(u")");
  }
  text_.push_back(u':');
  for (std::size_t index = 0; index < bytes.size(); ++index) {
    constexpr std::size_t kByteWidth = 4;  // two digits, the comma, and room for the "\"
    if (index > 0 && text_.size() - lineStart + kByteWidth > kLineWidth) {
      text_.append(u"\\").append(kCrLf);
      lineStart = text_.size();
      text_.append(u"  ");
    }
    const auto byte = std::to_integer<std::uint32_t>(bytes[index]);
    text_.push_back(kDigits[byte >> 4]);
    text_.push_back(kDigits[byte & 0xF]);
    if (index + 1 < bytes.size()) text_.push_back(u',');
  }
}

std::string RegWriter::Bytes() const {
  std::string bytes(kByteOrderMark);
  AppendUtf16(bytes, text_);
  return bytes;
}

}  // namespace zorkanca
