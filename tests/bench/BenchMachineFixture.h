#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <functional>
#include <string>
#include <thread>

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
  void SetUp() override {
    std::string pattern = testing::TempDir() + "bench-XXXXXX";
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    folder_ = pattern;
  }

  void TearDown() override {
    machine_.reset();
    std::filesystem::remove_all(folder_);
  }

  std::string path() const { return folder_ + "/machine.json"; }

  BenchFile file() const { return BenchFile(path()); }

  /// Writes the bench and switches it on.
  BenchMachine& switchOn(const BenchState& state) {
    file().create(state);
    machine_ = std::make_unique<BenchMachine>(
        path(), [this] { return clock_.load(); }, log_);
    return *machine_;
  }

  void change(const std::function<void(BenchState&)>& change) const { file().update(change); }

  /// Waits, within a generous bound, for what another thread is to bring about.
  static bool eventually(const std::function<bool()>& holds) {
    constexpr auto pause = std::chrono::milliseconds(1);
    for (int attempt = 0; attempt < 20000; ++attempt) {
      if (holds()) return true;
      std::this_thread::sleep_for(pause);
    }
    return false;
  }

  std::string folder_;
  std::atomic<int64_t> clock_{1000000};
  BenchTestLog log_;
  std::unique_ptr<BenchMachine> machine_;
};

}  // namespace corvane
