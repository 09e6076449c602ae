#pragma once

#include <gtest/gtest.h>

#include <filesystem>

#include "CLIParser/ScriptedShell.h"
#include "cli/bench-tools/BenchTool.h"
#include "platform/bench/file/BenchFile.h"

namespace corvane {

/// A bench with one 10GbE adapter of two ports, en5 and en6, in a folder of its own.
class ToolBench : public testing::Test {
 protected:
  ToolBench() {
    BenchState state;
    state.drivers["Corvane2-10GE"] = "1.4.0";
    BenchAdapter adapter;
    adapter.product = "Corvane2 10G SFP+";
    adapter.ethernetPorts = {port("en5", "00:1B:21:AA:BB:CC"), port("en6", "00:1B:21:AA:BB:CD")};
    state.adapters = {adapter};
    bench.create(state);
  }

  static BenchEthernetPort port(const std::string& interface, const std::string& mac) {
    BenchEthernetPort port;
    port.interface = interface;
    port.mac = mac;
    return port;
  }

  BenchEthernetPort portNow(const std::string& interface) {
    const BenchState state = bench.load();
    return *state.findEthernetPort(interface);
  }

  template <typename Change>
  void changePort(const std::string& interface, Change change) {
    bench.update([&](BenchState& state) { change(*state.findEthernetPort(interface)); });
  }

  void setFault(const std::string& name) {
    bench.update([&](BenchState& state) { state.faults.insert(name); });
  }

  TemporaryFolder folder;
  BenchFile bench{(folder.path() / "bench.json").string()};
};

}  // namespace corvane
