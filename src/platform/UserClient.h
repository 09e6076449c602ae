#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/Registry.h"
#include "platform/Status.h"

namespace corvane {

/// A connection to a driver (io_connect_t). 0 is no connection.
using UserClientConnection = uint32_t;

/// The driver user clients of the registry's services. Synchronous: a call returns when the driver
/// has answered. Any thread may call.
class UserClient {
 public:
  virtual ~UserClient() = default;

  /// IOServiceOpen with the current task as owner. On failure `connection` is 0.
  virtual Status open(RegistryHandle service, uint32_t type, UserClientConnection& connection) = 0;

  /// IOConnectCallStructMethod. `outputSize` holds the size of `output` on entry and the bytes
  /// written on return. A driver may read memory that the input names by address; such memory must
  /// stay valid and unchanged until the call returns.
  virtual Status callStructMethod(UserClientConnection connection, uint32_t selector,
                                  std::span<const uint8_t> input, std::span<uint8_t> output,
                                  size_t& outputSize) = 0;

  /// IOConnectRelease.
  virtual Status release(UserClientConnection connection) = 0;
};

}  // namespace corvane
