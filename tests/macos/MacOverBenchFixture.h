#pragma once

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

#include "bench/BenchMachineFixture.h"
#include "fakes/FakePrompts.h"
#include "macos/standin/MacSystem.h"
#include "platform/bench/BenchPlatform.h"
#include "platform/bench/file/BenchEdits.h"
#include "platform/posix/PlainMainQueue.h"

namespace corvane {

/// The Mac layer's pieces over the stand-in of the system, which a bench answers. At the end
/// nothing may be held and nothing misused.
class MacOverBenchFixture : public BenchMachineFixture {
 protected:
  void SetUp() override {
    file().create(firstState());
    BenchPlatformOptions options;
    options.watchInterval = std::chrono::milliseconds(1);
    bench_ = std::make_unique<BenchPlatform>(path(), queue_, prompts_, log_, options);
    system_ = std::make_unique<standin::MacSystem>(bench_->platform());
  }

  void TearDown() override {
    EXPECT_EQ(system_->held(), "");
    EXPECT_THAT(system_->misuses(), testing::ElementsAreArray(expectedMisuses_));
    bench_->end();
    system_.reset();
    bench_.reset();
    BenchMachineFixture::TearDown();
  }

  /// The bench as it is switched on.
  virtual BenchState firstState() const {
    BenchState state;
    state.drivers = {{"Corvane2-FC", "2.0.10"}};
    plugAdapter(state, "Corvane2 8G FC", 1, 1, "20:00:00:10:9B:12:34:56");
    return state;
  }

  standin::MacSystem& system() { return *system_; }
  const Platform& bench() const { return bench_->platform(); }

  PlainMainQueue queue_;
  FakePrompts prompts_;
  std::vector<std::string> expectedMisuses_;

 private:
  std::unique_ptr<BenchPlatform> bench_;
  std::unique_ptr<standin::MacSystem> system_;
};

}  // namespace corvane
