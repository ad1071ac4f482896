#include "runtime/text.h"

#include <algorithm>
#include <charconv>

namespace zorkanca {

namespace {

constexpr char16_t kSpace = u' ';

}  // namespace

TextView TrimLeft(TextView text) {
  const std::size_t first = text.find_first_not_of(kSpace);
  return first == TextView::npos ? TextView() : text.substr(first);
}

TextView TrimRight(TextView text) {
  return text.substr(0, text.find_last_not_of(kSpace) + 1);  // npos + 1 is 0: nothing but spaces
}

TextView Trim(TextView text) {
  return TrimRight(TrimLeft(text));
}

bool IsBlank(TextView text) {
  return text.find_first_not_of(kSpace) == TextView::npos;
}

Text Replace(TextView text, TextView from, TextView to) {
  if (from.empty()) return Text(text);
  Text result;
  std::size_t start = 0;
  for (std::size_t hit = text.find(from); hit != TextView::npos; hit = text.find(from, start)) {
    result.append(text, start, hit - start).append(to);
    start = hit + from.size();
  }
  return result.append(text, start);
}

std::vector<TextView> Split(TextView text, char16_t separator) {
  std::vector<TextView> pieces;
  std::size_t start = 0;
  for (std::size_t hit = text.find(separator); hit != TextView::npos; hit = text.find(separator, start)) {
    pieces.push_back(text.substr(start, hit - start));
    start = hit + 1;
  }
  pieces.push_back(text.substr(start));
  return pieces;
}

Text Join(const std::vector<Text>& pieces, TextView separator) {
  Text result;
  for (const Text& piece : pieces) {
    if (&piece != &pieces.front()) result.append(separator);
    result.append(piece);
  }
  return result;
}

void AppendDecimal(Text& text, std::int64_t number) {
  char digits[24];
  const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, number);
  char16_t units[24];  // appended in one piece: a range of bytes would be widened through a temporary text
  text.append(units, static_cast<std::size_t>(std::copy(digits, end.ptr, units) - units));
}

Text DecimalText(std::int64_t number) {
  Text text;
  AppendDecimal(text, number);
  return text;
}

}  // namespace zorkanca
