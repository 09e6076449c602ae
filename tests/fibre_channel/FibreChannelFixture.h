#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Corvane2Info.h"
#include "DeviceMonitorCORVANE2_8FC/Corvane2Device.h"
#include "fakes/FakePlatform.h"
#include "fakes/ManualDispatch.h"
#include "fibre_channel/FibreChannelProtocol.h"
#include "window/ControllerState.h"
#include "window/MainWindowControls.h"

namespace corvane {

/// What a simulated driver reports of one port.
struct SimulatedPort {
  uint32_t device = 0xE200;
  uint64_t nodeName = 0x200000109B123456;  ///< the first byte of the name is the highest
  uint64_t portName = 0x100000109B123456;
  std::string firmware = "2.02X11";
  uint32_t linkState = 0;
  uint32_t currentSpeed = 8000;
  uint32_t currentTopology = 0;
  uint32_t hardAlpa = 0;
  uint32_t configuredSpeed = 0;
  uint32_t configuredTopology = 0;
  uint32_t queueDepth = 0;
  bool module = false;
  uint8_t bitRate = 85;
  std::string vendor = "VELMAR OPTICS   ";
};

/// A computer with one Fibre Channel adapter whose driver the test plays, and what the pages share.
class FibreChannelFixture : public testing::Test {
 protected:
  FibreChannelFixture() {
    fake.userClient.answer = [this](RegistryHandle service, uint32_t selector,
                                    std::span<const uint8_t> input, std::span<uint8_t> output) {
      return answer(service, selector, input, output);
    };
  }

  /// Lets work that still goes on end while everything it uses is there.
  ~FibreChannelFixture() override { dispatch.advance(std::chrono::minutes(1)); }

  /// Attaches an adapter, in the registry's terms one of the four models, and puts it on show.
  void attach(const PropertyValue::Data& model) {
    const RegistryHandle endpoint =
        fake.registry.add(fake.registry.root, "UPS0",
                          {{"Tunnel Endpoint Device Vendor ID", PropertyValue::Data{2, 0, 0, 0}},
                           {"Tunnel Endpoint Device Model ID", model}});
    device = std::make_shared<Corvane2Device>();
    firstService = addPort(endpoint, 0x10);
    secondService = addPort(endpoint, 0x11);
    state.intProduct = 1;
    state.corvaneDevice = device;
    state.corvaneInfo = std::make_shared<Corvane2Info>(fake.platform());
  }

  void attachCorvane2With8G() { attach({0x05, 0, 0, 0}); }
  void attachCorvane2With16G() { attach({0x0d, 0, 0, 0}); }
  void attachCorvane3With8G() { attach({0x15, 0, 0, 0}); }
  void attachCorvane3F2() { attach({0x12, 0, 0, 0}); }

  /// The calls with that selector, as "SERVICE: hexadecimal input".
  std::vector<std::string> sent(uint32_t selector) const {
    std::vector<std::string> inputs;
    for (const auto& call : fake.userClient.calls()) {
      if (call.selector == selector) {
        inputs.push_back(std::to_string(call.service) + ": " + dataText(call.input));
      }
    }
    return inputs;
  }

  std::string on(RegistryHandle service, const std::string& input) const {
    return std::to_string(service) + ": " + input;
  }

  ManualDispatch dispatch;
  FakePlatform fake{dispatch};
  MainWindowControls controls{dispatch};
  ControllerState state;
  std::shared_ptr<Corvane2Device> device;
  RegistryHandle firstService = 0;
  RegistryHandle secondService = 0;
  std::map<RegistryHandle, SimulatedPort> ports;
  std::map<uint32_t, Status> refused;  ///< by selector

 private:
  RegistryHandle addPort(RegistryHandle endpoint, uint8_t portByte) {
    const PropertyValue::Dictionary characteristics{
        {"Node World Wide Name", PropertyValue::Data{0x20, 0, 0, 0x10, 0x9b, 0x12, 0x34, 0x56}},
        {"Port World Wide Name",
         PropertyValue::Data{portByte, 0, 0, 0x10, 0x9b, 0x12, 0x34, 0x56}}};
    const RegistryHandle service =
        fake.registry.add(endpoint, "VelmarCORVANE",
                          {{"Controller Characteristics", PropertyValue(characteristics)}});
    ports[service] = {};
    device->setPort(std::make_shared<FCPort>(fake.registry, fake.registry.give(service)));
    return service;
  }

  Status answer(RegistryHandle service, uint32_t selector, std::span<const uint8_t> /*input*/,
                std::span<uint8_t> output) {
    if (refused.count(selector) != 0) return refused[selector];
    const SimulatedPort& port = ports[service];
    if (selector == 2) reportPort(port, output);
    if (selector == 13) reportModule(port, output);
    return statusSuccess;
  }

  static void putName(std::span<uint8_t> output, size_t offset, uint64_t name) {
    for (size_t index = 0; index < 8; ++index) {
      output[offset + index] = static_cast<uint8_t>(name >> (8 * (7 - index)));
    }
  }

  static void putWord(std::span<uint8_t> output, size_t offset, uint32_t value) {
    for (size_t index = 0; index < 4; ++index) {
      output[offset + index] = static_cast<uint8_t>(value >> (8 * index));
    }
  }

  static void putText(std::span<uint8_t> output, size_t offset, const std::string& text) {
    std::copy(text.begin(), text.end(), output.begin() + static_cast<std::ptrdiff_t>(offset));
  }

  static void reportPort(const SimulatedPort& port, std::span<uint8_t> output) {
    putWord(output, 8, port.device);
    putName(output, 16, port.nodeName);
    putName(output, 24, port.portName);
    putText(output, 32, port.firmware);
    putWord(output, 76, port.linkState);
    putWord(output, 80, port.currentSpeed);
    putWord(output, 84, port.currentTopology);
    putWord(output, 88, port.hardAlpa);
    putWord(output, 92, port.configuredSpeed);
    putWord(output, 96, port.configuredTopology);
    putWord(output, 100, port.queueDepth);
  }

  static void reportModule(const SimulatedPort& port, std::span<uint8_t> output) {
    output[0] = 3;
    output[2] = 7;
    output[12] = port.bitRate;
    putText(output, 20, port.vendor);
    putWord(output, 96, port.module ? 1 : 0);
  }
};

}  // namespace corvane
