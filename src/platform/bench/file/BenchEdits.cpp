#include "platform/bench/file/BenchEdits.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>

#include "platform/bench/file/BenchModuleMemory.h"
#include "platform/bench/file/BenchProducts.h"
#include "text/Hexadecimal.h"

namespace corvane {

namespace {

constexpr int64_t firstLetteredBridge = 1;
constexpr int64_t lastLetteredBridge = 9;
constexpr int portsOfAdapter = 2;
constexpr int firstSpareInterface = 5;

/// Letters and digits alone, in upper case: what labels and addresses are compared by.
std::string plain(const std::string& text) {
  std::string kept;
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    if (std::isalnum(byte) != 0) kept += static_cast<char>(std::toupper(byte));
  }
  return kept;
}

bool hasName(const BenchAdapter& adapter, const std::string& name) {
  const std::string wanted = plain(name);
  if (wanted.empty()) return false;
  if (plain(adapter.nodeWWN) == wanted) return true;
  const auto isPort = [&](const auto& port) {
    if constexpr (requires { port.wwpn; }) {
      return plain(port.wwpn) == wanted;
    } else {
      return plain(port.mac) == wanted;
    }
  };
  return std::any_of(adapter.fibreChannelPorts.begin(), adapter.fibreChannelPorts.end(), isPort) ||
         std::any_of(adapter.ethernetPorts.begin(), adapter.ethernetPorts.end(), isPort);
}

bool isNameTaken(const BenchState& state, const std::string& name) {
  return std::any_of(state.adapters.begin(), state.adapters.end(),
                     [&](const BenchAdapter& adapter) { return hasName(adapter, name); });
}

[[noreturn]] void refuseUnknownProduct(const std::string& product) {
  std::string names;
  for (const BenchProduct& each : benchProducts()) {
    names += fmt::format("{}\"{}\"", names.empty() ? "" : ", ", each.name);
  }
  throw BenchEditError(fmt::format("there is no product \"{}\", but {}", product, names));
}

void refuseTakenPlace(const BenchState& state, int64_t bridge, int64_t hop) {
  for (const BenchAdapter& adapter : state.adapters) {
    if (adapter.attached && adapter.bridge == bridge && adapter.hop == hop) {
      throw BenchEditError(
          fmt::format("{} is plugged in at hop {} of bridge {}", adapter.product, hop, bridge));
    }
  }
}

BenchAdapter* findUnplugged(BenchState& state, const std::string& product, int64_t bridge,
                            int64_t hop, const std::optional<std::string>& name) {
  for (BenchAdapter& adapter : state.adapters) {
    if (adapter.attached || adapter.product != product) continue;
    const bool isPlace = adapter.bridge == bridge && adapter.hop == hop;
    if (name ? hasName(adapter, *name) : isPlace) return &adapter;
  }
  return nullptr;
}

/// The low `count` bytes of a number as an address is written.
std::string pairs(uint64_t value, int count) {
  std::vector<uint8_t> bytes;
  for (int index = count - 1; index >= 0; --index) {
    bytes.push_back(static_cast<uint8_t>(value >> (8 * index)));
  }
  return upperHexadecimal(bytes, ":");
}

uint64_t valueOf(const std::string& name, size_t bytes) {
  const std::string digits = plain(name);
  const auto value = hexadecimalNumber(digits);
  if (digits.size() != 2 * bytes || !value) {
    throw BenchEditError(fmt::format("{} is no address of {} bytes", name, bytes));
  }
  return *value;
}

constexpr uint64_t firstNodeName = 0x200000109B000001;
constexpr uint64_t firstPortName = 0x2100000000000000;
constexpr uint64_t portNumberUnit = uint64_t{1} << 48U;
constexpr uint64_t nameMask = 0x0000FFFFFFFFFFFF;
constexpr uint64_t firstMac = 0x00D02E000010;

uint64_t freeName(const BenchState& state, uint64_t first, int bytes) {
  uint64_t name = first;
  while (isNameTaken(state, pairs(name, bytes))) name += portsOfAdapter;
  return name;
}

void fillFibreChannel(BenchState& state, BenchAdapter& adapter, const BenchProduct& product,
                      const std::optional<std::string>& name) {
  constexpr size_t nameBytes = 8;
  const uint64_t node = name ? valueOf(*name, nameBytes)
                             : freeName(state, firstNodeName, static_cast<int>(nameBytes));
  adapter.nodeWWN = pairs(node, nameBytes);
  adapter.firmware = product.has16G ? "10.0.803.15" : "2.02a1";
  for (uint64_t number = 0; number < portsOfAdapter; ++number) {
    BenchFibreChannelPort& port = adapter.fibreChannelPorts.emplace_back();
    port.wwpn = pairs(firstPortName + number * portNumberUnit + (node & nameMask), nameBytes);
    port.transceiver.hex = shortWaveModule(product);
  }
}

std::string freeInterface(const BenchState& state) {
  std::set<std::string> taken;
  for (const BenchNetworkInterface& interface : state.networkInterfaces)
    taken.insert(interface.name);
  for (const BenchAdapter& adapter : state.adapters) {
    for (const BenchEthernetPort& port : adapter.ethernetPorts) {
      if (port.interface) taken.insert(*port.interface);
    }
  }
  for (int number = firstSpareInterface;; ++number) {
    std::string name = fmt::format("en{}", number);
    if (taken.count(name) == 0) return name;
  }
}

void fillEthernet(BenchState& state, BenchAdapter& adapter, const BenchProduct& product,
                  const std::optional<std::string>& name) {
  constexpr size_t macBytes = 6;
  const uint64_t first =
      name ? valueOf(*name, macBytes) : freeName(state, firstMac, static_cast<int>(macBytes));
  for (uint64_t number = 0; number < portsOfAdapter; ++number) {
    BenchEthernetPort& port = adapter.ethernetPorts.emplace_back();
    port.mac = pairs(first + number, macBytes);
    if (product.hasCage) {
      port.media = "10GbaseSR <full-duplex>";
      port.module = "srlr";
    }
  }
}

void nameInterfaces(BenchState& state, BenchAdapter& adapter) {
  for (BenchEthernetPort& port : adapter.ethernetPorts) {
    if (!port.interface) port.interface = freeInterface(state);
  }
}

BenchAdapter& addNewAdapter(BenchState& state, const BenchProduct& product,
                            const std::optional<std::string>& name) {
  BenchAdapter adapter;
  adapter.product = product.name;
  adapter.attached = false;
  if (product.isFibreChannel) {
    fillFibreChannel(state, adapter, product, name);
  } else {
    fillEthernet(state, adapter, product, name);
  }
  return state.adapters.emplace_back(std::move(adapter));
}

}  // namespace

std::string benchLabel(const BenchAdapter& adapter) {
  const bool hasLetter =
      adapter.bridge >= firstLetteredBridge && adapter.bridge <= lastLetteredBridge;
  const std::string letter =
      hasLetter ? std::string(1, static_cast<char>('A' + adapter.bridge - firstLetteredBridge))
                : std::string("(null)");
  return fmt::format("{} - {}", letter, adapter.hop);
}

BenchAdapter* findAdapter(BenchState& state, const std::string& label) {
  const std::string wanted = plain(label);
  BenchAdapter* found = nullptr;
  for (BenchAdapter& adapter : state.adapters) {
    if (!adapter.attached) continue;
    if (plain(benchLabel(adapter)) != wanted && !hasName(adapter, label)) continue;
    if (found != nullptr) {
      throw BenchEditError(fmt::format("{} fits several adapters; name one by its address", label));
    }
    found = &adapter;
  }
  return found;
}

BenchFibreChannelPort& fibreChannelPort(BenchAdapter& adapter, int number) {
  if (adapter.nodeWWN.empty()) {
    throw BenchEditError(adapter.product + " has no Fibre Channel ports");
  }
  if (number < 1 || static_cast<size_t>(number) > adapter.fibreChannelPorts.size()) {
    throw BenchEditError(fmt::format("{} has no port {}", adapter.product, number));
  }
  return adapter.fibreChannelPorts[static_cast<size_t>(number) - 1];
}

std::string plugAdapter(BenchState& state, const std::string& product, int64_t bridge, int64_t hop,
                        const std::optional<std::string>& name) {
  const BenchProduct* model = findBenchProduct(product);
  if (model == nullptr) refuseUnknownProduct(product);
  refuseTakenPlace(state, bridge, hop);
  BenchAdapter* adapter = findUnplugged(state, product, bridge, hop, name);
  if (adapter == nullptr && name && isNameTaken(state, *name)) {
    throw BenchEditError(fmt::format("{} is another adapter's", *name));
  }
  if (adapter == nullptr) adapter = &addNewAdapter(state, *model, name);
  losePower(*adapter);
  adapter->attached = true;
  adapter->bridge = bridge;
  adapter->hop = hop;
  ++adapter->timesPlugged;
  nameInterfaces(state, *adapter);
  return benchLabel(*adapter);
}

void unplugAdapter(BenchAdapter& adapter) {
  adapter.attached = false;
  losePower(adapter);
}

void losePower(BenchAdapter& adapter) {
  if (adapter.pendingFirmware) adapter.firmware = *adapter.pendingFirmware;
  adapter.pendingFirmware.reset();
  for (BenchFibreChannelPort& port : adapter.fibreChannelPorts) port.linkReturnsAt = 0;
  for (BenchEthernetPort& port : adapter.ethernetPorts) port.settings = port.savedSettings;
}

void setLink(BenchAdapter& adapter, int number, bool up, std::optional<int64_t> speed) {
  if (!adapter.nodeWWN.empty()) {
    BenchFibreChannelPort& port = fibreChannelPort(adapter, number);
    port.link = up;
    if (speed) port.partner.speeds = {*speed};
    return;
  }
  if (number < 1 || static_cast<size_t>(number) > adapter.ethernetPorts.size()) {
    throw BenchEditError(fmt::format("{} has no port {}", adapter.product, number));
  }
  if (speed) throw BenchEditError(adapter.product + " negotiates its speed by its media");
  adapter.ethernetPorts[static_cast<size_t>(number) - 1].link = up;
}

}  // namespace corvane
