#include "win32/forms/scale.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace zorkanca::win32 {

namespace {

constexpr int kPointsPerInch = 72;
constexpr int kFontPoints = 8;
constexpr int kLineHeight = 13;
constexpr float kLetterWidth = 6;
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

Scale::Scale() : font_(nullptr), lineHeight_(kLineHeight), pixelsPerTwip_(1 / kTwipsPerPixel) {
  HDC screen = GetDC(nullptr);
  font_ = MakeDialogFont(screen);
  if (screen == nullptr) return;
  HGDIOBJ before = SelectObject(screen, font_);
  TEXTMETRICW metrics{};
  SIZE letters{};
  if (GetTextMetricsW(screen, &metrics) != 0 &&
      GetTextExtentPoint32W(screen, kLetters.data(), static_cast<int>(kLetters.size()), &letters) != 0) {
    lineHeight_ = metrics.tmHeight;
    const float letterWidth = static_cast<float>(letters.cx) / static_cast<float>(kLetters.size());
    const float higher = static_cast<float>(lineHeight_) / kLineHeight;
    pixelsPerTwip_ = std::max({1.0F, higher, letterWidth / kLetterWidth}) / kTwipsPerPixel;
  }
  SelectObject(screen, before);
  ReleaseDC(nullptr, screen);
}

Scale::~Scale() {
  if (font_ != nullptr) DeleteObject(font_);
}

RECT Scale::ToPixels(const Bounds& twips) const {
  const auto pixels = [this](float length) { return static_cast<LONG>(std::lround(length * pixelsPerTwip_)); };
  return {.left = pixels(twips.left),
          .top = pixels(twips.top),
          .right = pixels(twips.left + twips.width),
          .bottom = pixels(twips.top + twips.height)};
}

Bounds Scale::ToTwips(const RECT& pixels) const {
  const auto twips = [this](LONG length) { return static_cast<float>(length) / pixelsPerTwip_; };
  return {.left = twips(pixels.left),
          .top = twips(pixels.top),
          .width = twips(pixels.right - pixels.left),
          .height = twips(pixels.bottom - pixels.top)};
}

}  // namespace zorkanca::win32
