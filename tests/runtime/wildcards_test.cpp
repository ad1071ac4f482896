// Names of files and wildcards.
#include "runtime/wildcards.h"

#include <gtest/gtest.h>

#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

TEST(Wildcards, MatchWholeNamesWithoutCase) {
  struct Row {
    TextView name, wildcards;
    bool matches;
  };
  const Row rows[] = {
      {u"rad1.tmp", u"RAD*.tmp", true},
      {u"rad1.tmp.x", u"rad*.tmp", false},
      {u"rad.tmp.tmp", u"rad*.tmp", true},
      {u"Žába.txt", u"žáb?.*", true},
      {u"name", u"*.*", true},
      {u"name", u"*.txt", false},
      {u"a[1].txt", u"a[1].txt", true},
      {u"aaaaab", u"*a*ab", true},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(MatchesWildcards(row.name, row.wildcards), row.matches) << Shown(row.name) << " " << Shown(row.wildcards);
  }
}

}  // namespace
}  // namespace zorkanca::testing
