#include "cli/bench-tools/NetworkPing.h"

#include <fmt/format.h>

namespace corvane {

namespace {

/// EX_USAGE and EX_NOHOST of sysexits.h, as the real tool uses them.
constexpr int usageStatus = 64;
constexpr int unknownHostStatus = 68;

}  // namespace

ToolAnswer networkPing(const BenchFile& bench, const ToolArguments& arguments) {
  if (arguments.empty() || arguments.back().starts_with("-")) {
    return refusal("usage: ping [-c count] [-s packetsize] host", usageStatus);
  }
  const std::string& host = arguments.back();
  if (readBench(bench).hasFault("no-network")) {
    return refusal(fmt::format("ping: cannot resolve {}: Unknown host", host), unknownHostStatus);
  }
  return {.output = fmt::format("PING {0} (127.0.0.1): 1 data bytes\n"
                                "9 bytes from 127.0.0.1: icmp_seq=0 ttl=64\n\n"
                                "--- {0} ping statistics ---\n"
                                "1 packets transmitted, 1 packets received, 0.0% packet loss\n",
                                host)};
}

}  // namespace corvane
