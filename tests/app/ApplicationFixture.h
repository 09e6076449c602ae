#pragma once

#include <algorithm>
#include <array>
#include <map>
#include <memory>

#include "AppDelegate.h"
#include "fakes/FakeAdapters.h"
#include "fakes/FakePlatform.h"
#include "fakes/ManualDispatch.h"

namespace corvane {

/// The application on a computer made of fakes, with a driver that knows each port's names.
class ApplicationFixture : public ::testing::Test {
 protected:
  ApplicationFixture() {
    fake.bundles.install("/Library/Extensions/Corvane2-FC.kext", "2.0.8");
    fake.bundles.install("/Library/Extensions/Corvane2-10GE.kext", "1.4.0");
    fake.paths.scratchFile = "/nonexistent/corvaneOutput.txt";
    fake.paths.home = "/nonexistent/home";
    fake.userClient.answer = [this](RegistryHandle service, uint32_t selector,
                                    std::span<const uint8_t>, std::span<uint8_t> output) {
      return selector == 2 ? portInformation(service, output) : statusFailure;
    };
    app = std::make_unique<AppDelegate>(fake.platform());
  }

  void launch() {
    app->applicationDidFinishLaunching();
    settle();
  }

  /// Lets everything happen that can, the ports' mandated seconds included.
  void settle() { dispatch.advance(std::chrono::seconds(30)); }

  std::vector<RegistryHandle> plug(const FakeFibreChannelAdapter& adapter) {
    const auto ports = addFibreChannelAdapter(fake.registry, adapter);
    for (const auto port : ports) numbers[port] = adapter.number;
    fake.registry.publish(ports);
    settle();
    return ports;
  }

  std::vector<RegistryHandle> plug(const FakeTenGigabitAdapter& adapter) {
    const auto ports = addTenGigabitAdapter(fake.registry, adapter);
    fake.registry.publish(ports);
    settle();
    return ports;
  }

  void unplug(const std::vector<RegistryHandle>& ports) {
    fake.registry.terminate(ports);
    settle();
  }

  std::vector<std::string> labels() const {
    std::vector<std::string> labels;
    for (const auto& entry : app->state().CorvaneList.entries()) labels.push_back(entry.Sequence);
    return labels;
  }

  Page page() const { return static_cast<Page>(app->controls().tabView.selectedIndex()); }

  /// "on" or "off" for each page button in order, with "!" where it is disabled.
  std::vector<std::string> pageButtons() const {
    std::vector<std::string> states;
    auto& controls = app->controls();
    for (const Button* button :
         {&controls.port1Button, &controls.port2Button, &controls.deviceButton})
      states.push_back(std::string(button->isOn() ? "on" : "off") +
                       (button->isEnabled() ? "" : "!"));
    return states;
  }

  ManualDispatch dispatch;
  FakePlatform fake{dispatch};
  std::unique_ptr<AppDelegate> app;
  std::map<RegistryHandle, uint8_t> numbers;  ///< the last byte of a port's names

 private:
  Status portInformation(RegistryHandle service, std::span<uint8_t> output) {
    const std::array<uint8_t, 8> name{0x20, 0, 0, 0x10, 0x9b, 0x12, 0x34, numbers[service]};
    const std::string firmware = "2.10x6";
    std::copy(name.begin(), name.end(), output.begin() + 16);
    std::copy(name.begin(), name.end(), output.begin() + 24);
    std::copy(firmware.begin(), firmware.end(), output.begin() + 32);
    output[81] = 0x3e;  // 16000 Mb/s
    output[80] = 0x80;
    return statusSuccess;
  }
};

}  // namespace corvane
