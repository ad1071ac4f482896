// One pass from "<" to "<". At each one the next few characters tell whether a tag that operations ask for or a marker
// begins; all else belongs to the piece that is being read. A text that ends before that is told is pending: the caller
// appends what follows, and reading goes on where it stopped, so that no character is read twice however often that
// happens. Once a marker has been found that never ends, none that begins behind it can end either, and they are only
// noted: otherwise each of them would read to the end of the text.
#include "xmltemplate/piece_scanner.h"

#include <algorithm>

#include "xmltemplate/markers.h"
#include "xmltemplate/template_text.h"

namespace zorkanca {

namespace {

struct TagName {
  TextView text;
  TokenSet token;
  bool endsWithBlank;  // a space may follow as well as ">"
};

constexpr TagName kTagNames[] = {
    {u"<cell", kCellStart, true},
    {u"<data", kDataStart, true},
    {u"</data", kDataEnd, false},
    {u"<table", kTableStart, true},
};

// What the text from a "<" on begins with.
struct Beginning {
  TokenSet token = 0;
  bool isMarker = false;
  bool isPending = false;
};

Beginning TagAt(TextView text) {
  for (const TagName& name : kTagNames) {
    const std::size_t length = std::min(text.size(), name.text.size());
    if (!EqualsIgnoringAsciiCase(text.substr(0, length), name.text.substr(0, length))) continue;
    if (text.size() <= name.text.size()) return {.isPending = true};
    const char16_t following = text[name.text.size()];
    if (following == u'>' || (following == u' ' && name.endsWithBlank)) return {.token = name.token};
  }
  return {};
}

Beginning BeginningAt(TextView text) {
  if (text.size() > 1 && text[1] != u'?') return TagAt(text);
  const MarkerStart start = MarkerStartAt(text);
  return {.isMarker = start == MarkerStart::kMarker, .isPending = start == MarkerStart::kPending};
}

}  // namespace

std::size_t PendingStart(TextView text) {
  if (text.ends_with(u'\r')) return text.size() - 1;
  const std::size_t start = text.rfind(u'<');
  return start != TextView::npos && BeginningAt(text.substr(start)).isPending ? start : text.size();
}

std::size_t FindToken(TextView text, TokenSet tokens) {
  std::size_t at = text.find(u'<');
  while (at != TextView::npos && !(TagAt(text.substr(at)).token & tokens)) at = text.find(u'<', at + 1);
  return at;
}

std::size_t FindLastToken(TextView text, TokenSet tokens) {
  std::size_t at = text.rfind(u'<');
  while (at != TextView::npos && !(TagAt(text.substr(at)).token & tokens)) {
    at = at == 0 ? TextView::npos : text.rfind(u'<', at - 1);
  }
  return at;
}

bool PieceScanner::Scan(TextView text, bool isLast) {
  if (inMarker_ && !FinishMarker(text, isLast)) return false;
  for (std::size_t at = FindUnit(text, u'<', next_); at != TextView::npos; at = FindUnit(text, u'<', next_)) {
    const Beginning beginning = BeginningAt(text.substr(at));
    next_ = at;
    if (beginning.isPending && !isLast) return false;
    next_ = at + 1;
    if (beginning.token == 0 && !beginning.isMarker) continue;
    CutAt(at);
    tokens_ = beginning.isMarker ? kUnclosed : beginning.token;
    inMarker_ = beginning.isMarker && !anyUnclosed_;
    if (inMarker_ && !FinishMarker(text, isLast)) return false;
  }
  next_ = text.size();
  if (!isLast && text.ends_with(u'\r')) {
    --next_;
    return false;
  }
  CutAt(text.size());
  return true;
}

// Looks for the end of the marker that was begun. False when more text may bring it.
bool PieceScanner::FinishMarker(TextView text, bool isLast) {
  constexpr TextView kClosing = u"?>";
  const std::size_t closing = text.find(kClosing, next_);
  if (closing == TextView::npos && !isLast) {
    next_ = std::max(next_, text.size() - 1);  // the "?" may be there
    return false;
  }
  inMarker_ = false;
  if (closing == TextView::npos) {
    anyUnclosed_ = true;
    next_ = start_ + 1;
    return true;
  }
  const std::size_t end = closing + kClosing.size();
  TokenSet inside = kMarker;
  for (std::size_t at = text.find(u'<', start_ + 1); at < end; at = text.find(u'<', at + 1)) {
    inside |= TagAt(text.substr(at, end - at)).token;
  }
  cuts_.push_back({.end = end, .tokens = inside});
  start_ = next_ = end;
  tokens_ = 0;
  return true;
}

// Ends the piece being read; there is none when it would be empty.
void PieceScanner::CutAt(std::size_t end) {
  if (end > start_) cuts_.push_back({.end = end, .tokens = tokens_});
  start_ = end;
  tokens_ = 0;
}

}  // namespace zorkanca
