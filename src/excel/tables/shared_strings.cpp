#include "excel/tables/shared_strings.h"

#include <functional>

#include "excel/grid/xml_scanner.h"
#include "excel/tables/cell_reader.h"
#include "excel/tables/string_item.h"
#include "opc/office_error.h"

namespace zorkanca::excel {

namespace {

using Token = XmlScanner::Token;

constexpr std::uint32_t kFirstJudgement = 4096;  // texts of a column before it is judged

}  // namespace

SharedStrings::SharedStrings(std::string xml, const XmlSource& source) : xml_(std::move(xml)) {
  RequireSoundXml(xml_, source, {.nodes = 100'000'000});
  if (!xml_.starts_with("<") && !xml_.starts_with("\xEF\xBB\xBF")) xml_ = XmlBytes(ParseXml(xml_, source));
  XmlScanner scanner(xml_);
  Token token = scanner.Next();
  while (token != Token::kStart && token != Token::kEmpty && token != Token::kDone) token = scanner.Next();
  const std::string_view name = scanner.name();
  const std::size_t colon = name.find(':');
  if (colon != name.npos) prefix_ = name.substr(0, colon + 1);
  if (token == Token::kDone || LocalPart(name, prefix_) != "sst") {
    RaiseBadPart(source.file, source.part, "it is no table of texts");
  }
  AppendAttributesBut(rootAttributes_, scanner.attributes(), {"count", "uniqueCount"});
  const std::optional<std::uint32_t> told = WholeNumberOf(AttributeText(scanner.attributes(), "count"));
  if (told) count_ = *told;
  rootEnd_ = itemsEnd_ = scanner.end();
  if (token == Token::kEmpty) return;
  for (token = scanner.Next(); token != Token::kEnd && token != Token::kDone; token = scanner.Next()) {
    if (token == Token::kText) continue;
    const bool isItem = LocalPart(scanner.name(), prefix_) == "si";
    const auto begin = static_cast<std::uint32_t>(scanner.begin());
    if (token == Token::kStart) scanner.SkipElement();
    if (!isItem) continue;  // extensions come behind all texts
    items_.push_back({begin, static_cast<std::uint32_t>(scanner.end())});
    itemsEnd_ = scanner.end();
  }
}

std::string SharedStrings::TextOf(std::size_t index) const {
  const Item& item = items_.at(index);
  const std::string_view element = std::string_view(xml_).substr(item.begin, item.end - item.begin);
  return StringItemText(element, prefix_);
}

TextTable::TextTable(const SharedStrings& existing, std::size_t memoryLimit)
    : existing_(existing), memoryLimit_(memoryLimit) {}

std::string_view TextTable::TextAt(std::uint32_t number) const {
  return std::string_view(texts_).substr(places_[number].offset, places_[number].length);
}

void TextTable::Grow() {
  std::vector<std::uint32_t> larger(slots_.empty() ? 1024 : slots_.size() * 2);
  const std::size_t mask = larger.size() - 1;
  for (std::uint32_t number = 0; number < places_.size(); ++number) {
    std::size_t slot = hashes_[number] & mask;
    while (larger[slot] != 0) slot = (slot + 1) & mask;
    larger[slot] = number + 1;
  }
  slots_ = std::move(larger);
}

std::optional<std::uint32_t> TextTable::Share(std::int32_t column, std::string_view utf8) {
  const auto index = static_cast<std::size_t>(column);
  if (index >= columns_.size()) columns_.resize(index + 1);
  Column& judged = columns_[index];
  if (judged.keeps) return std::nullopt;
  if (places_.size() * 2 >= slots_.size()) Grow();
  ++judged.seen;
  const auto first = static_cast<std::uint32_t>(existing_.size());
  const auto hash = static_cast<std::uint32_t>(std::hash<std::string_view>()(utf8));
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = hash & mask;
  for (; slots_[slot] != 0; slot = (slot + 1) & mask) {
    const std::uint32_t number = slots_[slot] - 1;
    if (hashes_[number] != hash || TextAt(number) != utf8) continue;
    ++judged.repeated;
    return first + number;
  }
  judged.keeps = judged.seen > kFirstJudgement && judged.repeated < judged.seen / 4;
  if (judged.keeps || texts_.size() + utf8.size() + places_.size() * 20 > memoryLimit_) return std::nullopt;
  slots_[slot] = static_cast<std::uint32_t>(places_.size()) + 1;
  hashes_.push_back(hash);
  places_.push_back({static_cast<std::uint32_t>(texts_.size()), static_cast<std::uint32_t>(utf8.size())});
  texts_ += utf8;
  return first + static_cast<std::uint32_t>(places_.size()) - 1;
}

void TextTable::Write(PartSink& sink, std::uint64_t references, std::string_view uri) const {
  const std::string& prefix = existing_.prefix_;
  const std::string unique = std::to_string(existing_.size() + places_.size());
  const std::string counts = " count=\"" + std::to_string(references) + "\" uniqueCount=\"" + unique + "\">";
  std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n<" + prefix + "sst";
  if (existing_.xml_.empty()) {
    xml.append(" xmlns=\"").append(uri).append("\"");
  } else {
    xml += existing_.rootAttributes_;
  }
  sink.Append(xml + counts);
  const std::string_view old(existing_.xml_);
  sink.Append(old.substr(existing_.rootEnd_, existing_.itemsEnd_ - existing_.rootEnd_));
  xml.clear();
  for (std::uint32_t number = 0; number < places_.size(); ++number) {
    xml.append("<").append(prefix).append("si>");
    PutStringItem(TextAt(number), prefix, [&](std::string_view piece) { xml += piece; });
    xml.append("</").append(prefix).append("si>");
    if (xml.size() < 64 * 1024) continue;
    sink.Append(xml);
    xml.clear();
  }
  sink.Append(xml);
  const std::string_view tail = old.substr(existing_.itemsEnd_);
  sink.Append(tail.empty() ? "</" + prefix + "sst>" : std::string(tail));
}

}  // namespace zorkanca::excel
