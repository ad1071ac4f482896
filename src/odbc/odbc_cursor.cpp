#include "odbc/odbc_cursor.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "odbc/odbc_errors.h"
#include "odbc/odbc_values.h"
#include "runtime/utf8.h"

namespace zorkanca {

namespace {

constexpr std::size_t kRowsOfBlock = 500;
constexpr std::size_t kBytesOfBlock = 4 << 20;   // of bound columns
constexpr std::size_t kBytesOfCopies = 1 << 20;  // after which a block is full
constexpr std::size_t kPiece = 64 << 10;
constexpr std::size_t kLongestValue = 256 << 20;  // as in SQLite files

SQLPOINTER Number(std::size_t number) {
  return reinterpret_cast<SQLPOINTER>(number);
}

SQLUSMALLINT Position(std::size_t column) {
  return static_cast<SQLUSMALLINT>(column + 1);
}

// Of texts and bytes the driver tells how many there are.
bool HasLength(OdbcForm form) {
  return form == OdbcForm::kText || form == OdbcForm::kWide || form == OdbcForm::kBinary;
}

[[noreturn]] void RaiseTooLong(const Text& name) {
  throw Error(kOdbcCallFailed, u"ODBC", u"the column \"" + name + u"\" holds a value that is longer than it may be");
}

}  // namespace

OdbcCell OdbcBlock::At(std::size_t row, std::size_t column) const {
  if (isRowText_) {
    if (textOfRow_ != row) {
      const auto& [begin, length] = copies_[row];
      text_.Read({bytes_.data() + begin, static_cast<std::size_t>(length)});
      textOfRow_ = row;
    }
    const std::string_view value = column < text_.size() ? text_.At(column) : std::string_view();
    return {value.data(), value.size()};
  }
  if (isCopied_) {
    const auto& [begin, length] = copies_[row * (copies_.size() / rows_) + column];
    if (length == SQL_NULL_DATA) return {};
    return {bytes_.data() + begin, static_cast<std::size_t>(length)};
  }
  const Bound& bound = bound_[column];
  const SQLLEN length = bound.lengths[row];
  if (length == SQL_NULL_DATA) return {};
  return {bound.values.data() + row * bound.width, static_cast<std::size_t>(length)};
}

OdbcCursor::OdbcCursor(std::shared_ptr<OdbcConnection> connection) : connection_(std::move(connection)) {
  connection_->RequireSuccess(connection_->odbc().AllocHandle(SQL_HANDLE_STMT, connection_->handle(), &statement_),
                              SQL_HANDLE_DBC, connection_->handle());
}

OdbcCursor::~OdbcCursor() {
  connection_->odbc().FreeHandle(SQL_HANDLE_STMT, statement_);
}

void OdbcCursor::PrepareText(TextView sql) {
  std::vector<SQLWCHAR> text = WideText(sql);
  RequireSuccess(connection_->odbc().Prepare(statement_, text.data(), SQL_NTS));
}

void OdbcCursor::Prepare(const SqlQuery& query, const std::vector<std::pair<Text, FieldType>>& types) {
  PrepareText(query.text);
  SQLSMALLINT count = 0;
  RequireSuccess(connection_->odbc().NumResultCols(statement_, &count));
  if (count == 0 && query.parameters.empty()) {  // some servers know the columns of VALUES and SHOW only when they ran
    Execute({});
    RequireSuccess(connection_->odbc().NumResultCols(statement_, &count));
  }
  if (count == 0) throw Error(kOdbcCallFailed, u"ODBC", u"the statement returns no records");
  for (SQLSMALLINT column = 1; column <= count; ++column) {
    columns_.push_back(OdbcColumnOf(Describe(static_cast<SQLUSMALLINT>(column)), connection_->driver()));
    for (const auto& [name, type] : types) {
      if (EqualsIgnoringCase(columns_.back().name, name)) SettleOdbcColumn(columns_.back(), type);
    }
  }
  Close();
  isRowText_ = connection_->driver().rowsAsTexts && query.isSelect;
  fetchedColumns_ = columns_;
  if (isRowText_) {
    for (OdbcColumn& column : columns_) ReadAsText(column);
    fetchedColumns_.assign(1, OdbcColumn());
    PrepareText(RowTextQuery(query.text));
  }
  ChooseBlocks();
}

SQLLEN OdbcCursor::Attribute(SQLUSMALLINT column, SQLUSMALLINT attribute) const {
  SQLLEN number = 0;
  connection_->odbc().ColAttribute(statement_, column, attribute, nullptr, 0, nullptr, &number);
  return number;
}

OdbcDescription OdbcCursor::Describe(SQLUSMALLINT column) const {
  constexpr SQLSMALLINT kLongestName = 512;
  OdbcDescription found;
  std::vector<SQLWCHAR> name(static_cast<std::size_t>(kLongestName) + 1);
  SQLSMALLINT length = 0;
  SQLSMALLINT nullable = 0;
  SQLULEN size = 0;
  RequireSuccess(connection_->odbc().DescribeCol(statement_, column, name.data(), kLongestName, &length, &found.type,
                                                 &size, &found.digits, &nullable));
  const auto textOf = [](const std::vector<SQLWCHAR>& units) {
    return Text(units.begin(), std::find(units.begin(), units.end(), SQLWCHAR{0}));
  };
  found.name = textOf(name);
  found.size = size;
  found.isUnsigned = Attribute(column, SQL_DESC_UNSIGNED) == SQL_TRUE;
  std::fill(name.begin(), name.end(), SQLWCHAR{0});
  connection_->odbc().ColAttribute(statement_, column, SQL_DESC_TYPE_NAME, name.data(),
                                   static_cast<SQLSMALLINT>(kLongestName * 2), &length, nullptr);
  found.typeName = LowerCase(textOf(name));
  return found;
}

// The query around the query; the line end closes a comment that the query may end with.
Text OdbcCursor::RowTextQuery(const Text& sql) const {
  Text names;
  Text casts;
  bool isCast = false;
  for (std::size_t column = 0; column < columns_.size(); ++column) {
    const Text name = (column > 0 ? u", c" : u"c") + DecimalText(static_cast<std::int64_t>(column));
    names += name;
    casts += name;
    casts += columns_[column].cast;
    isCast = isCast || !columns_[column].cast.empty();
  }
  const Text inner = u"(" + sql + u"\n) AS zorkanca_query(" + names + u")";
  if (!isCast) return u"SELECT zorkanca_query::text FROM " + inner;
  return u"SELECT zorkanca_row::text FROM (SELECT " + casts + u" FROM " + inner + u") AS zorkanca_row";
}

void OdbcCursor::ChooseBlocks() {
  std::size_t bytesOfRow = 0;
  boundColumns_ = 0;
  while (boundColumns_ < fetchedColumns_.size() && fetchedColumns_[boundColumns_].width > 0) {
    bytesOfRow += fetchedColumns_[boundColumns_++].width + sizeof(SQLLEN);
  }
  const bool all = boundColumns_ == fetchedColumns_.size();
  rowsOfBlock_ = all ? std::clamp<std::size_t>(kBytesOfBlock / bytesOfRow, 1, kRowsOfBlock) : 1;
  if (rowsOfBlock_ == 1) return;
  states_.resize(rowsOfBlock_);
  const auto set = [this](SQLINTEGER attribute, SQLPOINTER value) {
    return SQL_SUCCEEDED(connection_->odbc().SetStmtAttr(statement_, attribute, value, 0));
  };
  const bool takesBlocks = set(SQL_ATTR_ROWS_FETCHED_PTR, &fetched_) && set(SQL_ATTR_ROW_STATUS_PTR, states_.data()) &&
                           set(SQL_ATTR_ROW_ARRAY_SIZE, Number(rowsOfBlock_));
  if (!takesBlocks) rowsOfBlock_ = 1;  // a driver that knows single rows only
}

void OdbcCursor::Execute(const std::vector<const Value*>& values) {
  Close();
  parameters_.resize(values.size());
  for (std::size_t index = 0; index < values.size(); ++index) {
    OdbcParameter& parameter = parameters_[index];
    parameter.Take(*values[index], connection_->driver());
    RequireSuccess(connection_->odbc().BindParameter(statement_, Position(index), SQL_PARAM_INPUT, parameter.cType,
                                                     parameter.sqlType, parameter.columnSize, parameter.digits,
                                                     parameter.data(), parameter.length, &parameter.indicator));
  }
  const SQLRETURN code = connection_->Run(statement_, [this] { return connection_->odbc().Execute(statement_); });
  if (code != SQL_NO_DATA) RequireSuccess(code);
  isOpen_ = true;
  atEnd_ = code == SQL_NO_DATA;
}

void OdbcCursor::Close() {
  if (!std::exchange(isOpen_, false)) return;
  connection_->odbc().FreeStmt(statement_, SQL_CLOSE);
}

void OdbcCursor::Shape(OdbcBlock& block) const {
  if (!block.bound_.empty() || boundColumns_ == 0) return;
  block.bound_.resize(boundColumns_);
  for (std::size_t column = 0; column < boundColumns_; ++column) {
    OdbcBlock::Bound& bound = block.bound_[column];
    bound.width = fetchedColumns_[column].width;
    bound.values.resize(bound.width * rowsOfBlock_);
    bound.lengths.resize(rowsOfBlock_);
  }
}

void OdbcCursor::Bind(OdbcBlock& block) {
  if (boundTo_ == &block) return;
  Shape(block);
  block.isRowText_ = isRowText_;
  block.isCopied_ = boundColumns_ < fetchedColumns_.size();
  for (std::size_t column = 0; column < boundColumns_; ++column) {
    OdbcBlock::Bound& bound = block.bound_[column];
    RequireSuccess(connection_->odbc().BindCol(statement_, Position(column), CTypeOf(fetchedColumns_[column].form),
                                               bound.values.data(), static_cast<SQLLEN>(bound.width),
                                               bound.lengths.data()));
  }
  boundTo_ = &block;
}

// A row that the driver could not give is told by its state alone when others of the call were fetched.
std::size_t OdbcCursor::FetchRows() {
  fetched_ = 0;
  const SQLRETURN code = connection_->Run(statement_, [this] { return connection_->odbc().Fetch(statement_); });
  if (code == SQL_NO_DATA) return 0;
  RequireSuccess(code);
  if (rowsOfBlock_ == 1) return 1;
  const auto rows = std::min<std::size_t>(fetched_, rowsOfBlock_);
  const auto end = states_.begin() + static_cast<std::ptrdiff_t>(rows);
  if (std::find(states_.begin(), end, SQLUSMALLINT{SQL_ROW_ERROR}) != end) {
    connection_->RaiseFailure(SQL_HANDLE_STMT, statement_);
  }
  return rows;
}

void OdbcCursor::RequireWhole(const OdbcBlock& block) const {
  for (std::size_t column = 0; column < boundColumns_; ++column) {
    const OdbcBlock::Bound& bound = block.bound_[column];
    if (!HasLength(fetchedColumns_[column].form)) continue;
    for (std::size_t row = 0; row < block.rows_; ++row) {
      const SQLLEN length = bound.lengths[row];
      if (length == SQL_NULL_DATA || (length >= 0 && length < static_cast<SQLLEN>(bound.width))) continue;
      RaiseTooLong(fetchedColumns_[column].name);
    }
  }
}

void OdbcCursor::Fetch(OdbcBlock& block) {
  block.rows_ = 0;
  if (atEnd_) return;
  Bind(block);
  if (block.isCopied_) return FetchCopied(block);
  block.rows_ = FetchRows();
  atEnd_ = block.rows_ == 0;
  RequireWhole(block);
}

void OdbcCursor::FetchCopied(OdbcBlock& block) {
  block.bytes_.reserve(kPiece);  // an empty value, too, has an address
  block.bytes_.clear();
  block.copies_.clear();
  block.textOfRow_ = OdbcBlock::kNoRow;
  std::size_t rows = 0;
  for (; rows < kRowsOfBlock && block.bytes_.size() < kBytesOfCopies; ++rows) {
    atEnd_ = FetchRows() == 0;
    if (atEnd_) break;
    block.rows_ = 1;  // for the look at the bound ones
    RequireWhole(block);
    CopyBound(block);
    for (std::size_t column = boundColumns_; column < fetchedColumns_.size(); ++column) CopyPieces(block, column);
  }
  block.rows_ = rows;
}

void OdbcCursor::CopyBound(OdbcBlock& block) const {
  for (std::size_t column = 0; column < boundColumns_; ++column) {
    const OdbcBlock::Bound& bound = block.bound_[column];
    SQLLEN length = bound.lengths.front();
    // Drivers tell what they like of values whose length is known.
    if (length != SQL_NULL_DATA && !HasLength(fetchedColumns_[column].form)) length = static_cast<SQLLEN>(bound.width);
    block.copies_.emplace_back(block.bytes_.size(), length);
    if (length > 0) block.bytes_.insert(block.bytes_.end(), bound.values.begin(), bound.values.begin() + length);
  }
}

void OdbcCursor::CopyPieces(OdbcBlock& block, std::size_t column) {
  const OdbcForm form = fetchedColumns_[column].form;
  const std::size_t closing = form == OdbcForm::kWide ? sizeof(SQLWCHAR) : form == OdbcForm::kText ? 1 : 0;
  std::vector<char>& bytes = block.bytes_;
  const std::size_t begin = bytes.size();
  std::size_t piece = 512;  // most values are short
  for (std::size_t end = begin;;) {
    bytes.resize(end + piece);
    SQLLEN length = 0;
    const SQLRETURN code = connection_->odbc().GetData(statement_, Position(column), CTypeOf(form), bytes.data() + end,
                                                       static_cast<SQLLEN>(piece), &length);
    if (code == SQL_NO_DATA) {
      bytes.resize(end);
      break;
    }
    RequireSuccess(code);
    if (length == SQL_NULL_DATA) {
      bytes.resize(begin);
      block.copies_.emplace_back(begin, SQL_NULL_DATA);
      return;
    }
    // What was left before the call is told, or not; a full piece has more behind it.
    const bool isLast = length >= 0 && static_cast<std::size_t>(length) + closing <= piece;
    end += isLast ? static_cast<std::size_t>(length) : piece - closing;
    if (end - begin > kLongestValue) RaiseTooLong(fetchedColumns_[column].name);
    bytes.resize(end);
    if (isLast) break;
    piece = kPiece;
  }
  block.copies_.emplace_back(begin, static_cast<SQLLEN>(bytes.size() - begin));
}

std::int64_t OdbcCursor::CountRows() {
  connection_->odbc().FreeStmt(statement_, SQL_UNBIND);
  boundTo_ = nullptr;
  std::int64_t rows = 0;
  for (std::size_t some = FetchRows(); some > 0; some = FetchRows()) rows += static_cast<std::int64_t>(some);
  return rows;
}

std::optional<std::int64_t> CountByQuery(const std::shared_ptr<OdbcConnection>& connection, const SqlQuery& query) {
  if (!query.isSelect || connection->driver().lacksSubqueries) return std::nullopt;
  try {
    OdbcCursor counting(connection);
    SqlQuery count = query;
    count.text = u"SELECT count(*) FROM (" + query.text + u"\n) AS zorkanca_query";
    counting.Prepare(count, {{u"", FieldType::kText}});
    counting.Execute({});
    OdbcBlock block;
    counting.Fetch(block);
    if (block.rows() == 0) return std::nullopt;
    Value value;
    ReadOdbcValue(value, block.At(0, 0), counting.columns()[0]);
    if (const auto* const number = std::get_if<std::int64_t>(&value)) return *number;
    if (const auto* const number = std::get_if<std::int32_t>(&value)) return *number;
  } catch (const Error& error) {
    const bool isInterrupted = error.number() == static_cast<std::int32_t>(RuntimeError::kUserInterrupt);
    if (isInterrupted || connection->driver().failureEndsTransaction) throw;
    // what is wrong with the query itself is told when it runs
  }
  return std::nullopt;
}

}  // namespace zorkanca
