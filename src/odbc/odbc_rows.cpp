#include "odbc/odbc_rows.h"

#include <utility>

#include "odbc/odbc_values.h"

namespace zorkanca {

OdbcRows::OdbcRows(std::shared_ptr<OdbcSession> session, SqlQuery query, std::vector<std::pair<Text, FieldType>> types,
                   OdbcFetching fetching)
    : session_(std::move(session)), work_(std::make_shared<Work>()), fetching_(fetching) {
  work_->query = std::move(query);
  RunJob([work = work_, connection = session_->connection(), types = std::move(types)] {
    work->cursor = std::make_unique<OdbcCursor>(connection);
    work->cursor->Prepare(work->query, types);
  });
}

OdbcRows::~OdbcRows() {
  session_->worker().Release([work = std::move(work_)] {});
}

OdbcWorker::Ticket OdbcRows::StartJob(std::function<void()> body) {
  return session_->worker().Start(std::move(body), [connection = session_->connection()] { connection->Cancel(); });
}

void OdbcRows::RunJob(std::function<void()> body) {
  session_->worker().Wait(StartJob(std::move(body)));
}

std::int64_t OdbcRows::Count() {
  RunJob([work = work_, connection = session_->connection()] {
    if (const std::optional<std::int64_t> count = CountByQuery(connection, work->query)) {
      work->count = *count;
      return;
    }
    work->cursor->Execute({});
    work->count = work->cursor->CountRows();
    work->cursor->Close();
  });
  return work_->count;
}

void OdbcRows::Run(std::span<const Value* const> values) {
  onRow_ = false;
  std::vector<Value> copies;
  for (const std::size_t place : work_->query.places) copies.push_back(*values[place]);
  block_ = nullptr;
  filling_ = 0;
  running_ = true;
  fetch_ = StartJob([work = work_, copies = std::move(copies)] {
    std::vector<const Value*> bound;
    for (const Value& copy : copies) bound.push_back(&copy);
    work->cursor->Execute(bound);
    work->cursor->Fetch(work->blocks[0]);
  });
}

void OdbcRows::StartFetch() {
  fetch_ = StartJob([work = work_, filling = filling_] { work->cursor->Fetch(work->blocks[filling]); });
}

bool OdbcRows::Next() {
  onRow_ = false;
  if (!running_) return false;
  if (block_ != nullptr && ++row_ < block_->rows()) return onRow_ = true;
  running_ = false;  // after a failure, too
  if (!fetch_) StartFetch();
  session_->worker().Wait(std::exchange(fetch_, nullptr));
  block_ = &work_->blocks[filling_];
  row_ = 0;
  if (block_->rows() == 0) {
    Close();
    return false;
  }
  filling_ = 1 - filling_;
  running_ = onRow_ = true;
  if (fetching_ == OdbcFetching::kAhead) StartFetch();
  return true;
}

void OdbcRows::Close() {
  onRow_ = running_ = false;
  fetch_ = nullptr;  // a fetch that is on its way ends before the next job begins
  block_ = nullptr;
  session_->worker().Release([work = work_] { work->cursor->Close(); });
}

const zorkanca::Value& OdbcField::Value() {
  if (generation_ != records_.generation()) {
    ReadOdbcValue(value_, records_.OnCurrentRow().Cell(index_), column_);
    generation_ = records_.generation();
  }
  return value_;
}

}  // namespace zorkanca
