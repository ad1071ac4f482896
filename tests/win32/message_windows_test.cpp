// Message boxes, file dialogs, the screen, and messages that wait.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "support/sample_form.h"
#include "support/text_support.h"
#include "win32/window_person.h"

namespace zorkanca::win32 {
namespace {

using zorkanca::testing::SampleForm;
using zorkanca::testing::Shown;

using MessageWindows = Windows;

TEST_F(MessageWindows, QuestionsAreAskedOverTheForm) {
  struct Row {
    MessageButtons buttons;
    std::vector<int> keys;
    MessageAnswer answer;
  };
  const Row rows[] = {
      {MessageButtons::kOk, {VK_ESCAPE}, MessageAnswer::kOk},
      {MessageButtons::kOk, {VK_RETURN}, MessageAnswer::kOk},
      {MessageButtons::kOkCancel, {VK_RETURN}, MessageAnswer::kOk},
      {MessageButtons::kOkCancel, {VK_ESCAPE}, MessageAnswer::kCancel},
      {MessageButtons::kYesNo, {VK_RETURN}, MessageAnswer::kYes},
      {MessageButtons::kYesNo, {VK_TAB, VK_RETURN}, MessageAnswer::kNo},
      {MessageButtons::kYesNoCancel, {VK_TAB, VK_SPACE}, MessageAnswer::kNo},
      {MessageButtons::kYesNoCancel, {VK_ESCAPE}, MessageAnswer::kCancel},
  };
  SampleForm form;
  Message message{.text = u"Uložit\r\nzměny?", .title = u"Otázka", .icon = MessageIcon::kQuestion};
  MessageAnswer answer{};
  form.up.onClick = [&] { answer = windows().Show(message); };
  Show(form, [&] {
    const HWND owner = Top();
    for (const Row& row : rows) {
      message.buttons = row.buttons;
      Seen([&] { form.up.SetFocus(); });
      Press(VK_SPACE);
      Await("Otázka");
      AwaitMessage("Uložit\r\nzměny?");
      EXPECT_EQ(GetWindow(Top(), GW_OWNER), owner);
      for (const int key : row.keys) Press(key);
      Await("Ukázka & zkouška");
      EXPECT_EQ(answer, row.answer) << static_cast<int>(row.buttons);
    }
    EXPECT_TRUE(form.visible());
    EXPECT_EQ(Focused(form), "cmdUp") << "where it was";
  });

  message.title.clear();
  Meanwhile([&] { Await("zorKancA"), Press(VK_RETURN); }, [&] { windows().Show(message); });
  const WindowLimit none(0);
  const std::pair<MessageButtons, MessageAnswer> unasked[] = {{MessageButtons::kOk, MessageAnswer::kOk},
                                                              {MessageButtons::kOkCancel, MessageAnswer::kCancel},
                                                              {MessageButtons::kYesNo, MessageAnswer::kNo},
                                                              {MessageButtons::kYesNoCancel, MessageAnswer::kCancel}};
  for (const auto& [buttons, expected] : unasked) {
    message.buttons = buttons;
    EXPECT_EQ(windows().Show(message), expected) << static_cast<int>(buttons);
  }
}

class FileDialogs : public MessageWindows {
 protected:
  FileDialogs() {
    OleInitialize(nullptr);
    std::filesystem::create_directories(folder_ / L"vnitřní");
    std::ofstream(folder_ / "vzor.dot") << "";
  }
  ~FileDialogs() override {
    std::filesystem::remove_all(folder_);
    OleUninitialize();
  }
  Text TextOfPath(const std::filesystem::path& path) { return Text(FromWide(path.c_str())); }
  Text Chosen(const FileDialog& dialog, const std::function<void()>& person) {
    Text chosen;
    Meanwhile([&] { Await(ToUtf8(dialog.title)), person(); }, [&] { chosen = windows().ChooseFile(dialog); });
    return chosen;
  }

  std::filesystem::path folder_ = std::filesystem::temp_directory_path() / L"zorkanca složka";
};

TEST_F(FileDialogs, TakeFiltersAndReturnFullPaths) {
  const std::filesystem::path before = std::filesystem::current_path();
  FileDialog dialog{.title = u"Vzor",
                    .filter = u"Šablony Word (*.dot)|*.dot|Vše|*.*;*.x",
                    .folder = TextOfPath(folder_ / L"není/tam"),
                    .fileName = u"vz",
                    .defaultExtension = u".dot",
                    .fileMustExist = true};
  const Text chosen = Chosen(dialog, [&] {
    HWND kinds = GetDlgItem(Top(), 0x470);
    EXPECT_EQ(Seen([&] { return SendMessageW(kinds, CB_GETCOUNT, 0, 0); }), 2);
    EXPECT_EQ(TextIn(kinds), "Šablony Word (*.dot)");
    EXPECT_NE(Part("vz"), nullptr);
    Press(VK_END);
    Type("or.dot");
    Press(VK_RETURN);
  });
  EXPECT_EQ(Shown(chosen), Shown(TextOfPath(folder_ / "vzor.dot"))) << "from the nearest folder";
  EXPECT_EQ(std::filesystem::current_path(), before);

  dialog.fileName = TextOfPath(folder_ / "vzor.dot");
  dialog.folder = u"C:\\";
  EXPECT_EQ(Shown(Chosen(dialog, [&] { Press(VK_RETURN); })), Shown(TextOfPath(folder_ / "vzor.dot")));
  EXPECT_EQ(Shown(Chosen(dialog, [&] { Press(VK_ESCAPE); })), "");
  dialog.fileName = u"<?>";
  EXPECT_EQ(Shown(Chosen(dialog, [&] { Press(VK_ESCAPE); })), "") << "a name that none can be";
}

TEST_F(FileDialogs, FoldersAreChosenFromTheNearestOneOn) {
  Text chosen;
  const auto choose = [&](int key) {
    const auto person = [&] {
      Until([&] { return Part("Kam s tím?") != nullptr && GetForegroundWindow() == Top(); });
      Press(key);
    };
    Meanwhile(person,
              [&] { chosen = windows().ChooseFolder(u"Kam s tím?", TextOfPath(folder_ / L"vnitřní" / L"není")); });
  };
  choose(VK_RETURN);
  EXPECT_EQ(Shown(chosen), Shown(TextOfPath(folder_ / L"vnitřní")));
  choose(VK_ESCAPE);
  EXPECT_EQ(Shown(chosen), "");
}

TEST_F(MessageWindows, TheScreenIsMeasuredLikeTheForms) {
  const WorkingArea area = windows().GetWorkingArea();
  EXPECT_GT(area.width, 100);
  EXPECT_GT(area.height, 100);
  EXPECT_LE(area.twipsPerPixelX, 15);
  EXPECT_EQ(area.twipsPerPixelX, area.twipsPerPixelY);
  windows().SetMousePointer(MousePointer::kHourglass);
  EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_WAIT));
  windows().SetMousePointer(MousePointer::kDefault);
  EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_ARROW));
}

LRESULT CALLBACK NeverDrawn(HWND window, UINT message, WPARAM first, LPARAM second) {
  return message == WM_PAINT ? 0 : DefWindowProcW(window, message, first, second);
}

TEST_F(MessageWindows, WhatWaitsIsDoneBeforeALongStep) {
  const auto make = [] {
    return CreateWindowExW(0, L"STATIC", L"client", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100, 100, nullptr, nullptr,
                           nullptr, nullptr);
  };
  HWND closed = make();
  PostMessageW(closed, WM_CLOSE, 0, 0);
  windows().ProcessPendingEvents();
  EXPECT_FALSE(IsWindow(closed));

  HWND neverDrawn = make();
  SetWindowLongPtrW(neverDrawn, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&NeverDrawn));
  InvalidateRect(neverDrawn, nullptr, TRUE);
  windows().ProcessPendingEvents();
  DestroyWindow(neverDrawn);

  PostQuitMessage(3);
  windows().ProcessPendingEvents();
  MSG message{};
  EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) << "the program's own loop gets it";
  EXPECT_EQ(message.wParam, 3U);
}

}  // namespace
}  // namespace zorkanca::win32
