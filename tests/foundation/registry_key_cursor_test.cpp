#include "foundation/registry_key_cursor.h"

#include <gtest/gtest.h>

#include "support/memory_registry.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

constexpr RegistryHive kUser = RegistryHive::kCurrentUser;

TEST(RegistryKeyCursor, MovesMakesAndReadsBelowItsStart) {
  MemoryRegistry registry;
  RegistryKeyCursor cursor(registry);
  const Error missing = ErrorOf([&] { cursor.OpenKey(u"A"); });
  EXPECT_EQ(missing.number(), 76);
  EXPECT_EQ(Shown(missing.description()), "Klíč registru \"HKCU\\Software\\QRD\\Zorix\\A\" neexistuje.");
  cursor.CreateKey(u"A");
  cursor.CreateKey(u"B");
  cursor.SetValue(u"text", Text(u"x"));
  cursor.SetValue(u"number", -7);
  cursor.OpenParent();
  EXPECT_EQ(cursor.EnumKeys(), (std::vector<Text>{u"B"}));
  cursor.OpenKey(u"b");
  EXPECT_EQ(cursor.GetValue(u"text", u"d"), u"x");
  EXPECT_EQ(cursor.GetValue(u"missing", u"d"), u"d");
  EXPECT_EQ(cursor.GetValue(u"number", 0), -7);
  EXPECT_EQ(cursor.GetValue(u"missing", 3), 3);
  EXPECT_EQ(ErrorOf([&] { cursor.GetValue(u"text", 0); }).number(), 13);
  EXPECT_EQ(ErrorOf([&] { cursor.GetValue(u"number", u""); }).number(), 13);

  cursor.SetValueAt(u"A\\C", u"n", 1);
  EXPECT_EQ(cursor.GetValue(u"number", 0), -7) << "the current key stays";
  EXPECT_EQ(registry.Listing(kUser, kCursorStart), "[A]\n[A\\B]\ntext = x\nnumber = #-7\n[A\\C]\nn = #1\n");

  cursor.Root(RegistryHive::kLocalMachine);
  EXPECT_EQ(ErrorOf([&] { cursor.OpenKey(u"A"); }).number(), 76) << "another root";
}

TEST(RegistryKeyCursor, RefusesWhatWouldTouchMoreThanOneKey) {
  MemoryRegistry registry;
  RegistryKeyCursor cursor(registry);
  cursor.CreateKey(u"A");
  cursor.CreateKey(u"B");
  for (int level = 0; level < 3; ++level) cursor.OpenParent();
  EXPECT_EQ(cursor.EnumKeys(), (std::vector<Text>{u"A"})) << "never above the start";
  for (const TextView name : {u"", u"A\\B", u"..\\"}) {
    EXPECT_EQ(ErrorOf([&] { cursor.OpenKey(name); }).number(), 5) << Shown(name);
    EXPECT_EQ(ErrorOf([&] { cursor.CreateKey(name); }).number(), 5) << Shown(name);
    EXPECT_EQ(ErrorOf([&] { cursor.DeleteKey(name, true); }).number(), 5) << Shown(name);
  }
  EXPECT_EQ(ErrorOf([&] { cursor.DeleteKey(u"A"); }).number(), 75) << "a key with sub-keys";
  EXPECT_TRUE(cursor.DeleteKey(u"A", true));
  EXPECT_FALSE(cursor.DeleteKey(u"A"));
}

}  // namespace
}  // namespace zorkanca::testing
