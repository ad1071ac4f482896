// Deletion in a document of many copies that stands nowhere whole.
//
// A copy is a program and a record: its text and its XML are made when somebody asks, and thrown away. Kept are the
// length of each copy's text, in a tree of sums (copy_lengths.h), and for each copy the set of its positions that are
// gone, counted in the copy as merged. A deletion is cut at the ends of the copies and planned in each from behind, so
// that the starts of those before it stay true; a copy that it covers whole is not even looked at. Planning needs the
// text alone, and the tree only where tables or floating pictures are concerned; such a tree is built for that one
// copy, with what was deleted in it before taken out.
//
// Written is each copy that nothing was deleted from as its program gives it, the others through their tree. What
// remains of a paragraph whose mark is gone and that no paragraph of its copy follows is carried into the next copy as
// XML.
//
// Invariants: text and tree of a copy always agree in length, but for the mark that closes a tree whose last paragraph
// lost its own; a set of positions that are gone never grows by what is gone already. One deletion costs the texts of
// the copies at its two ends and the logarithm of their number, and its share of the copies that it touches between.
#include "word/merge/merged_story.h"

#include <algorithm>
#include <limits>

#include "opc/xml_document.h"
#include "runtime/error.h"
#include "word/xml/word_errors.h"
#include "word/xml/word_xml.h"

namespace zorkanca::word {

namespace {

// A copy as a tree. Its XML is the engine's own, so it passes no gate.
pugi::xml_document ParseCopy(const std::string& xml) {
  pugi::xml_document document;
  const std::string whole = "<w:body>" + xml + "</w:body>";
  const unsigned options =
      ((pugi::parse_full | pugi::parse_ws_pcdata) & ~pugi::parse_doctype & ~pugi::parse_eol) | pugi::parse_fragment;
  if (!document.load_buffer(whole.data(), whole.size(), options, pugi::encoding_utf8)) {
    Raise(RuntimeError::kOutOfMemory);
  }
  return document;
}

class StringSink final : public PartSink {
 public:
  void Append(std::string_view bytes) override { text.append(bytes); }
  std::string text;
};

// Puts what remained of an earlier paragraph at the start of the tree's first one.
void Prepend(pugi::xml_node body, const LeftOver& leftOver) {
  if (leftOver.empty()) return;
  pugi::xml_node first = body.first_child();
  while (first && (IsRangeMark(first) || first.type() != pugi::node_element)) first = first.next_sibling();
  if (!Is(first, "w:p")) first = body.prepend_child("w:p");
  const pugi::xml_document parsed = ParseCopy(leftOver);
  pugi::xml_node behind = first.child("w:pPr");
  for (const pugi::xml_node child : parsed.child("w:body").children()) {
    behind = behind ? first.insert_copy_after(child, behind) : first.prepend_copy(child);
  }
}

}  // namespace

CopyLengths& MergedStory::Lengths() {
  if (!lengths_) {
    std::vector<std::uint32_t> lengths(copies_.count());
    Text units;
    for (std::size_t copy = 0; copy < lengths.size(); ++copy) {
      units.clear();
      copies_.AppendText(copy, units);
      if (units.size() > std::numeric_limits<std::uint32_t>::max()) Raise(RuntimeError::kOutOfMemory);
      lengths[copy] = static_cast<std::uint32_t>(units.size());
    }
    lengths_.emplace(std::move(lengths));
  }
  return *lengths_;
}

const Text& MergedStory::TextOfCopy(std::size_t copy) {
  if (cachedCopy_ != copy) {
    cached_.clear();
    cachedCopy_ = static_cast<std::size_t>(-1);
    copies_.AppendText(copy, cached_);
    if (!gone_.empty() && !gone_[copy].empty()) cached_ = gone_[copy].Without(cached_);
    cachedCopy_ = copy;
  }
  return cached_;
}

TextChunk MergedStory::ChunkAt(Position position) {
  const std::size_t copy = Lengths().CopyAt(position);
  return {Lengths().StartOf(copy), TextOfCopy(copy)};
}

char16_t MergedStory::UnitBefore(Position position) {
  if (position == 0) return kParagraphEnd;
  const TextChunk chunk = ChunkAt(position - 1);
  return chunk.units[static_cast<std::size_t>(position - 1 - chunk.start)];
}

// The mark of the paragraph that a range begins in; the range's end when it lies behind.
Position MergedStory::FirstMark(Interval range) {
  for (Position position = range.start; position < range.end;) {
    const TextChunk chunk = ChunkAt(position);
    const TextView units = chunk.units.substr(static_cast<std::size_t>(position - chunk.start));
    const auto mark = std::find_if(units.begin(), units.end(), EndsParagraph);
    position += mark - units.begin();
    if (mark != units.end()) return std::min(position, range.end);
  }
  return range.end;
}

void MergedStory::Delete(Interval range) {
  CopyLengths& lengths = Lengths();
  if (gone_.empty()) gone_.resize(lengths.count());
  const char16_t before = UnitBefore(range.start);
  const Position firstMark = features_.tables ? FirstMark(range) : range.end;
  // A paragraph that goes on in the next copy may lose its whole text here.
  const std::size_t behind = lengths.CopyAt(range.end);
  const bool atBoundary = range.end == lengths.StartOf(behind) && range.end + 1 < Length();
  if (atBoundary && EndsParagraph(before) && !EndsParagraph(UnitBefore(range.end)) &&
      TextOfCopy(behind).front() == kParagraphEnd) {
    ++range.end;
  }
  // Starts and lengths of the copies as they are before the deletion; it is done from behind, so they stay true.
  const std::size_t first = lengths.CopyAt(range.start);
  const std::size_t last = lengths.CopyAt(range.end - 1);
  Position start = lengths.StartOf(last);
  for (std::size_t copy = last + 1; copy-- > first;) {
    if (copy != last) start -= lengths.LengthOf(copy);
    const Interval own{std::max(range.start, start) - start, std::min(range.end - start, lengths.LengthOf(copy))};
    if (own.start >= own.end) continue;
    DeletionSurroundings around{before, copy != first, copy != last, copy + 1 == lengths.count()};
    if (firstMark >= start && firstMark < start + lengths.LengthOf(copy)) {
      around.continues = own.start == 0 && !EndsParagraph(before);
      around.tableFollows = own.end == lengths.LengthOf(copy) && BeginsWithTable(copy + 1);
    }
    DeleteInCopy(copy, own, around);
  }
}

void MergedStory::DeleteInCopy(std::size_t copy, Interval range, const DeletionSurroundings& around) {
  CopyLengths& lengths = Lengths();
  PositionSet& gone = gone_[copy];
  if (around.reachesBefore && around.reachesBehind && !around.continues) {
    gone = PositionSet(Interval{0, lengths.LengthOf(copy) + gone.Count()});
    lengths.Shorten(copy, lengths.LengthOf(copy));
    if (cachedCopy_ == copy) cached_.clear();
    return;
  }
  const PositionSet planned = Plan(copy, range, around);
  PositionSet added;
  for (const Interval& interval : planned.intervals()) added.Add(gone.ToWhole(interval));
  if (cachedCopy_ == copy) cached_ = planned.Without(cached_);
  gone.Add(added);
  lengths.Shorten(copy, planned.Count());
}

PositionSet MergedStory::Plan(std::size_t copy, Interval range, const DeletionSurroundings& around) {
  const Text& text = TextOfCopy(copy);
  const TextView doomed =
      TextView(text).substr(static_cast<std::size_t>(range.start), static_cast<std::size_t>(range.end - range.start));
  const bool joins = std::any_of(doomed.begin(), doomed.end(), EndsParagraph);
  if (!features_.anchors && !(features_.tables && joins)) return PlanPlainDeletion(text, range, around);
  const pugi::xml_document document = CurrentTree(copy);
  const StoryMap map(document.child("w:body"));
  if (map.length() == static_cast<Position>(text.size())) return PlanDeletion(map, range, around);
  // The tree closes a last paragraph whose mark is gone; that mark is no part of the text.
  const Position closing = map.length() - 1;
  if (range.end == closing) ++range.end;
  DeletionSurroundings own = around;
  own.endsStory = own.endsStory || range.end < closing;
  PositionSet gone = PlanDeletion(map, range, own);
  gone.Remove({closing});
  return gone;
}

// Whether what follows a deletion is a table that text cannot join.
bool MergedStory::BeginsWithTable(std::size_t copy) {
  while (copy < copies_.count() && Lengths().LengthOf(copy) == 0) ++copy;
  if (!features_.tables || copy == copies_.count()) return false;
  const pugi::xml_document document = CurrentTree(copy);
  const StoryMap map(document.child("w:body"));
  return !map.tables().empty() && map.tables().front().range.start == 0;
}

pugi::xml_document MergedStory::CurrentTree(std::size_t copy) const {
  std::string xml;
  copies_.AppendXml(copy, xml);
  LeftOver leftOver;  // of a last paragraph without mark: still text of this copy
  xml = EditedXml(copy, leftOver, xml, nullptr);
  if (!leftOver.empty()) xml += "<w:p>" + leftOver + "</w:p>";
  return ParseCopy(xml);
}

void MergedStory::ReplaceAll(const std::vector<Interval>&, TextView) {
  RaiseUnsupportedWordMember(u"Find.Replace in the main text of a merged document");
}

std::set<std::string> MergedStory::LostIn(std::size_t copy) const {
  if (gone_.empty() || gone_[copy].empty()) return {};
  std::string xml;
  copies_.AppendXml(copy, xml);
  const pugi::xml_document document = ParseCopy(xml);
  const pugi::xml_node body = document.child("w:body");
  return LostBookmarks(body, StoryMap(body), gone_[copy]);
}

// @param keepers  null where nobody will read the references
std::string MergedStory::EditedXml(std::size_t copy, LeftOver& leftOver, const std::string& xml,
                                   BookmarkKeepers* keepers) const {
  pugi::xml_document document = ParseCopy(xml);
  pugi::xml_node body = document.child("w:body");
  const LeftOver carried = std::move(leftOver);
  leftOver.clear();
  if (!gone_.empty() && !gone_[copy].empty()) {
    const StoryMap map(body);
    if (keepers && !bookmarks_.empty()) {
      RenameReferences(body, keepers->NamesFor(copy, RemoveLostBookmarks(body, map, gone_[copy])));
    }
    RemovePositions(map, gone_[copy], &leftOver);
  }
  if (!body.first_child()) {
    leftOver = carried + leftOver;
    return {};
  }
  Prepend(body, carried);
  StringSink sink;
  for (const pugi::xml_node child : body.children()) zorkanca::WriteXml(child, sink);
  return sink.text;
}

bool MergedStory::WriteXml(PartSink& sink) const {
  bool written = false;
  std::string xml;
  LeftOver leftOver;
  BookmarkKeepers keepers(
      bookmarks_, copies_.count(), [this](std::size_t copy) { return LostIn(copy); }, warn_);
  for (std::size_t copy = 0; copy < copies_.count(); ++copy) {
    const bool edited = !leftOver.empty() || (!gone_.empty() && !gone_[copy].empty());
    if (edited && lengths_->LengthOf(copy) == 0) continue;
    xml.clear();
    copies_.AppendXml(copy, xml);
    if (edited) xml = EditedXml(copy, leftOver, xml, &keepers);
    written = written || !xml.empty();
    sink.Append(xml);
  }
  return written;
}

}  // namespace zorkanca::word
