#include "runtime/text.h"

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
  char16_t units[20];
  char16_t* const end = units + 20;
  char16_t* first = end;
  const auto bits = static_cast<std::uint64_t>(number);
  std::uint64_t magnitude = number < 0 ? 0 - bits : bits;
  do {
    *--first = static_cast<char16_t>(u'0' + magnitude % 10);
    magnitude /= 10;
  } while (magnitude != 0);
  if (number < 0) *--first = u'-';
  text.append(first, static_cast<std::size_t>(end - first));
}

void AppendPadded(Text& text, std::int64_t number, std::size_t width) {
  const std::size_t start = text.size();
  AppendDecimal(text, number);
  const std::size_t length = text.size() - start;
  if (length < width) text.insert(start, width - length, u'0');
}

Text DecimalText(std::int64_t number) {
  Text text;
  AppendDecimal(text, number);
  return text;
}

}  // namespace zorkanca
