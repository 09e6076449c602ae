#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <vector>

namespace corvane {

/// How long a test waits for what a bench does in the background, in milliseconds: enough for a
/// sanitized build on a busy computer.
inline constexpr int patience = 60'000;

/// The window tests of the program, each made and run once.
inline std::vector<std::function<std::unique_ptr<QObject>()>>& uiTests() {
  static std::vector<std::function<std::unique_ptr<QObject>()>> tests;
  return tests;
}

/// Adds a test class to the program; a variable beside the class is all it takes.
template <typename Test>
struct UiTestRegistration {
  UiTestRegistration() {
    uiTests().push_back([] { return std::make_unique<Test>(); });
  }
};

}  // namespace corvane
