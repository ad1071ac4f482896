#include "word/fields/field_code.h"

#include <algorithm>

#include "word/text/text_units.h"
#include "word/xml/own_elements.h"
#include "word/xml/word_xml.h"

namespace zorkanca::word {

namespace {

constexpr char16_t kNode = 0xFFFF;  // stands for a node in the units of a code

bool IsBlank(char16_t unit) {
  return unit <= u' ' || unit == u'\u00A0';
}
bool IsQuote(char16_t unit) {
  return unit == u'"' || unit == u'\u201C' || unit == u'\u201D' || unit == u'\u201E';
}
bool IsOperator(char16_t unit) {
  return unit == u'=' || unit == u'<' || unit == u'>';
}

class Scanner {
 public:
  Scanner(const FoldedField& field, bool comparison) : comparison_(comparison) {
    for (const pugi::xml_node& node : field.code()) Gather(node);
  }

  std::vector<CodeToken> Tokens() {
    std::vector<CodeToken> tokens;
    for (;;) {
      while (at_ < units_.size() && (IsBlank(units_[at_]) || IsStructure(at_))) ++at_;
      if (at_ == units_.size()) return tokens;
      if (IsQuote(units_[at_])) {
        tokens.push_back(Quoted());
      } else if (units_[at_] == u'\\' && at_ + 1 < units_.size() && units_[at_ + 1] != u'\\') {
        tokens.push_back(Cut(CodeToken::Kind::kSwitch, at_ + 1, at_ + 2));
        at_ += 2;
      } else if (comparison_ && IsOperator(units_[at_])) {
        const std::size_t start = at_;
        while (at_ < units_.size() && IsOperator(units_[at_])) ++at_;
        tokens.push_back(Cut(CodeToken::Kind::kOperator, start, at_));
      } else {
        tokens.push_back(Word());
      }
    }
  }

 private:
  void Gather(const pugi::xml_node& node) {
    if (Is(node, "w:r")) {
      for (const pugi::xml_node child : node.children()) GatherRunChild(node, child);
    } else if (IsInlineWrapper(node)) {
      for (const pugi::xml_node child : ContentOf(node).children()) Gather(child);
    } else if (own::IsOwn(node)) {
      Add(kNode, node);
    }
  }

  void GatherRunChild(const pugi::xml_node& run, const pugi::xml_node& child) {
    if (Is(child, "w:instrText") || Is(child, "w:t")) {
      Text text;
      AppendTextOf(text, child);
      for (const char16_t unit : text) Add(unit == kNode ? u' ' : unit, run);
    } else if (Is(child, "w:tab")) {
      Add(u'\t', run);
    } else if (!Is(child, "w:rPr") && !Is(child, "w:fldChar")) {
      Add(kNode, child);
    }
  }

  void Add(char16_t unit, const pugi::xml_node& source) {
    units_ += unit;
    sources_.push_back(source);
  }

  // Paragraph ends outside of quotes are blanks.
  bool IsStructure(std::size_t i) const { return units_[i] == kNode && !Is(sources_[i], own::kField); }

  // A formatting switch may touch the word before it.
  bool IsFormatSwitch(std::size_t i) const {
    const char16_t letter = i + 1 < units_.size() ? units_[i + 1] : u'\0';
    return units_[i] == u'\\' && (letter == u'#' || letter == u'@' || letter == u'*');
  }

  // Passes a unit, or an escaped one with its backslash.
  void Advance() {
    if (units_[at_] == u'\\' && at_ + 1 < units_.size()) ++at_;
    ++at_;
  }

  CodeToken Quoted() {
    const bool straight = units_[at_] == u'"';  // then typographic quotes inside are text
    const std::size_t start = ++at_;
    const auto ends = [&](char16_t unit) { return straight ? unit == u'"' : IsQuote(unit); };
    while (at_ < units_.size() && !ends(units_[at_])) Advance();
    CodeToken token = Cut(CodeToken::Kind::kArgument, start, std::min(at_, units_.size()));
    token.quoted = true;
    if (at_ < units_.size()) ++at_;
    return token;
  }

  CodeToken Word() {
    const std::size_t start = at_;
    const auto ends = [&](std::size_t i) {
      const char16_t unit = units_[i];
      return IsBlank(unit) || IsQuote(unit) || IsStructure(i) || IsFormatSwitch(i) || (comparison_ && IsOperator(unit));
    };
    while (at_ < units_.size() && !ends(at_)) Advance();
    return Cut(CodeToken::Kind::kArgument, start, at_);
  }

  CodeToken Cut(CodeToken::Kind kind, std::size_t start, std::size_t end) const {
    CodeToken token;
    token.kind = kind;
    for (std::size_t i = start; i < end; ++i) {
      const bool escape = units_[i] == u'\\' && i + 1 < end && (IsQuote(units_[i + 1]) || units_[i + 1] == u'\\');
      if (escape) ++i;
      if (units_[i] == kNode) {
        token.pieces.push_back({Text(), sources_[i]});
      } else if (token.pieces.empty() || token.pieces.back().text.empty() ||
                 token.pieces.back().source != sources_[i]) {
        token.pieces.push_back({Text(1, units_[i]), sources_[i]});
      } else {
        token.pieces.back().text += units_[i];
      }
    }
    return token;
  }

  bool comparison_;
  Text units_;
  std::vector<pugi::xml_node> sources_;
  std::size_t at_ = 0;
};

}  // namespace

bool CodeToken::IsPlain() const {
  return std::all_of(pieces.begin(), pieces.end(), [](const CodePiece& piece) { return !piece.text.empty(); });
}

Text CodeToken::PlainText() const {
  Text text;
  for (const CodePiece& piece : pieces) text += piece.text;
  return text;
}

std::vector<CodeToken> TokensOf(const FoldedField& field, bool comparison) {
  return Scanner(field, comparison).Tokens();
}

}  // namespace zorkanca::word
