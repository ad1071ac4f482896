// Messages and questions on pipes and on a terminal of our own.
#include <gtest/gtest.h>

#include "host/console/console_user_interface.h"
#include "support/pseudo_terminal.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

using Answers = ConsoleUserInterface::Answers;

const Message kQuestion{.text = u"Řádek 1\r\nline 2?", .title = u"T", .buttons = MessageButtons::kYesNo};

std::string ReadOnce(int descriptor) {
  std::string bytes(4096, '\0');
  const ssize_t count = read(descriptor, bytes.data(), bytes.size());
  bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
  return bytes;
}

TEST(Console, WithoutTerminalNobodyIsAsked) {
  int in[2] = {}, out[2] = {};
  ASSERT_EQ(pipe(in), 0);
  ASSERT_EQ(pipe(out), 0);
  ASSERT_EQ(write(in[1], "a\n", 2), 2);
  struct Row {
    Answers answers;
    MessageButtons buttons;
    MessageAnswer answer;
  };
  const Row rows[] = {
      {Answers::kAsk, MessageButtons::kYesNo, MessageAnswer::kNo},
      {Answers::kAsk, MessageButtons::kOkCancel, MessageAnswer::kCancel},
      {Answers::kYes, MessageButtons::kYesNo, MessageAnswer::kYes},
      {Answers::kYes, MessageButtons::kOkCancel, MessageAnswer::kOk},
      {Answers::kNo, MessageButtons::kYesNo, MessageAnswer::kNo},
      {Answers::kNo, MessageButtons::kOk, MessageAnswer::kOk},
  };
  for (const Row& row : rows) {
    ConsoleUserInterface console(row.answers, Terminal(in[0], out[1]));
    console.Beep();
    Message message = kQuestion;
    message.buttons = row.buttons;
    EXPECT_EQ(console.Show(message), row.answer);
    EXPECT_EQ(ReadOnce(out[0]), "T: Řádek 1\nline 2?\n");
  }
  EXPECT_EQ(ReadOnce(in[0]), "a\n") << "the input is not ours";
  for (const int end : {in[0], in[1], out[0], out[1]}) close(end);
}

TEST(Console, TheTerminalIsAskedUntilItAnswers) {
  const PseudoTerminal terminal;
  ConsoleUserInterface console(Answers::kAsk, terminal.terminal());

  const std::string shown = "\r\x1b[KT: Řádek 1\nline 2?\n[a/n] ";
  struct Row {
    std::string typed;
    MessageAnswer answer;
    std::string printed;
  };
  const Row rows[] = {
      {"a\n", MessageAnswer::kYes, shown},
      {" Y \n", MessageAnswer::kYes, shown},
      {"Ano\n", MessageAnswer::kYes, shown},
      {"N\n", MessageAnswer::kNo, shown},
      {"what\n\nne\n", MessageAnswer::kNo, shown + "[a/n] [a/n] "},
      {"\x04", MessageAnswer::kNo, shown},  // end of input
  };
  for (const Row& row : rows) {
    terminal.Type(row.typed);
    EXPECT_EQ(console.Show(kQuestion), row.answer) << row.typed;
    EXPECT_EQ(terminal.Printed(), row.printed);
  }
  console.Beep();
  EXPECT_EQ(terminal.Printed(), "\a");
}

}  // namespace
}  // namespace zorkanca::testing
