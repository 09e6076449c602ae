#pragma once

#include <gmock/gmock.h>

#include "CLIParser/ScriptedShell.h"
#include "DeviceMonitorCORVANE2_10GE/Corvane2Device_10GE.h"
#include "DeviceMonitorCORVANE2_10GE/SEPort.h"
#include "discovery/Products.h"
#include "discovery/StopToken.h"
#include "fakes/FakePlatform.h"
#include "fakes/ManualDispatch.h"
#include "pages/TenGigabitPages.h"

namespace corvane {

/// The 10GbE pages with one adapter selected: port 1 is en5, port 2 is en6. The shell answers what
/// the test says; the driver is new enough unless the test says otherwise.
class PageTest : public testing::Test {
 protected:
  PageTest() {
    computer.paths.scratchFile = (folder.path() / "corvaneOutput.txt").string();
    computer.shell.answer = [this](const std::string& line) { return shell.run(line); };
    state.intProduct = 2;
    state.driverVersion_10G = newDriver;
    select(corvane2_10G_SFP);
  }

  /// Adds an adapter of that product at the end of the list and selects its row.
  void select(std::string_view product) { select(product, product); }
  void select(std::string_view productOfPort1, std::string_view productOfPort2) {
    adapter = std::make_shared<Corvane2Device_10GE>();
    adapter->setPort(makePort(productOfPort1, "en5", 0xCC));
    adapter->setPort(makePort(productOfPort2, "en6", 0xCD));
    DeviceListEntry entry;
    entry.WWN = *adapter->port1()->macAddr();
    entry.obj = adapter;
    entry.ProductType = productOfPort1;
    state.CorvaneList.add(entry);
    state.intSelectRow = static_cast<int64_t>(state.CorvaneList.count()) - 1;
  }

  std::shared_ptr<SEPort> makePort(std::string_view product, const std::string& interface,
                                   uint8_t lastByte) {
    FakeRegistry& registry = computer.registry;
    const RegistryHandle function =
        registry.add(registry.root, "ethernet",
                     {{"pcidebug", PropertyValue("12:0:0")},
                      {"subsystem-id", PropertyValue(subsystemOf(product))}});
    const RegistryHandle service =
        registry.add(function, "Corvane2_10GE",
                     {{"EN Number", PropertyValue(5)},
                      {"IOMACAddress",
                       PropertyValue(PropertyValue::Data{0, 0x1B, 0x21, 0xAA, 0xBB, lastByte})}});
    registry.add(service, interface);
    registry.retain(service);
    return std::make_shared<SEPort>(platform, service, StopToken());
  }

  static PropertyValue::Data subsystemOf(std::string_view product) {
    if (product == corvane2_10G_BaseT) return {0x01, 0x62, 0, 0};
    if (product == corvane2_10G_SFP) return {0x02, 0x62, 0, 0};
    if (product == corvane3_NBASE_T1) return {0x03, 0x72, 0, 0};
    if (product == corvane3_10G_BaseT) return {0x01, 0x72, 0, 0};
    return {0x02, 0x72, 0, 0};
  }

  // Command lines.

  std::string tool(const std::string& words) const {
    return computer.paths.utilityTool + " " + words;
  }
  std::string read(const std::string& command) const {
    return command + " > " + computer.paths.scratchFile;
  }
  std::string readMedium(const std::string& interface) const {
    return read("ifconfig " + interface) + "|grep media";
  }

  // What the tools answer for a port.

  void setSetting(const std::string& interface, const std::string& title,
                  const std::string& value) {
    shell.answer(tool(interface + " get" + title), title + "=" + value + "\n");
  }
  void setModule(const std::string& interface, const std::string& code) {
    shell.answer(tool(interface + " getSFPModule"), "SFPModule: " + code + "\n");
  }
  void setBalanced(const std::string& interface) {
    setSetting(interface, "RxIntrThrottle", "8000");
    setSetting(interface, "RxRingSize", "512");
    setSetting(interface, "TxIntrThrottle", "16000");
    setSetting(interface, "TxRingSize", "1024");
    shell.answer(tool(interface + " getRxRingCount"), interface + gap + "RxRingCount" + gap + "1");
  }
  void setCoalescing(const std::string& interface, const std::string& value) {
    setSetting("all", "RSCEnable", value);
    setSetting(interface, "RSCEnable", value);
  }
  void setLink(const std::string& interface, const std::string& status, const std::string& media) {
    shell.answer("ifconfig " + interface + "|grep status", "\tstatus: " + status + "\n");
    shell.answer("ifconfig " + interface, interface + ": flags=8863<UP> mtu 9000\n\tmedia: " +
                                              media + "\n\tstatus: " + status + "\n");
  }

  static constexpr const char* newDriver = "1.4.0";
  static constexpr const char* oldDriver = "1.3.5";

  const std::string gap = std::string(8, ' ');
  TemporaryFolder folder;
  ManualDispatch dispatch;
  FakePlatform computer{dispatch};
  Platform platform = computer.platform();
  ScriptedShell shell{computer.paths};
  MainWindowControls controls{dispatch};
  ControllerState state;
  std::shared_ptr<Corvane2Device_10GE> adapter;
  TenGigabitPages pages{platform, controls, state};
};

}  // namespace corvane
