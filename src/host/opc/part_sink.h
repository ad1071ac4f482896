// Where the text of a part goes while it is produced.
#pragma once

#include <string_view>

namespace zorkanca {

/// A part being written. Small pieces are cheap: they are gathered before they are compressed.
class PartSink {
 public:
  virtual ~PartSink() = default;
  /// Errors: 61 when the disk is full, 57.
  virtual void Append(std::string_view bytes) = 0;
};

}  // namespace zorkanca
