#include "runtime/iso_date.h"

#include <gtest/gtest.h>

#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

TEST(IsoDate, DatesOfText) {
  struct Row {
    std::string_view text;
    std::optional<Date> expected;
  };
  const Row rows[] = {
      {"1899-12-30", Date{0}},
      {"1899-12-29 06:00", Date{-1.25}},  // the time counts forwards before day 0, too
      {"0100-01-01", Date{-657434}},
      {"0099-12-31", std::nullopt},
      {"2024-02-29", Date{45351}},
      {"2023-02-29", std::nullopt},
      {"2026-13-01", std::nullopt},
      {"23:59:59", Date{86399.0 / 86400}},
      {"24:00", std::nullopt},
      {"2026-03-01 12:00:60", std::nullopt},
      {"2026-03-01 12:00.5", std::nullopt},
      {"2026-03-01 12:00:00.", std::nullopt},
      {"2026-03-01 12:00:00.25", Date{46082.5}},
      {"2026-03-01 12:00+01:00", std::nullopt},
      {"2026-03-01  12:00", std::nullopt},
      {"2026-03-01 ", std::nullopt},
      {"", std::nullopt},
      {"12", std::nullopt},
  };
  for (const Row& row : rows) EXPECT_TRUE(ParseIsoDate(row.text) == row.expected) << row.text;
}

TEST(IsoDate, TextsOfDates) {
  for (const std::string_view text : {"1899-12-30", "1899-12-29 06:00:00", "0100-01-01", "9999-12-31 23:59:59",
                                      "2024-02-29", "23:59:59", "2026-03-01 00:00:01"}) {
    EXPECT_EQ(IsoDateText(ParseIsoDate(text).value()), text);
  }
}

}  // namespace
}  // namespace zorkanca::testing
