#pragma once

#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "platform/UserClient.h"

namespace corvane {

/// A driver that records what it is asked and answers as the test says.
class FakeUserClient : public UserClient {
 public:
  struct Call {
    RegistryHandle service = 0;
    uint32_t selector = 0;
    std::vector<uint8_t> input;
    size_t outputSize = 0;
  };

  /// Answers a call: fills `output` and returns the status. Without one every call succeeds with a
  /// reply of zeros.
  std::function<Status(RegistryHandle service, uint32_t selector, std::span<const uint8_t> input,
                       std::span<uint8_t> output)>
      answer;
  Status openStatus = statusSuccess;

  std::vector<Call> calls() const {
    std::lock_guard guard(mutex_);
    return calls_;
  }

  /// "open 7", "call 2", "release", in order.
  std::vector<std::string> order() const {
    std::lock_guard guard(mutex_);
    return order_;
  }

  size_t openConnections() const {
    std::lock_guard guard(mutex_);
    return connections_.size();
  }

  Status open(RegistryHandle service, uint32_t type, UserClientConnection& connection) override {
    std::lock_guard guard(mutex_);
    order_.push_back("open " + std::to_string(service));
    connection = 0;
    if (openStatus != statusSuccess || type != 0) return statusFailure;
    connection = ++lastConnection_;
    connections_[connection] = service;
    return statusSuccess;
  }

  Status callStructMethod(UserClientConnection connection, uint32_t selector,
                          std::span<const uint8_t> input, std::span<uint8_t> output,
                          size_t& outputSize) override {
    RegistryHandle service = 0;
    {
      std::lock_guard guard(mutex_);
      order_.push_back("call " + std::to_string(selector));
      const auto found = connections_.find(connection);
      if (found == connections_.end()) return statusBadArgument;
      service = found->second;
      calls_.push_back({service, selector, {input.begin(), input.end()}, outputSize});
    }
    return answer ? answer(service, selector, input, output) : statusSuccess;
  }

  Status release(UserClientConnection connection) override {
    std::lock_guard guard(mutex_);
    order_.push_back("release");
    return connections_.erase(connection) == 1 ? statusSuccess : statusBadArgument;
  }

 private:
  mutable std::mutex mutex_;  ///< guards everything below
  std::vector<Call> calls_;
  std::vector<std::string> order_;
  std::map<UserClientConnection, RegistryHandle> connections_;
  UserClientConnection lastConnection_ = 0;
};

}  // namespace corvane
