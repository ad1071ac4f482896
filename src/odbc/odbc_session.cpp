#include "odbc/odbc_session.h"

#include <utility>

namespace zorkanca {

OdbcSession::OdbcSession(OdbcLogin& login, bool streams, const std::atomic<bool>* interrupted) : worker_(interrupted) {
  OdbcLibrary::Get();  // what is not installed is told at once
  try {
    Connect(login, streams);
    return;
  } catch (const OdbcLoginRefused&) {
    if (login.password || !login.askPassword) throw;
    std::optional<Text> password = login.askPassword(login.string.ValueOf(u"UID").value_or(Text()));
    if (!password) throw;
    login.password = std::move(password);
  }
  Connect(login, streams);
}

void OdbcSession::Connect(const OdbcLogin& login, bool streams) {
  const auto made = std::make_shared<std::shared_ptr<OdbcConnection>>();
  worker_.Run([made, string = login.string, password = login.password,
               streams] { *made = std::make_shared<OdbcConnection>(string, password, streams); },
              nullptr);
  connection_ = std::move(*made);
}

OdbcSession::~OdbcSession() {
  worker_.Release([connection = std::move(connection_)] {});
}

OdbcSnapshot::OdbcSnapshot(std::shared_ptr<OdbcSession> session) : session_(std::move(session)) {
  if (session_->snapshots_ == 0) {
    session_->worker_.Run([connection = session_->connection_] { connection->Begin(); }, nullptr);
  }
  ++session_->snapshots_;
}

OdbcSnapshot::~OdbcSnapshot() {
  if (--session_->snapshots_ > 0) return;
  session_->worker_.Release([connection = session_->connection_] {
    try {
      connection->End();
    } catch (const Error&) {  // nothing was written, so that there is nothing to lose
    }
  });
}

}  // namespace zorkanca
