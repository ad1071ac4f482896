#include "cli/status_line.h"

#include <algorithm>
#include <cstdio>
#include <string>

namespace zorkanca::cli {

// Blanks wipe out what is longer than the new text: every terminal knows them. The cursor goes back to the start, so
// that what others print covers the line.
void StatusLine::Draw(std::string_view text) {
  const std::string rest(drawn_ - std::min(drawn_, text.size()), ' ');
  std::fprintf(stderr, "\r%.*s%s\r", static_cast<int>(text.size()), text.data(), rest.c_str());
  drawn_ = text.size();
}

void StatusLine::Erase() {
  if (drawn_ == 0) return;
  Draw("");
}

}  // namespace zorkanca::cli
