#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <functional>
#include <string>
#include <thread>

#include "TemporaryFolder.h"
#include "platform/Log.h"
#include "platform/bench/BenchMachine.h"

namespace corvane {

/// Keeps the system log's lines.
class BenchTestLog final : public Log {
 public:
  void system(std::string_view line) override {
    const std::lock_guard guard(mutex_);
    text_ += std::string(line) + "\n";
  }
  void standardOutput(std::string_view) override {}
  void standardError(std::string_view) override {}
  [[noreturn]] void assertionFailed(std::string_view, std::string_view, std::string_view,
                                    int) override {
    std::abort();
  }

  std::string text() {
    const std::lock_guard guard(mutex_);
    return text_;
  }

 private:
  std::mutex mutex_;
  std::string text_;
};

/// A bench in a folder of the test's own, with a clock that the test moves.
class BenchMachineFixture : public testing::Test {
 protected:
  void TearDown() override { switchOff(); }

  std::string path() const { return folder_ + "/machine.json"; }

  BenchFile file() const { return BenchFile(path()); }

  /// Writes the bench and switches it on.
  BenchMachine& switchOn(const BenchState& state) {
    file().create(state);
    machine_ = std::make_unique<BenchMachine>(
        path(), [this] { return clock_.load(); }, log_);
    return *machine_;
  }

  /// Switches the computer off and takes its bench away; another one may be switched on then.
  void switchOff() {
    machine_.reset();
    std::filesystem::remove(path());
  }

  void change(const std::function<void(BenchState&)>& change) const { file().update(change); }

  /// Waits, within a generous bound, for what another thread is to bring about.
  static bool eventually(const std::function<bool()>& holds) {
    constexpr std::chrono::milliseconds pause{1};
    const auto patience = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (!holds()) {
      if (std::chrono::steady_clock::now() > patience) return false;
      std::this_thread::sleep_for(pause);
    }
    return true;
  }

  const TemporaryFolder temporary_;
  const std::string folder_ = temporary_.path().string();
  std::atomic<int64_t> clock_{1000000};
  BenchTestLog log_;
  std::unique_ptr<BenchMachine> machine_;
};

}  // namespace corvane
