#include "host/console/console_user_interface.h"

#include <optional>

#include "runtime/error.h"

namespace zorkanca {

namespace {

std::optional<bool> AnswerOf(TextView answer) {
  const Text word = LowerCase(answer);
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
  Text line = message.title == message.text ? Text() : message.title;  // some messages are their own title
  if (!line.empty()) line.append(u": ");
  line.append(message.text).append(u"\n");
  if (terminal_.Prints()) terminal_.Print("\r\x1b[K");  // a progress bar may stand in the line
  terminal_.Print(line);
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
  if (terminal_.Prints()) terminal_.Print("\a");
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
  return terminal_.Interactive() && AskForYes();
}

bool ConsoleUserInterface::AskForYes() {
  Text line;
  while (terminal_.Ask(u"[a/n] ", line)) {
    if (const std::optional<bool> answer = AnswerOf(line)) return *answer;
  }
  return false;
}

}  // namespace zorkanca
