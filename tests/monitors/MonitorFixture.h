#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fakes/FakePlatform.h"
#include "fakes/ManualDispatch.h"

namespace corvane {

/// What a monitor's registration leaves in the log.
inline const std::vector<std::string> monitorStartLines{
    "CFDictionaryCreateMutable successfully", "CFDictionaryCreateMutable successfully",
    "IONotificationPortCreate successfully", "IONotificationPortGetRunLoopSource successfully"};

/// A monitor on a computer made of fakes, with a virtual clock.
template <typename Monitor>
class MonitorFixture : public ::testing::Test {
 protected:
  /// Starts the monitor and lets it register.
  void start() {
    monitor.start();
    dispatch.runUntilIdle();
  }

  /// Lets the registry tell of services that came, and the time pass that they take.
  void publish(const std::vector<RegistryHandle>& services) {
    fake.registry.publish(services);
    dispatch.runUntilIdle();
  }

  /// Lets the registry tell of services that went.
  void terminate(const std::vector<RegistryHandle>& services) {
    fake.registry.terminate(services);
    dispatch.runUntilIdle();
  }

  ManualDispatch dispatch;
  FakePlatform fake{dispatch};
  Monitor monitor{fake.platform()};
};

}  // namespace corvane
