#include "support/memory_file_system.h"

#include "platform/paths.h"
#include "runtime/error.h"
#include "runtime/like.h"
#include "runtime/utf8.h"

namespace zorkanca::testing {

/// A stream over the bytes of one file; what is written becomes the file at `Close`, as on a disk.
class MemoryTextStream final : public TextStream {
 public:
  MemoryTextStream(MemoryFileSystem& files, Text path, TextFormat format, std::string bytes, bool writing)
      : files_(files), path_(std::move(path)), format_(format), bytes_(std::move(bytes)), writing_(writing) {}

  void Write(TextView text) override {
    files_.MayFail();
    if (format_ == TextFormat::kUtf8) return AppendAsUtf8(bytes_, text);
    if (format_ == TextFormat::kAnsi) {
      lost_ += static_cast<std::int64_t>(files_.codePage_.AppendEncoded(bytes_, text));
      return;
    }
    if (bytes_.empty()) AppendUnit(u'\xFEFF');
    for (const char16_t unit : text) AppendUnit(unit);
  }

  void WriteLine(TextView text) override { Write(Text(text).append(kCrLf)); }

  Text ReadLine() override {
    if (AtEndOfStream()) Raise(RuntimeError::kPastEndOfFile);
    const Text rest = Decoded();
    const std::size_t end = rest.find(u'\n', position_);
    Text line = rest.substr(position_, end == Text::npos ? end : end - position_);
    position_ = end == Text::npos ? rest.size() : end + 1;
    if (line.ends_with(u'\r')) line.pop_back();
    return line;
  }

  Text ReadAll() override {
    const Text rest = Decoded().substr(position_);
    position_ += rest.size();
    return rest;
  }

  Text Read(std::int32_t characters) override {
    if (AtEndOfStream()) Raise(RuntimeError::kPastEndOfFile);
    const Text read = Decoded().substr(position_, static_cast<std::size_t>(characters));
    position_ += read.size();
    return read;
  }

  bool AtEndOfStream() override { return position_ >= Decoded().size(); }

  void Close() override {
    if (!writing_) return;
    files_.MayFail();
    writing_ = false;
    files_.Put(path_, bytes_);
  }

  std::int64_t LostCharacters() const override { return lost_; }

 private:
  void AppendUnit(char16_t unit) {
    bytes_.push_back(static_cast<char>(unit & 0xFF));
    bytes_.push_back(static_cast<char>(unit >> 8));
  }

  Text Decoded() const {
    Text text;
    if (format_ == TextFormat::kUtf8) return FromUtf8(bytes_);
    if (format_ == TextFormat::kAnsi) {
      files_.codePage_.AppendDecoded(text, bytes_);
      return text;
    }
    for (std::size_t index = 2; index + 1 < bytes_.size(); index += 2) {  // after the byte-order mark
      const auto low = static_cast<std::uint8_t>(bytes_[index]);
      const auto high = static_cast<std::uint8_t>(bytes_[index + 1]);
      text.push_back(static_cast<char16_t>(low | high << 8));
    }
    return text;
  }

  MemoryFileSystem& files_;
  Text path_;
  TextFormat format_;
  std::string bytes_;
  bool writing_;
  std::size_t position_ = 0;
  std::int64_t lost_ = 0;
};

std::optional<std::string> MemoryFileSystem::Bytes(TextView path) const {
  const auto found = files_.find(LowerCase(path));
  return found == files_.end() ? std::nullopt : std::optional(found->second.bytes);
}

std::vector<Text> MemoryFileSystem::Paths() const {
  std::vector<Text> paths;
  for (const auto& [key, file] : files_) paths.push_back(file.path);
  return paths;
}

void MemoryFileSystem::MayFail() {
  if (callsUntilFailure_ == 0) return;
  if (callsUntilFailure_ == 1) Raise(RuntimeError::kPermissionDenied);
  --callsUntilFailure_;
}

void MemoryFileSystem::CreateFolder(TextView path) {
  MayFail();
  if (FolderExists(path)) Raise(RuntimeError::kFileExists);
  if (!FolderExists(GetParentFolderName(path))) Raise(RuntimeError::kPathNotFound);
  folders_.insert({LowerCase(path), true});
}

void MemoryFileSystem::DeleteFile(TextView path, bool) {
  if (undeletable_.contains(LowerCase(path))) Raise(RuntimeError::kPermissionDenied);
  if (files_.erase(LowerCase(path)) == 0) Raise(RuntimeError::kFileNotFound);
}

void MemoryFileSystem::ClearFolder(TextView folder, TextView wildcards) {
  if (!FolderExists(folder)) return;
  for (const FileEntry& entry : Files(folder)) {
    if (Like(LowerCase(entry.name), LowerCase(wildcards))) files_.erase(LowerCase(entry.path));
  }
}

std::vector<FileEntry> MemoryFileSystem::Files(TextView folder) {
  if (!FolderExists(folder)) Raise(RuntimeError::kPathNotFound);
  std::vector<FileEntry> entries;
  for (const auto& [key, file] : files_) {
    if (!EqualsIgnoringCase(GetParentFolderName(file.path), folder)) continue;
    entries.push_back({.name = Text(GetFileName(file.path)), .path = file.path, .lastModified = file.lastModified});
  }
  return entries;
}

Text MemoryFileSystem::GetTempName() {
  return u"rad0000" + DecimalText(++temporaryNames_) + u".tmp";
}

Text MemoryFileSystem::GetAbsolutePathName(TextView path) {
  return GetParentFolderName(path).empty() ? u"C:\\" + Text(path) : Text(path);
}

std::unique_ptr<TextStream> MemoryFileSystem::OpenTextFile(TextView path, IoMode mode, bool create, TextFormat format) {
  MayFail();
  if (!FolderExists(GetParentFolderName(path))) Raise(RuntimeError::kPathNotFound);
  const auto found = files_.find(LowerCase(path));
  if (found == files_.end() && !(create && mode != IoMode::kForReading)) Raise(RuntimeError::kFileNotFound);
  std::string bytes = mode == IoMode::kForWriting || found == files_.end() ? "" : found->second.bytes;
  return std::make_unique<MemoryTextStream>(*this, Text(path), format, std::move(bytes), mode != IoMode::kForReading);
}

std::unique_ptr<FileLock> MemoryFileSystem::LockFile(TextView path) {
  if (!FileExists(path)) Raise(RuntimeError::kFileNotFound);
  return std::make_unique<FileLock>();
}

}  // namespace zorkanca::testing
