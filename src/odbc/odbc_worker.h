// The thread on which a connection's driver is called. A driver waits for its server as long as it likes; whoever waits
// for the driver here can be interrupted all the same, and while rows are written the next ones are fetched.
#pragma once

#include <atomic>
#include <functional>
#include <memory>

namespace zorkanca {

/// One caller; its jobs run one after the other. A job that does not end after an interruption is left alone with the
/// thread: what it uses belongs to it, by shared pointers, and goes when it ends.
class OdbcWorker {
 public:
  class Job;
  using Ticket = std::shared_ptr<Job>;

  /// @param interrupted  may be null; outlives this object
  explicit OdbcWorker(const std::atomic<bool>* interrupted);
  /// Waits for the jobs, unless they were left alone.
  ~OdbcWorker();
  OdbcWorker(const OdbcWorker&) = delete;
  OdbcWorker& operator=(const OdbcWorker&) = delete;

  /// @param body    runs on the thread; must own what it uses
  /// @param cancel  asks the running body to end; called on another thread, and must own what it uses; may be empty
  Ticket Start(std::function<void()> body, std::function<void()> cancel);
  /// Waits for a job. Errors: what its body raised; 18 after an interruption.
  void Wait(const Ticket& ticket);
  /// Both.
  void Run(std::function<void()> body, std::function<void()> cancel);

  /// Runs a job that releases something, also after an interruption; waits for it a moment at most.
  void Release(std::function<void()> body);

 private:
  struct State;

  void CancelRunning();
  bool AwaitDone(const Ticket& ticket, bool heedsInterruption, int milliseconds);
  bool IsInterrupted() const { return interrupted_ != nullptr && *interrupted_; }

  const std::atomic<bool>* interrupted_;
  std::shared_ptr<State> state_;
  bool lost_ = false;  // a job was left alone
};

}  // namespace zorkanca
