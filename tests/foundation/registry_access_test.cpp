#include "foundation/registry_access.h"

#include <gtest/gtest.h>

#include "foundation/error_codes.h"
#include "support/memory_registry.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

constexpr RegistryHive kUser = RegistryHive::kCurrentUser;

TEST(RegistryAccess, SettingsLieUnderApplicationAndSection) {
  MemoryRegistry registry;
  RegistryAccess access(registry);
  EXPECT_EQ(ErrorOf([&] { access.SaveSetting(u"S", u"k", u"v"); }).number(), ArgumentErrorCode) << "no application";
  access.SetApplicationName(u"zorKancA");
  access.SaveSetting(u"Layout", u"Okno", u"|1");
  access.SaveSetting(u"ABC\\AlternativeOffice", u"Folder", u"");
  EXPECT_EQ(
      registry.Listing(kUser, u"Software\\VB and VBA Program Settings"),
      "[zorKancA]\n[zorKancA\\Layout]\nOkno = |1\n[zorKancA\\ABC]\n[zorKancA\\ABC\\AlternativeOffice]\nFolder = \n");
  EXPECT_EQ(access.GetSetting(u"layout", u"OKNO", u"d"), u"|1");
  EXPECT_EQ(access.GetSetting(u"abc\\AlternativeOffice", u"Folder", u"d"), u"");
  EXPECT_EQ(access.GetSetting(u"Layout", u"missing", u"d"), u"d");
  EXPECT_EQ(access.GetSetting(u"missing", u"Okno", u"d"), u"d");
  for (const auto& names : {std::pair(u" ", u"k"), std::pair(u"s", u"")}) {
    EXPECT_EQ(ErrorOf([&] { access.GetSetting(names.first, names.second, u"d"); }).number(), ArgumentErrorCode);
  }
  const Error unsound = ErrorOf([&] { access.SaveSetting(u"a\\\\b", u"k", u"v"); });
  EXPECT_EQ(
      Shown(unsound.source()),
      "[zorKancA].RegistryAccess.SaveSetting->\\r\\n\\r\\n[Detaily: section = \"a\\\\b\"; key = \"k\"; value = \"v\"]");
}

TEST(RegistryAccess, ReadsValuesOfAnyKeyAsText) {
  MemoryRegistry registry;
  const RegistryHive classes = RegistryHive::kClassesRoot;
  const auto bytes = [](std::string_view text) {
    std::vector<std::byte> result;
    for (const char byte : text) result.push_back(static_cast<std::byte>(byte));
    return result;
  };
  registry.Write(classes, u"Word.Application\\CurVer", u"", Text(u"Word.Application.8"));
  registry.Write(classes, u"Word.Application", u"count", -5);
  registry.Write(classes, u"Word.Application", u"path", RawRegistryValue{2, bytes({"%\0A\0\0\0x", 7})});
  registry.Write(classes, u"Word.Application", u"blob", RawRegistryValue{3, bytes("ab")});
  const RegistryAccess access(registry);
  EXPECT_EQ(access.ReadValue(classes, u"word.application\\curver", u"", u"d"), u"Word.Application.8");
  EXPECT_EQ(access.ReadValue(classes, u"Word.Application", u"", u"d"), u"d") << "a key without default value";
  EXPECT_EQ(access.ReadValue(classes, u"Excel.Application", u"", u"d"), u"d");
  EXPECT_EQ(access.ReadValue(kUser, u"Word.Application", u"count", u"d"), u"d") << "another hive";
  EXPECT_EQ(access.ReadValue(classes, u"Word.Application", u"count", u"d"), u"-5");
  EXPECT_EQ(access.ReadValue(classes, u"Word.Application", u"path", u"d"), u"%A");
  EXPECT_EQ(access.ReadValue(classes, u"Word.Application", u"blob", u"d"), u"d");
}

// Other tests rely on it as on the real one.
TEST(MemoryRegistry, KeepsOrderDeletesTreesAndRollsBack) {
  MemoryRegistry registry;
  registry.Write(kUser, u"A\\B", u"x", Text(u"1"));
  registry.CreateKey(kUser, u"a\\C");
  registry.Write(kUser, u"A\\b", u"X", 2);
  EXPECT_EQ(registry.Listing(kUser, u"A"), "[B]\nx = #2\n[C]\n");
  EXPECT_EQ(registry.SubkeyNames(kUser, u"A"), (std::vector<Text>{u"B", u"C"}));
  EXPECT_EQ(registry.ValueNames(kUser, u"A\\B"), (std::vector<Text>{u"x"}));
  EXPECT_EQ(ErrorOf([&] {
              registry.Change([&] {
                registry.DeleteKey(kUser, u"A");
                registry.Write(kUser, u"D", u"", 1);
                Raise(RuntimeError::kDiskFull);
              });
            }).number(),
            61);
  EXPECT_EQ(registry.Listing(kUser, u""), "[A]\n[A\\B]\nx = #2\n[A\\C]\n");
  EXPECT_TRUE(registry.DeleteValue(kUser, u"A\\B", u"X"));
  EXPECT_TRUE(registry.DeleteKey(kUser, u"A\\b") && registry.KeyExists(kUser, u"A"));
  EXPECT_FALSE(registry.DeleteKey(kUser, u"A\\b") || registry.DeleteValue(kUser, u"A\\B", u"x"));
  EXPECT_EQ(ErrorOf([&] { registry.CreateKey(kUser, u"A\\"); }).number(), 5);
}

}  // namespace
}  // namespace zorkanca::testing
