#include "win32/forms/scale.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace zorkanca::win32 {

namespace {

constexpr int kPointsPerInch = 72;
constexpr int kFontPoints = 8;
constexpr int kLineHeight = 13;
constexpr int kLetterWidth = 6;
constexpr float kTwipsPerPixel = 15;
constexpr int kUsualResolution = 96;
constexpr std::wstring_view kLetters = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

HFONT MakeDialogFont(HDC screen) {
  const int resolution = screen != nullptr ? GetDeviceCaps(screen, LOGPIXELSY) : kUsualResolution;
  LOGFONTW description{};
  description.lfHeight = -MulDiv(kFontPoints, resolution, kPointsPerInch);
  description.lfWeight = FW_NORMAL;
  description.lfCharSet = DEFAULT_CHARSET;
  constexpr std::wstring_view kFace = L"MS Shell Dlg";
  std::copy(kFace.begin(), kFace.end(), description.lfFaceName);
  return CreateFontIndirectW(&description);
}

}  // namespace

Scale::Scale() : font_(nullptr), lineHeight_(kLineHeight), twipsPerPixel_(kTwipsPerPixel) {
  HDC screen = GetDC(nullptr);
  font_ = MakeDialogFont(screen);
  if (screen == nullptr) return;
  HGDIOBJ before = SelectObject(screen, font_);
  TEXTMETRICW metrics{};
  SIZE letters{};
  if (GetTextMetricsW(screen, &metrics) != 0 &&
      GetTextExtentPoint32W(screen, kLetters.data(), static_cast<int>(kLetters.size()), &letters) != 0) {
    lineHeight_ = metrics.tmHeight;
    // Rounded as the system rounds the units of its dialogs.
    const int letterWidth = (letters.cx / static_cast<int>(kLetters.size() / 2) + 1) / 2;
    const float higher = static_cast<float>(lineHeight_) / kLineHeight;
    const float wider = static_cast<float>(letterWidth) / kLetterWidth;
    twipsPerPixel_ = kTwipsPerPixel / std::max({1.0F, higher, wider});
  }
  SelectObject(screen, before);
  ReleaseDC(nullptr, screen);
}

Scale::~Scale() {
  if (font_ != nullptr) DeleteObject(font_);
}

RECT Scale::ToPixels(const Bounds& twips) const {
  const auto pixels = [this](float length) { return static_cast<LONG>(std::lround(length / twipsPerPixel_)); };
  return {.left = pixels(twips.left),
          .top = pixels(twips.top),
          .right = pixels(twips.left + twips.width),
          .bottom = pixels(twips.top + twips.height)};
}

Bounds Scale::ToTwips(const RECT& pixels) const {
  const auto twips = [this](LONG length) { return static_cast<float>(length) * twipsPerPixel_; };
  return {.left = twips(pixels.left),
          .top = twips(pixels.top),
          .width = twips(pixels.right - pixels.left),
          .height = twips(pixels.bottom - pixels.top)};
}

}  // namespace zorkanca::win32
