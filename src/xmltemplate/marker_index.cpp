// Under each symbol lie its markers in the order of the text. Those that left the text are not looked for when they
// leave: `first` passes over them at the front, adding drops them at the back, and an insertion amidst clears the rest.
// New markers nearly always come behind all others of their symbol and are appended; those that do not are sorted by
// symbol and inserted together, one search for each symbol. Adding and asking thus cost a look-up in the hash table
// and, spread over all calls, one step for each marker.
#include "xmltemplate/marker_index.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "xmltemplate/markers.h"
#include "xmltemplate/template_text.h"

namespace zorkanca {

namespace {

bool HasLeft(const TextPiece* piece) {
  return piece->block == nullptr;
}

// The symbol of a marker that ends as the system writes markers; empty when it does not.
TextView WholeSymbol(TextView marker) {
  TextView whole = marker.substr(marker.rfind(u"<?"));
  if (!StartsIgnoringCase(whole, kMarkerStart) || !whole.ends_with(kMarkerEnd)) return {};
  if (whole.size() < kMarkerStart.size() + kMarkerEnd.size()) return {};
  whole.remove_prefix(kMarkerStart.size());
  whole.remove_suffix(kMarkerEnd.size());
  return StartsIgnoringCase(whole, u"#g") ? whole : TextView();
}

}  // namespace

// Four units at a time. Setting one bit folds the case of letters, and of other characters that equality keeps apart.
std::size_t MarkerIndex::Hash::operator()(TextView symbol) const {
  constexpr std::uint64_t kCaseBits = 0x0020002000200020;
  constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15;
  constexpr std::size_t kStep = sizeof(std::uint64_t) / sizeof(char16_t);
  std::uint64_t hash = symbol.size();
  const auto mix = [&hash](std::uint64_t units) {
    hash = (hash ^ (units | kCaseBits)) * kMultiplier;
    hash ^= hash >> 32;
  };
  for (; symbol.size() >= kStep; symbol.remove_prefix(kStep)) {
    std::uint64_t units = 0;
    std::memcpy(&units, symbol.data(), sizeof units);
    mix(units);
  }
  for (const char16_t unit : symbol) mix(unit);
  return static_cast<std::size_t>(hash);
}

bool MarkerIndex::Equal::operator()(TextView left, TextView right) const {
  return EqualsIgnoringAsciiCase(left, right);
}

TextPiece* MarkerIndex::First(TextView symbol) {
  const auto found = symbols_.find(symbol);
  if (found == symbols_.end()) return nullptr;
  auto& [markers, first] = found->second;
  while (first < markers.size() && HasLeft(markers[first])) ++first;
  return first < markers.size() ? markers[first] : nullptr;
}

TextPiece* MarkerIndex::FirstAfter(TextView symbol, const TextPiece* place, std::size_t& cursor) {
  const auto found = symbols_.find(symbol);
  if (found == symbols_.end()) return nullptr;
  const std::vector<TextPiece*>& markers = found->second.markers;
  while (cursor < markers.size() && (HasLeft(markers[cursor]) || !order_->IsBefore(place, markers[cursor]))) ++cursor;
  return cursor < markers.size() ? markers[cursor] : nullptr;
}

void MarkerIndex::Add(const std::vector<TextPiece*>& markers) {
  std::vector<NewMarker> amidst;
  for (TextPiece* marker : markers) {
    const TextView whole = WholeSymbol(marker->text);
    if (!whole.empty()) AddUnder(whole, marker, amidst);
    // A symbol of these has a "#" at either end and none inside.
    for (std::size_t start = FindIgnoringCase(marker->text, kWorksheetSymbolStart); start != TextView::npos;) {
      const std::size_t end = marker->text.find(u'#', start + 1);
      if (end == TextView::npos) break;
      AddUnder(marker->text.substr(start, end + 1 - start), marker, amidst);
      start = FindIgnoringCase(marker->text, kWorksheetSymbolStart, end);
    }
  }
  // Those of one symbol belong together: no other marker with it stands between them.
  std::stable_sort(amidst.begin(), amidst.end(), [](const NewMarker& left, const NewMarker& right) {
    return std::less<>()(left.occurrences, right.occurrences);
  });
  for (auto next = amidst.begin(); next != amidst.end();) {
    Occurrences& occurrences = *next->occurrences;
    std::vector<TextPiece*> together;
    for (; next != amidst.end() && next->occurrences == &occurrences; ++next) together.push_back(next->marker);
    InsertAmidst(occurrences, together);
  }
}

// Most markers come behind all that were there before; the others wait.
void MarkerIndex::AddUnder(TextView symbol, TextPiece* marker, std::vector<NewMarker>& amidst) {
  Occurrences& occurrences = symbols_[symbol];
  auto& [markers, first] = occurrences;
  while (markers.size() > first && HasLeft(markers.back())) markers.pop_back();
  if (markers.size() == first || !order_->IsBefore(marker, markers.back())) {
    markers.push_back(marker);
  } else {
    amidst.push_back({&occurrences, marker});
  }
}

void MarkerIndex::InsertAmidst(Occurrences& occurrences, const std::vector<TextPiece*>& markers) {
  auto& [all, first] = occurrences;
  while (first < all.size() && HasLeft(all[first])) ++first;
  auto place = all.begin() + static_cast<std::ptrdiff_t>(first);
  if (first >= markers.size() && (place == all.end() || order_->IsBefore(markers.back(), *place))) {
    first -= markers.size();  // the room of those that left
    std::copy(markers.begin(), markers.end(), place - static_cast<std::ptrdiff_t>(markers.size()));
    return;
  }
  all.erase(std::remove_if(place, all.end(), HasLeft), all.end());
  place =
      std::upper_bound(all.begin() + static_cast<std::ptrdiff_t>(first), all.end(), markers.front(),
                       [this](const TextPiece* left, const TextPiece* right) { return order_->IsBefore(left, right); });
  all.insert(place, markers.begin(), markers.end());
}

}  // namespace zorkanca
