#include "host/console/terminal.h"

#include "files/file_descriptor.h"
#include "runtime/utf8.h"

namespace zorkanca {

void Terminal::Print(std::string_view bytes) const {
  while (!bytes.empty()) {
    const ssize_t count = Uninterrupted([&] { return write(output_, bytes.data(), bytes.size()); });
    if (count <= 0) return;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

void Terminal::Print(TextView text) const {
  Print(ToUtf8(Replace(text, kCrLf, u"\n")));
}

// Byte by byte: what follows the line is not ours.
std::string Terminal::ReadLine() const {
  std::string line;
  char byte = 0;
  while (!line.ends_with('\n') && Uninterrupted([&] { return read(input_, &byte, 1); }) == 1) line.push_back(byte);
  return line;
}

bool Terminal::Ask(TextView prompt, Text& answer) const {
  Print(prompt);
  const std::string line = ReadLine();
  const Text text = FromUtf8(line);
  answer = Trim(TextView(text).substr(0, text.find_first_of(kCrLf)));
  return !line.empty();
}

}  // namespace zorkanca
