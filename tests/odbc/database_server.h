// Servers for tests, started once for a program of tests and ended with it.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <string>
#include <string_view>

#include "odbc/odbc_database.h"
#include "support/file_text.h"
#include "support/text_support.h"

namespace zorkanca::testing {

/// A server by its kind, "postgres" or "mariadb"; see tests/support/database_server.
class DatabaseServer {
 public:
  explicit DatabaseServer(const std::string& kind) {
    const std::string said = Output("start " + kind + " " + std::to_string(getpid()));
    const std::size_t lineEnd = said.find('\n');
    const std::size_t string = said.find("DRIVER=");
    if (string == std::string::npos) {
      reason_ = said;
      return;
    }
    folder_ = said.substr(0, lineEnd);
    string_ = said.substr(string, said.find('\n', string) - string);
  }
  ~DatabaseServer() {
    if (isThere()) Output("stop " + folder_);
  }
  DatabaseServer(const DatabaseServer&) = delete;
  DatabaseServer& operator=(const DatabaseServer&) = delete;

  bool isThere() const { return !folder_.empty(); }
  /// Why it is not there.
  const std::string& reason() const { return reason_; }
  const std::string& connectionString() const { return string_; }

  /// Runs statements as the server's administrator.
  void Execute(std::string_view sql) const {
    FILE* const pipe = popen(Command("sql " + folder_).c_str(), "w");
    ASSERT_NE(pipe, nullptr);
    fwrite(sql.data(), 1, sql.size(), pipe);
    EXPECT_EQ(pclose(pipe), 0) << sql;
  }

 private:
  static std::string Command(const std::string& arguments) {
    return "'" + ProjectPath("tests/support/database_server") + "' " + arguments;
  }
  static std::string Output(const std::string& arguments) {
    FILE* const pipe = popen(Command(arguments).c_str(), "r");
    std::string text;
    if (pipe == nullptr) return text;
    char block[1024];
    while (const std::size_t count = fread(block, 1, sizeof block, pipe)) text.append(block, count);
    pclose(pipe);
    return text;
  }

  std::string folder_;
  std::string string_;
  std::string reason_;
};

/// The server of a kind, started when it is first asked for.
inline const DatabaseServer& ServerOf(const std::string& kind) {
  static const DatabaseServer postgres("postgres");
  if (kind == "postgres") return postgres;
  static const DatabaseServer mariaDb("mariadb");
  return mariaDb;
}

inline OdbcLogin LoginOf(const std::string& connectionString) {
  OdbcLogin login{.string = ConnectionString(FromUtf8(connectionString)), .password = std::nullopt, .askPassword = {}};
  login.password = login.string.TakePassword();
  return login;
}

}  // namespace zorkanca::testing
