// The picture of a date, switch \@ :
//
//   day     d dd    ddd and dddd the day's name, short and full
//   month   M MM    MMM and MMMM its name; the genitive where the picture has a day and the language one
//   year    yy yyyy
//   hour    h hh of twelve, H HH of twenty-four      minute  m mm      second  s ss
//   half    am/pm (case ignored)                     'text' and any other character: itself
#pragma once

#include <vector>

#include "runtime/locale.h"
#include "runtime/text.h"
#include "runtime/value.h"

namespace zorkanca::word {

class DatePicture {
 public:
  explicit DatePicture(TextView picture);

  /// @param language  of the names
  Text Apply(Date date, const Locale& language) const;

 private:
  struct Item {
    char16_t letter = 0;  // 0 for a literal, 'p' for AM/PM
    std::size_t count = 0;
    Text literal;
  };

  std::vector<Item> items_;
  bool hasDay_ = false;
};

}  // namespace zorkanca::word
