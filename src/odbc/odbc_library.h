// unixODBC, loaded when it is first needed: a computer without it runs everything else.
#pragma once

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

namespace zorkanca {

/// The functions of the driver manager that this layer calls, under their names.
struct OdbcLibrary {
  decltype(&::SQLAllocHandle) AllocHandle = nullptr;
  decltype(&::SQLBindCol) BindCol = nullptr;
  decltype(&::SQLBindParameter) BindParameter = nullptr;
  decltype(&::SQLCancel) Cancel = nullptr;
  decltype(&::SQLCloseCursor) CloseCursor = nullptr;
  decltype(&::SQLColAttributeW) ColAttribute = nullptr;
  decltype(&::SQLDataSourcesW) DataSources = nullptr;
  decltype(&::SQLDescribeColW) DescribeCol = nullptr;
  decltype(&::SQLDisconnect) Disconnect = nullptr;
  decltype(&::SQLDriverConnectW) DriverConnect = nullptr;
  decltype(&::SQLDriversW) Drivers = nullptr;
  decltype(&::SQLEndTran) EndTran = nullptr;
  decltype(&::SQLExecDirectW) ExecDirect = nullptr;
  decltype(&::SQLExecute) Execute = nullptr;
  decltype(&::SQLFetch) Fetch = nullptr;
  decltype(&::SQLFreeHandle) FreeHandle = nullptr;
  decltype(&::SQLFreeStmt) FreeStmt = nullptr;
  decltype(&::SQLGetData) GetData = nullptr;
  decltype(&::SQLGetDiagRecW) GetDiagRec = nullptr;
  decltype(&::SQLGetInfoW) GetInfo = nullptr;
  decltype(&::SQLNumResultCols) NumResultCols = nullptr;
  decltype(&::SQLPrepareW) Prepare = nullptr;
  decltype(&::SQLSetConnectAttrW) SetConnectAttr = nullptr;
  decltype(&::SQLSetEnvAttr) SetEnvAttr = nullptr;
  decltype(&::SQLSetStmtAttrW) SetStmtAttr = nullptr;

  /// Loads the library at the first call. Errors: 3151 with what to install where it is missing.
  static const OdbcLibrary& Get();
};

}  // namespace zorkanca
