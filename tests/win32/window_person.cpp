// What the person wants to be done in the thread of the windows comes there as a message of the thread, which no window
// gets: a hook sees it, and sets a timer of no time. Timers come last, after keys, mouse and drawing, and every loop of
// messages lets them run, that of a message box, too.
#include "win32/window_person.h"

#include <atomic>
#include <chrono>
#include <exception>
#include <memory>

namespace zorkanca::win32 {

namespace {

constexpr UINT kLook = WM_APP + 77;
constexpr auto kPatience = std::chrono::seconds(5);
constexpr auto kNap = std::chrono::milliseconds(2);

// One look; the person's side may have given it up.
struct Look {
  std::function<void()> body;
  std::atomic<bool> begun = false;
  std::atomic<bool> done = false;
};
std::shared_ptr<Look> pending;

void CALLBACK LookNow(HWND, UINT, UINT_PTR timer, DWORD) {
  KillTimer(nullptr, timer);
  const std::shared_ptr<Look> look = std::exchange(pending, nullptr);
  if (look == nullptr || look->begun.exchange(true)) return;
  look->body();
  look->done = true;
}

int windowsLeft = 0;

LRESULT CALLBACK RefuseWindow(int code, WPARAM first, LPARAM second) {
  if (code == HCBT_CREATEWND && --windowsLeft < 0) return 1;
  return CallNextHookEx(nullptr, code, first, second);
}

// Finds a part of a window by its text or its class.
struct Search {
  std::string wanted;
  HWND found = nullptr;
};

BOOL CALLBACK Compare(HWND window, LPARAM passed) {
  auto& search = *reinterpret_cast<Search*>(passed);
  wchar_t windowClass[64];
  const int length = GetClassNameW(window, windowClass, static_cast<int>(std::size(windowClass)));
  const Text className(FromWide(windowClass, static_cast<std::size_t>(length)));
  if (IsWindowVisible(window) == 0 || (ToUtf8(TextOf(window)) != search.wanted && ToUtf8(className) != search.wanted)) {
    return TRUE;
  }
  search.found = window;
  return FALSE;
}

void Send(INPUT input) {
  SendInput(1, &input, sizeof input);
}

INPUT KeyInput(int key, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = static_cast<WORD>(key);
  input.ki.dwFlags = flags;
  return input;
}

}  // namespace

Windows::Windows() : hook_(SetWindowsHookExW(WH_GETMESSAGE, GotMessage, nullptr, GetCurrentThreadId())) {}

Windows::~Windows() {
  UnhookWindowsHookEx(hook_);
}

LRESULT CALLBACK Windows::GotMessage(int code, WPARAM removed, LPARAM message) {
  const MSG& got = *reinterpret_cast<const MSG*>(message);
  if (code >= 0 && removed == PM_REMOVE && got.hwnd == nullptr && got.message == kLook) {
    pending = *std::unique_ptr<std::shared_ptr<Look>>(reinterpret_cast<std::shared_ptr<Look>*>(got.lParam));
    SetTimer(nullptr, 0, 0, LookNow);
  }
  return CallNextHookEx(nullptr, code, removed, message);
}

void Windows::Meanwhile(const std::function<void()>& person, const std::function<void()>& work) {
  std::atomic<bool> worked = false;
  std::atomic<bool> gone = false;
  std::thread other([&] {
    person();
    EndWhatIsLeft(worked);
    gone = true;
  });
  std::exception_ptr failure;
  try {
    work();
  } catch (...) {
    failure = std::current_exception();
  }
  worked = true;
  while (!gone) {
    windows_.ProcessPendingEvents();
    std::this_thread::sleep_for(kNap);
  }
  other.join();
  if (failure) std::rethrow_exception(failure);
}

// A test that fails must not wait for ever: the windows that the person has left are closed, one after the other.
void Windows::EndWhatIsLeft(const std::atomic<bool>& worked) const {
  constexpr int kTries = 20;
  for (int count = 0; !worked; ++count) {
    for (int nap = 0; nap < 250 && !worked; ++nap) std::this_thread::sleep_for(kNap);
    if (worked) return;
    if (count == 0) ADD_FAILURE() << "the person has left a window open: " << TextIn(Top()) << " " << Said();
    if (count == kTries) std::abort();
    PostMessageW(Top(), WM_CLOSE, 0, 0);
  }
}

void Windows::Show(Form& form, const std::function<void()>& person) {
  Meanwhile(
      [&] {
        Await(ToUtf8(form.caption()));
        person();
        Seen([&] { form.Hide(); });
      },
      [&] { windows_.ShowModal(form, nullptr); });
}

void Windows::RunThere(const std::function<void()>& body) {
  const auto look = std::make_shared<Look>();
  look->body = body;
  auto* passed = new std::shared_ptr<Look>(look);
  const auto until = std::chrono::steady_clock::now() + kPatience;
  while (PostThreadMessageW(thread_, kLook, 0, reinterpret_cast<LPARAM>(passed)) == 0)
    std::this_thread::sleep_for(kNap);
  while (!look->done) {
    std::this_thread::sleep_for(kNap);
    if (std::chrono::steady_clock::now() < until || look->begun.exchange(true)) continue;
    ADD_FAILURE() << "nobody took the message";
    return;
  }
}

void Windows::Until(const std::function<bool()>& condition) {
  const auto until = std::chrono::steady_clock::now() + kPatience;
  while (!condition()) {
    std::this_thread::sleep_for(kNap);
    if (std::chrono::steady_clock::now() < until) continue;
    ADD_FAILURE() << "waited in vain; the active window is " << TextIn(Top());
    return;
  }
}

HWND Windows::Await(const std::string& title) {
  Until([&] { return Top() != nullptr && TextIn(Top()) == title && GetForegroundWindow() == Top(); });
  return Top();
}

void Windows::AwaitMessage(const std::string& text) {
  Until([&] { return Top() != nullptr && Said() == text && GetForegroundWindow() == Top(); });
}

HWND Windows::Top() const {
  GUITHREADINFO state{};
  state.cbSize = sizeof state;
  return GetGUIThreadInfo(thread_, &state) != 0 ? state.hwndActive : nullptr;
}

HWND Windows::Of(const Control& control) const {
  const std::vector<Control*>& all = control.form().controls();
  const auto index = std::find(all.begin(), all.end(), &control) - all.begin();
  return GetDlgItem(Top(), kFirstControlNumber + static_cast<int>(index));
}

HWND Windows::Part(const std::string& textOrClass) const {
  Search search{.wanted = textOrClass};
  EnumChildWindows(Top(), Compare, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

std::string Windows::Focused(const Form& form) {
  return Seen([&]() -> std::string {
    const int number = GetDlgCtrlID(GetFocus());
    const auto index = static_cast<std::size_t>(number - kFirstControlNumber);
    return number >= kFirstControlNumber && index < form.controls().size() ? ToUtf8(form.controls()[index]->name())
                                                                           : "-";
  });
}

WindowLimit::WindowLimit(int limit) : hook_(SetWindowsHookExW(WH_CBT, RefuseWindow, nullptr, GetCurrentThreadId())) {
  windowsLeft = limit;
}

WindowLimit::~WindowLimit() {
  UnhookWindowsHookEx(hook_);
}

void Windows::KeyDown(int key) {
  Send(KeyInput(key, 0));
  Seen([] {});
}

void Windows::KeyUp(int key) {
  Send(KeyInput(key, KEYEVENTF_KEYUP));
  Seen([] {});
}

void Windows::Press(int key, int with) {
  if (with != 0) Send(KeyInput(with, 0));
  KeyDown(key);
  Send(KeyInput(key, KEYEVENTF_KEYUP));
  if (with != 0) Send(KeyInput(with, KEYEVENTF_KEYUP));
  Seen([] {});
}

void Windows::Type(const std::string& text) {
  for (const char16_t unit : FromUtf8(text)) {
    for (const DWORD flags : {DWORD{KEYEVENTF_UNICODE}, DWORD{KEYEVENTF_UNICODE | KEYEVENTF_KEYUP}}) {
      INPUT input = KeyInput(0, flags);
      input.ki.wScan = unit;
      Send(input);
    }
  }
  Seen([] {});
}

void Windows::Click(HWND window, int x, int y, int times) {
  POINT point{.x = x, .y = y};
  ClientToScreen(window, &point);
  SetCursorPos(point.x, point.y);
  for (int count = 0; count < times; ++count) {
    for (const DWORD flags : {DWORD{MOUSEEVENTF_LEFTDOWN}, DWORD{MOUSEEVENTF_LEFTUP}}) {
      INPUT input{};
      input.type = INPUT_MOUSE;
      input.mi.dwFlags = flags;
      Send(input);
    }
  }
  Seen([] {});
}

}  // namespace zorkanca::win32
