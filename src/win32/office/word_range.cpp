#include "win32/office/word_objects.h"

namespace zorkanca::win32 {

std::int32_t LateWordRange::Start() const {
  return AsLong(object_.Get(u"Start"));
}

std::int32_t LateWordRange::End() const {
  return AsLong(object_.Get(u"End"));
}

Text LateWordRange::Text() {
  return AsText(object_.Get(u"Text"));
}

void LateWordRange::SetRange(std::int32_t start, std::int32_t end) {
  object_.Call(u"SetRange", start, end);
}

void LateWordRange::Delete() {
  object_.Call(u"Delete");
}

bool LateWordRange::Find(const FindArguments& arguments) {
  const LateObject find = object_.Child(u"Find");
  find.Call(u"ClearFormatting");
  std::vector<Variant> inOrder;
  inOrder.push_back(ToVariant(arguments.FindText));
  inOrder.push_back(ToVariant(arguments.MatchCase));
  inOrder.push_back(ToVariant(arguments.MatchWholeWord));
  inOrder.push_back(ToVariant(arguments.MatchWildcards));
  inOrder.push_back(ToVariant(arguments.MatchSoundsLike));
  inOrder.push_back(ToVariant(arguments.MatchAllWordForms));
  inOrder.push_back(ToVariant(arguments.Forward));
  inOrder.push_back(ToVariant(arguments.Wrap));
  inOrder.push_back(ToVariant(arguments.Format));
  if (arguments.ReplaceWith) {
    inOrder.push_back(ToVariant(*arguments.ReplaceWith));
    inOrder.push_back(ToVariant(arguments.Replace));
  }
  return AsBoolean(find.GetMember(u"Execute", inOrder));
}

}  // namespace zorkanca::win32
