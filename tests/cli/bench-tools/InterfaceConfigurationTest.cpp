#include "cli/bench-tools/InterfaceConfiguration.h"

#include <gmock/gmock.h>

#include "CLIParser/toolReports.h"
#include "cli/bench-tools/ToolBench.h"

namespace corvane {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

class InterfaceConfigurationTest : public ToolBench {
 protected:
  std::string output(const ToolArguments& arguments) {
    return interfaceConfiguration(bench, arguments).output;
  }
  std::string mediaLine(const std::string& media, bool link = true) {
    changePort("en5", [&](BenchEthernetPort& port) {
      port.media = media;
      port.link = link;
    });
    const std::string text = output({"en5"});
    const size_t start = text.find("\tmedia: ");
    return text.substr(start, text.find('\n', start) - start);
  }
};

TEST_F(InterfaceConfigurationTest, AnActiveInterfacePrintsAsOnAMac) {
  EXPECT_EQ(output({"en5"}),
            "en5: flags=8863<UP,BROADCAST,SMART,RUNNING,SIMPLEX,MULTICAST> mtu 1500\n"
            "\toptions=50b<RXCSUM,TXCSUM,VLAN_HWTAGGING,AV,CHANNEL_IO>\n"
            "\tether 00:1b:21:aa:bb:cc\n"
            "\tnd6 options=201<PERFORMNUD,DAD>\n"
            "\tmedia: autoselect (10Gbase-T <full-duplex,flow-control>)\n"
            "\tstatus: active\n");
}

TEST_F(InterfaceConfigurationTest, AnInactiveInterfaceHasNoMedium) {
  changePort("en6", [](BenchEthernetPort& port) {
    port.link = false;
    port.mtu = 9000;
  });
  EXPECT_THAT(output({"en6"}), EndsWith("\tmedia: autoselect (none)\n\tstatus: inactive\n"));
  EXPECT_EQ(interfaceMTU(output({"en6"})), 9000);
  EXPECT_EQ(interfaceMedium(output({"en6"})), "Unknow");
}

TEST_F(InterfaceConfigurationTest, MediaStandAsOnAMac) {
  EXPECT_EQ(mediaLine(""), "\tmedia: autoselect");
  EXPECT_EQ(mediaLine("none"), "\tmedia: none");
  EXPECT_EQ(mediaLine("<unknown type>"), "\tmedia: <unknown type>");
  EXPECT_EQ(mediaLine("autoselect <full-duplex>"), "\tmedia: autoselect <full-duplex>");
  EXPECT_EQ(mediaLine("autoselect (<unknown type>)"), "\tmedia: autoselect (<unknown type>)");
  EXPECT_EQ(mediaLine("100baseTX <full-duplex>"), "\tmedia: autoselect (100baseTX <full-duplex>)");
  EXPECT_EQ(mediaLine("10GbaseSR <full-duplex>"), "\tmedia: autoselect (10GbaseSR <full-duplex>)");
  EXPECT_EQ(mediaLine("10GbaseSR <full-duplex>", false), "\tmedia: autoselect (none)");
}

TEST_F(InterfaceConfigurationTest, AMissingInterfaceIsAnErrorAndNothingElse) {
  const ToolAnswer answer = interfaceConfiguration(bench, {"en0"});
  EXPECT_EQ(answer.output, "");
  EXPECT_EQ(answer.error, "ifconfig: interface en0 does not exist\n");
  EXPECT_EQ(answer.status, 1);
}

TEST_F(InterfaceConfigurationTest, AnUnpluggedAdapterTakesItsInterfacesAlong) {
  bench.update([](BenchState& state) { state.adapters[0].attached = false; });
  EXPECT_EQ(interfaceConfiguration(bench, {"en5"}).status, 1);
}

TEST_F(InterfaceConfigurationTest, TheComputersOwnInterfacesAreThereToo) {
  BenchNetworkInterface other;
  other.name = "en1";
  other.mac = "AC:DE:48:00:11:22";
  bench.update([&](BenchState& state) { state.networkInterfaces = {other}; });
  EXPECT_THAT(output({"en1"}), HasSubstr("ether ac:de:48:00:11:22"));
}

TEST_F(InterfaceConfigurationTest, LoopbackHasNeitherMediaNorStatus) {
  EXPECT_THAT(output({"lo0"}), HasSubstr("mtu 16384"));
  EXPECT_THAT(output({"lo0"}), Not(HasSubstr("media")));
  EXPECT_THAT(output({"lo0"}), Not(HasSubstr("status")));
}

TEST_F(InterfaceConfigurationTest, AllInterfacesArePrintedTogether) {
  const std::string all = output({"lo0"}) + output({"en5"}) + output({"en6"});
  EXPECT_EQ(output({"-a"}), all);
  EXPECT_EQ(output({}), all);
}

}  // namespace
}  // namespace corvane
