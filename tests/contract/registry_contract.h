// What every computer's registry does alike. The tests of each computer include this once and name their registry:
//   INSTANTIATE_TEST_SUITE_P(Linux, RegistryContract, ::testing::Values(&Make));
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/registry.h"
#include "support/temporary_folder.h"
#include "support/text_support.h"

namespace zorkanca::testing {

/// Makes a registry, in the folder when it is one of files.
using MakeRegistry = std::unique_ptr<Registry> (*)(const TemporaryFolder& folder);

class RegistryContract : public ::testing::TestWithParam<MakeRegistry> {
 protected:
  static constexpr RegistryHive kUser = RegistryHive::kCurrentUser;

  RegistryContract() { registry_.DeleteKey(kUser, base_); }
  ~RegistryContract() override { registry_.DeleteKey(kUser, base_); }

  /// A key below the test's own.
  Text Key(TextView name) const { return name.empty() ? base_ : Text(base_).append(u"\\").append(name); }
  // The value as a short text: text, number, kind and bytes of another, or "-" for nothing.
  std::string Seen(TextView key, TextView name) {
    const std::optional<RegistryValue> value = registry_.Read(kUser, Key(key), name);
    if (!value) return "-";
    if (const Text* text = std::get_if<Text>(&*value)) return Shown(*text);
    if (const std::int32_t* number = std::get_if<std::int32_t>(&*value)) return std::to_string(*number);
    const auto& raw = std::get<RawRegistryValue>(*value);
    std::string shown = "kind " + std::to_string(raw.type) + ":";
    for (const std::byte byte : raw.bytes) shown += " " + std::to_string(std::to_integer<int>(byte));
    return shown;
  }

  const Text base_ = u"Software\\zorKancA contract of registries";
  TemporaryFolder folder_;
  const std::unique_ptr<Registry> made_ = GetParam()(folder_);
  Registry& registry_ = *made_;
};

TEST_P(RegistryContract, ReadingMakesNothing) {
  EXPECT_TRUE(registry_.KeyExists(kUser, u""));
  EXPECT_EQ(Seen(u"A", u"x"), "-");
  EXPECT_THAT(registry_.SubkeyNames(kUser, Key(u"A")), ::testing::IsEmpty());
  EXPECT_THAT(registry_.ValueNames(kUser, Key(u"A")), ::testing::IsEmpty());
  EXPECT_FALSE(registry_.DeleteValue(kUser, Key(u"A"), u"x"));
  EXPECT_FALSE(registry_.DeleteKey(kUser, Key(u"A")));
  EXPECT_FALSE(registry_.KeyExists(kUser, base_));
}

TEST_P(RegistryContract, KeepsSpellingAndIgnoresCase) {
  using ::testing::UnorderedElementsAre;
  registry_.Write(kUser, Key(u"Žába"), u"Beta", Text(u"1"));
  registry_.Write(kUser, Key(u"ŽÁBA"), u"alfa", -5);
  registry_.Write(kUser, Key(u"žába"), u"", RawRegistryValue{.type = 3, .bytes = {std::byte{7}}});
  registry_.Write(kUser, Key(u"žába"), u"BETA", Text(u"2"));
  registry_.CreateKey(kUser, Key(u"Alfa\\Sub"));
  registry_.CreateKey(kUser, Key(u"Alfa\\Sub"));
  EXPECT_THAT(registry_.ValueNames(kUser, Key(u"Žába")), UnorderedElementsAre(u"Beta", u"alfa", u""));
  EXPECT_THAT(registry_.SubkeyNames(kUser, base_), UnorderedElementsAre(u"Žába", u"Alfa"));
  EXPECT_EQ(Seen(u"Žába", u"beta"), "2");
  EXPECT_EQ(Seen(u"Žába", u"ALFA"), "-5");
  EXPECT_EQ(Seen(u"Žába", u""), "kind 3: 7");
  EXPECT_TRUE(registry_.DeleteValue(kUser, Key(u"Žába"), u"ALFA"));
  EXPECT_FALSE(registry_.DeleteValue(kUser, Key(u"Žába"), u"ALFA"));
  EXPECT_TRUE(registry_.DeleteKey(kUser, Key(u"ALFA")));
  EXPECT_THAT(registry_.ValueNames(kUser, Key(u"Žába")), UnorderedElementsAre(u"Beta", u""));
  EXPECT_THAT(registry_.SubkeyNames(kUser, base_), UnorderedElementsAre(u"Žába"));
}

TEST_P(RegistryContract, ValuesComeBackAsTheyWere) {
  const std::vector<RegistryValue> values = {
      Text(),
      Text(u"Žluťoučký\r\nkůň"),
      Text(20000, u'x'),
      std::int32_t{0},
      std::int32_t{-2147483647 - 1},
      RawRegistryValue{.type = 3, .bytes = {}},
      RawRegistryValue{.type = 2, .bytes = {std::byte{'%'}, std::byte{0}, std::byte{0}, std::byte{0}}},
      RawRegistryValue{.type = 11, .bytes = std::vector<std::byte>(8, std::byte{255})},
      RawRegistryValue{.type = 7, .bytes = std::vector<std::byte>(1000)},
  };
  for (const RegistryValue& value : values) {
    registry_.Write(kUser, Key(u"A"), u"x", value);
    EXPECT_TRUE(registry_.Read(kUser, Key(u"A"), u"x") == value) << Seen(u"A", u"x");
  }
}

TEST_P(RegistryContract, UnsoundNamesAreRefused) {
  const Text long255(255, u'x');
  registry_.CreateKey(kUser, Key(long255));
  EXPECT_THAT(registry_.SubkeyNames(kUser, base_), ::testing::ElementsAre(long255));
  const Text keys[] = {u"\\a", u"a\\", u"a\\\\b", long255 + u"x", Text(u"a\0b", 3), Text(1200, u'x')};
  for (const Text& key : keys) {
    EXPECT_EQ(ErrorOf([&] { registry_.Write(kUser, key, u"a", 1); }).number(), 5) << Shown(key);
    EXPECT_EQ(ErrorOf([&] { registry_.KeyExists(kUser, key); }).number(), 5) << Shown(key);
  }
  Text deep = u"a";
  for (int level = 0; level < 512; ++level) deep += u"\\a";
  EXPECT_EQ(ErrorOf([&] { registry_.CreateKey(kUser, deep); }).number(), 5);
  EXPECT_EQ(ErrorOf([&] { registry_.Write(kUser, base_, TextView(u"x\0y", 3), 1); }).number(), 5);
  EXPECT_EQ(ErrorOf([&] { registry_.Write(kUser, base_, Text(16384, u'x'), 1); }).number(), 5);
  EXPECT_EQ(ErrorOf([&] { registry_.DeleteKey(kUser, u""); }).number(), 5);
  EXPECT_EQ(ErrorOf([&] { registry_.CreateKey(static_cast<RegistryHive>(7), u"a"); }).number(), 5);
}

TEST_P(RegistryContract, ChangesRunWholeAndLetErrorsOut) {
  registry_.Change([&] {
    registry_.Write(kUser, Key(u"A"), u"x", 2);
    registry_.Change([&] { registry_.Write(kUser, Key(u"B"), u"y", 3); });
    EXPECT_EQ(Seen(u"A", u"x"), "2");
  });
  EXPECT_EQ(Seen(u"B", u"y"), "3");
  EXPECT_EQ(ErrorOf([&] { registry_.Change([] { Raise(RuntimeError::kOverflow); }); }).number(), 6);
}

}  // namespace zorkanca::testing
