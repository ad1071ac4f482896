// The Windows computer put together.
#include <gtest/gtest.h>

#include "support/temporary_folder.h"
#include "support/text_support.h"
#include "win32/computer/win32_platform.h"
#include "win32/system.h"

namespace zorkanca::testing {
namespace {

TEST(WindowsComputer, IsTheUsersOwn) {
  const win32::Win32Platform computer;
  const Platform& platform = computer.platform();
  const TemporaryFolder folder;
  EXPECT_EQ(static_cast<unsigned>(platform.locale.codePage->number()), GetACP());
  const auto stream = platform.files.OpenTextFile(folder.TextPath("a"), IoMode::kForWriting, true, TextFormat::kAnsi);
  stream->Write(u"ž");
  stream->Close();
  EXPECT_EQ(folder.Read("a"), std::string(1, static_cast<char>(platform.locale.codePage->Encode(u'ž'))));
  EXPECT_EQ(platform.environment.VersionText().substr(0, 4), u"4.1.");
  EXPECT_FALSE(platform.environment.TakesAllTemplateFormats());
  EXPECT_TRUE(platform.files.FolderExists(platform.files.TemporaryFolder()));
}

}  // namespace
}  // namespace zorkanca::testing
