#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "CorvaneAPI.h"
#include "fakes/FakeLog.h"
#include "fakes/FakeUserClient.h"
#include "fakes/ManualDispatch.h"

namespace corvane {

/// One port's operations on a driver that the test plays.
class CorvaneAPIFixture : public testing::Test {
 protected:
  void answerWith(const std::vector<uint8_t>& reply) {
    userClient.answer = [reply](RegistryHandle, uint32_t, std::span<const uint8_t>,
                                std::span<uint8_t> output) {
      std::copy_n(reply.begin(), std::min(reply.size(), output.size()), output.begin());
      return statusSuccess;
    };
  }

  void refuseCalls() {
    userClient.answer = [](RegistryHandle, uint32_t, std::span<const uint8_t>, std::span<uint8_t>) {
      return statusFailure;
    };
  }

  ManualDispatch dispatch;
  FakeUserClient userClient;
  FakeLog log;
  CorvaneAPI api{userClient, dispatch, log};
};

}  // namespace corvane
