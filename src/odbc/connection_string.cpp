#include "odbc/connection_string.h"

#include <algorithm>

#include "odbc/odbc_errors.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

// None of the messages repeats the string: it may hold a password.
[[noreturn]] void RaiseFault(TextView fault) {
  throw Error(kOdbcConnectionFailed, u"ODBC", Text(u"the connection string ").append(fault));
}

// The value that begins at a position, which is then behind it and its ";".
Text TakeValue(TextView text, std::size_t& at) {
  if (at >= text.size() || text[at] != u'{') {
    const std::size_t end = std::min(text.find(u';', at), text.size());
    const Text value(Trim(text.substr(at, end - at)));
    at = end + 1;
    return value;
  }
  Text value;
  for (++at; at < text.size(); ++at) {
    if (text[at] == u'}' && text.substr(at).starts_with(u"}}")) {
      ++at;
    } else if (text[at] == u'}') {
      at = std::min(text.find(u';', at), text.size()) + 1;
      return value;
    }
    value.push_back(text[at]);
  }
  RaiseFault(u"has a \"{\" that is never closed");
}

bool NeedsBraces(TextView value) {
  return value.find_first_of(u";{}[](),?*=!@") != TextView::npos || value != Trim(value);
}

}  // namespace

ConnectionString::ConnectionString(TextView text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find(u';', at), text.size());
    if (IsBlank(text.substr(at, end - at))) {
      at = end + 1;
      continue;
    }
    const std::size_t equals = text.find(u'=', at);
    if (equals >= end) RaiseFault(u"is written KEY=VALUE;KEY=VALUE; one piece of it has no \"=\"");
    const Text key(Trim(text.substr(at, equals - at)));
    at = equals + 1;
    pairs_.emplace_back(key, TakeValue(text, at));
  }
  if (!ValueOf(u"DSN") && !ValueOf(u"DRIVER") && !ValueOf(u"FILEDSN")) {
    RaiseFault(u"names neither a data source nor a driver: DSN=… or DRIVER=…");
  }
}

std::optional<Text> ConnectionString::ValueOf(TextView key) const {
  for (const auto& [known, value] : pairs_) {
    if (EqualsIgnoringCase(known, key)) return value;
  }
  return std::nullopt;
}

void ConnectionString::AddIfMissing(TextView key, TextView value) {
  if (!ValueOf(key)) pairs_.emplace_back(key, value);
}

std::optional<Text> ConnectionString::TakePassword() {
  std::optional<Text> password;
  for (auto pair = pairs_.begin(); pair != pairs_.end();) {
    const bool isPassword = EqualsIgnoringCase(pair->first, u"PWD") || EqualsIgnoringCase(pair->first, u"PASSWORD");
    if (isPassword && !password) password = pair->second;
    pair = isPassword ? pairs_.erase(pair) : pair + 1;
  }
  return password;
}

Text ConnectionString::AsText() const {
  Text text;
  for (const auto& [key, value] : pairs_) {
    text.append(key).push_back(u'=');
    // The driver's name is taken with its braces everywhere, other values only where they need them.
    const bool braces = EqualsIgnoringCase(key, u"DRIVER") || NeedsBraces(value);
    text.append(braces ? u"{" + Replace(value, u"}", u"}}") + u"}" : value).push_back(u';');
  }
  return text;
}

}  // namespace zorkanca
