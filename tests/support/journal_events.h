// A client that writes the events of an export into the journal and may cancel at one of them.
#pragma once

#include "export/zor_office_events.h"
#include "runtime/error.h"
#include "runtime/utf8.h"
#include "support/fake_word.h"

namespace zorkanca::testing {

class JournalEvents final : public ZorOfficeEvents {
 public:
  explicit JournalEvents(Journal& journal) : journal_(journal) {}

  float cancelAt = -1;     ///< cancels at this percentage
  int cancelAfter = 1000;  ///< cancels at this percent event, from 1

  std::string failsAt;  ///< raises error 5 at the states whose message begins so

  void ExportState(ExportStateValue state, TextView DefaultMessage) override {
    const bool fails = !failsAt.empty() && ToUtf8(DefaultMessage).starts_with(failsAt);
    journal_.push_back("state " + std::to_string(static_cast<int>(state)) + " " + ToUtf8(DefaultMessage));
    if (fails) Raise(RuntimeError::kInvalidCall);
  }
  void PercentDone(float Percent, bool& Cancel) override {
    journal_.push_back("percent " + std::to_string(static_cast<int>(Percent)));
    Cancel = Percent == cancelAt || --cancelAfter <= 0;
  }

 private:
  Journal& journal_;
};

}  // namespace zorkanca::testing
