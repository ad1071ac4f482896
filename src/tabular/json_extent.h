// Where a JSON object ends, found without understanding it: by its brackets outside of texts.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace zorkanca {

class JsonExtent {
 public:
  /// Looks on where the last look ended.
  /// @param text  from the "{" or "[" on; each time the same text, at the most with more behind it
  /// @return      length of the value once it is complete
  std::optional<std::size_t> Find(std::string_view text);

 private:
  std::size_t looked_ = 0;
  std::size_t depth_ = 0;
  bool inText_ = false;
};

}  // namespace zorkanca
