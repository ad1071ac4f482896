// Dialogs with a screen, on a terminal, and with neither.
#include <gtest/gtest.h>

#include "host/desktop/desktop_user_interface.h"
#include "support/memory_platform.h"
#include "support/pseudo_terminal.h"
#include "support/sample_form.h"
#include "support/temporary_folder.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

using Answers = DesktopUserInterface::Answers;

const Message kQuestion{.text = u"Opravit?", .title = u"T", .buttons = MessageButtons::kYesNo};
const Message kNotice{.text = u"Hotovo", .title = u"T"};

DesktopUserInterface OnTerminal(const PseudoTerminal& terminal) {
  return DesktopUserInterface({.terminal = terminal.terminal()});
}

TEST(DesktopUserInterface, WithoutScreenAndTerminalTheOptionIsNamed) {
  const FileDescriptor nothing(open("/dev/null", O_RDWR));
  DesktopUserInterface user(
      {.openWindows = []() -> std::shared_ptr<UserInterface> { Raise(RuntimeError::kInvalidCall, u"not installed"); },
       .insteadOfDialogs = u"--template",
       .terminal = Terminal(nothing.get(), nothing.get())});
  SampleForm form;
  const std::function<void()> dialogs[] = {[&] { user.ShowModal(form, nullptr); }, [&] { user.ChooseFile({}); },
                                           [&] { user.ChooseFolder({}, {}); }, [&] { user.GetWorkingArea(); }};
  for (const auto& dialog : dialogs) {
    const Error error = ErrorOf(dialog);
    EXPECT_EQ(error.number(), 5);
    EXPECT_EQ(Shown(error.description()),
              "there is neither a screen nor a terminal to ask on; use --template instead (not installed)");
  }
  EXPECT_FALSE(form.loaded());
}

TEST(DesktopUserInterface, MessagesAreBoxesWhileAWindowIsOpen) {
  Journal journal;
  const auto windows = std::make_shared<JournalUserInterface>(journal);
  windows->answer = MessageAnswer::kYes;
  int opened = 0;
  const auto open = [&] {
    ++opened;
    return windows;
  };
  const PseudoTerminal terminal;
  for (const Answers answers : {Answers::kAsk, Answers::kNo}) {
    DesktopUserInterface user({.answers = answers, .openWindows = open, .terminal = terminal.terminal()});
    user.Show(kNotice);
    EXPECT_EQ(terminal.Printed(), "\r\x1b[KT: Hotovo\n");
    windows->scripts.push_back([&](Form&) {
      user.Show(kNotice);
      user.Beep();
      user.SetMousePointer(MousePointer::kHourglass);
      const MessageAnswer answer = user.Show(kQuestion);
      EXPECT_EQ(answer, answers == Answers::kAsk ? MessageAnswer::kYes : MessageAnswer::kNo);
    });
    SampleForm form;
    user.ShowModal(form, nullptr);
    EXPECT_EQ(ErrorOf([&] { user.ShowModal(form, nullptr); }).number(), 5) << "the windows' own error passes through";
    user.Show(kNotice);
    EXPECT_EQ(terminal.Printed(),
              answers == Answers::kAsk ? "\r\x1b[KT: Hotovo\n" : "\r\x1b[KT: Opravit?\n\r\x1b[KT: Hotovo\n");
  }
  EXPECT_EQ(opened, 2) << "once for each";
  const Journal expected = {"message 0 [T] Hotovo", "beep", "pointer 11", "message 0 [T] Opravit?",
                            "message 0 [T] Hotovo", "beep", "pointer 11"};
  EXPECT_EQ(journal, expected);
}

TEST(TerminalDialogs, ARowOfAListIsChosenByItsNumber) {
  const PseudoTerminal terminal;
  DesktopUserInterface user = OnTerminal(terminal);
  SampleForm form;
  form.rows.SelectRow(0);
  form.Heard();
  terminal.Type("x\n4\n2\n");
  user.ShowModal(form, nullptr);
  EXPECT_EQ(form.Heard(), "activate; row 1; down 13; ok");
  const std::string shown = "Ukázka & zkouška\n*  1  první\n   2  druhý\n   3  třetí\nČíslo (prázdné zruší): ";
  const std::string wrong = shown + "Takové číslo v seznamu není.\n";
  EXPECT_EQ(terminal.Printed(), wrong + wrong + shown);

  form.ok.SetEnabled(false);  // the row cannot be chosen
  terminal.Type("3\n\n");
  user.ShowModal(form, nullptr);
  EXPECT_EQ(form.Heard(), "activate; row 2; down 13; up 13; cancel; close?");
  EXPECT_NE(terminal.Printed().find("Tuto položku nelze zvolit.\n"), std::string::npos);

  form.refusesToClose = true;
  terminal.Type("\x04");
  user.ShowModal(form, nullptr);
  EXPECT_FALSE(form.visible()) << "nobody is left to answer";
}

TEST(TerminalDialogs, AnEmptyListAsksForNothing) {
  const PseudoTerminal terminal;
  DesktopUserInterface user = OnTerminal(terminal);
  SampleForm form;
  form.rows.SetRows({});
  form.Heard();
  terminal.Type("1\n");
  user.ShowModal(form, nullptr);
  EXPECT_FALSE(form.visible());
  EXPECT_EQ(form.Heard(), "activate; cancel; close?");
  EXPECT_EQ(terminal.Printed(), "Ukázka & zkouška\nSeznam je prázdný.\n");
}

TEST(TerminalDialogs, FormsWithoutListAreMenus) {
  const PseudoTerminal terminal;
  DesktopUserInterface user = OnTerminal(terminal);
  SampleForm form;
  form.rows.SetVisible(false);
  form.note.SetText(u"stará");
  form.Heard();
  terminal.Type("1\n4x2\n2\nnová\n3\n5\n");
  user.ShowModal(form, nullptr);
  EXPECT_EQ(form.Heard(), "activate; code 4; code 42; note nová; checked; ok");
  const std::string printed = terminal.Printed();
  EXPECT_EQ(printed.substr(0, printed.find("Kód: ", printed.find("zruší"))),
            "Ukázka & zkouška\n   1  Kód: \n   2  Poznámka: stará\n   3  [ ] Používat & šetřit\n   4  <…>\n"
            "   5  <OK>\n   6  <Zrušit>\nČíslo (prázdné zruší): ");
  EXPECT_NE(printed.find("   1  Kód: 42\n   2  Poznámka: nová\n   3  [x] "), std::string::npos);
}

TEST(TerminalDialogs, PathsAreTyped) {
  const PseudoTerminal terminal;
  DesktopUserInterface user = OnTerminal(terminal);
  TemporaryFolder folder;
  folder.Write("program.exe", "");
  const FileDialog dialog{
      .title = u"Program", .folder = folder.TextPath(""), .defaultExtension = u".exe", .fileMustExist = true};
  terminal.Type("není\nprogram\n");
  EXPECT_EQ(Shown(user.ChooseFile(dialog)), folder.Path("program.exe"));
  EXPECT_EQ(terminal.Printed(), "Program (prázdné zruší): Soubor nebyl nalezen: " + folder.Path("není.exe") +
                                    "\nProgram (prázdné zruší): ");
  terminal.Type("\n");
  EXPECT_EQ(Shown(user.ChooseFile(dialog)), "");
  terminal.Type(folder.Path("program.exe") + "\n.\n");
  EXPECT_EQ(Shown(user.ChooseFolder(u"", folder.TextPath(""))), folder.path());
  EXPECT_LT(user.GetWorkingArea().left, -1e5) << "no place is out of reach";
}

}  // namespace
}  // namespace zorkanca::testing
