// All scripts of this folder, each as a client of its own; tests/com/script_host.h tells what they can do.
#include <gtest/gtest.h>

#include "com/script_host.h"
#include "com/server_under_test.h"

namespace zorkanca::testing {
namespace {

class Scripts : public ::testing::TestWithParam<const char*> {};

TEST_P(Scripts, Run) {
  const Apartment apartment;
  for (const std::string& failure : RunScript(GetParam())) {
    ADD_FAILURE() << failure;
  }
}

INSTANTIATE_TEST_SUITE_P(All, Scripts,
                         ::testing::Values("html", "excel", "excel_template", "word_merge", "word_form",
                                           "prepared_files", "xml", "settings", "errors"),
                         [](const auto& each) { return std::string(each.param); });

// The host itself must notice what goes wrong.
TEST(ScriptHost, TellsFailures) {
  const Apartment apartment;
  const std::vector<std::string> failures = RunScript("failing");
  ASSERT_EQ(failures.size(), 3U);
  EXPECT_EQ(failures[0], "found    1\nexpected 2");
  EXPECT_EQ(failures[1], "not true: ordinary");
  EXPECT_EQ(failures[2].substr(0, 8), "line 4: ");
}

}  // namespace
}  // namespace zorkanca::testing
