#pragma once

#include "platform/UserClient.h"

namespace corvane::macos {

/// The I/O Kit's user clients.
class MacUserClient final : public UserClient {
 public:
  Status open(RegistryHandle service, uint32_t type, UserClientConnection& connection) override;
  Status callStructMethod(UserClientConnection connection, uint32_t selector,
                          std::span<const uint8_t> input, std::span<uint8_t> output,
                          size_t& outputSize) override;
  Status release(UserClientConnection connection) override;
};

}  // namespace corvane::macos
