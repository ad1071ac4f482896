#include "host/console/console_user_interface.h"

#include <optional>

#include "host/files/file_descriptor.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca {

namespace {

std::optional<bool> AnswerOf(const std::string& line) {
  const Text text = FromUtf8(line);
  const Text word = LowerCase(Trim(TextView(text).substr(0, text.find_first_of(kCrLf))));
  for (const TextView yes : {u"a", u"ano", u"y", u"yes"}) {
    if (word == yes) return true;
  }
  for (const TextView no : {u"n", u"ne", u"no"}) {
    if (word == no) return false;
  }
  return std::nullopt;
}

[[noreturn]] void RaiseNoWindows() {
  Raise(RuntimeError::kInvalidCall, u"a console shows no windows");
}

}  // namespace

MessageAnswer ConsoleUserInterface::Show(const Message& message) {
  Text line = message.title;
  if (!line.empty()) line.append(u": ");
  line.append(Replace(message.text, kCrLf, u"\n")).append(u"\n");
  if (isatty(output_)) Print("\r\x1b[K");  // a progress bar may stand in the line
  Print(ToUtf8(line));
  switch (message.buttons) {
    case MessageButtons::kOk:
      break;
    case MessageButtons::kOkCancel:
      return IsYes() ? MessageAnswer::kOk : MessageAnswer::kCancel;
    case MessageButtons::kYesNoCancel:
    case MessageButtons::kYesNo:
      return IsYes() ? MessageAnswer::kYes : MessageAnswer::kNo;
  }
  return MessageAnswer::kOk;
}

void ConsoleUserInterface::Beep() {
  if (isatty(output_)) Print("\a");
}

Text ConsoleUserInterface::ChooseFile(const FileDialog&) {
  RaiseNoWindows();
}

Text ConsoleUserInterface::ChooseFolder(TextView, TextView) {
  RaiseNoWindows();
}

WorkingArea ConsoleUserInterface::GetWorkingArea() {
  RaiseNoWindows();
}

void ConsoleUserInterface::ShowModal(Form&, Form*) {
  RaiseNoWindows();
}

bool ConsoleUserInterface::IsYes() {
  if (answers_ != Answers::kAsk) return answers_ == Answers::kYes;
  return isatty(input_) && isatty(output_) && AskForYes();
}

bool ConsoleUserInterface::AskForYes() {
  for (;;) {
    Print("[a/n] ");
    const std::string line = ReadLine();
    if (line.empty()) return false;
    if (const std::optional<bool> answer = AnswerOf(line)) return *answer;
  }
}

// The next line with its end; empty at the end of input. Byte by byte: what follows the line is not ours.
std::string ConsoleUserInterface::ReadLine() {
  std::string line;
  char byte = 0;
  while (!line.ends_with('\n') && Uninterrupted([&] { return read(input_, &byte, 1); }) == 1) line.push_back(byte);
  return line;
}

// Nowhere is left to report that messages cannot be shown.
void ConsoleUserInterface::Print(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = Uninterrupted([&] { return write(output_, bytes.data(), bytes.size()); });
    if (count <= 0) return;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

}  // namespace zorkanca
