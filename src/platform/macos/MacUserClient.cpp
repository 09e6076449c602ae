#include "platform/macos/MacUserClient.h"

#include <IOKit/IOKitLib.h>
#include <mach/mach.h>

namespace corvane::macos {

Status MacUserClient::open(RegistryHandle service, uint32_t type,
                           UserClientConnection& connection) {
  connection = IO_OBJECT_NULL;
  return IOServiceOpen(service, mach_task_self(), type, &connection);
}

Status MacUserClient::callStructMethod(UserClientConnection connection, uint32_t selector,
                                       std::span<const uint8_t> input, std::span<uint8_t> output,
                                       size_t& outputSize) {
  return IOConnectCallStructMethod(connection, selector, input.data(), input.size(), output.data(),
                                   &outputSize);
}

Status MacUserClient::release(UserClientConnection connection) {
  return IOConnectRelease(connection);
}

}  // namespace corvane::macos
