// Code 128 (ISO/IEC 15417) in its character sets B and C: symbol values, the modulo 103 check, and the characters that
// two kinds of fonts draw the symbols with.
//
//   symbol value        0-94          95    96-99      100-102    103-105
//   first layout        value + 32    127   128-131    132-134    135-137
//   second layout       value + 32    127   166-169    171-173    180-182, and 184 for stop
//
// Character codes above 127 are those of the ANSI code page. Content may use the characters of both layouts.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "runtime/code_page.h"
#include "runtime/text.h"

namespace zorkanca {

inline constexpr std::uint8_t kCode128StartA = 103;  ///< the first value that no content may hold
inline constexpr std::uint8_t kCode128StartB = 104;
inline constexpr std::uint8_t kCode128StartC = 105;
inline constexpr std::uint8_t kCode128Stop = 106;

enum class Code128Layout { kFirst, kSecond };

/// The character that the second layout draws a symbol value with, as the published formula gives it for any number:
/// below 96 plus 32, up to 99 plus 70, up to 102 plus 71, from 103 on plus 77.
/// Errors: 5 when that is no character code (0 to 255).
char16_t Code128FontCharacter(float value, const CodePage& codePage);

/// True when the content is not empty and holds nothing but the digits "0" to "9".
bool IsCode128Digits(TextView content);
/// Symbol values of an even number of digits, two a symbol.
std::vector<std::uint8_t> Code128PairValues(TextView digits);
/// Symbol values of a content in set B; nothing when it is not encodable.
std::optional<std::vector<std::uint8_t>> Code128BValues(TextView content, const CodePage& codePage);
/// The check symbol's value: start plus each value times its position from 1, modulo 103.
std::uint8_t Code128CheckValue(std::uint8_t start, const std::vector<std::uint8_t>& values);

/// Font text in set B. First layout: blanks as "_", no start and stop. Second layout: start and stop around a text that
/// is not empty. Content that is not encodable gives "".
/// Errors: 6 when a check character is asked for and its weighted sum is above 32767.
Text EncodeCode128B(TextView content, bool checkCharacter, Code128Layout layout, const CodePage& codePage);

/// Font text of an even number of digits in set C, second layout, with start, check character and stop.
Text EncodeCode128C(TextView digits, const CodePage& codePage);

}  // namespace zorkanca
