#pragma once

#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "platform/Shell.h"

namespace corvane {

/// Records command lines and answers as the test says; by itself each succeeds.
class FakeShell : public Shell {
 public:
  std::function<int(const std::string& line)> answer;

  std::vector<std::string> lines() const {
    std::lock_guard guard(mutex_);
    return lines_;
  }

  int run(const std::string& line) override {
    {
      std::lock_guard guard(mutex_);
      lines_.push_back(line);
    }
    return answer ? answer(line) : 0;
  }

  int runWithin(const std::string& line, std::chrono::milliseconds) override { return run(line); }

 private:
  mutable std::mutex mutex_;  ///< guards lines_
  std::vector<std::string> lines_;
};

/// Records scripts and answers all of them alike.
class FakeScriptRunner : public ScriptRunner {
 public:
  ScriptResult result{true, ""};
  std::vector<std::string> scripts;
  std::function<void()> onRun;  ///< called while a script runs, when set
  bool asks = true;             ///< whether the user has to give a password for each

  ScriptResult run(const std::string& script) override {
    scripts.push_back(script);
    if (onRun) onRun();
    return result;
  }

  bool asksForPassword() const override { return asks; }
};

}  // namespace corvane
