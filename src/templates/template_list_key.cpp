#include "templates/template_list_key.h"

#include "runtime/error.h"

namespace zorkanca {

namespace {

void OpenOrCreateKey(RegistryKeyCursor& cursor, TextView name) {
  try {
    cursor.OpenKey(name);
  } catch (const Error& error) {
    if (LowerCase(error.description()).find(u"neexistuje") == Text::npos) throw;
    cursor.CreateKey(name);
  }
}

}  // namespace

RegistryKeyCursor TemplateListKey::Open(Registry& registry) const {
  RegistryKeyCursor cursor(registry);
  if (cursor.Root() != RootKey) cursor.Root(RootKey);
  for (const Text* name : {&BaseKey, &ZorAplName, &Typ}) cursor.OpenKey(*name);
  return cursor;
}

RegistryKeyCursor TemplateListKey::OpenOrCreate(Registry& registry) const {
  RegistryKeyCursor cursor(registry);
  if (cursor.Root() != RootKey) cursor.Root(RootKey);
  for (const Text* name : {&BaseKey, &ZorAplName, &Typ}) OpenOrCreateKey(cursor, *name);
  return cursor;
}

Text TemplateListKey::PathOf(TextView templateName) const {
  Text path = BaseKey;
  for (const TextView name : {TextView(ZorAplName), TextView(Typ), templateName}) path.append(u"\\").append(name);
  return path;
}

}  // namespace zorkanca
