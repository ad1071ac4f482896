// The fields of a template as steps; see story_compiler.h.
#include <algorithm>
#include <array>

#include "opc/xml_document.h"
#include "opc/xml_escape.h"
#include "runtime/nearest_name.h"
#include "runtime/utf8.h"
#include "word/fields/field_messages.h"
#include "word/merge/story_compiler.h"
#include "word/xml/own_elements.h"
#include "word/xml/word_xml.h"

namespace zorkanca::word {

namespace {

// Fields whose old result says nothing about the merged records.
bool ShouldWarn(TextView type) {
  static constexpr std::array<TextView, 7> kTypes = {u"ASK",          u"FILLIN",       u"DATABASE",      u"COMPARE",
                                                     u"ADDRESSBLOCK", u"GREETINGLINE", u"INCLUDEPICTURE"};
  return std::find(kTypes.begin(), kTypes.end(), type) != kTypes.end();
}

// Fields that were not folded, being nested too deeply, have no results yet.
bool IsUnfolded(const pugi::xml_node& node) {
  if (Is(node, own::kField)) return false;
  const auto children = node.children();
  return Is(node, "w:fldChar") || std::any_of(children.begin(), children.end(), IsUnfolded);
}

pugi::xml_node FirstRun(const std::vector<pugi::xml_node>& nodes, const char* holding) {
  for (const pugi::xml_node& node : nodes) {
    if (Is(node, "w:r") && (!holding || node.child(holding))) return node;
    if (!IsInlineWrapper(node)) continue;
    const pugi::xml_node content = ContentOf(node);
    const pugi::xml_node inner = FirstRun({content.begin(), content.end()}, holding);
    if (inner) return inner;
  }
  return {};
}

// The formatting that a result takes (w:rPr, or none).
pugi::xml_node FormatRun(const FoldedField& field, ResultRuns runs) {
  pugi::xml_node code = FirstRun(field.code(), "w:instrText");
  if (!code) code = field.node().first_child();
  pugi::xml_node result = runs == ResultRuns::kOfCode ? code : FirstRun(field.result(), nullptr);
  return (result ? result : code).child("w:rPr");
}

const Locale* LanguageOf(const pugi::xml_node& format) {
  const char* tag = format.child("w:lang").attribute("w:val").value();
  return *tag ? FindLocale(FromUtf8(tag)) : nullptr;
}

}  // namespace

bool StoryCompiler::IsVariable(const FoldedField& field, Text& name) const {
  name = UpperCase(field.type());
  if (field.type() == u"REF") {
    const std::vector<CodeToken> tokens = TokensOf(field, false);
    if (tokens.size() < 2) return false;
    name = UpperCase(tokens[1].PlainText());
  }
  return input_.variables.count(name) != 0;
}

void StoryCompiler::AddField(const pugi::xml_node& node, bool inCode) {
  const FoldedField field(node);
  const TextView type = field.type();
  Text name;
  if (field.locked()) return AddUntouched(field);
  if (std::any_of(field.code().begin(), field.code().end(), IsUnfolded)) {
    Warn(Text(u"The field ").append(type).append(u" was left as it was: too many fields inside each other."));
    return AddUntouched(field);
  }
  if (ahead_ && (type == u"SET" || type == u"NEXT" || type == u"NEXTIF" || type == u"SKIPIF")) return;
  if (IsFormulaType(type)) return ahead_ ? AddUntouched(field) : AddFormula(field, inCode);
  if (type == u"QUOTE") return AddQuote(field, inCode);
  if (type == u"MERGEFIELD") return AddMergeField(field, inCode);
  if (type == u"MERGEREC") return AddNumber(field, ValueStep::Source::kRecordNumber, inCode);
  if (type == u"MERGESEQ") return AddNumber(field, ValueStep::Source::kSequenceNumber, inCode);
  if (type == u"SET") return AddSet(field);
  if (type == u"IF" && AddIf(field, inCode)) return;
  if ((type == u"NEXT" || type == u"NEXTIF" || type == u"SKIPIF") && AddRecordMove(field)) return;
  if (IsVariable(field, name)) return AddReference(field, name, inCode);
  if (ShouldWarn(type) || (IsEvaluatedType(type) && type != u"REF")) {
    Warn(Text(u"The field ").append(type).append(u" was left as it was."));
  }
  AddUntouched(field);
}

// Fields inside its code give their results as part of the code.
void StoryCompiler::AddUntouched(const FoldedField& field) {
  const auto& code = field.code();
  auto nextOfCode = code.begin();  // the code's nodes come in the order of the children
  for (const pugi::xml_node child : field.node().children()) {
    const bool inCode = nextOfCode != code.end() && *nextOfCode == child;
    if (inCode) ++nextOfCode;
    if (inCode && Is(child, own::kField) && !field.locked()) {
      AddField(child, true);
    } else if (Is(child, own::kField) && field.locked()) {
      AddUntouched(FoldedField(child));
    } else {
      Add(child);
    }
  }
}

FieldFormat StoryCompiler::FormatOf(const FoldedField& field, const std::vector<CodeToken>& tokens, ValueStep* framed) {
  FieldFormat format;
  for (std::size_t i = 1; i < tokens.size(); ++i) {
    if (tokens[i].kind != CodeToken::Kind::kSwitch) continue;
    const char16_t letter = LowerCase(tokens[i].PlainText().front());
    const bool hasArgument = i + 1 < tokens.size() && tokens[i + 1].kind == CodeToken::Kind::kArgument;
    const Text argument = hasArgument ? tokens[i + 1].PlainText() : Text();
    if (letter == u'#' || letter == u'@') {
      format.argumentMissing = argument.empty();
      if (!argument.empty() && letter == u'#') format.number.emplace(argument, input_.locale);
      if (!argument.empty() && letter == u'@') format.date.emplace(argument);
    } else if (letter == u'*') {
      if (!AddGeneralSwitch(format, argument)) {
        Warn(Text(u"The switch \\* ").append(argument).append(u" is not supported."));
      }
    } else if (framed && hasArgument && (letter == u'b' || letter == u'f')) {
      (letter == u'b' ? framed->before : framed->after) = OperandOf(tokens[i + 1]);
    }
  }
  format.language = LanguageOf(FormatRun(field, format.runs));
  return format;
}

void StoryCompiler::AddMergeField(const FoldedField& field, bool inCode) {
  const std::vector<CodeToken> tokens = TokensOf(field, false);
  ValueStep step;
  step.format = FormatOf(field, tokens, &step);
  std::vector<Text> words;  // of a name with blanks that nobody quoted
  for (std::size_t i = 1; i < tokens.size() && tokens[i].kind == CodeToken::Kind::kArgument; ++i) {
    words.push_back(tokens[i].PlainText());
  }
  if (tokens.size() > 1 && !tokens[1].IsPlain()) {
    step.source = ValueStep::Source::kNamedColumn;
    step.argument = OperandOf(tokens[1]);
    return AddValue(field, std::move(step), inCode);
  }
  std::ptrdiff_t column = words.empty() ? -1 : input_.source.ColumnOf(words.front());
  if (column < 0 && words.size() > 1) column = input_.source.ColumnOf(Join(words, u" "));
  if (column < 0) {
    const Text name = Join(words, u" ");
    Warn(u"There is no column for the merge field " + name + NearestHint(name, input_.source.columns()) + u".");
    return AddMessage(field, step.format.runs, kMissingColumn, inCode);
  }
  step.column = static_cast<std::size_t>(column);
  AddValue(field, std::move(step), inCode);
}

void StoryCompiler::AddValue(const FoldedField& field, ValueStep step, bool inCode) {
  const pugi::xml_node format = FormatRun(field, step.format.runs);
  const std::string element = inCode ? "w:instrText" : "w:t";
  step.open = "<w:r>" + (format ? XmlBytes(format) : std::string()) + "<" + element + " xml:space=\"preserve\">";
  step.close = "</" + element + "></w:r>";
  step.inText = visible_ && state_.InText();
  step.inCode = inCode;
  program_->push_back({std::move(step)});
}

// A text of our own in a field's place. It is a value, so that its line is not one without any.
void StoryCompiler::AddMessage(const FoldedField& field, ResultRuns runs, TextView message, bool inCode) {
  ValueStep step;
  step.source = ValueStep::Source::kArgument;
  step.argument = PlainOperand(message);
  step.format.runs = runs;
  AddValue(field, std::move(step), inCode);
}

// A tab is an element: as a character in a text it would be read as a blank.
void StoryCompiler::AddTextRun(const pugi::xml_node& format, TextView text, bool inCode) {
  const std::string element = inCode ? "w:instrText" : "w:t";
  Xml("<w:r>");
  if (format) Xml(XmlBytes(format));
  std::string content;
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t end = std::min(text.find(u'\t', start), text.size());
    if (end > start) {
      content += "<" + element + " xml:space=\"preserve\">";
      AppendXmlText(content, text.substr(start, end - start));
      content += "</" + element + ">";
    }
    if (end < text.size()) content += "<w:tab/>";
    start = end + 1;
  }
  Xml(content);
  Xml("</w:r>");
  Units(text);
}

void StoryCompiler::AddNumber(const FoldedField& field, ValueStep::Source source, bool inCode) {
  ValueStep step;
  step.source = source;
  step.format = FormatOf(field, TokensOf(field, false), nullptr);
  AddValue(field, std::move(step), inCode);
}

void StoryCompiler::AddReference(const FoldedField& field, TextView name, bool inCode) {
  ValueStep step;
  step.source = ValueStep::Source::kVariable;
  step.argument = PlainOperand(name);
  step.format = FormatOf(field, TokensOf(field, false), nullptr);
  AddValue(field, std::move(step), inCode);
}

// Its arguments, as they are or as one formatted value.
void StoryCompiler::AddQuote(const FoldedField& field, bool inCode) {
  const std::vector<CodeToken> tokens = TokensOf(field, false);
  CodeToken quoted;
  for (std::size_t i = 1; i < tokens.size() && tokens[i].kind == CodeToken::Kind::kArgument; ++i) {
    if (i > 1)
      quoted.pieces.push_back({u" ", tokens[i].pieces.empty() ? pugi::xml_node() : tokens[i].pieces[0].source});
    quoted.pieces.insert(quoted.pieces.end(), tokens[i].pieces.begin(), tokens[i].pieces.end());
  }
  ValueStep step;
  step.format = FormatOf(field, tokens, nullptr);
  if (!step.format.ChangesText()) return AddBranch(quoted, inCode);
  step.source = ValueStep::Source::kArgument;
  step.argument = OperandOf(quoted);
  AddValue(field, std::move(step), inCode);
}

void StoryCompiler::AddSet(const FoldedField& field) {
  const std::vector<CodeToken> tokens = TokensOf(field, false);
  if (tokens.size() < 2) return AddUntouched(field);
  SetStep step;
  step.name = UpperCase(tokens[1].PlainText());
  if (tokens.size() > 2) step.value = OperandOf(tokens[2]);
  program_->push_back({std::move(step)});
}

bool StoryCompiler::AddRecordMove(const FoldedField& field) {
  std::size_t next = 1;
  std::optional<Condition> condition;
  if (field.type() != u"NEXT") {
    condition = ConditionOf(TokensOf(field, true), next);
    if (!condition) return false;
  }
  if (!movesRecords_) {
    Warn(Text(u"The field ").append(field.type()).append(u" has no effect in headers, footers and notes."));
  } else if (field.type() == u"SKIPIF") {
    program_->push_back({SkipIfStep{std::move(*condition)}});
  } else {
    program_->push_back({NextStep{std::move(condition)}});
  }
  return true;
}

std::optional<Condition> StoryCompiler::ConditionOf(const std::vector<CodeToken>& tokens, std::size_t& next) {
  Condition condition;
  const auto isArgument = [&] { return next < tokens.size() && tokens[next].kind == CodeToken::Kind::kArgument; };
  if (isArgument()) condition.left = OperandOf(tokens[next++]);
  if (next >= tokens.size() || tokens[next].kind != CodeToken::Kind::kOperator) return std::nullopt;
  const std::optional<Comparison> comparison = ComparisonOf(tokens[next++].PlainText());
  if (!comparison) return std::nullopt;
  condition.comparison = *comparison;
  if (isArgument()) condition.right = OperandOf(tokens[next++]);
  return condition;
}

bool StoryCompiler::AddIf(const FoldedField& field, bool inCode) {
  const std::vector<CodeToken> tokens = TokensOf(field, true);
  std::size_t next = 1;
  std::optional<Condition> condition = ConditionOf(tokens, next);
  if (!condition) return false;
  IfStep step;
  step.condition = std::move(*condition);
  const auto isArgument = [&] { return next < tokens.size() && tokens[next].kind == CodeToken::Kind::kArgument; };
  const FieldFormat format = FormatOf(field, tokens, nullptr);
  const auto branch = [&]() -> Program {
    if (!isArgument()) return {};
    const CodeToken& token = tokens[next++];
    return format.ChangesText() ? OperandOf(token).parts : Sub([&] { AddBranch(token, inCode); });
  };
  step.whenTrue = branch();
  step.whenFalse = branch();
  if (!format.ChangesText()) {
    program_->push_back({std::move(step)});
    return true;
  }
  ValueStep value;
  value.source = ValueStep::Source::kArgument;
  value.argument.parts.push_back({std::move(step)});
  value.format = format;
  AddValue(field, std::move(value), inCode);
  return true;
}

// What stands between the quotes, spliced as it is: text in the format that its code has, fields, breaks, pictures,
// paragraphs, tables.
void StoryCompiler::AddBranch(const CodeToken& token, bool inCode) {
  for (const CodePiece& piece : token.pieces) {
    if (!piece.text.empty()) {
      AddTextRun(piece.source.child("w:rPr"), piece.text, inCode);
    } else if (Is(piece.source, own::kField)) {
      AddField(piece.source, inCode);
    } else if (own::IsOwn(piece.source)) {
      Add(piece.source);
    } else {
      Xml("<w:r>");
      if (const pugi::xml_node format = piece.source.parent().child("w:rPr")) Xml(XmlBytes(format));
      AddRunChild(piece.source);
      Xml("</w:r>");
    }
  }
}

Operand StoryCompiler::OperandOf(const CodeToken& token) {
  const bool visible = visible_;
  const FieldState state = state_;
  visible_ = true;
  state_ = FieldState();
  Operand operand;
  operand.parts = Sub([&] {
    for (const CodePiece& piece : token.pieces) {
      if (!piece.text.empty()) {
        Units(piece.text);
        continue;
      }
      if (Is(piece.source, own::kField)) AddField(piece.source, false);
      if (Is(piece.source, own::kParagraph) || Is(piece.source, "w:br")) Units(TextView(&kLineBreak, 1));
    }
  });
  visible_ = visible;
  state_ = state;
  return operand;
}

}  // namespace zorkanca::word
