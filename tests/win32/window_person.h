// A person in front of real windows that no screen shows: a second thread, which presses keys and moves the mouse as a
// driver would, and looks at windows between two messages of the thread that shows them.
#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <string>
#include <thread>
#include <type_traits>

#include "platform/forms.h"
#include "runtime/utf8.h"
#include "win32/desktop/win32_user_interface.h"
#include "win32/forms/control_view.h"
#include "win32/forms/window_text.h"
#include "win32/system.h"

namespace zorkanca::win32 {

class Windows : public ::testing::Test {
 protected:
  Windows();
  ~Windows() override;

  Win32UserInterface& windows() { return windows_; }

  /// Does `work` here, which shows windows, and meanwhile `person` in a thread of its own.
  void Meanwhile(const std::function<void()>& person, const std::function<void()>& work);
  /// Shows the form to the person; a form that is left open is hidden then.
  void Show(Form& form, const std::function<void()>& person);

  // What follows is for the person.

  /// Waits until the active window has this title. @return the window
  HWND Await(const std::string& title);
  /// Waits until the active window is a message box that says this.
  void AwaitMessage(const std::string& text);
  /// Runs `look` in the thread of the windows, once it has nothing else to do. @return what it gives
  template <typename Look>
  auto Seen(const Look& look) -> std::invoke_result_t<Look> {
    if constexpr (std::is_void_v<std::invoke_result_t<Look>>) {
      RunThere(look);
    } else {
      std::invoke_result_t<Look> result{};
      RunThere([&] { result = look(); });
      return result;
    }
  }
  /// Waits for at most five seconds, and fails the test after that.
  void Until(const std::function<bool()>& condition);

  void KeyDown(int key);
  void KeyUp(int key);
  void Press(int key, int with = 0);
  void Type(const std::string& text);
  /// @param x, y  pixels from the corner of the inside of the window
  void Click(HWND window, int x = 5, int y = 5, int times = 1);

  // What follows is for the person, and inside `Seen`.

  HWND Top() const;
  HWND Of(const Control& control) const;
  static std::string TextIn(HWND window) { return ToUtf8(TextOf(window)); }
  std::string TextIn(const Control& control) const { return TextIn(Of(control)); }
  LRESULT Ask(const Control& control, UINT message, WPARAM first = 0, LPARAM second = 0) const {
    return SendMessageW(Of(control), message, first, second);
  }
  /// The first part of the top window that has this text, or is of this class.
  HWND Part(const std::string& textOrClass) const;
  /// What a message box says.
  std::string Said() const { return TextIn(GetDlgItem(Top(), 0xFFFF)); }
  /// Of the control with the focus.
  std::string Focused(const Form& form);

 private:
  static LRESULT CALLBACK GotMessage(int code, WPARAM removed, LPARAM message);
  void RunThere(const std::function<void()>& body);
  void EndWhatIsLeft(const std::atomic<bool>& worked) const;

  Win32UserInterface windows_;
  DWORD thread_ = GetCurrentThreadId();
  HHOOK hook_ = nullptr;
};

/// While it lives, this thread can make that many windows, and no more.
class WindowLimit {
 public:
  explicit WindowLimit(int limit);
  ~WindowLimit();

 private:
  HHOOK hook_;
};

}  // namespace zorkanca::win32
