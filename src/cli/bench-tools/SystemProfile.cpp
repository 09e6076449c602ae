#include "cli/bench-tools/SystemProfile.h"

#include <fmt/format.h>

#include "cli/bench-tools/PropertyList.h"

namespace corvane {

namespace {

PropertyList section(const char* dataType, PropertyList items) {
  PropertyList dictionary = textDictionary({{"_dataType", dataType}});
  addItem(dictionary, "_items", std::move(items));
  return dictionary;
}

PropertyList emptyArray() {
  return PropertyList(plist_new_array());
}

PropertyList hardware(const BenchState& state) {
  PropertyList items = emptyArray();
  addItem(items, textDictionary(
                     {{"_name", "hardware_overview"}, {"machine_model", state.computer.model}}));
  return items;
}

PropertyList software(const BenchState& state) {
  PropertyList items = emptyArray();
  addItem(items, textDictionary({{"_name", "os_overview"},
                                 {"os_version", "Mac OS X " + state.computer.osVersion}}));
  return items;
}

PropertyList fibreChannel(const BenchState& state) {
  PropertyList items = emptyArray();
  for (const BenchAdapter& adapter : state.adapters) {
    if (!adapter.attached) continue;
    for (const BenchFibreChannelPort& port : adapter.fibreChannelPorts) {
      addItem(items, textDictionary({{"_name", adapter.product},
                                     {"spfibrechannel_nodewwn", adapter.nodeWWN},
                                     {"spfibrechannel_portwwn", port.wwpn}}));
    }
  }
  return items;
}

PropertyList ethernet(const BenchState& state) {
  PropertyList items = emptyArray();
  for (const BenchAdapter& adapter : state.adapters) {
    if (!adapter.attached) continue;
    for (const BenchEthernetPort& port : adapter.ethernetPorts) {
      addItem(items, textDictionary({{"_name", adapter.product},
                                     {"spethernet_BSD_Device_Name", port.interface.value_or("")},
                                     {"spethernet_mac_address", port.mac}}));
    }
  }
  return items;
}

}  // namespace

ToolAnswer systemProfile(const BenchFile& bench, const ToolArguments& arguments) {
  if (arguments != ToolArguments{"-xml"}) return refusal("usage: system_profiler -xml");
  const BenchState state = readBench(bench);
  PropertyList profile = emptyArray();
  addItem(profile, section("SPHardwareDataType", hardware(state)));
  addItem(profile, section("SPSoftwareDataType", software(state)));
  addItem(profile, section("SPFibreChannelDataType", fibreChannel(state)));
  addItem(profile, section("SPEthernetDataType", ethernet(state)));
  return {.output = xmlText(profile)};
}

}  // namespace corvane
