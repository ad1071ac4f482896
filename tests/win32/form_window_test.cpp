// Forms in real windows: what a person does reaches the form, what the form's logic does is seen.
#include <gtest/gtest.h>

#include "support/sample_form.h"
#include "support/text_support.h"
#include "win32/window_person.h"

namespace zorkanca::win32 {
namespace {

using zorkanca::testing::ErrorOf;
using zorkanca::testing::SampleForm;
using zorkanca::testing::Shown;

class FormWindowTest : public Windows {
 protected:
  // Where the control is inside its window.
  RECT PlaceOf(const Control& control) const {
    RECT place{};
    GetWindowRect(Of(control), &place);
    MapWindowPoints(nullptr, Top(), reinterpret_cast<POINT*>(&place), 2);
    return place;
  }
  static SIZE SizeOf(const RECT& rect) { return {.cx = rect.right - rect.left, .cy = rect.bottom - rect.top}; }
  RECT Outside() const {
    RECT outside{};
    GetWindowRect(Top(), &outside);
    return outside;
  }
  SIZE InnerSize() const {
    RECT inside{};
    GetClientRect(Top(), &inside);
    return SizeOf(inside);
  }

  SampleForm form_;
};

TEST_F(FormWindowTest, TabWalksThroughTheTabStopsInTheirOrder) {
  form_.note.SetEnabled(false);
  Show(form_, [&] {
    std::string walked = Focused(form_);
    for (int step = 0; step < 9; ++step) {
      Press(VK_TAB);
      walked.append(" ").append(Focused(form_));
      EXPECT_EQ(ToUtf8(form_.activeControl()->name()), Focused(form_));
    }
    EXPECT_EQ(walked, "lstRows cmdUp cmdDown txtCode chkFlag cmdOk cmdCancel lstRows cmdUp cmdDown");
    Seen([&] {
      form_.note.SetEnabled(true);
      form_.note.SetFocus();
    });
    EXPECT_EQ(Focused(form_), "txtNote");
    Press(VK_TAB, VK_SHIFT);
    EXPECT_EQ(Focused(form_), "txtCode");
    Seen([&] { form_.code.SetEnabled(false); });
    EXPECT_EQ(Focused(form_), "txtNote") << "the focus does not stay on what is disabled";
    Seen([&] { form_.up.SetFocus(); });
    Press(VK_DOWN);
    EXPECT_EQ(Focused(form_), "cmdDown") << "arrows walk between buttons beside each other";
    Press(VK_DOWN);
    EXPECT_EQ(Focused(form_), "cmdUp");
  });
}

TEST_F(FormWindowTest, AccessKeysGoToTheNamedControlOrPress) {
  Show(form_, [&] {
    EXPECT_EQ(TextIn(form_.codeLabel), "&Kód:");
    form_.Heard();
    Press('K', VK_MENU);
    EXPECT_EQ(Focused(form_), "txtCode");
    Press('P', VK_MENU);
    EXPECT_EQ(Focused(form_), "txtNote");
    Press('U', VK_MENU);
    EXPECT_EQ(Seen([&] { return Ask(form_.flag, BM_GETCHECK); }), BST_CHECKED);
    EXPECT_EQ(form_.activeControl(), &form_.flag);
    Press(VK_SPACE);
    EXPECT_EQ(Seen([&] { return Ask(form_.flag, BM_GETCHECK); }), BST_UNCHECKED);
    Click(Of(form_.flag), 5, 5, 2);
    EXPECT_EQ(form_.Heard(), "checked; unchecked; checked; unchecked") << "two quick clicks are two";
    Press('Z', VK_MENU);
    EXPECT_FALSE(form_.visible());
    EXPECT_EQ(form_.Heard(), "cancel; close?");
  });
}

TEST_F(FormWindowTest, EnterAndEscReachTheFormBeforeItsControls) {
  Show(form_, [&] {
    form_.Heard();
    KeyUp(VK_RETURN);
    EXPECT_EQ(form_.Heard(), "") << "pressed in another window";
    Seen([&] { form_.ok.SetEnabled(false); });
    Press(VK_RETURN);
    EXPECT_EQ(form_.Heard(), "down 13; up 13");
    Press(VK_F5);
    EXPECT_EQ(form_.Heard(), "down 116; up 116");
    KeyDown(VK_F5);
    Press(VK_F5);
    EXPECT_EQ(form_.Heard(), "down 116; up 116") << "a key that is held repeats itself";
    Seen([&] { form_.ok.SetEnabled(true); });
    Press(VK_RETURN, VK_SHIFT);
    Press(VK_ESCAPE, VK_SHIFT);
    EXPECT_EQ(form_.Heard(), "down 13; up 13; down 27; up 27") << "nor do they press the system's own buttons";
    Seen([&] { form_.up.SetFocus(); });
    Press(VK_RETURN);
    EXPECT_EQ(form_.Heard(), "down 13; up; up 13");
    Seen([&] {
      form_.enterGoesTo = &form_.browse;
      form_.note.SetFocus();
    });
    Press(VK_RETURN);
    EXPECT_EQ(form_.Heard(), "down 13; up 13") << "neither the button that got the focus nor the default one";
    EXPECT_EQ(Focused(form_), "cmdBrowse");
    Press(VK_RETURN);
    EXPECT_EQ(form_.Heard(), "down 13; browse; up 13");
    form_.enterGoesTo = nullptr;
    form_.refusesToClose = true;
    Press(VK_ESCAPE);
    EXPECT_EQ(form_.Heard(), "down 27; cancel; close?; up 27");
    EXPECT_TRUE(IsWindowVisible(Top()));
    Seen([&] { form_.code.SetFocus(); });
    Press(VK_RETURN);
    EXPECT_EQ(form_.Heard(), "down 13; ok");
    EXPECT_FALSE(form_.visible());
  });
  EXPECT_TRUE(form_.loaded()) << "hidden only";
}

TEST_F(FormWindowTest, ListsShowAndSelectRows) {
  form_.rows.SelectRow(1);
  Show(form_, [&] {
    const HWND list = Of(form_.rows);
    const auto selected = [&] { return Seen([&] { return Ask(form_.rows, LB_GETCURSEL); }); };
    EXPECT_EQ(selected(), 1);
    form_.Heard();
    Press(VK_DOWN);
    EXPECT_EQ(form_.Heard(), "row 2");
    Click(list);
    EXPECT_EQ(form_.Heard(), "row 0");
    Click(list, 5, 5, 2);
    EXPECT_EQ(form_.Heard(), "double 0");
    Click(list, 5, 100, 2);
    EXPECT_EQ(form_.Heard().find("double"), std::string::npos) << "below the last row";

    Seen([&] {
      form_.rows.SelectRow(0);
      form_.Heard();
      form_.rows.SetRows({u"x", u"y & ž"});
      EXPECT_EQ(form_.Heard(), "row -1");
      EXPECT_EQ(Ask(form_.rows, LB_GETCOUNT), 2);
      wchar_t row[10];
      EXPECT_EQ(Ask(form_.rows, LB_GETTEXT, 1, reinterpret_cast<LPARAM>(row)), 5);
      EXPECT_EQ(ToUtf8(FromWide(row)), "y & ž");
      EXPECT_EQ(Ask(form_.rows, LB_GETCURSEL), LB_ERR);
      form_.ok.SetFocus();
      form_.rows.SetFocus();
      EXPECT_EQ(form_.Heard(), "") << "the focus alone selects nothing";
      form_.rows.SelectRow(1);
    });
    EXPECT_EQ(selected(), 1);
    Seen([&] { form_.rows.SetEnabled(false); });
    Click(list);
    EXPECT_EQ(form_.rows.selectedRow(), 1);
  });
}

TEST_F(FormWindowTest, TypedTextPassesTheFilterOfTheBox) {
  Show(form_, [&] {
    const auto cursor = [&](const Control& box) { return Seen([&] { return LOWORD(Ask(box, EM_GETSEL, 0, 0)); }); };
    const auto select = [&](const Control& box, int from, int to) {
      Seen([&] { Ask(box, EM_SETSEL, static_cast<WPARAM>(from), to); });
    };
    Seen([&] { form_.code.SetFocus(); });
    form_.Heard();
    Type("1a2");
    EXPECT_EQ(form_.Heard(), "code 1; code 12");
    EXPECT_EQ(TextIn(form_.code), "12");
    select(form_.code, 1, 1);
    Type("x9");
    EXPECT_EQ(TextIn(form_.code), "192");
    EXPECT_EQ(cursor(form_.code), 2);
    Seen([&] {
      OpenClipboard(nullptr);
      EmptyClipboard();
      HGLOBAL copied = GlobalAlloc(GMEM_MOVEABLE, 12);
      std::copy_n(L"4-5-6", 6, static_cast<wchar_t*>(GlobalLock(copied)));
      GlobalUnlock(copied);
      SetClipboardData(CF_UNICODETEXT, copied);
      CloseClipboard();
    });
    select(form_.code, 0, 2);
    Press('V', VK_CONTROL);
    EXPECT_EQ(Shown(form_.code.text()), "4562");
    EXPECT_EQ(TextIn(form_.code), "4562");
    EXPECT_EQ(cursor(form_.code), 3);
    Seen([&] { form_.code.SelectAll(); });
    Type("7");
    EXPECT_EQ(TextIn(form_.code), "7");
    Seen([&] {
      form_.note.SetFocus();
      form_.code.SelectAll();
    });
    Click(Of(form_.code), 60);
    Type("8");
    EXPECT_EQ(TextIn(form_.code), "8") << "a click does not take the mark away from what is to be replaced";

    Seen([&] {
      form_.note.SetText(u"aa");
      form_.note.SetFocus();
    });
    select(form_.note, 0, 0);
    Type("až");
    EXPECT_EQ(Shown(form_.note.text()), "ažaa");
    EXPECT_EQ(cursor(form_.note), 2);
    Press(VK_BACK);
    Press(VK_DELETE);
    EXPECT_EQ(Shown(form_.note.text()), "aa");
    Press('Z', VK_CONTROL);
    EXPECT_EQ(Shown(form_.note.text()), TextIn(form_.note)) << "undone in both";
    EXPECT_NE(Shown(form_.note.text()), "aa");
  });
}

TEST_F(FormWindowTest, WhatTheLogicChangesIsSeen) {
  Show(form_, [&] {
    Seen([&] {
      EXPECT_EQ(TextIn(Top()), "Ukázka & zkouška");
      EXPECT_EQ(TextIn(form_.flag), "Po&užívat && šetřit");
      EXPECT_EQ(TextIn(form_.up), "Nahoru") << "for who cannot see the picture";
      const auto image = [&] { return Ask(form_.down, BM_GETIMAGE, IMAGE_ICON); };
      const LRESULT disabled = image();
      EXPECT_NE(disabled, 0);
      form_.down.SetImage(ButtonImage::kEnabledDown);
      EXPECT_NE(image(), disabled);
      form_.down.SetEnabled(false);
      EXPECT_FALSE(IsWindowEnabled(Of(form_.down)));
      form_.ok.SetCaption(u"&Uložit");
      EXPECT_EQ(TextIn(form_.ok), "&Uložit");
      form_.browse.SetVisible(false);
      EXPECT_FALSE(IsWindowVisible(Of(form_.browse)));
      const auto ground = [&](const Control& control) {
        HDC canvas = GetDC(Of(control));
        const LRESULT brush = SendMessageW(Top(), WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(canvas),
                                           reinterpret_cast<LPARAM>(Of(control)));
        ReleaseDC(Of(control), canvas);
        return reinterpret_cast<HBRUSH>(brush);
      };
      const HBRUSH usual = ground(form_.note);
      form_.note.SetBackColor(BackColor::kDisabled);
      EXPECT_EQ(ground(form_.note), GetSysColorBrush(COLOR_BTNFACE));
      form_.note.SetBackColor(BackColor::kWindow);
      EXPECT_EQ(ground(form_.note), usual);
      EXPECT_NE(usual, GetSysColorBrush(COLOR_BTNFACE));
      form_.SetCaption(u"Jiná");
      EXPECT_EQ(TextIn(Top()), "Jiná");
      form_.flag.SetChecked(true);
      EXPECT_EQ(Ask(form_.flag, BM_GETCHECK), BST_CHECKED);
    });
  });
}

TEST_F(FormWindowTest, TheFormLaysOutWhatThePersonResizes) {
  int told = 0;
  form_.AddResizeListener([&] { ++told; });
  const float twipsPerPixel = windows().GetWorkingArea().twipsPerPixelX;
  Show(form_, [&] {
    const SIZE design = Seen([&] { return InnerSize(); });
    EXPECT_NEAR(static_cast<float>(design.cx) * twipsPerPixel, 6000, 15);
    EXPECT_NEAR(static_cast<float>(design.cy) * twipsPerPixel, 4200, 15);
    const RECT least = Outside();
    const RECT list = PlaceOf(form_.rows);
    const RECT code = PlaceOf(form_.code);
    const Bounds bounds = form_.bounds();
    EXPECT_NEAR(bounds.width, static_cast<float>(SizeOf(least).cx) * twipsPerPixel, 1) << "with the frame";
    Seen([&] { SetWindowPos(Top(), nullptr, 40, 30, SizeOf(least).cx + 150, SizeOf(least).cy + 90, SWP_NOZORDER); });
    EXPECT_EQ(SizeOf(PlaceOf(form_.rows)).cx, SizeOf(list).cx + 150);
    EXPECT_EQ(SizeOf(PlaceOf(form_.rows)).cy, SizeOf(list).cy + 90);
    EXPECT_EQ(PlaceOf(form_.code).top, code.top + 90);
    EXPECT_NEAR(form_.bounds().left, 40 * twipsPerPixel, 1);
    EXPECT_NEAR(form_.bounds().top, 30 * twipsPerPixel, 1);
    EXPECT_NEAR(form_.bounds().width, bounds.width + 150 * twipsPerPixel, 1);
    EXPECT_NEAR(form_.bounds().height, bounds.height + 90 * twipsPerPixel, 1);
    EXPECT_GT(told, 0);
    Seen([&] { SetWindowPos(Top(), nullptr, 0, 0, 10, 10, SWP_NOZORDER | SWP_NOMOVE); });
    EXPECT_EQ(SizeOf(Outside()).cx, SizeOf(least).cx) << "no smaller than designed";
    EXPECT_EQ(SizeOf(Outside()).cy, SizeOf(least).cy);
    Seen([&] { form_.SetBounds({.left = 1500, .top = 750, .width = 9000, .height = 6000}); });
    EXPECT_NEAR(static_cast<float>(Outside().left) * twipsPerPixel, 1500, 15);
    EXPECT_NEAR(static_cast<float>(SizeOf(Outside()).cx) * twipsPerPixel, 9000, 15);
    Seen([&] { ShowWindow(Top(), SW_MAXIMIZE); });
    EXPECT_EQ(form_.windowState(), WindowState::kMaximized);
    EXPECT_GT(SizeOf(PlaceOf(form_.rows)).cx, SizeOf(list).cx + 150);
    Seen([&] { form_.SetWindowState(WindowState::kNormal); });
    EXPECT_FALSE(IsZoomed(Top()));
    Seen([&] { form_.SetWindowState(WindowState::kMaximized); });
    EXPECT_TRUE(IsZoomed(Top()));
  });
  const Bounds kept = form_.bounds();
  Show(form_, [&] {
    EXPECT_TRUE(IsZoomed(Top())) << "as it was left";
    Seen([&] { ShowWindow(Top(), SW_RESTORE); });
    EXPECT_EQ(form_.bounds(), kept) << "back where it was";
  });

  SampleForm fixed(BorderStyle::kFixedDialog);
  fixed.SetBounds({.left = 600, .top = 600, .width = 100, .height = 100});
  Show(fixed, [&] {
    EXPECT_EQ(GetWindowLongW(Top(), GWL_STYLE) & (WS_THICKFRAME | WS_MAXIMIZEBOX), 0);
    EXPECT_NEAR(static_cast<float>(InnerSize().cx) * twipsPerPixel, 6000, 15) << "the design size";
  });
}

TEST_F(FormWindowTest, ClosingAsksTheForm) {
  Show(form_, [&] {
    form_.refusesToClose = true;
    form_.Heard();
    Press(VK_F4, VK_MENU);
    EXPECT_EQ(form_.Heard(), "close?");
    EXPECT_TRUE(form_.visible() && IsWindowVisible(Top()));
    form_.refusesToClose = false;
    SendMessageW(Top(), WM_CLOSE, 0, 0);  // as another thread sends it, which no loop of messages gets to see
    EXPECT_FALSE(form_.visible());
  });
  EXPECT_FALSE(form_.loaded());
  EXPECT_EQ(Top(), nullptr);
}

TEST_F(FormWindowTest, FormsLieOverTheirOwner) {
  SampleForm upper;
  upper.SetCaption(u"Horní");
  form_.up.onClick = [&] {
    windows().ShowModal(upper, &form_);
    form_.Hear("upper closed");
  };
  Show(form_, [&] {
    const HWND lower = Top();
    form_.Heard();
    Seen([&] { form_.up.SetFocus(); });
    KeyDown(VK_RETURN);
    Await("Horní");
    EXPECT_EQ(GetWindow(Top(), GW_OWNER), lower);
    EXPECT_FALSE(IsWindowEnabled(lower));
    Seen([&] { EXPECT_EQ(ErrorOf([&] { windows().ShowModal(upper, nullptr); }).number(), 5) << "shown already"; });
    KeyUp(VK_RETURN);
    KeyDown(VK_RETURN);
    Await("Ukázka & zkouška");
    KeyUp(VK_RETURN);
    EXPECT_EQ(upper.Heard(), "activate; down 13; ok");
    EXPECT_EQ(form_.Heard(), "down 13; activate; upper closed") << "the release belongs to the upper window";
    EXPECT_TRUE(IsWindowEnabled(lower));
    EXPECT_EQ(Focused(form_), "cmdUp");
  });
}

TEST_F(FormWindowTest, AnErrorOfTheLogicEndsTheDialog) {
  form_.up.onClick = [] { Raise(RuntimeError::kPermissionDenied, u"no"); };
  const Error error = ErrorOf([&] { Show(form_, [&] { Click(Of(form_.up)); }); });
  EXPECT_EQ(error.number(), 70);
  EXPECT_EQ(Shown(error.description()), "no");
  EXPECT_FALSE(form_.visible());
  Show(form_, [&] { EXPECT_TRUE(IsWindowVisible(Top())) << "and can be shown again"; });
}

TEST_F(FormWindowTest, WhereNoWindowCanBeMadeTheAnswerIsError5) {
  for (const int limit : {0, 1, 5}) {
    const WindowLimit noMore(limit);
    const Error error = ErrorOf([&] { windows().ShowModal(form_, nullptr); });
    EXPECT_EQ(error.number(), 5) << limit;
    EXPECT_TRUE(Shown(error.description()).starts_with("no window can be shown here")) << error.what();
    EXPECT_FALSE(form_.visible()) << limit;
    EXPECT_EQ(form_.loaded(), limit > 0) << limit;
  }
  Show(form_, [&] { EXPECT_TRUE(IsWindowVisible(Of(form_.cancel))); });
}

// A window of a client program, which has two more: one that nobody may use, and one to be kept from use.
class ClientWindows : public FormWindowTest {
 protected:
  ClientWindows() { EnableWindow(unusable_, FALSE); }
  ~ClientWindows() override {
    for (HWND window : {unusable_, other_, owner_}) DestroyWindow(window);
  }
  static HWND Make(const wchar_t* title) {
    return CreateWindowExW(0, L"STATIC", title, WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 20, 500, 400, nullptr, nullptr,
                           nullptr, nullptr);
  }

  HWND owner_ = Make(L"owner");
  HWND other_ = Make(L"other");
  HWND unusable_ = Make(L"unusable");
};

TEST_F(ClientWindows, WaitForTheDialog) {
  Win32UserInterface overOwner(owner_);
  Meanwhile(
      [&] {
        Await("Ukázka & zkouška");
        EXPECT_EQ(GetWindow(Top(), GW_OWNER), owner_);
        for (HWND window : {owner_, other_, unusable_}) EXPECT_FALSE(IsWindowEnabled(window));
        const RECT dialog = Outside();
        EXPECT_NEAR((dialog.left + dialog.right) / 2, 10 + 500 / 2, 1) << "in the middle of its owner";
        Press(VK_ESCAPE);
      },
      [&] { overOwner.ShowModal(form_, nullptr); });
  EXPECT_TRUE(IsWindowEnabled(owner_) && IsWindowEnabled(other_));
  EXPECT_FALSE(IsWindowEnabled(unusable_));
  EXPECT_EQ(GetActiveWindow(), owner_);

  Win32UserInterface overNothing(reinterpret_cast<HWND>(INT_PTR{0x7ffe}));
  Meanwhile([&] { Await("Ukázka & zkouška"), Press(VK_ESCAPE); }, [&] { overNothing.ShowModal(form_, nullptr); });
}

TEST_F(ClientWindows, TakeTheDialogAlongWhenTheyEnd) {
  Win32UserInterface overOwner(owner_);
  Meanwhile(
      [&] {
        Await("Ukázka & zkouška");
        Seen([&] { DestroyWindow(owner_); });
      },
      [&] { overOwner.ShowModal(form_, nullptr); });
  EXPECT_FALSE(form_.visible());
  form_.SetCaption(u"nobody shows it");

  Meanwhile([&] { Await("nobody shows it"), Seen([] { PostQuitMessage(7); }); },
            [&] { windows().ShowModal(form_, nullptr); });
  EXPECT_FALSE(form_.visible());
  MSG message{};
  EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) << "the program's own loop ends, too";
  EXPECT_EQ(message.wParam, 7U);
}

}  // namespace
}  // namespace zorkanca::win32
