#include "barcode/bar_code.h"

#include <algorithm>

#include "barcode/code128.h"
#include "barcode/code39.h"
#include "foundation/ignore_errors.h"
#include "runtime/convert.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

void TrimInPlace(Text& text) {
  text.resize(TrimRight(text).size());
  text.erase(0, text.size() - TrimLeft(text).size());
}

void MakeEven(Text& digits) {
  digits.insert(0, digits.size() % 2, u'0');
}

}  // namespace

void cBarCode::ParseParameters(TextView parameters) {
  parameters_ = ParseBarCodeParameters(parameters, locale_);
  symbology_ = SymbologyNamed(parameters_.symbology);
  fields_.clear();
}

void cBarCode::SetRecordset(Recordset& recordset) {
  recordset_ = &recordset;
  fields_.clear();
}

// Names are looked up once for all records: fields follow the current record.
void cBarCode::FindFields() {
  if (fields_.size() == parameters_.items.size()) return;
  std::vector<Field*> fields;
  for (const BarCodeItem& item : parameters_.items) {
    if (item.ReadsField() && !recordset_) Raise(RuntimeError::kObjectNotSet);
    fields.push_back(item.ReadsField() ? &recordset_->FieldNamed(item.text) : nullptr);
  }
  fields_ = std::move(fields);
}

bool cBarCode::ComposeRecord() {
  content_.clear();
  bool hasContent = true;
  const bool isRead = IgnoreErrors([&] {
    FindFields();
    for (std::size_t index = 0; hasContent && index < fields_.size(); ++index) {
      const BarCodeItem& item = parameters_.items[index];
      if (item.kind == BarCodeItemKind::kLiteral) content_.append(item.text);
      Field* field = fields_[index];
      if (field) hasContent = AppendBarCodeItem(content_, item, field->Value(), field->Type(), locale_);
    }
  });
  if (!isRead || !hasContent) return false;
  if (symbology_ == BarCodeSymbology::kCode39) std::replace(content_.begin(), content_.end(), u',', u'.');
  FitToSymbology();
  return true;
}

bool cBarCode::ComposeValue(const Value& value) {
  content_.clear();
  bool hasContent = true;
  const bool isRead = IgnoreErrors([&] {
    for (const BarCodeItem& item : parameters_.items) {
      if (item.kind == BarCodeItemKind::kLiteral) content_.append(item.text);
      if (item.kind != BarCodeItemKind::kTrimmed) continue;
      hasContent = AppendBarCodeItem(content_, item, value, FieldType::kText, locale_) && hasContent;
    }
  });
  if (!isRead || !hasContent) return false;
  FitToSymbology();
  return true;
}

// What changes the content itself, apart from how a font shows it.
void cBarCode::FitToSymbology() {
  hadContent_ = !content_.empty();
  switch (symbology_) {
    case BarCodeSymbology::kCode128BTtfMark:
      content_.insert(0, 1, u'\'');
      content_.push_back(u'~');
      break;
    case BarCodeSymbology::kCode128C:
      TrimInPlace(content_);
      if (content_.find(u' ') != Text::npos || !ParseNumber(content_, locale_)) content_.clear();
      MakeEven(content_);
      break;
    case BarCodeSymbology::kCode128CTtf:
      TrimInPlace(content_);
      if (IsCode128Digits(content_)) MakeEven(content_);
      break;
    default:
      break;
  }
}

Text cBarCode::EncodeContent() const {
  const CodePage& codePage = *locale_.codePage;
  const bool check = parameters_.checkCharacter;
  switch (symbology_) {
    case BarCodeSymbology::kNone:
      return Text();
    case BarCodeSymbology::kCode39:
      return EncodeCode39(content_, check);
    case BarCodeSymbology::kCode128B:
      return EncodeCode128B(content_, check, Code128Layout::kFirst, codePage);
    case BarCodeSymbology::kCode128BTtf:
    case BarCodeSymbology::kCode128BTtfMark:
      return EncodeCode128B(content_, check, Code128Layout::kSecond, codePage);
    case BarCodeSymbology::kCode128C:
      return content_;
    case BarCodeSymbology::kCode128CTtf:
      if (content_.empty()) return Text();
      if (IsCode128Digits(content_)) return EncodeCode128C(content_, codePage);
      return EncodeCode128B(content_, check, Code128Layout::kSecond, codePage);
  }
  return Text();
}

Text cBarCode::Encoded(bool isComposed) {
  Text text = isComposed ? EncodeContent() : Text();
  lost_ = isComposed && hadContent_ && (text.empty() || (symbology_ == BarCodeSymbology::kCode39 && text == u"**"));
  return text;
}

Text cBarCode::EncodeRecord() {
  return Encoded(ComposeRecord());
}

Text cBarCode::EncodeValue(const Value& value) {
  return Encoded(ComposeValue(value));
}

Text cBarCode::RecordContent() {
  return ComposeRecord() ? content_ : Text();
}

Text cBarCode::ValueContent(const Value& value) {
  return ComposeValue(value) ? content_ : Text();
}

Text cBarCode::RefToASCII(float value) const {
  return Text(1, Code128FontCharacter(value, *locale_.codePage));
}

}  // namespace zorkanca
