#include "win32/office/word_objects.h"

namespace zorkanca::win32 {

namespace {

WordDocumentReference DocumentOf(LateObject document) {
  return std::make_shared<LateWordDocument>(std::move(document));
}

}  // namespace

WordDocumentReference LateWordApplication::AddDocument(TextView Template, bool NewTemplate) {
  const LateObject documents = object_.Child(u"Documents");
  return DocumentOf(Template.empty() ? documents.Child(u"Add") : documents.Child(u"Add", Template, NewTemplate));
}

WordDocumentReference LateWordApplication::OpenDocument(const OpenDocumentArguments& arguments) {
  return DocumentOf(LateObject::ObjectIn(
      object_.Child(u"Documents")
          .CallNamed(u"Open", {{u"FileName", ToVariant(arguments.FileName)},
                               {u"ConfirmConversions", ToVariant(arguments.ConfirmConversions)},
                               {u"ReadOnly", ToVariant(arguments.ReadOnly)},
                               {u"AddToRecentFiles", ToVariant(arguments.AddToRecentFiles)},
                               {u"PasswordDocument", ToVariant(arguments.PasswordDocument)},
                               {u"PasswordTemplate", ToVariant(arguments.PasswordTemplate)},
                               {u"Revert", ToVariant(arguments.Revert)},
                               {u"WritePasswordDocument", ToVariant(arguments.WritePasswordDocument)},
                               {u"WritePasswordTemplate", ToVariant(arguments.WritePasswordTemplate)},
                               {u"Format", ToVariant(arguments.Format)}})));
}

WordDocumentReference LateWordApplication::Documents(std::int32_t index) {
  return DocumentOf(object_.Item(u"Documents", index));
}

std::int32_t LateWordApplication::DocumentCount() const {
  return AsLong(object_.Child(u"Documents").Get(u"Count"));
}

WordDocumentReference LateWordApplication::ActiveDocument() {
  return DocumentOf(object_.Child(u"ActiveDocument"));
}

Text LateWordApplication::Version() const {
  return AsText(object_.Get(u"Version"));
}

bool LateWordApplication::Visible() const {
  return AsBoolean(object_.Get(u"Visible"));
}

void LateWordApplication::Visible(bool visible) {
  object_.Put(u"Visible", visible);
}

bool LateWordApplication::ScreenUpdating() const {
  return AsBoolean(object_.Get(u"ScreenUpdating"));
}

void LateWordApplication::ScreenUpdating(bool updating) {
  object_.Put(u"ScreenUpdating", updating);
}

bool LateWordApplication::CheckLanguage() const {
  return AsBoolean(object_.Get(u"CheckLanguage"));
}

void LateWordApplication::CheckLanguage(bool check) {
  object_.Put(u"CheckLanguage", check);
}

WordWindowState LateWordApplication::WindowState() const {
  return static_cast<WordWindowState>(AsLong(object_.Get(u"WindowState")));
}

void LateWordApplication::WindowState(WordWindowState state) {
  object_.Put(u"WindowState", static_cast<std::int32_t>(state));
}

void LateWordApplication::ActiveWindowState(WordWindowState state) {
  object_.Child(u"ActiveWindow").Put(u"WindowState", static_cast<std::int32_t>(state));
}

void LateWordApplication::Activate() {
  object_.Call(u"Activate");
}

void LateWordApplication::ScreenRefresh() {
  object_.Call(u"ScreenRefresh");
}

}  // namespace zorkanca::win32
