// How many records a query gives when each is written as often as one of its columns says.
#pragma once

#include "runtime/text.h"

namespace zorkanca {

/// The statement that sums the multiplier over a query: "SELECT SUM(expression) FROM ...", without an order. What is
/// summed is the column itself or, when the SELECT list gives the name to an expression (" ... AS name"), that
/// expression back to the last blank or comma before it: "SELECT a, b*2 AS pocet FROM t" gives "SELECT SUM(b*2) FROM
/// t". The scan is textual; it finds the first place that spells the name.
/// @param multiplier  name of the column, lower case where the statement is to be searched for it
/// Errors: 5 for a statement without "from".
Text MultiplierSumStatement(TextView select, TextView multiplier);

}  // namespace zorkanca
