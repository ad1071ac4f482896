// A connection with the thread on which it works, and the snapshot that the queries of it share.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <optional>

#include "odbc/odbc_connection.h"
#include "odbc/odbc_worker.h"

namespace zorkanca {

/// What a connection is opened with.
struct OdbcLogin {
  ConnectionString string;  ///< without a password
  std::optional<Text> password;
  /// Asked when the server wants a password and none is known: nothing when there is nobody to ask.
  std::function<std::optional<Text>(TextView user)> askPassword;
};

class OdbcSession {
 public:
  /// Connects. Errors: 3151; 18.
  /// @param login  keeps a password that was asked for
  OdbcSession(OdbcLogin& login, bool streams, const std::atomic<bool>* interrupted);
  ~OdbcSession();
  OdbcSession(const OdbcSession&) = delete;
  OdbcSession& operator=(const OdbcSession&) = delete;

  /// Shared with the jobs of the worker, which outlive an interruption.
  const std::shared_ptr<OdbcConnection>& connection() const { return connection_; }
  OdbcWorker& worker() { return worker_; }
  /// Some snapshot of it is alive.
  bool isReading() const { return snapshots_ > 0; }

 private:
  friend class OdbcSnapshot;

  void Connect(const OdbcLogin& login, bool streams);

  OdbcWorker worker_;
  std::shared_ptr<OdbcConnection> connection_;
  int snapshots_ = 0;
};

/// While it lives, all that its session reads is the state of one moment, as far as the server can.
class OdbcSnapshot {
 public:
  explicit OdbcSnapshot(std::shared_ptr<OdbcSession> session);
  ~OdbcSnapshot();
  OdbcSnapshot(const OdbcSnapshot&) = delete;
  OdbcSnapshot& operator=(const OdbcSnapshot&) = delete;

  OdbcSession& session() const { return *session_; }

 private:
  std::shared_ptr<OdbcSession> session_;
};

}  // namespace zorkanca
