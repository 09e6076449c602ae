#pragma once

#include <map>
#include <mutex>

#include "platform/Dispatch.h"
#include "platform/UserClient.h"
#include "platform/bench/BenchRegistry.h"

namespace corvane {

/// The user client of the simulated Fibre Channel driver. It checks what it is given as the driver
/// and the adapters do: the size of each structure, and each value against the model. A change of
/// speed, topology or hard address drops the link for a while; what is set is kept in the bench.
///
/// Statuses: "unsupported" for a selector that it does not know or that the model does not have,
/// "bad argument" for a size or a value, "no device" when the port is gone, "failure" when a fault
/// is switched on.
class BenchUserClient final : public UserClient {
 public:
  /// All outlive the user client. Flashing takes its time by `dispatch`'s clock.
  BenchUserClient(BenchMachine& machine, BenchRegistry& registry, Dispatch& dispatch, Log& log);

  Status open(RegistryHandle service, uint32_t type, UserClientConnection& connection) override;
  Status callStructMethod(UserClientConnection connection, uint32_t selector,
                          std::span<const uint8_t> input, std::span<uint8_t> output,
                          size_t& outputSize) override;
  Status release(UserClientConnection connection) override;

  /// Connections that are open.
  size_t connectionCount();

 private:
  struct Method;
  using Input = std::span<const uint8_t>;
  using Output = std::span<uint8_t>;

  static const Method* findMethod(uint32_t selector);

  Status readPortInformation(const std::string& wwpn, Input input, Output output);
  Status transferFirmwareImage(const std::string& wwpn, Input input, Output output);
  Status setTopology(const std::string& wwpn, Input input, Output output);
  Status setSpeed(const std::string& wwpn, Input input, Output output);
  Status setHardAlpa(const std::string& wwpn, Input input, Output output);
  Status readTransceiver(const std::string& wwpn, Input input, Output output);
  Status setQueueDepth(const std::string& wwpn, Input input, Output output);

  Status flash(const std::string& wwpn, Input image);
  Status changePort(const std::string& wwpn, bool dropsLink,
                    const std::function<void(BenchFibreChannelPort&)>& change);

  BenchMachine& machine_;
  BenchRegistry& registry_;
  Dispatch& dispatch_;
  Log& log_;
  std::mutex mutex_;                                         ///< guards the next two
  std::map<UserClientConnection, std::string> connections_;  ///< to the port of that name
  UserClientConnection nextConnection_;
};

}  // namespace corvane
