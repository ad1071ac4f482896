// An icon is two bitmaps: one of colours, black where nothing is to be seen, and one of single bits that are set there.
#include "win32/forms/arrow_icon.h"

#include <array>
#include <memory>

namespace zorkanca::win32 {

namespace {

struct GdiDeleter {
  void operator()(void* object) const { DeleteObject(object); }
};
using Bitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, GdiDeleter>;

// A thick arrow in a square of the given side.
std::array<POINT, 7> Outline(bool up, int side) {
  constexpr std::array<std::pair<int, int>, 7> kUp = {
      {{50, 12}, {88, 52}, {63, 52}, {63, 88}, {37, 88}, {37, 52}, {12, 52}}};
  std::array<POINT, 7> outline{};
  for (std::size_t index = 0; index < outline.size(); ++index) {
    const auto [x, y] = kUp[index];
    outline[index] = {.x = MulDiv(x, side - 1, 100), .y = MulDiv(up ? y : 100 - y, side - 1, 100)};
  }
  return outline;
}

// Draws the arrow in one colour on another.
void Draw(HDC canvas, HBITMAP bitmap, const std::array<POINT, 7>& outline, int side, COLORREF arrow, COLORREF ground) {
  HGDIOBJ bitmapBefore = SelectObject(canvas, bitmap);
  HGDIOBJ brushBefore = SelectObject(canvas, GetStockObject(DC_BRUSH));
  HGDIOBJ penBefore = SelectObject(canvas, GetStockObject(DC_PEN));
  SetDCBrushColor(canvas, ground);
  PatBlt(canvas, 0, 0, side, side, PATCOPY);
  SetDCBrushColor(canvas, arrow);
  SetDCPenColor(canvas, arrow);
  Polygon(canvas, outline.data(), static_cast<int>(outline.size()));
  SelectObject(canvas, penBefore);
  SelectObject(canvas, brushBefore);
  SelectObject(canvas, bitmapBefore);
}

}  // namespace

ArrowIcon::ArrowIcon(ButtonImage image, int side) {
  if (image == ButtonImage::kNone) return;
  const bool up = image == ButtonImage::kEnabledUp || image == ButtonImage::kDisabledUp;
  const bool enabled = image == ButtonImage::kEnabledUp || image == ButtonImage::kEnabledDown;
  constexpr COLORREF kBlack = RGB(0, 0, 0);
  constexpr COLORREF kWhite = RGB(255, 255, 255);
  HDC screen = GetDC(nullptr);
  HDC canvas = CreateCompatibleDC(screen);
  const Bitmap colours(CreateCompatibleBitmap(screen, side, side));
  const Bitmap mask(CreateBitmap(side, side, 1, 1, nullptr));
  const auto outline = Outline(up, side);
  Draw(canvas, colours.get(), outline, side, GetSysColor(enabled ? COLOR_BTNTEXT : COLOR_GRAYTEXT), kBlack);
  Draw(canvas, mask.get(), outline, side, kBlack, kWhite);
  DeleteDC(canvas);
  ReleaseDC(nullptr, screen);
  ICONINFO description{.fIcon = TRUE, .xHotspot = 0, .yHotspot = 0, .hbmMask = mask.get(), .hbmColor = colours.get()};
  icon_ = CreateIconIndirect(&description);
}

ArrowIcon::~ArrowIcon() {
  if (icon_ != nullptr) DestroyIcon(icon_);
}

}  // namespace zorkanca::win32
