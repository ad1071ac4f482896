// The registry of Windows: what all computers have alike, and what others write into it.
#include "win32/registry/win32_registry.h"

#include "contract/registry_contract.h"
#include "win32/system.h"

namespace zorkanca::testing {
namespace {

std::unique_ptr<Registry> Make(const TemporaryFolder&) {
  return std::make_unique<win32::Win32Registry>();
}
INSTANTIATE_TEST_SUITE_P(Windows, RegistryContract, ::testing::Values(&Make));

TEST(WindowsRegistry, TextsAndNumbersOfOthersAreReadAsTheyAre) {
  HKEY key = nullptr;
  ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\zorKancA raw", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                            nullptr),
            ERROR_SUCCESS);
  const auto set = [&](const wchar_t* name, DWORD type, const void* bytes, DWORD size) {
    EXPECT_EQ(RegSetValueExW(key, name, 0, type, static_cast<const BYTE*>(bytes), size), ERROR_SUCCESS);
  };
  set(L"open", REG_SZ, L"ab", 4);
  set(L"odd", REG_SZ, L"ab", 5);
  set(L"closed", REG_SZ, L"ab", 6);
  set(L"short", REG_DWORD, L"ab", 2);
  RegCloseKey(key);
  win32::Win32Registry registry;
  const auto read = [&](TextView name) {
    return *registry.Read(RegistryHive::kCurrentUser, u"Software\\zorKancA raw", name);
  };
  for (const TextView name : {u"open", u"odd", u"closed"}) EXPECT_TRUE(read(name) == RegistryValue(Text(u"ab")));
  EXPECT_EQ(std::get<RawRegistryValue>(read(u"short")).type, static_cast<std::uint32_t>(REG_DWORD));
  EXPECT_TRUE(registry.DeleteKey(RegistryHive::kCurrentUser, u"Software\\zorKancA raw"));
}

}  // namespace
}  // namespace zorkanca::testing
