#include "platform/bench/BenchUserClient.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "platform/StructureLayout.h"
#include "platform/bench/BenchLink.h"
#include "platform/bench/file/BenchEdits.h"
#include "platform/bench/file/BenchFirmwareImage.h"
#include "platform/bench/file/BenchProducts.h"
#include "platform/bench/file/BenchTransceiverDump.h"
#include "text/Hexadecimal.h"

namespace corvane {

namespace {

constexpr UserClientConnection firstConnection = 0x2003;
constexpr uint32_t connectionType = 0;

// The driver's side of the protocol. It is written down here again on purpose: what the utility
// takes for a field is held against what the driver takes for it.

enum class Selector : uint32_t {
  ReadPortInformation = 2,
  TransferFirmwareImage = 3,
  SetTopology = 5,
  SetSpeed = 6,
  SetHardAlpa = 7,
  ReadTransceiver = 13,
  SetQueueDepth = 15,
};

/// The port's information, the reply to ReadPortInformation.
struct InformationLayout {
  static constexpr size_t size = 104;
  static constexpr StructureField vendor{"controller's vendor", 0, 8};
  static constexpr StructureField controller{"controller's model", 8, 8};
  static constexpr StructureField nodeName{"node name", 16, 8};
  static constexpr StructureField portName{"port name", 24, 8};
  static constexpr StructureField firmware{"firmware version", 32, 44};
  static constexpr StructureField linkState{"link state", 76, 4};
  static constexpr StructureField linkSpeed{"speed of the link", 80, 4};
  static constexpr StructureField linkTopology{"topology of the link", 84, 4};
  static constexpr StructureField hardAlpa{"hard address", 88, 4};
  static constexpr StructureField setSpeed{"configured speed", 92, 4};
  static constexpr StructureField setTopology{"configured topology", 96, 4};
  static constexpr StructureField queueDepth{"queue depth", 100, 4};
};

/// A transceiver's memory with what the driver adds: request and reply of ReadTransceiver.
struct TransceiverLayout {
  static constexpr size_t size = 104;
  static constexpr StructureField isPresent{"whether there is a module", 96, 4};
  static constexpr StructureField portIndex{"port index", 100, 4};
};

/// The requests that change something.
struct RequestLayout {
  static constexpr size_t imageSize = 16;
  static constexpr StructureField imageLength{"image length", 0, 4};
  static constexpr StructureField imageAddress{"image address", 8, 8};
  static constexpr size_t topologySize = 2;
  static constexpr StructureField beforeTopology{"unused", 0, 1};
  static constexpr StructureField topology{"topology", 1, 1};
  static constexpr size_t speedSize = 8;
  static constexpr StructureField speed{"speed", 0, 4};
  static constexpr StructureField behindSpeed{"unused", 4, 4};
  static constexpr size_t numberSize = 4;
  static constexpr StructureField number{"address or depth", 0, 4};
};

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

/// Puts a world wide name, most significant byte first.
void putName(std::span<uint8_t> output, const StructureField& field, const std::string& pairs) {
  const auto bytes = hexadecimalBytes(pairs, ":").value_or(std::vector<uint8_t>());
  std::copy_n(bytes.begin(), std::min(bytes.size(), field.width),
              output.subspan(field.offset).begin());
}

void putText(std::span<uint8_t> output, const StructureField& field, const std::string& text) {
  std::copy_n(text.begin(), std::min(text.size(), field.width - 1),
              output.begin() + static_cast<std::ptrdiff_t>(field.offset));
}

uint64_t reportedSpeed(const BenchProduct& product, int64_t configured) {
  if (configured != 0) return static_cast<uint64_t>(configured);
  return product.has16G ? automaticSpeedOf16G : automaticSpeed;
}

}  // namespace

/// What a selector takes and gives, and who answers it.
struct BenchUserClient::Method {
  Selector selector;
  size_t size;  ///< of the structure in and of the structure out
  Status (BenchUserClient::*answer)(const std::string& wwpn, Input input, Output output);
};

const BenchUserClient::Method* BenchUserClient::findMethod(uint32_t selector) {
  static constexpr std::array methods{
      Method{Selector::ReadPortInformation, InformationLayout::size,
             &BenchUserClient::readPortInformation},
      Method{Selector::TransferFirmwareImage, RequestLayout::imageSize,
             &BenchUserClient::transferFirmwareImage},
      Method{Selector::SetTopology, RequestLayout::topologySize, &BenchUserClient::setTopology},
      Method{Selector::SetSpeed, RequestLayout::speedSize, &BenchUserClient::setSpeed},
      Method{Selector::SetHardAlpa, RequestLayout::numberSize, &BenchUserClient::setHardAlpa},
      Method{Selector::ReadTransceiver, TransceiverLayout::size, &BenchUserClient::readTransceiver},
      Method{Selector::SetQueueDepth, RequestLayout::numberSize, &BenchUserClient::setQueueDepth},
  };
  const auto* found = std::find_if(methods.begin(), methods.end(), [&](const Method& method) {
    return static_cast<uint32_t>(method.selector) == selector;
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
  connections_.emplace(connection, upperHexadecimal(*name, ":"));
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
  putNumber(output, InformationLayout::vendor, controllerVendor);
  putNumber(
      output, InformationLayout::controller,
      place.product().generation == 2 ? secondGenerationController : thirdGenerationController);
  putName(output, InformationLayout::nodeName, place.adapter->nodeWWN);
  putName(output, InformationLayout::portName, port.wwpn);
  putText(output, InformationLayout::firmware, place.adapter->firmware);
  putNumber(output, InformationLayout::linkState, link.isUp ? linkUp : linkDown);
  putNumber(output, InformationLayout::linkSpeed, static_cast<uint64_t>(link.speed));
  putNumber(output, InformationLayout::linkTopology, static_cast<uint64_t>(link.topology));
  putNumber(output, InformationLayout::hardAlpa, static_cast<uint64_t>(port.hardAlpa));
  putNumber(output, InformationLayout::setSpeed, reportedSpeed(place.product(), port.speed));
  putNumber(output, InformationLayout::setTopology, static_cast<uint64_t>(port.topology));
  putNumber(output, InformationLayout::queueDepth, static_cast<uint64_t>(port.queueDepth));
  return statusSuccess;
}

Status BenchUserClient::readTransceiver(const std::string& wwpn, Input input, Output output) {
  constexpr uint64_t portsOfAdapter = 2;
  const uint64_t index = StructureReader(input).number(TransceiverLayout::portIndex);
  if (index >= portsOfAdapter) return statusBadArgument;
  const auto state = machine_.state();
  const auto place = findPort(*state, wwpn);
  if (!place) return statusNoDevice;
  std::fill(output.begin(), output.end(), uint8_t{0});
  const auto bytes = transceiverBytes(place.port->transceiver, machine_.file(), log_);
  if (!bytes) return statusSuccess;
  std::copy(bytes->begin(), bytes->end(), output.begin());
  putNumber(output, TransceiverLayout::isPresent, 1);
  return statusSuccess;
}

Status BenchUserClient::setTopology(const std::string& wwpn, Input input, Output) {
  constexpr uint64_t pointToPoint = 0;
  constexpr uint64_t arbitratedLoop = 1;
  const auto state = machine_.state();
  const auto place = findPort(*state, wwpn);
  if (!place) return statusNoDevice;
  const StructureReader reader(input);
  const uint64_t code = reader.number(RequestLayout::topology);
  const bool isZeroElsewhere = reader.number(RequestLayout::beforeTopology) == 0;
  if (!isZeroElsewhere || code > arbitratedLoop) return statusBadArgument;
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
  const StructureReader reader(input);
  const uint64_t code = reader.number(RequestLayout::speed);
  const bool isAutomatic = code == (place.product().has16G ? automaticSpeedOf16G : automaticSpeed);
  const auto speed = isAutomatic ? int64_t{0} : static_cast<int64_t>(code);
  if (reader.number(RequestLayout::behindSpeed) != 0) return statusBadArgument;
  if (!isAutomatic && !supportsSpeed(place.product(), speed)) return statusBadArgument;
  return changePort(wwpn, true, [speed](BenchFibreChannelPort& port) { port.speed = speed; });
}

Status BenchUserClient::setHardAlpa(const std::string& wwpn, Input input, Output) {
  const uint64_t address = StructureReader(input).number(RequestLayout::number);
  if (!isLoopAddress(address)) return statusBadArgument;
  return changePort(wwpn, true, [address](BenchFibreChannelPort& port) {
    port.hardAlpa = static_cast<int64_t>(address);
  });
}

Status BenchUserClient::setQueueDepth(const std::string& wwpn, Input input, Output) {
  const uint64_t depth = StructureReader(input).number(RequestLayout::number);
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
  const StructureReader reader(input);
  const uint64_t size = reader.number(RequestLayout::imageLength);
  const uint64_t address = reader.number(RequestLayout::imageAddress);
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
