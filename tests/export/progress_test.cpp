#include "export/progress.h"

#include <gtest/gtest.h>

#include <functional>

#include "support/memory_platform.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

class RecordingEvents final : public ZorOfficeEvents {
 public:
  std::vector<float> percents;
  int cancelAt = -1;  // index of the event that cancels
  std::function<void()> onPercent;

  void ExportState(ExportStateValue, TextView) override {}
  void PercentDone(float Percent, bool& Cancel) override {
    Cancel = cancelAt == static_cast<int>(percents.size());
    percents.push_back(Percent);
    if (onPercent) onPercent();
  }
};

std::vector<float> Reported(std::int32_t records, float interval) {
  MemoryPlatform computer;
  RecordingEvents events;
  ExportContext context{.platform = computer.platform, .events = &events, .percentInterval = interval};
  Progress progress(context, records);
  for (std::int32_t record = 0; record < records; ++record) progress.RecordDone();
  progress.Finish();
  return events.percents;
}

TEST(Progress, ReportsTheThresholdsThatWereReached) {
  EXPECT_EQ(Reported(4, 25), (std::vector<float>{25, 25, 50, 75, 100}));
  EXPECT_EQ(Reported(4, 30), (std::vector<float>{30, 60, 90, 100}));
  EXPECT_EQ(Reported(3, 100), (std::vector<float>{100, 100}));
  EXPECT_EQ(Reported(3, 250), (std::vector<float>{100})) << "a step beyond the end reports only the end";

  const std::vector<float> hundred = Reported(100, 1);
  ASSERT_EQ(hundred.size(), 101u);
  EXPECT_EQ(hundred[0], 1);
  EXPECT_EQ(hundred[1], 1);
  EXPECT_EQ(hundred[2], 2);
  EXPECT_EQ(hundred[99], 99);
  EXPECT_EQ(hundred[100], 100);
}

TEST(Progress, StepsThatCannotCatchUpEndAllTheSame) {
  const std::vector<float> byOne = Reported(10, 1);
  EXPECT_EQ(Reported(10, 0), byOne);
  EXPECT_EQ(Reported(10, -5), byOne);
  EXPECT_EQ(Reported(10, 1e-30f).back(), 100);
}

TEST(Progress, AStepThatTheHandlerSetsHoldsAtOnce) {
  MemoryPlatform computer;
  RecordingEvents events;
  ExportContext context{.platform = computer.platform, .events = &events, .percentInterval = 10};
  events.onPercent = [&] { context.percentInterval = 45; };
  Progress progress(context, 10);
  for (int record = 0; record < 10; ++record) progress.RecordDone();
  EXPECT_EQ(events.percents, (std::vector<float>{10, 10, 55, 100}));
}

TEST(Progress, CancelStopsBeforeTheNextRecordButNotAfterTheLast) {
  MemoryPlatform computer;
  RecordingEvents events;
  events.cancelAt = 1;
  ExportContext context{.platform = computer.platform, .events = &events, .percentInterval = 50};
  Progress progress(context, 4);
  progress.RecordDone();
  progress.RecordDone();
  EXPECT_EQ(ErrorOf([&] { progress.RecordDone(); }).description(), u"Výstup byl přerušen uživatelem !");

  events.cancelAt = static_cast<int>(events.percents.size());
  progress.Finish();
}

}  // namespace
}  // namespace zorkanca::testing
