#include "cli/bench-tools/InterfaceConfiguration.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>

namespace corvane {

namespace {

/// One interface as `ifconfig` sees it.
struct InterfaceView {
  std::string name;
  std::string mac;
  std::string media;
  bool link;
  int64_t mtu;
};

constexpr const char* loopback =
    "lo0: flags=8049<UP,LOOPBACK,RUNNING,MULTICAST> mtu 16384\n"
    "\toptions=1203<RXCSUM,TXCSUM,TXSTATUS,SW_TIMESTAMP>\n"
    "\tinet 127.0.0.1 netmask 0xff000000\n"
    "\tinet6 ::1 prefixlen 128\n"
    "\tnd6 options=201<PERFORMNUD,DAD>\n";

std::vector<InterfaceView> interfacesOf(const BenchState& state) {
  std::vector<InterfaceView> interfaces;
  for (const BenchNetworkInterface& other : state.networkInterfaces) {
    interfaces.push_back({other.name, other.mac, other.media, other.link, other.mtu});
  }
  for (const BenchAdapter& adapter : state.adapters) {
    if (!adapter.attached) continue;
    for (const BenchEthernetPort& port : adapter.ethernetPorts) {
      if (!port.interface) continue;
      interfaces.push_back({*port.interface, port.mac, port.media, port.link, port.mtu});
    }
  }
  return interfaces;
}

std::string lowerCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char character) { return std::tolower(character); });
  return text;
}

/// What stands behind "media: ". A medium's name is what the interface has agreed upon; anything
/// else, such as "none" or "<unknown type>", stands by itself.
std::string mediaText(const InterfaceView& interface) {
  const std::string& media = interface.media;
  if (media.empty()) return "autoselect";
  const bool isWhole = media.starts_with("autoselect") || media.starts_with("<") || media == "none";
  if (isWhole) return media;
  return interface.link ? "autoselect (" + media + ")" : "autoselect (none)";
}

std::string describe(const InterfaceView& interface) {
  return fmt::format(
      "{}: flags=8863<UP,BROADCAST,SMART,RUNNING,SIMPLEX,MULTICAST> mtu {}\n"
      "\toptions=50b<RXCSUM,TXCSUM,VLAN_HWTAGGING,AV,CHANNEL_IO>\n"
      "\tether {}\n"
      "\tnd6 options=201<PERFORMNUD,DAD>\n"
      "\tmedia: {}\n"
      "\tstatus: {}\n",
      interface.name, interface.mtu, lowerCase(interface.mac), mediaText(interface),
      interface.link ? "active" : "inactive");
}

std::string describeAll(const std::vector<InterfaceView>& interfaces) {
  std::string text = loopback;
  for (const InterfaceView& interface : interfaces) text += describe(interface);
  return text;
}

}  // namespace

ToolAnswer interfaceConfiguration(const BenchFile& bench, const ToolArguments& arguments) {
  const auto interfaces = interfacesOf(readBench(bench));
  if (arguments.empty() || arguments[0] == "-a") return {.output = describeAll(interfaces)};
  if (arguments[0] == "lo0") return {.output = loopback};
  for (const InterfaceView& interface : interfaces) {
    if (interface.name == arguments[0]) return {.output = describe(interface)};
  }
  return refusal(fmt::format("ifconfig: interface {} does not exist", arguments[0]));
}

}  // namespace corvane
