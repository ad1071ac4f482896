#include "win32/office/word_objects.h"

namespace zorkanca::win32 {

void LateMailMerge::OpenDataSource(const OpenDataSourceArguments& arguments) {
  object_.CallNamed(u"OpenDataSource", {{u"Name", ToVariant(arguments.Name)},
                                        {u"ConfirmConversions", ToVariant(arguments.ConfirmConversions)},
                                        {u"ReadOnly", ToVariant(arguments.ReadOnly)},
                                        {u"LinkToSource", ToVariant(arguments.LinkToSource)},
                                        {u"AddToRecentFiles", ToVariant(arguments.AddToRecentFiles)},
                                        {u"PasswordDocument", ToVariant(arguments.PasswordDocument)},
                                        {u"PasswordTemplate", ToVariant(arguments.PasswordTemplate)},
                                        {u"WritePasswordDocument", ToVariant(arguments.WritePasswordDocument)},
                                        {u"WritePasswordTemplate", ToVariant(arguments.WritePasswordTemplate)},
                                        {u"Revert", ToVariant(arguments.Revert)},
                                        {u"Format", ToVariant(arguments.Format)},
                                        {u"Connection", ToVariant(arguments.Connection)},
                                        {u"SQLStatement", ToVariant(arguments.SQLStatement)},
                                        {u"SQLStatement1", ToVariant(arguments.SQLStatement1)}});
}

MainDocumentType LateMailMerge::MainDocumentType() const {
  return static_cast<zorkanca::MainDocumentType>(AsLong(object_.Get(u"MainDocumentType")));
}

void LateMailMerge::MainDocumentType(zorkanca::MainDocumentType type) {
  object_.Put(u"MainDocumentType", static_cast<std::int32_t>(type));
}

void LateMailMerge::Destination(std::int32_t destination) {
  object_.Put(u"Destination", destination);
}

void LateMailMerge::MailAsAttachment(bool attach) {
  object_.Put(u"MailAsAttachment", attach);
}

void LateMailMerge::MailAddressFieldName(TextView name) {
  object_.Put(u"MailAddressFieldName", name);
}

void LateMailMerge::MailSubject(TextView subject) {
  object_.Put(u"MailSubject", subject);
}

void LateMailMerge::SuppressBlankLines(bool suppress) {
  object_.Put(u"SuppressBlankLines", suppress);
}

void LateMailMerge::FirstRecord(std::int32_t record) {
  object_.Child(u"DataSource").Put(u"FirstRecord", record);
}

void LateMailMerge::LastRecord(std::int32_t record) {
  object_.Child(u"DataSource").Put(u"LastRecord", record);
}

void LateMailMerge::ViewMailMergeFieldCodes(std::int32_t view) {
  object_.Put(u"ViewMailMergeFieldCodes", view);
}

void LateMailMerge::Execute(bool Pause) {
  object_.Call(u"Execute", Pause);
}

}  // namespace zorkanca::win32
