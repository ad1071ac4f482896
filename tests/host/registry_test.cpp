// The registry in files: contents, layers, changes, several programs at once.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "contract/registry_contract.h"
#include "host/registry/file_registry.h"
#include "host/registry/reg_transfer.h"
#include "support/child_process.h"
#include "support/temporary_folder.h"
#include "support/text_support.h"
#include "textfiles/utf16.h"

namespace zorkanca::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr RegistryHive kUser = RegistryHive::kCurrentUser;
constexpr RegistryHive kMachine = RegistryHive::kLocalMachine;
constexpr RegistryHive kClasses = RegistryHive::kClassesRoot;
constexpr std::string_view kSignature = "Windows Registry Editor Version 5.00\r\n";

std::string InUtf16(std::string_view utf8) {
  std::string bytes(kByteOrderMark);
  AppendUtf16(bytes, FromUtf8(utf8));
  return bytes;
}

std::unique_ptr<Registry> Make(const TemporaryFolder& folder) {
  return std::make_unique<FileRegistry>(folder.Path("home"), folder.Path("none"));
}
INSTANTIATE_TEST_SUITE_P(Linux, RegistryContract, ::testing::Values(&Make));

class RegistryFiles : public ::testing::Test {
 protected:
  RegistryFiles() { std::filesystem::create_directory(folder_.Path("system")); }

  std::unique_ptr<FileRegistry> Opened() {
    return std::make_unique<FileRegistry>(folder_.Path("home"), folder_.Path("system"));
  }
  void WriteSystem(std::string_view lines) { folder_.Write("system/HKLM.reg", std::string(kSignature).append(lines)); }

  TemporaryFolder folder_;
  FileRegistry registry_{folder_.Path("home"), folder_.Path("system")};
};

// The value as a short text: "text", number, or "-" for nothing.
std::string Seen(Registry& registry, RegistryHive hive, TextView key, TextView name) {
  const std::optional<RegistryValue> value = registry.Read(hive, key, name);
  if (!value) return "-";
  if (const Text* text = std::get_if<Text>(&*value)) return Shown(*text);
  if (const std::int32_t* number = std::get_if<std::int32_t>(&*value)) return std::to_string(*number);
  return "raw";
}

TEST_F(RegistryFiles, ReadingMakesNoFile) {
  EXPECT_FALSE(registry_.KeyExists(kUser, u"Software\\A"));
  EXPECT_EQ(Seen(registry_, kUser, u"A", u"x"), "-");
  EXPECT_THAT(registry_.SubkeyNames(kMachine, u"A"), IsEmpty());
  EXPECT_FALSE(registry_.DeleteKey(kClasses, u"A"));
  EXPECT_FALSE(folder_.Has("home"));
}

TEST_F(RegistryFiles, KeepsOrderAndSpellingAndIgnoresCase) {
  registry_.Write(kUser, u"Software\\Žába", u"Beta", Text(u"1"));
  registry_.Write(kUser, u"software\\ŽÁBA", u"alfa", -5);
  registry_.Write(kUser, u"SOFTWARE\\žába", u"", RawRegistryValue{.type = 3, .bytes = {std::byte{7}}});
  registry_.Write(kUser, u"Software\\žába", u"BETA", Text(u"2"));
  registry_.CreateKey(kUser, u"Software\\Alfa\\Sub");
  const auto again = Opened();
  for (FileRegistry* registry : {&registry_, again.get()}) {
    EXPECT_THAT(registry->ValueNames(kUser, u"Software\\Žába"), ElementsAre(u"Beta", u"alfa", u""));
    EXPECT_THAT(registry->SubkeyNames(kUser, u"software"), ElementsAre(u"Žába", u"Alfa"));
    EXPECT_EQ(Seen(*registry, kUser, u"Software\\Žába", u"beta"), "2");
    EXPECT_EQ(Seen(*registry, kUser, u"Software\\Žába", u"ALFA"), "-5");
  }
  EXPECT_EQ(folder_.Read("home/HKCU.reg"),
            InUtf16(std::string(kSignature) + "\r\n[HKEY_CURRENT_USER\\Software]\r\n"
                                              "\r\n[HKEY_CURRENT_USER\\Software\\Žába]\r\n"
                                              "\"Beta\"=\"2\"\r\n\"alfa\"=dword:fffffffb\r\n@=hex:07\r\n"
                                              "\r\n[HKEY_CURRENT_USER\\Software\\Alfa]\r\n"
                                              "\r\n[HKEY_CURRENT_USER\\Software\\Alfa\\Sub]\r\n"));
  EXPECT_EQ(folder_.Mode("home"), 0700u);
  EXPECT_TRUE(registry_.DeleteValue(kUser, u"Software\\Žába", u"ALFA"));
  EXPECT_TRUE(registry_.DeleteKey(kUser, u"SOFTWARE\\Alfa"));
  EXPECT_THAT(Opened()->ValueNames(kUser, u"Software\\Žába"), ElementsAre(u"Beta", u""));
  EXPECT_THAT(Opened()->SubkeyNames(kUser, u"Software"), ElementsAre(u"Žába"));
}

TEST_F(RegistryFiles, NamesThatNoLineHoldsAreRefused) {
  EXPECT_EQ(ErrorOf([&] { registry_.Write(kUser, u"a\nb", u"a", 1); }).number(), 5);
  EXPECT_EQ(ErrorOf([&] { registry_.Write(kUser, u"a", u"x\ry", 1); }).number(), 5);
  EXPECT_FALSE(registry_.KeyExists(kUser, u"a"));
}

TEST_F(RegistryFiles, OwnMachineHiveCoversTheSystems) {
  WriteSystem(
      "[HKEY_LOCAL_MACHINE\\S]\n\"a\"=\"1\"\n\"b\"=\"2\"\n[HKEY_LOCAL_MACHINE\\S\\T]\n\"c\"=\"3\"\n"
      "[HKEY_LOCAL_MACHINE\\S\\U]\n[HKEY_LOCAL_MACHINE\\S\\Gone]\n[-HKEY_LOCAL_MACHINE\\S\\Gone]\n");
  const std::string system = folder_.Read("system/HKLM.reg");
  registry_.Write(kMachine, u"s", u"new", 1);
  registry_.Write(kMachine, u"S", u"A", Text(u"own"));
  EXPECT_TRUE(registry_.DeleteValue(kMachine, u"S", u"B"));
  EXPECT_FALSE(registry_.DeleteValue(kMachine, u"S", u"b"));
  EXPECT_TRUE(registry_.DeleteKey(kMachine, u"S\\t"));
  EXPECT_FALSE(registry_.DeleteKey(kMachine, u"S\\T"));
  registry_.Write(kMachine, u"S\\T\\V", u"d", 4);
  registry_.CreateKey(kMachine, u"S\\W");
  registry_.CreateKey(kMachine, u"S\\U\\X");

  const auto again = Opened();
  for (FileRegistry* registry : {&registry_, again.get()}) {
    EXPECT_EQ(Seen(*registry, kMachine, u"S", u"a"), "own");
    EXPECT_EQ(Seen(*registry, kMachine, u"S", u"b"), "-");
    EXPECT_EQ(Seen(*registry, kMachine, u"S\\T", u"c"), "-") << "made anew, without what was deleted";
    EXPECT_THAT(registry->ValueNames(kMachine, u"S"), ElementsAre(u"a", u"new"));
    EXPECT_THAT(registry->SubkeyNames(kMachine, u"S"), ElementsAre(u"U", u"t", u"W"));
    EXPECT_THAT(registry->SubkeyNames(kMachine, u"S\\T"), ElementsAre(u"V"));
    EXPECT_THAT(registry->SubkeyNames(kMachine, u"S\\U"), ElementsAre(u"X"));
  }
  EXPECT_EQ(folder_.Read("home/HKLM.reg"),
            InUtf16(std::string(kSignature) + "\r\n[HKEY_LOCAL_MACHINE\\s]\r\n"
                                              "\"new\"=dword:00000001\r\n\"A\"=\"own\"\r\n\"B\"=-\r\n"
                                              "\r\n[-HKEY_LOCAL_MACHINE\\s\\t]\r\n"
                                              "\r\n[HKEY_LOCAL_MACHINE\\s\\t]\r\n"
                                              "\r\n[HKEY_LOCAL_MACHINE\\s\\t\\V]\r\n\"d\"=dword:00000004\r\n"
                                              "\r\n[HKEY_LOCAL_MACHINE\\s\\W]\r\n"
                                              "\r\n[HKEY_LOCAL_MACHINE\\s\\U]\r\n"
                                              "\r\n[HKEY_LOCAL_MACHINE\\s\\U\\X]\r\n"));
  EXPECT_EQ(folder_.Read("system/HKLM.reg"), system);

  EXPECT_TRUE(registry_.DeleteKey(kMachine, u"S\\T"));
  EXPECT_FALSE(registry_.KeyExists(kMachine, u"S\\T")) << "the system's key stays hidden";
  WriteSystem("[HKEY_LOCAL_MACHINE\\Other]\n\"a\"=\"1\"\n");
  EXPECT_TRUE(registry_.KeyExists(kMachine, u"Other")) << "the system's file is read again";
  WriteSystem("[HKEY_LOCAL_MACHINE\\S]\n\"b\"=\"22\"\n[HKEY_LOCAL_MACHINE\\S\\T]\n");
  EXPECT_EQ(Seen(*again, kMachine, u"S", u"b"), "-") << "what was deleted stays so when the system has it again";
  EXPECT_FALSE(again->KeyExists(kMachine, u"S\\T"));
}

TEST_F(RegistryFiles, SeesWhatOthersWrote) {
  EXPECT_EQ(Seen(registry_, kUser, u"A", u"x"), "-");
  const auto other = Opened();
  for (int number = 1; number <= 20; ++number) {
    other->Write(kUser, u"A", u"x", number);
    EXPECT_EQ(Seen(registry_, kUser, u"A", u"x"), std::to_string(number));
  }
  folder_.Write("home/HKCU.reg", std::string(kSignature) + "[HKEY_CURRENT_USER\\A]\n\"x\"=\"by hand\"\n");
  EXPECT_EQ(Seen(registry_, kUser, u"A", u"x"), "by hand");
  std::filesystem::remove(folder_.Path("home/HKCU.reg"));
  EXPECT_EQ(Seen(registry_, kUser, u"A", u"x"), "-");
}

TEST_F(RegistryFiles, ChangeIsAllOrNothing) {
  registry_.Write(kUser, u"A", u"x", 1);
  const std::string before = folder_.Read("home/HKCU.reg");
  const auto other = Opened();
  const auto change = [&](bool fail) {
    registry_.Change([&] {
      registry_.Write(kUser, u"A", u"x", 2);
      registry_.Change([&] { registry_.Write(kClasses, u"B", u"y", 3); });
      EXPECT_EQ(Seen(registry_, kUser, u"A", u"x"), "2");
      EXPECT_EQ(Seen(*other, kUser, u"A", u"x"), "1");
      EXPECT_EQ(Seen(*other, kClasses, u"B", u"y"), "-");
      if (fail) Raise(RuntimeError::kOverflow);
    });
  };
  EXPECT_EQ(ErrorOf([&] { change(true); }).number(), 6);
  EXPECT_EQ(Seen(registry_, kUser, u"A", u"x"), "1");
  EXPECT_FALSE(registry_.KeyExists(kClasses, u"B"));
  EXPECT_EQ(folder_.Read("home/HKCU.reg"), before);
  change(false);
  EXPECT_EQ(Seen(*other, kUser, u"A", u"x"), "2");
  EXPECT_EQ(Seen(*other, kClasses, u"B", u"y"), "3");
}

TEST_F(RegistryFiles, UnreadableHiveIsNotOverwritten) {
  registry_.Write(kUser, u"A", u"x", 1);
  const std::pair<std::string, TextView> rows[] = {
      {"rubbish", u"line 1: this is no registry file; it has to begin with \"Windows Registry Editor Version 5.00\""},
      {"", u"line 1: this is no registry file; it has to begin with \"Windows Registry Editor Version 5.00\""},
      {std::string(kSignature) + "[HKEY_CURRENT_USER\\A]\n\"x\"=1", u"line 3: a value of an unknown form"},
      {std::string(kSignature) + "[HKEY_CLASSES_ROOT\\A]", u"line 2: the key is not one of HKEY_CURRENT_USER"},
      {std::string(kSignature) + "[HKEY_CURRENT_USER\\A\\\\B]", u"line 2: Unsound name of a registry key: A\\\\B"},
      {std::string(kSignature) + "[-HKEY_CURRENT_USER]", u"line 2: A root of the registry cannot be deleted"},
  };
  for (const auto& [content, message] : rows) {
    folder_.Write("home/HKCU.reg", content);
    const Error error = ErrorOf([&] { registry_.Write(kUser, u"A", u"x", 2); });
    EXPECT_EQ(error.number(), 75);
    EXPECT_EQ(Shown(error.description()), Shown(folder_.TextPath("home/HKCU.reg") + u", " + Text(message)));
    EXPECT_EQ(ErrorOf([&] { registry_.Read(kUser, u"A", u"x"); }).number(), 75);
    EXPECT_EQ(folder_.Read("home/HKCU.reg"), content);
    registry_.Write(kClasses, u"A", u"x", 3);
  }
}

TEST_F(RegistryFiles, FullDiskKeepsTheOldHive) {
  registry_.Write(kUser, u"A", u"x", 1);
  EXPECT_EQ(ExitOf(StartChild([&] {
              LimitFileSize(10000);
              if (ErrorOf([&] { registry_.Write(kUser, u"A", u"x", Text(20000, u'x')); }).number() != 61) return 1;
              return Seen(registry_, kUser, u"A", u"x") == "1" ? 0 : 2;
            })),
            0);
  EXPECT_EQ(Seen(registry_, kUser, u"A", u"x"), "1");
}

Text KeyOf(int writer) {
  return Text(u"W").append(DecimalText(writer));
}

TEST_F(RegistryFiles, EightWritersLoseNothing) {
  constexpr int kWriters = 8;
  constexpr int kRounds = 25;
  registry_.Write(kUser, u"A", u"count", 0);  // an object that was used before the fork serves as well as a new one
  std::vector<pid_t> children;
  for (int writer = 0; writer < kWriters; ++writer) {
    children.push_back(StartChild([&] {
      const auto own = writer % 2 == 0 ? Opened() : nullptr;
      FileRegistry& registry = own ? *own : registry_;
      for (int round = 0; round < kRounds; ++round) {
        registry.Write(kUser, KeyOf(writer), DecimalText(round), round);
        registry.Change([&] {
          const std::int32_t count = std::get<std::int32_t>(*registry.Read(kUser, u"A", u"count"));
          registry.Write(kUser, u"A", u"count", count + 1);
        });
      }
      return 0;
    }));
  }
  for (const pid_t child : children) EXPECT_EQ(ExitOf(child), 0);
  EXPECT_EQ(Seen(registry_, kUser, u"A", u"count"), std::to_string(kWriters * kRounds));
  for (int writer = 0; writer < kWriters; ++writer) {
    EXPECT_EQ(registry_.ValueNames(kUser, KeyOf(writer)).size(), static_cast<std::size_t>(kRounds));
  }
}

TEST_F(RegistryFiles, ExportAndImportCarryEverything) {
  WriteSystem("[HKEY_LOCAL_MACHINE\\S]\n\"a\"=\"1\"\n\"b\"=\"2\"\n");
  registry_.DeleteValue(kMachine, u"S", u"a");
  registry_.Write(kUser, u"A\\B", u"x", Text(u"1\r\n2"));
  registry_.Write(kUser, u"A", u"", 7);
  registry_.Write(kUser, u"Other", u"x", 1);
  const RegistryPlace places[] = {{kUser, u"A"}, {kMachine, u""}};
  const std::string exported = ExportRegistry(registry_, places);
  EXPECT_EQ(exported, InUtf16(std::string(kSignature) +
                              "\r\n[HKEY_CURRENT_USER\\A]\r\n@=dword:00000007\r\n"
                              "\r\n[HKEY_CURRENT_USER\\A\\B]\r\n\"x\"=hex(1):31,00,0d,00,0a,00,32,00,00,00\r\n"
                              "\r\n[HKEY_LOCAL_MACHINE\\S]\r\n\"b\"=\"2\"\r\n"));
  EXPECT_EQ(ErrorOf([&] { ExportRegistry(registry_, std::vector<RegistryPlace>{{kUser, u"none"}}); }).number(), 5);

  FileRegistry target(folder_.Path("target"), folder_.Path("none"));
  ImportRegistry(target, exported, u"f");
  EXPECT_EQ(ExportRegistry(target, places), exported);
  ImportRegistry(target, std::string(kSignature) + "[-HKEY_CURRENT_USER\\A\\B]\n[HKEY_CURRENT_USER\\A]\n@=-\n", u"f");
  EXPECT_THAT(target.ValueNames(kUser, u"A"), IsEmpty());
  EXPECT_THAT(target.SubkeyNames(kUser, u"A"), IsEmpty());

  const Error root = ErrorOf(
      [&] { ImportRegistry(target, std::string(kSignature) + "[HKEY_CURRENT_USER\\N]\n[HKEY_USERS\\N]\n", u"f"); });
  EXPECT_EQ(root.number(), 5);
  EXPECT_EQ(Shown(root.description()), "f, line 3: unknown root of the key HKEY_USERS\\N");
  EXPECT_EQ(ErrorOf([&] { ImportRegistry(target, "rubbish", u"f"); }).number(), 75);
  EXPECT_FALSE(target.KeyExists(kUser, u"N"));
}

}  // namespace
}  // namespace zorkanca::testing
