#include "word/forms/protection.h"

#include "word/xml/word_errors.h"
#include "word/xml/word_xml.h"

namespace zorkanca::word {

namespace {

constexpr std::int32_t kFormsOnly = 2;

bool IsEnforced(const pugi::xml_node& protection) {
  const pugi::xml_attribute enforcement = protection.attribute("w:enforcement");
  return enforcement && IsOn(enforcement);
}

bool HasPassword(const pugi::xml_node& protection) {
  for (const char* name : {"w:hash", "w:hashValue", "w:password"}) {
    if (*protection.attribute(name).value()) return true;
  }
  return false;
}

}  // namespace

void Unprotect(WordPackage& package) {
  pugi::xml_node settings = package.Settings().document_element();
  const pugi::xml_node protection = settings.child("w:documentProtection");
  if (!IsEnforced(protection)) RaiseWordError(WordError::kNotAvailable, u"The document is not protected.");
  if (HasPassword(protection)) RaiseWordError(WordError::kWrongPassword, u"The password is incorrect.");
  settings.remove_child(protection);
  package.SettingsChanged();
}

void Protect(WordPackage& package, std::int32_t type) {
  pugi::xml_node settings = package.Settings().document_element();
  if (type != kFormsOnly) RaiseWordError(WordError::kNotAvailable, u"Documents are protected for forms only.");
  if (IsEnforced(settings.child("w:documentProtection"))) {
    RaiseWordError(WordError::kNotAvailable, u"The document is protected already.");
  }
  settings.remove_child("w:documentProtection");
  pugi::xml_node protection = RequireChild(settings, "w:documentProtection", kSettingsOrder);
  SetAttribute(protection, "w:edit", "forms");
  SetAttribute(protection, "w:enforcement", "1");
  package.SettingsChanged();
}

}  // namespace zorkanca::word
