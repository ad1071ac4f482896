#include "libreoffice/fields/marker_choice.h"

namespace zorkanca {

namespace {

// Rare characters of the code page that LibreOffice takes for text; it drops what the page leaves open and the soft
// hyphen. The rarest come first.
constexpr TextView kRare = u"ƒˆ˜‡¤¦¯¸¬¨¥¢ªº¹²³¼½¾‹›†‰±µ¶ÞþÐðÿŸ¿¡÷×™œŒ";

// Private characters below those that stand for the signs of symbol fonts.
constexpr char16_t kFirstPrivate = 0xE013;
constexpr char16_t kLastPrivate = 0xEFFF;

}  // namespace

FieldMarkers ChooseMarkers(const std::vector<bool>& used, bool asBytes) {
  Text free;
  const auto offer = [&](char16_t character) {
    if (free.size() < FieldMarkers().All().size() && !used[character]) free += character;
  };
  if (asBytes) {
    for (const char16_t character : kRare) offer(character);
  } else {
    for (char16_t character = kFirstPrivate; character <= kLastPrivate; ++character) offer(character);
  }
  if (free.size() < FieldMarkers().All().size()) RefuseFields("its text leaves no characters free to mark its fields");
  return {.begin = free[0], .lockedBegin = free[1], .separate = free[2], .end = free[3]};
}

}  // namespace zorkanca
