// A database of DAO's shape in memory: of any number of equal records, so that it costs next to nothing itself.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "com/named_object.h"

namespace zorkanca::testing {

/// A column and what it holds in every record.
struct StandInColumn {
  std::wstring name;
  std::int16_t type = 10;  ///< as DAO has it: 10 is a text
  win32::Variant value;
};

/// What the objects of one database share.
struct StandInTable {
  std::vector<StandInColumn> columns{};
  std::int32_t records = 0;
  std::int32_t calls = 0;  ///< that reached any of the objects
  int openRecordsets = 0;
  std::wstring select{};      ///< the last one asked for
  const wchar_t* lost = L"";  ///< a member that no object has
};

inline HRESULT Give(VARIANT& result, win32::Variant value) {
  result = value.Detach();
  return S_OK;
}
inline HRESULT GiveObject(VARIANT& result, IDispatch* made) {
  result.vt = VT_DISPATCH;
  result.pdispVal = made;
  made->AddRef();
  return S_OK;
}

/// All of them count calls and lack the member that is lost.
class StandInObject : public NamedObject {
 public:
  StandInObject(StandInTable& table, std::vector<const wchar_t*> names)
      : NamedObject(std::move(names)), table_(table) {}
  HRESULT __stdcall GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID language, DISPID* ids) override {
    if (_wcsicmp(table_.lost, names[0]) == 0) return DISP_E_UNKNOWNNAME;
    return NamedObject::GetIDsOfNames(id, names, count, language, ids);
  }

 protected:
  StandInTable& table_;
};

class StandInField final : public StandInObject {
 public:
  StandInField(StandInTable& table, std::size_t column)
      : StandInObject(table, {L"Name", L"Type", L"Size", L"Value"}), column_(column) {}

 private:
  HRESULT Call(DISPID member, DISPPARAMS&, VARIANT& result, EXCEPINFO*) override {
    ++table_.calls;
    const StandInColumn& column = table_.columns[column_];
    switch (member) {
      case 1:
        result.vt = VT_BSTR;
        result.bstrVal = SysAllocString(column.name.c_str());
        return S_OK;
      case 2:
        return Give(result, win32::ToVariant(column.type));
      case 3:
        return Give(result, win32::ToVariant(std::int32_t{50}));
      default:
        return VariantCopy(&result, const_cast<VARIANT*>(&column.value.get()));
    }
  }

  std::size_t column_;
};

class StandInFields final : public StandInObject {
 public:
  explicit StandInFields(StandInTable& table) : StandInObject(table, {L"Count"}) {}

 private:
  HRESULT Call(DISPID member, DISPPARAMS& parameters, VARIANT& result, EXCEPINFO*) override {
    ++table_.calls;
    if (member == 1) return Give(result, win32::ToVariant(static_cast<std::int32_t>(table_.columns.size())));
    const VARIANT& key = Argument(parameters, 0);
    for (std::size_t column = 0; column < table_.columns.size(); ++column) {
      const bool meant = key.vt == VT_BSTR ? _wcsicmp(key.bstrVal, table_.columns[column].name.c_str()) == 0
                                           : static_cast<std::size_t>(key.vt == VT_I2 ? key.iVal : key.lVal) == column;
      if (meant) return GiveObject(result, new StandInField(table_, column));
    }
    return static_cast<HRESULT>(0x800A0CC1);  // 3265
  }
};

class StandInRecordset final : public StandInObject {
 public:
  explicit StandInRecordset(StandInTable& table)
      : StandInObject(table,
                      {L"BOF", L"EOF", L"MoveFirst", L"MoveLast", L"MoveNext", L"RecordCount", L"Fields", L"Close"}) {
    ++table_.openRecordsets;
  }

 private:
  ~StandInRecordset() override { Close(); }
  void Close() {
    if (open_) --table_.openRecordsets;
    open_ = false;
  }
  HRESULT Call(DISPID member, DISPPARAMS&, VARIANT& result, EXCEPINFO*) override {
    ++table_.calls;
    switch (member) {
      case 1:
        return Give(result, win32::ToVariant(table_.records == 0));
      case 2:
        return Give(result, win32::ToVariant(record_ >= table_.records));
      case 3:
        record_ = 0;
        return S_OK;
      case 4:
        record_ = table_.records - 1;
        return S_OK;
      case 5:
        ++record_;
        return S_OK;
      case 6:
        return Give(result, win32::ToVariant(table_.records));
      case 7:
        return GiveObject(result, new StandInFields(table_));
      default:
        Close();
        return S_OK;
    }
  }

  std::int32_t record_ = 0;
  bool open_ = true;
};

class StandInDatabase final : public StandInObject {
 public:
  explicit StandInDatabase(StandInTable& table) : StandInObject(table, {L"OpenRecordset"}) {}

 private:
  HRESULT Call(DISPID, DISPPARAMS& parameters, VARIANT& result, EXCEPINFO*) override {
    ++table_.calls;
    table_.select = Argument(parameters, 0).bstrVal;
    return GiveObject(result, new StandInRecordset(table_));
  }
};

}  // namespace zorkanca::testing
