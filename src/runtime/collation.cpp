// Texts are compared by weights: first the letters, then the accents, at last the places of hyphens and apostrophes,
// which count as nothing before ("coop" < "co-op" < "cop").
#include "runtime/collation.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace zorkanca {

namespace {

struct Weight {
  std::uint32_t primary = 0;
  std::uint32_t accent = 0;
};

// The letters in the order of the Czech alphabet. A row is one letter, its accented forms follow in their order.
constexpr std::array<TextView, 31> kAlphabet = {
    u"aáàâäăāãåą",  u"b",          u"cćċĉç", u"č",   u"dďđð",   u"eéèėêëěĕēę", u"f",       u"gġĝğģ",
    u"hĥħ",         u"iíìîïĭīĩįı", u"jĵ",    u"kķĸ", u"lĺľļłŀ", u"m",          u"nńňñņŉŋ", u"oóòôöŏōõőø",
    u"p",           u"q",          u"rŕŗ",   u"ř",   u"sśŝşſ",  u"š",          u"tťţŧ",    u"þ",
    u"uúùûüŭūũůųű", u"v",          u"wŵ",    u"x",   u"yýŷÿ",   u"zźż",        u"ž"};

// Signs in the order of dictionaries; all other signs follow, then digits, then letters.
constexpr TextView kSigns = u"\t\n\v\f\r \u00A0!\"#$%&()*,./:;?@[\\]^_`{|}~+<=>";

// The four classes of primary weights, each above the highest of the one before.
constexpr std::uint32_t kOtherSigns = 0x100;
constexpr std::uint32_t kDigits = 0x10000;
constexpr std::uint32_t kLetters = 0x10100;
constexpr std::uint32_t kOtherLetters = 0x20000;

constexpr std::size_t kTableSize = 0x180;  // the rows above need no more

constexpr std::uint32_t LetterWeight(std::size_t row) {
  return kLetters + 2 * static_cast<std::uint32_t>(row);  // odd weights are free for pairs that are one letter
}

constexpr std::array<Weight, kTableSize> MakeTable() {
  std::array<Weight, kTableSize> table{};
  for (std::size_t index = 0; index < kSigns.size(); ++index) {
    table[kSigns[index]].primary = static_cast<std::uint32_t>(index) + 1;
  }
  for (char16_t digit = u'0'; digit <= u'9'; ++digit) table[digit].primary = kDigits + digit;
  for (std::size_t row = 0; row < kAlphabet.size(); ++row) {
    for (std::size_t accent = 0; accent < kAlphabet[row].size(); ++accent) {
      table[kAlphabet[row][accent]] = {LetterWeight(row), static_cast<std::uint32_t>(accent)};
    }
  }
  return table;
}

constexpr std::array<Weight, kTableSize> kWeights = MakeTable();

/// Weight of a unit in lower case.
Weight WeightOf(char16_t unit) {
  if (unit < kTableSize && kWeights[unit].primary != 0) return kWeights[unit];
  const bool isSign = unit < 0xC0 || unit == u'×' || unit == u'÷' || (unit >= 0x2000 && unit < 0x2C00) ||
                      (unit >= 0x3000 && unit < 0x3040);
  return {(isSign ? kOtherSigns : kOtherLetters) + unit, 0};
}

/// The letters that a ligature is written with.
TextView Expansion(char16_t unit) {
  switch (unit) {
    case u'ß':
      return u"ss";
    case u'æ':
      return u"ae";
    case u'œ':
      return u"oe";
    case u'ĳ':
      return u"ij";
    default:
      return {};
  }
}

bool IsMinor(char16_t unit) {
  return unit == u'-' || unit == u'\'';
}

/// Reads a text as a row of weights, hyphens and apostrophes left out.
class WeightReader {
 public:
  explicit WeightReader(TextView text) : text_(text) {}

  /// The next weight; nothing at the end.
  std::optional<Weight> Next() {
    if (!pending_.empty()) return TakePending();
    while (position_ < text_.size() && IsMinor(text_[position_])) ++position_;
    if (position_ == text_.size()) return std::nullopt;
    const char16_t unit = LowerCase(text_[position_++]);
    if (unit == u'c' && position_ < text_.size() && LowerCase(text_[position_]) == u'h') {
      ++position_;
      return Weight{WeightOf(u'h').primary + 1, 0};
    }
    pending_ = Expansion(unit);
    return pending_.empty() ? WeightOf(unit) : TakePending();
  }

 private:
  Weight TakePending() {
    const char16_t unit = pending_.front();
    pending_.remove_prefix(1);
    return WeightOf(unit);
  }

  TextView text_;
  std::size_t position_ = 0;
  TextView pending_;
};

template <typename Number>
int Sign(Number left, Number right) {
  return left < right ? -1 : left > right ? 1 : 0;
}

/// Compares the places of hyphens and apostrophes in texts that are equal but for them: none before some, earlier
/// before later, the apostrophe before the hyphen.
int CompareMinor(TextView left, TextView right) {
  const auto next = [](TextView text, std::size_t from) {
    return std::min(text.find_first_of(u"-'", from), text.size());
  };
  std::size_t leftPlace = next(left, 0);
  std::size_t rightPlace = next(right, 0);
  while (leftPlace < left.size() && rightPlace < right.size()) {
    if (const int order = Sign(leftPlace, rightPlace)) return order;
    if (const int order = Sign(left[leftPlace], right[rightPlace])) return order;
    leftPlace = next(left, leftPlace + 1);
    rightPlace = next(right, rightPlace + 1);
  }
  return Sign(leftPlace < left.size(), rightPlace < right.size());
}

}  // namespace

int CompareTexts(TextView left, TextView right) {
  WeightReader leftReader(left);
  WeightReader rightReader(right);
  int accents = 0;
  for (;;) {
    const std::optional<Weight> leftWeight = leftReader.Next();
    const std::optional<Weight> rightWeight = rightReader.Next();
    if (!leftWeight || !rightWeight) {
      if (const int length = Sign(leftWeight.has_value(), rightWeight.has_value())) return length;
      return accents != 0 ? accents : CompareMinor(left, right);
    }
    if (const int order = Sign(leftWeight->primary, rightWeight->primary)) return order;
    if (accents == 0) accents = Sign(leftWeight->accent, rightWeight->accent);
  }
}

int CompareBinary(TextView left, TextView right) {
  const auto [leftEnd, rightEnd] = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
  if (leftEnd == left.end() || rightEnd == right.end()) return Sign(left.size(), right.size());
  const auto inMemoryOrder = [](char16_t unit) { return (unit & 0xFFu) << 8 | unit >> 8; };
  return Sign(inMemoryOrder(*leftEnd), inMemoryOrder(*rightEnd));
}

}  // namespace zorkanca
