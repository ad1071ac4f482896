// One JSON object as the names and values of a record, by RFC 8259, nothing more: no comments, no commas at the end.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/error.h"
#include "runtime/text.h"
#include "tabular/cell.h"

namespace zorkanca {

struct JsonMember {
  std::string_view name;
  Cell value;
  std::size_t offset = 0;  ///< of the value in the object's text
};

/// Who knows where a fault lies in the file.
class JsonFaults {
 public:
  virtual ~JsonFaults() = default;
  /// @param offset  in the object's text
  virtual Error FaultIn(std::size_t offset, const Text& reason) const = 0;
};

class JsonParser {
 public:
  /// @param faults  outlives the parser
  explicit JsonParser(const JsonFaults& faults) : faults_(faults) {}

  /// @param object  valid UTF-8 that begins with "{"; it must outlive what is returned
  /// @return        in the order of the file; it holds until the next call
  /// Errors: those that `JsonFaults` makes.
  const std::vector<JsonMember>& Parse(std::string_view object);

 private:
  struct Word;

  char Current() const { return next_ < text_.size() ? text_[next_] : '\0'; }
  void SkipBlanks();
  bool Take(char byte);
  void Require(char byte, const char16_t* reason);
  [[noreturn]] void Fail(const Text& reason) const { throw faults_.FaultIn(next_, reason); }

  void ParseMember();
  Cell ParseValue();
  bool TakeWord(std::string_view word);
  std::string_view TakeNumber();
  void TakeDigits();
  std::string_view TakeText(bool& hasEscapes);
  void CheckEscape();
  char16_t TakeUnit();
  std::string_view Decoded(std::string_view raw, std::size_t offset);
  void Compact(std::size_t depth);
  void CompactItems(std::size_t depth, char closing, bool named);

  const JsonFaults& faults_;
  std::string_view text_;
  std::size_t next_ = 0;
  std::string room_;  // texts without their escapes, and compact JSON; never moved while a record is read
  std::vector<JsonMember> members_;
};

}  // namespace zorkanca
