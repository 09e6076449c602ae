#include "platform/bench/BenchUserClient.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "platform/bench/BenchEdits.h"
#include "platform/bench/BenchFirmwareImage.h"
#include "platform/bench/BenchLink.h"
#include "platform/bench/BenchTransceiverDump.h"
#include "platform/bench/LittleEndian.h"

namespace corvane {

namespace {

constexpr UserClientConnection firstConnection = 0x2003;
constexpr uint32_t connectionType = 0;

constexpr size_t portInfoSize = 104;
constexpr size_t firmwareVersionOffset = 32;
constexpr size_t firmwareVersionWidth = 44;
constexpr size_t modulePresentOffset = 96;
constexpr size_t portIndexOffset = 100;
constexpr uint64_t controllerVendor = 0x10DF;
constexpr uint64_t secondGenerationController = 0xE200;
constexpr uint64_t thirdGenerationController = 0xE300;
constexpr uint64_t linkUp = 0;
constexpr uint64_t linkDown = 2;
constexpr uint64_t automaticSpeed = 0;
/// What the firmware of the 16G models takes and reports for automatic.
constexpr uint64_t automaticSpeedOf16G = 1;
constexpr uint64_t deepestQueue = 4096;

constexpr std::chrono::milliseconds flashPreparation{2000};
constexpr uint64_t flashBytesPerMillisecond = 256;

/// A port of an attached adapter, with what it belongs to.
template <typename State>
struct PortPlace {
  using Adapter = std::conditional_t<std::is_const_v<State>, const BenchAdapter, BenchAdapter>;
  using FibreChannelPort = std::conditional_t<std::is_const_v<State>, const BenchFibreChannelPort,
                                              BenchFibreChannelPort>;
  Adapter* adapter = nullptr;
  FibreChannelPort* port = nullptr;

  explicit operator bool() const { return port != nullptr; }
  const BenchProduct& product() const { return *findBenchProduct(adapter->product); }
};

template <typename State>
PortPlace<State> findPort(State& state, const std::string& wwpn) {
  for (auto& adapter : state.adapters) {
    if (!adapter.attached) continue;
    for (auto& port : adapter.fibreChannelPorts) {
      if (isSameAddress(port.wwpn, wwpn)) return {&adapter, &port};
    }
  }
  return {};
}

std::string textOf(const PropertyValue::Data& name) {
  std::string text;
  for (const uint8_t byte : name) text += fmt::format("{}{:02X}", text.empty() ? "" : ":", byte);
  return text;
}

/// Puts a world wide name, most significant byte first.
void putName(std::span<uint8_t> output, size_t offset, const std::string& pairs) {
  constexpr size_t pairWithSeparator = 3;
  for (size_t start = 0; start + 1 < pairs.size(); start += pairWithSeparator) {
    output[offset++] = static_cast<uint8_t>(std::stoul(pairs.substr(start, 2), nullptr, 16));
  }
}

void putText(std::span<uint8_t> output, size_t offset, size_t width, const std::string& text) {
  std::copy_n(text.begin(), std::min(text.size(), width - 1),
              output.begin() + static_cast<std::ptrdiff_t>(offset));
}

uint64_t reportedSpeed(const BenchProduct& product, int64_t configured) {
  if (configured != 0) return static_cast<uint64_t>(configured);
  return product.has16G ? automaticSpeedOf16G : automaticSpeed;
}

}  // namespace

/// What a selector takes and gives, and who answers it.
struct BenchUserClient::Method {
  uint32_t selector;
  size_t size;  ///< of the structure in and of the structure out
  Status (BenchUserClient::*answer)(const std::string& wwpn, Input input, Output output);
};

const BenchUserClient::Method* BenchUserClient::findMethod(uint32_t selector) {
  static constexpr std::array methods{
      Method{2, portInfoSize, &BenchUserClient::readPortInformation},
      Method{3, 16, &BenchUserClient::transferFirmwareImage},
      Method{5, 2, &BenchUserClient::setTopology},
      Method{6, 8, &BenchUserClient::setSpeed},
      Method{7, 4, &BenchUserClient::setHardAlpa},
      Method{13, portInfoSize, &BenchUserClient::readTransceiver},
      Method{15, 4, &BenchUserClient::setQueueDepth},
  };
  const auto* found = std::find_if(methods.begin(), methods.end(), [&](const Method& method) {
    return method.selector == selector;
  });
  return found == methods.end() ? nullptr : found;
}

BenchUserClient::BenchUserClient(BenchMachine& machine, BenchRegistry& registry, Dispatch& dispatch,
                                 Log& log)
    : machine_(machine),
      registry_(registry),
      dispatch_(dispatch),
      log_(log),
      nextConnection_(firstConnection) {}

Status BenchUserClient::open(RegistryHandle service, uint32_t type,
                             UserClientConnection& connection) {
  connection = 0;
  const auto name = registry_.livePortName(service);
  if (!name) return statusNoDevice;
  if (type != connectionType) return statusUnsupported;
  if (machine_.state()->hasFault("driver-refuses-open")) return statusFailure;
  const std::lock_guard guard(mutex_);
  connection = nextConnection_++;
  connections_.emplace(connection, textOf(*name));
  return statusSuccess;
}

Status BenchUserClient::release(UserClientConnection connection) {
  const std::lock_guard guard(mutex_);
  return connections_.erase(connection) > 0 ? statusSuccess : statusBadArgument;
}

size_t BenchUserClient::connectionCount() {
  const std::lock_guard guard(mutex_);
  return connections_.size();
}

Status BenchUserClient::callStructMethod(UserClientConnection connection, uint32_t selector,
                                         std::span<const uint8_t> input, std::span<uint8_t> output,
                                         size_t& outputSize) {
  std::string wwpn;
  {
    const std::lock_guard guard(mutex_);
    const auto found = connections_.find(connection);
    if (found == connections_.end()) return statusBadArgument;
    wwpn = found->second;
  }
  const Method* method = findMethod(selector);
  if (method == nullptr) return statusUnsupported;
  if (input.size() != method->size || outputSize != method->size || output.size() < method->size) {
    return statusBadArgument;
  }
  if (machine_.state()->hasFault(fmt::format("driver-refuses-selector-{}", selector))) {
    return statusFailure;
  }
  return (this->*method->answer)(wwpn, input, output.first(method->size));
}

Status BenchUserClient::readPortInformation(const std::string& wwpn, Input, Output output) {
  const auto state = machine_.state();
  const auto place = findPort(*state, wwpn);
  if (!place) return statusNoDevice;
  const BenchFibreChannelPort& port = *place.port;
  const BenchLinkStatus link = negotiateLink(*state, place.product(), port, machine_.now());
  std::fill(output.begin(), output.end(), uint8_t{0});
  writeLittleEndian(output, 0, 8, controllerVendor);
  writeLittleEndian(
      output, 8, 8,
      place.product().generation == 2 ? secondGenerationController : thirdGenerationController);
  putName(output, 16, place.adapter->nodeWWN);
  putName(output, 24, port.wwpn);
  putText(output, firmwareVersionOffset, firmwareVersionWidth, place.adapter->firmware);
  writeLittleEndian(output, 76, 4, link.isUp ? linkUp : linkDown);
  writeLittleEndian(output, 80, 4, static_cast<uint64_t>(link.speed));
  writeLittleEndian(output, 84, 4, static_cast<uint64_t>(link.topology));
  writeLittleEndian(output, 88, 4, static_cast<uint64_t>(port.hardAlpa));
  writeLittleEndian(output, 92, 4, reportedSpeed(place.product(), port.speed));
  writeLittleEndian(output, 96, 4, static_cast<uint64_t>(port.topology));
  writeLittleEndian(output, 100, 4, static_cast<uint64_t>(port.queueDepth));
  return statusSuccess;
}

Status BenchUserClient::readTransceiver(const std::string& wwpn, Input input, Output output) {
  constexpr uint64_t portsOfAdapter = 2;
  if (readLittleEndian(input, portIndexOffset, 4) >= portsOfAdapter) return statusBadArgument;
  const auto state = machine_.state();
  const auto place = findPort(*state, wwpn);
  if (!place) return statusNoDevice;
  std::fill(output.begin(), output.end(), uint8_t{0});
  const auto bytes = transceiverBytes(place.port->transceiver, machine_.file(), log_);
  if (!bytes) return statusSuccess;
  std::copy(bytes->begin(), bytes->end(), output.begin());
  writeLittleEndian(output, modulePresentOffset, 4, 1);
  return statusSuccess;
}

Status BenchUserClient::setTopology(const std::string& wwpn, Input input, Output) {
  constexpr uint8_t pointToPoint = 0;
  constexpr uint8_t arbitratedLoop = 1;
  const auto state = machine_.state();
  const auto place = findPort(*state, wwpn);
  if (!place) return statusNoDevice;
  const uint8_t code = input[1];
  if (input[0] != 0 || code > arbitratedLoop) return statusBadArgument;
  if (code == arbitratedLoop && place.product().has16G) return statusUnsupported;
  return changePort(wwpn, true, [code](BenchFibreChannelPort& port) {
    port.topology =
        code == pointToPoint ? BenchTopology::PointToPoint : BenchTopology::ArbitratedLoop;
  });
}

Status BenchUserClient::setSpeed(const std::string& wwpn, Input input, Output) {
  const auto state = machine_.state();
  const auto place = findPort(*state, wwpn);
  if (!place) return statusNoDevice;
  const uint64_t code = readLittleEndian(input, 0, 4);
  const bool isAutomatic = code == (place.product().has16G ? automaticSpeedOf16G : automaticSpeed);
  const auto speed = isAutomatic ? int64_t{0} : static_cast<int64_t>(code);
  if (readLittleEndian(input, 4, 4) != 0) return statusBadArgument;
  if (!isAutomatic && !supportsSpeed(place.product(), speed)) return statusBadArgument;
  return changePort(wwpn, true, [speed](BenchFibreChannelPort& port) { port.speed = speed; });
}

Status BenchUserClient::setHardAlpa(const std::string& wwpn, Input input, Output) {
  const uint64_t address = readLittleEndian(input, 0, 4);
  const auto valid = validLoopAddresses();
  if (std::find(valid.begin(), valid.end(), address) == valid.end()) return statusBadArgument;
  return changePort(wwpn, true, [address](BenchFibreChannelPort& port) {
    port.hardAlpa = static_cast<int64_t>(address);
  });
}

Status BenchUserClient::setQueueDepth(const std::string& wwpn, Input input, Output) {
  const uint64_t depth = readLittleEndian(input, 0, 4);
  if (depth == 0 || depth > deepestQueue) return statusBadArgument;
  return changePort(wwpn, false, [depth](BenchFibreChannelPort& port) {
    port.queueDepth = static_cast<int64_t>(depth);
  });
}

Status BenchUserClient::changePort(const std::string& wwpn, bool dropsLink,
                                   const std::function<void(BenchFibreChannelPort&)>& change) {
  const int64_t returns = machine_.now() + machine_.realMilliseconds(linkDropDuration);
  Status status = statusNoDevice;
  const bool isWritten = machine_.update([&](BenchState& state) {
    const auto place = findPort(state, wwpn);
    if (!place) return;
    change(*place.port);
    if (dropsLink) place.port->linkReturnsAt = returns;
    status = statusSuccess;
  });
  return isWritten ? status : statusFailure;
}

Status BenchUserClient::transferFirmwareImage(const std::string& wwpn, Input input, Output) {
  const uint64_t size = readLittleEndian(input, 0, 4);
  const uint64_t address = readLittleEndian(input, 8, 8);
  if (size == 0 || address == 0) return statusBadArgument;
  // The protocol hands memory over as a number, as between a program and the kernel.
  // NOLINTNEXTLINE(performance-no-int-to-ptr)
  const auto* callersMemory = reinterpret_cast<const uint8_t*>(static_cast<uintptr_t>(address));
  const std::vector<uint8_t> image(callersMemory, callersMemory + size);
  const Status status = flash(wwpn, image);
  // The adapter reads the image while it flashes, so the memory must still hold it at the end.
  const bool isUnchanged = std::equal(image.begin(), image.end(), callersMemory);
  return status == statusSuccess && !isUnchanged ? statusFailure : status;
}

Status BenchUserClient::flash(const std::string& wwpn, Input image) {
  BenchFirmwareImage header;
  const auto problem = checkFirmwareImage(image, header);
  if (problem) {
    log_.system(fmt::format("VelmarCORVANE: {}", *problem));
    return statusBadArgument;
  }
  const auto duration =
      flashPreparation + std::chrono::milliseconds(image.size() / flashBytesPerMillisecond);
  dispatch_.sleep(duration / 2);
  const auto state = machine_.state();
  const bool isUnplugged = state->hasFault("unplugged-while-flashing");
  if (!isUnplugged) dispatch_.sleep(duration - duration / 2);
  if (state->hasFault("firmware-refused")) return statusFailure;
  Status status = statusNoDevice;
  const bool isWritten = machine_.update([&](BenchState& changed) {
    const auto place = findPort(changed, wwpn);
    if (!place) return;
    if (isUnplugged) return unplugAdapter(*place.adapter);
    status = place.product().generation == header.generation ? statusSuccess : statusUnsupported;
    if (status == statusSuccess) place.adapter->pendingFirmware = header.version;
  });
  return isWritten ? status : statusFailure;
}

}  // namespace corvane
