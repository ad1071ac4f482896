// The characters of a text file as UTF-8, whatever its encoding, piece by piece.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "files/file_descriptor.h"
#include "runtime/code_page.h"

namespace zorkanca {

enum class TextEncoding { kUtf8, kUtf16LittleEndian, kUtf16BigEndian, kAnsi };

/// A byte-order mark settles the encoding, and is no character. What is no character of the encoding arrives as bytes
/// that are no UTF-8, so that one check behind this reader finds all of it.
class Utf8Input {
 public:
  /// @param path         of a file, a pipe or a device; a pipe is copied, so that it can be read again
  /// @param withoutMark  encoding of a file without a mark
  /// @param page         of `kAnsi`
  /// Errors: 53, 57, 70, 75, 76.
  Utf8Input(std::string path, TextEncoding withoutMark, const CodePage& page);

  const std::string& path() const { return path_; }
  TextEncoding encoding() const { return encoding_; }

  /// Goes back to the first character.
  void Restart();
  /// Fills the front of the room, which has `kLeastRoom` bytes at the least.
  /// @return how many bytes that were; 0 at the end of the file
  std::size_t Read(std::span<char> room);

  static constexpr std::size_t kLeastRoom = 64;

 private:
  void FindMark();
  std::size_t ReadBytes(char* bytes, std::size_t length);
  std::size_t ReadAnsi(std::span<char> room);
  std::size_t ReadUtf16(std::span<char> room);
  void FillPageTable(const CodePage& page);

  struct Spelling {
    std::array<char, 3> bytes{};
    std::uint8_t length = 0;
  };

  std::string path_;
  FileDescriptor file_;
  TextEncoding encoding_;
  std::size_t markLength_ = 0;
  std::uint64_t offset_ = 0;
  std::unique_ptr<char[]> raw_;
  std::size_t rawSize_ = 0;
  std::array<Spelling, 256> page_;
  char16_t high_ = 0;  // the first half of a character whose second one is still to come
};

}  // namespace zorkanca
