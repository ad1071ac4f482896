#include "foundation/form_layout.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "foundation/guarded.h"
#include "foundation/unexpected_value_error.h"
#include "runtime/convert.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

constexpr std::size_t kValueCount = 5;

double NumberOf(const Value& value) {
  if (const auto* number = std::get_if<std::int16_t>(&value)) return *number;
  if (const auto* number = std::get_if<std::int32_t>(&value)) return *number;
  if (const auto* number = std::get_if<float>(&value)) return static_cast<double>(*number);
  Raise(RuntimeError::kTypeMismatch);
}

float TwipsOf(const Value& value) {
  return static_cast<float>(NumberOf(value));
}

WindowState StateOf(const Value& value) {
  const double number = NumberOf(value);
  for (const auto state : {WindowState::kNormal, WindowState::kMinimized, WindowState::kMaximized}) {
    if (number == static_cast<double>(state)) return state;
  }
  UnexpectedValueError::RaiseUnexpectedValueError(u"WindowState", Trim(ToStrText(value)), u"FormLayout.FillFromValues",
                                                  {});
}

// The start of a stretch, moved so that it lies inside another one; where it does not fit, its start does.
float Inside(float start, float length, float outerStart, float outerLength) {
  return std::max(outerStart, std::min(start, outerStart + outerLength - length));
}

}  // namespace

void FormLayout::Store(const Form& form) {
  StoreWindowState(form);
  if (WindowState != zorkanca::WindowState::kNormal) return;
  const Bounds& bounds = form.bounds();
  Location = Point(bounds.left, bounds.top);
  Size = zorkanca::Size(bounds.width, bounds.height);
}

void FormLayout::Restore(Form& form, const UsableScreenArea& area) const {
  form.SetWindowState(zorkanca::WindowState::kNormal);
  RestoreSize(form, area);
  RestoreLocation(form, area);
  RestoreWindowState(form);
}

void FormLayout::RestoreWindowState(Form& form) const {
  if (WindowState != zorkanca::WindowState::kMinimized) form.SetWindowState(WindowState);
}

void FormLayout::RestoreSize(Form& form, const UsableScreenArea& area) const {
  if (!form.sizable()) return;
  Bounds bounds = form.bounds();
  bounds.width = std::min(Size.Width(), area.Size().Width());
  bounds.height = std::min(Size.Height(), area.Size().Height());
  form.SetBounds(bounds);
}

void FormLayout::RestoreLocation(Form& form, const UsableScreenArea& area) const {
  Bounds bounds = form.bounds();
  bounds.left = Inside(Location.X(), bounds.width, area.Location().X(), area.Size().Width());
  bounds.top = Inside(Location.Y(), bounds.height, area.Location().Y(), area.Size().Height());
  form.SetBounds(bounds);
}

Collection FormLayout::GetValues() const {
  return {static_cast<std::int32_t>(WindowState), Location.X(), Location.Y(), Size.Width(), Size.Height()};
}

void FormLayout::FillFromValues(const Collection& values) {
  Guarded(u"FormLayout.FillFromValues", NoArguments, [&] {
    if (values.size() < kValueCount) Raise(RuntimeError::kSubscriptOutOfRange);
    *this = FormLayout{.WindowState = StateOf(values[0]),
                       .Location = Point(TwipsOf(values[1]), TwipsOf(values[2])),
                       .Size = zorkanca::Size(TwipsOf(values[3]), TwipsOf(values[4]))};
  });
}

}  // namespace zorkanca
