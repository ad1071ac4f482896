#include "odbc/odbc_library.h"

#include <dlfcn.h>

#include <cstdlib>

#include "odbc/odbc_errors.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca {

namespace {

constexpr const char* kFileName = "libodbc.so.2";

template <typename Function>
void Take(void* library, const char* name, Function& function) {
  void* const address = dlsym(library, name);
  if (address == nullptr) {
    throw Error(kOdbcConnectionFailed, u"ODBC", u"unixODBC cannot be used: " + FromUtf8(dlerror()));
  }
  function = reinterpret_cast<Function>(address);
}

OdbcLibrary Load() {
  // psqlODBC gives texts in the encoding of the locale, and fails for letters that it lacks, unless it is told
  // otherwise; nobody else reads this variable.
  setenv("PGCLIENTENCODING", "UTF8", 1);
  // Never unloaded: drivers keep threads and exit handlers.
  void* const library = dlopen(kFileName, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  if (library == nullptr) {
    throw Error(kOdbcConnectionFailed, u"ODBC",
                u"ODBC connections need unixODBC and a driver; on Debian: apt install unixodbc odbc-postgresql, or "
                u"odbc-mariadb, libsqliteodbc, odbc-mdbtools, tdsodbc (" +
                    FromUtf8(dlerror()) + u")");
  }
  OdbcLibrary functions;
  Take(library, "SQLAllocHandle", functions.AllocHandle);
  Take(library, "SQLBindCol", functions.BindCol);
  Take(library, "SQLBindParameter", functions.BindParameter);
  Take(library, "SQLCancel", functions.Cancel);
  Take(library, "SQLCloseCursor", functions.CloseCursor);
  Take(library, "SQLColAttributeW", functions.ColAttribute);
  Take(library, "SQLDataSourcesW", functions.DataSources);
  Take(library, "SQLDescribeColW", functions.DescribeCol);
  Take(library, "SQLDisconnect", functions.Disconnect);
  Take(library, "SQLDriverConnectW", functions.DriverConnect);
  Take(library, "SQLDriversW", functions.Drivers);
  Take(library, "SQLEndTran", functions.EndTran);
  Take(library, "SQLExecDirectW", functions.ExecDirect);
  Take(library, "SQLExecute", functions.Execute);
  Take(library, "SQLFetch", functions.Fetch);
  Take(library, "SQLFreeHandle", functions.FreeHandle);
  Take(library, "SQLFreeStmt", functions.FreeStmt);
  Take(library, "SQLGetData", functions.GetData);
  Take(library, "SQLGetDiagRecW", functions.GetDiagRec);
  Take(library, "SQLGetInfoW", functions.GetInfo);
  Take(library, "SQLNumResultCols", functions.NumResultCols);
  Take(library, "SQLPrepareW", functions.Prepare);
  Take(library, "SQLSetConnectAttrW", functions.SetConnectAttr);
  Take(library, "SQLSetEnvAttr", functions.SetEnvAttr);
  Take(library, "SQLSetStmtAttrW", functions.SetStmtAttr);
  return functions;
}

}  // namespace

const OdbcLibrary& OdbcLibrary::Get() {
  static const OdbcLibrary library = Load();
  return library;
}

}  // namespace zorkanca
