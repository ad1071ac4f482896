// The rule of the blocks: each search begins at the start of the text (for closing blocks at its end), so that blocks
// inside one another, and a marker that comes together where something was deleted, are found. Where the search before
// has ended, no marker lies before that place; only the last three characters before it may become the beginning of
// one. Searches therefore go on from there, and the work grows with the text, however many blocks it holds.
#include "export/text_markup.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <set>

#include "export/suspended_screen.h"
#include "foundation/ignore_errors.h"
#include "platform/word/word_application.h"
#include "runtime/convert.h"

namespace zorkanca {

namespace {

constexpr TextView kHeadingEnd = u"{h>}";
constexpr TextView kClosingStart = u"{<p}";
constexpr TextView kClosingEnd = u"{p>}";
constexpr std::int32_t kMarkerOverlap = 3;  // characters of a marker that may stand before the place of a deletion
constexpr TextView kPlaceholderPattern = u"«*»";

// A found marker, in positions of the main text.
struct Place {
  std::int32_t start = 0;
  std::int32_t end = 0;
};

std::optional<Place> Find(WordDocument& document, std::int32_t start, std::int32_t end, TextView marker, bool forward) {
  if (start >= end) return std::nullopt;
  const std::unique_ptr<WordRange> range = document.Range(start, end);
  if (!range->Find({.FindText = Text(marker), .MatchCase = true, .Forward = forward})) return std::nullopt;
  return Place{.start = range->Start(), .end = range->End()};
}

std::optional<Place> FindAfter(WordDocument& document, std::int32_t start, TextView marker) {
  return Find(document, start, document.Content()->End(), marker, true);
}

std::optional<Place> FindBefore(WordDocument& document, std::int32_t end, TextView marker) {
  return Find(document, 0, end, marker, false);
}

void Delete(WordDocument& document, std::int32_t start, std::int32_t end) {
  document.Range(start, end)->Delete();
}

// Deletes the block and its markers. @return where the deleted text was
std::int32_t DeleteBlock(WordDocument& document, const Place& start, const Place& end) {
  Delete(document, start.start, end.end);
  return start.start;
}

void KeepFirstHeading(WordDocument& document) {
  std::optional<Place> start = FindAfter(document, 0, kHeadingStart);
  if (!start) return;
  Delete(document, start->start, start->end);
  if (const std::optional<Place> end = FindAfter(document, start->start, kHeadingEnd)) {
    Delete(document, end->start, end->end);
  }
  std::int32_t changed = start->start;
  while ((start = FindAfter(document, std::max(changed - kMarkerOverlap, 0), kHeadingStart))) {
    const std::optional<Place> end = FindAfter(document, start->end, kHeadingEnd);
    if (!end) return;
    changed = DeleteBlock(document, *start, *end);
  }
}

void KeepLastClosing(WordDocument& document) {
  std::optional<Place> end = FindBefore(document, document.Content()->End(), kClosingEnd);
  if (!end) return;
  Delete(document, end->start, end->end);
  std::int32_t changed = end->start;
  if (const std::optional<Place> start = FindBefore(document, changed, kClosingStart)) {
    Delete(document, start->start, start->end);
    changed -= start->end - start->start;
  }
  const auto behind = [&] { return std::min(changed + kMarkerOverlap, document.Content()->End()); };
  while ((end = FindBefore(document, behind(), kClosingEnd))) {
    const std::optional<Place> start = FindBefore(document, end->start, kClosingStart);
    if (!start) return;
    changed = DeleteBlock(document, *start, *end);
  }
}

// Whatever the record gives for a name; nothing when it has no such column.
std::optional<Text> ValueOf(const ExportContext& context, TextView name) {
  std::optional<Text> value;
  IgnoreErrors([&] { value = ToText(context.currentRecordset->FieldNamed(name).Value(), context.platform.locale); });
  return value;
}

// The placeholders that the template's author wrote, lower-cased as replacing ignores case.
std::set<Text> PlaceholdersOf(WordRange& story) {
  std::set<Text> placeholders;
  const std::int32_t start = story.Start();
  story.SetRange(start, start);
  while (story.Find({.FindText = Text(kPlaceholderPattern), .MatchWildcards = true})) {
    placeholders.insert(LowerCase(story.Text()));
    story.SetRange(story.End(), story.End());
  }
  story.SetRange(start, start);
  return placeholders;
}

// A value may hold placeholders, even its own: only the author's are filled, each once, and what values brought in is
// passed over, so that neither the number of rounds nor the text can grow without end.
void FillPlaceholders(const ExportContext& context, WordRange& story) {
  std::set<Text> unfilled = PlaceholdersOf(story);
  std::int32_t passed = story.Start();
  while (!unfilled.empty()) {
    if (!story.Find({.FindText = Text(kPlaceholderPattern), .MatchWildcards = true, .Wrap = 1})) return;
    if (story.Start() < passed) return;  // the search came round
    const Text placeholder = story.Text();
    if (unfilled.erase(LowerCase(placeholder)) == 0) {
      passed = story.End();
    } else {
      const std::optional<Text> value = ValueOf(context, TextView(placeholder).substr(1, placeholder.size() - 2));
      if (!value) return;
      story.Find({.FindText = placeholder, .Wrap = 1, .ReplaceWith = *value, .Replace = 2});
    }
    story.SetRange(passed, passed);
  }
}

}  // namespace

bool FindMarker(WordDocument& document, TextView marker) {
  const std::optional<Place> place = FindAfter(document, 0, marker);
  if (!place) return false;
  if (marker != kHeadingStart) Delete(document, place->start, place->end);
  return true;
}

void ApplyBlockMarkup(WordDocument& document) {
  const std::shared_ptr<WordApplication> word = document.Application();
  const SuspendedScreen suspended(*word);
  KeepFirstHeading(document);
  KeepLastClosing(document);
}

void FillHeaderFooterPlaceholders(const ExportContext& context, WordDocument& document) {
  if (!context.currentRecordset) return;
  context.currentRecordset->MoveFirst();
  FillPlaceholders(context, *document.PrimaryHeader(1));
  FillPlaceholders(context, *document.PrimaryFooter(1));
}

}  // namespace zorkanca
