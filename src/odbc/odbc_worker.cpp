#include "odbc/odbc_worker.h"

#include <signal.h>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>

#include "runtime/error.h"

namespace zorkanca {

namespace {

constexpr int kLooksEvery = 20;         // milliseconds between two looks at the flag
constexpr int kPatience = 500;          // milliseconds that a cancelled job gets to end
constexpr int kReleasePatience = 5000;  // the same for one that releases something, uninterrupted
constexpr int kForever = -1;

// Signals are for the main thread, whose waiting they end.
class BlockedSignals {
 public:
  BlockedSignals() {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before_);
  }
  ~BlockedSignals() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
  BlockedSignals(const BlockedSignals&) = delete;
  BlockedSignals& operator=(const BlockedSignals&) = delete;

 private:
  sigset_t before_;
};

void StartThread(std::function<void()> body) {
  const BlockedSignals blocked;
  std::thread(std::move(body)).detach();
}

}  // namespace

class OdbcWorker::Job {
 public:
  Job(std::function<void()> body, std::function<void()> cancel) : body_(std::move(body)), cancel_(std::move(cancel)) {}

 private:
  friend class OdbcWorker;
  friend struct OdbcWorker::State;

  std::function<void()> body_;
  std::function<void()> cancel_;
  bool done_ = false;
  std::exception_ptr failure_;
};

struct OdbcWorker::State {
  std::mutex mutex;
  std::condition_variable changed;
  std::deque<Ticket> queue;
  Ticket running;
  bool ends = false;
  bool ended = false;

  void Serve() {
    std::unique_lock lock(mutex);
    for (;;) {
      changed.wait(lock, [this] { return !queue.empty() || ends; });
      if (queue.empty()) break;
      running = std::move(queue.front());
      queue.pop_front();
      std::function<void()> body = std::move(running->body_);
      lock.unlock();
      std::exception_ptr failure;
      try {
        body();
      } catch (...) {
        failure = std::current_exception();
      }
      body = nullptr;  // what the job owned goes here, on the thread of the driver
      lock.lock();
      running->failure_ = failure;
      running->done_ = true;
      running->cancel_ = nullptr;
      running = nullptr;
      changed.notify_all();
    }
    ended = true;
    changed.notify_all();
  }
};

OdbcWorker::OdbcWorker(const std::atomic<bool>* interrupted)
    : interrupted_(interrupted), state_(std::make_shared<State>()) {
  StartThread([state = state_] { state->Serve(); });
}

OdbcWorker::~OdbcWorker() {
  std::unique_lock lock(state_->mutex);
  state_->ends = true;
  state_->changed.notify_all();
  if (lost_) return;
  const auto patience = std::chrono::milliseconds(IsInterrupted() ? kPatience : kReleasePatience);
  state_->changed.wait_for(lock, patience, [this] { return state_->ended; });
}

OdbcWorker::Ticket OdbcWorker::Start(std::function<void()> body, std::function<void()> cancel) {
  if (lost_) Raise(RuntimeError::kUserInterrupt);
  Ticket ticket = std::make_shared<Job>(std::move(body), std::move(cancel));
  const std::lock_guard lock(state_->mutex);
  state_->queue.push_back(ticket);
  state_->changed.notify_all();
  return ticket;
}

void OdbcWorker::CancelRunning() {
  const std::lock_guard lock(state_->mutex);
  if (state_->running && state_->running->cancel_) StartThread(state_->running->cancel_);
}

// @param milliseconds  at most; after a cancellation `kPatience` holds
bool OdbcWorker::AwaitDone(const Ticket& ticket, bool heedsInterruption, int milliseconds) {
  using Clock = std::chrono::steady_clock;
  const auto after = [](int wait) { return Clock::now() + std::chrono::milliseconds(wait); };
  Clock::time_point deadline = milliseconds == kForever ? Clock::time_point::max() : after(milliseconds);
  bool asked = false;
  std::unique_lock lock(state_->mutex);
  while (!ticket->done_) {
    state_->changed.wait_for(lock, std::chrono::milliseconds(kLooksEvery));
    if (ticket->done_) break;
    if (heedsInterruption && IsInterrupted() && !asked) {
      asked = true;
      deadline = after(kPatience);
      lock.unlock();
      CancelRunning();
      lock.lock();
    }
    if (Clock::now() < deadline) continue;
    lost_ = true;
    return false;
  }
  return true;
}

void OdbcWorker::Wait(const Ticket& ticket) {
  const bool done = AwaitDone(ticket, true, kForever);
  if (!done || IsInterrupted()) Raise(RuntimeError::kUserInterrupt);
  if (ticket->failure_) std::rethrow_exception(ticket->failure_);
}

void OdbcWorker::Run(std::function<void()> body, std::function<void()> cancel) {
  Wait(Start(std::move(body), std::move(cancel)));
}

void OdbcWorker::Release(std::function<void()> body) {
  if (lost_) {
    // To free it here could wait for the same driver; the program is about to end.
    [[maybe_unused]] const auto* const kept = new std::function<void()>(std::move(body));
    return;
  }
  const Ticket ticket = Start(std::move(body), nullptr);
  if (!IsInterrupted()) return static_cast<void>(AwaitDone(ticket, false, kReleasePatience));
  CancelRunning();
  AwaitDone(ticket, false, kPatience);
}

}  // namespace zorkanca
