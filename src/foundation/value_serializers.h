// How single values are written into settings, one class for each type that can be. A tag of one character tells the
// types apart; the text after it depends on no locale.
//
//   %  Integer (16 bits)   "-5"
//   &  Long (32 bits)      "70000"
//   !  Single              "1.5"
//   $  String              "\" as "\\"; "|" and characters below 32 as "\" and the code in three decimal digits
#pragma once

#include "runtime/text.h"
#include "runtime/value.h"

namespace zorkanca {

class IValueToStringSerializer {
 public:
  virtual ~IValueToStringSerializer() = default;
  virtual char16_t Tag() const = 0;
  /// The text after the tag. The value has the serializer's type.
  virtual Text Serialize(const Value& value) const = 0;
  /// The value of a text after the tag; blanks around a number are passed over.
  /// Errors: 13 for a text that is no such value, 6 for a number beyond the type.
  virtual Value Deserialize(TextView data) const = 0;
};

class IntegerValueToStringSerializer final : public IValueToStringSerializer {
 public:
  char16_t Tag() const override { return u'%'; }
  Text Serialize(const Value& value) const override;
  Value Deserialize(TextView data) const override;
};

class LongValueToStringSerializer final : public IValueToStringSerializer {
 public:
  char16_t Tag() const override { return u'&'; }
  Text Serialize(const Value& value) const override;
  Value Deserialize(TextView data) const override;
};

class SingleValueToStringSerializer final : public IValueToStringSerializer {
 public:
  char16_t Tag() const override { return u'!'; }
  Text Serialize(const Value& value) const override;
  Value Deserialize(TextView data) const override;
};

class StringValueToStringSerializer final : public IValueToStringSerializer {
 public:
  char16_t Tag() const override { return u'$'; }
  Text Serialize(const Value& value) const override;
  Value Deserialize(TextView data) const override;
};

}  // namespace zorkanca
