#include "platform/text_edit.h"

#include <gtest/gtest.h>

#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

TEST(TextEdit, IsFoundByTheCursorWhereTheTextsLeaveAChoice) {
  struct Row {
    TextView before;
    TextView after;
    std::size_t cursor;
    std::size_t start;
    std::size_t removed;
    TextView inserted;
  };
  const Row rows[] = {
      {u"", u"a", 1, 0, 0, u"a"},       {u"ab", u"axb", 2, 1, 0, u"x"},     {u"abc", u"ac", 1, 1, 1, u""},
      {u"abcd", u"xy", 2, 0, 4, u"xy"}, {u"aa", u"aaa", 1, 0, 0, u"a"},     {u"aa", u"aaa", 2, 1, 0, u"a"},
      {u"aaa", u"aa", 0, 0, 1, u""},    {u"abab", u"abxab", 3, 2, 0, u"x"}, {u"same", u"same", 2, 2, 0, u""},
      {u"ab", u"abc", 99, 2, 0, u"c"},  {u"1212", u"12312", 3, 2, 0, u"3"}, {u"xyz", u"", 0, 0, 3, u""},
  };
  for (const Row& row : rows) {
    const TextEdit edit = EditBetween(row.before, row.after, row.cursor);
    EXPECT_EQ(edit.start, row.start) << Shown(row.before) << " -> " << Shown(row.after);
    EXPECT_EQ(edit.removed, row.removed) << Shown(row.before) << " -> " << Shown(row.after);
    EXPECT_EQ(Shown(edit.inserted), Shown(row.inserted)) << Shown(row.before) << " -> " << Shown(row.after);
    Text redone(row.before);
    EXPECT_EQ(Shown(redone.replace(edit.start, edit.removed, edit.inserted)), Shown(row.after));
  }
}

}  // namespace
}  // namespace zorkanca::testing
