// A client of cZorOffice that writes down what it hears.
#pragma once

#include <string>

#include "export/zor_office_events.h"
#include "runtime/utf8.h"
#include "support/fake_word.h"

namespace zorkanca::testing {

/// Events become lines like "state 1 text" and "percent 25".
class JournalEvents final : public ZorOfficeEvents {
 public:
  explicit JournalEvents(Journal& journal) : journal_(journal) {}

  float cancelAt = -1;  ///< the percentage at which the client cancels

  void ExportState(ExportStateValue state, TextView DefaultMessage) override {
    journal_.push_back("state " + std::to_string(static_cast<int>(state)) + " " + ToUtf8(DefaultMessage));
  }
  void PercentDone(float Percent, bool& Cancel) override {
    journal_.push_back("percent " + std::to_string(static_cast<int>(Percent)));
    Cancel = Percent == cancelAt;
  }

 private:
  Journal& journal_;
};

}  // namespace zorkanca::testing
