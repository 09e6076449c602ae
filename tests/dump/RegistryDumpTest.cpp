#include "platform/dump/RegistryDump.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

using namespace corvane;

namespace {

std::string dumpBytes(const std::string& name) {
  std::ifstream stream(CORVANE_TEST_DATA "/dumps/" + name, std::ios::binary);
  EXPECT_TRUE(stream) << name;
  return {std::istreambuf_iterator<char>(stream), {}};
}

RegistryDump sampleDump(const std::string& name) {
  DumpReading reading = readRegistryDump(dumpBytes(name));
  EXPECT_TRUE(reading.dump.has_value()) << reading.problem;
  return std::move(*reading.dump);
}

const PropertyValue::Dictionary fibreChannelMatch{{"CFBundleIdentifier", "com.velmar.Corvane2-FC"}};
const PropertyValue::Dictionary ethernetMatch{
    {"CFBundleIdentifier", "com.velmar.driver.Corvane2-10GE"}};

/// The names from an entry up to its root.
std::vector<std::string> ancestry(const RegistryDump& dump, RegistryDump::Entry entry) {
  std::vector<std::string> names;
  for (std::optional<RegistryDump::Entry> step = entry; step; step = dump.parent(*step)) {
    names.push_back(dump.name(*step));
  }
  return names;
}

class DesktopDump : public testing::TestWithParam<const char*> {};

TEST_P(DesktopDump, HoldsTheWholeTree) {
  const RegistryDump dump = sampleDump(GetParam());
  EXPECT_EQ(dump.entryCount(), 46u);
  const auto ports = dump.entriesWith(ethernetMatch);
  ASSERT_EQ(ports.size(), 2u);
  EXPECT_EQ(ancestry(dump, ports[0]), (std::vector<std::string>{"Corvane2_10GE",
                                                                "ethernet",
                                                                "IOPP",
                                                                "pci-bridge",
                                                                "IOPP",
                                                                "pci-bridge",
                                                                "IOPP",
                                                                "pci-bridge",
                                                                "IOPP",
                                                                "UPS0",
                                                                "IOPP",
                                                                "DSB1",
                                                                "IOPP",
                                                                "UFS0",
                                                                "IOPP",
                                                                "PEG0",
                                                                "AppleACPIPCI",
                                                                "PCI0",
                                                                "AppleACPIPlatformExpert",
                                                                "MacPro6,1",
                                                                "Root"}));
  const auto interface = dump.firstChild(ports[0]);
  ASSERT_TRUE(interface.has_value());
  EXPECT_EQ(dump.name(*interface), "en12");
  EXPECT_EQ(dump.className(*interface), "IOEthernetInterface");
  EXPECT_FALSE(dump.firstChild(*interface).has_value());
}

TEST_P(DesktopDump, HoldsThePropertiesOfThePorts) {
  const RegistryDump dump = sampleDump(GetParam());
  const auto ports = dump.entriesWith(fibreChannelMatch);
  ASSERT_EQ(ports.size(), 2u);
  const auto properties = dump.properties(ports[1]);
  const PropertyValue* characteristics = findProperty(properties, "Controller Characteristics");
  ASSERT_NE(characteristics, nullptr);
  EXPECT_EQ(characteristics->find("Node World Wide Name")->description(), "<20000010 9b123456>");
  EXPECT_EQ(characteristics->find("Port World Wide Name")->description(), "<22000010 9b123456>");
  EXPECT_EQ(propertyText(properties, "IOProbeScore"), "-100");
}

TEST_P(DesktopDump, HoldsTheTunnelEndpoint) {
  const RegistryDump dump = sampleDump(GetParam());
  const auto bridges = dump.entriesNamed("UPS0");
  ASSERT_EQ(bridges.size(), 1u);
  EXPECT_EQ(dump.location(bridges[0]), "0");
  const auto properties = dump.properties(bridges[0]);
  EXPECT_EQ(propertyText(properties, "Tunnel Endpoint Device Vendor ID"), "<02000000>");
  EXPECT_EQ(propertyText(properties, "Tunnel Endpoint Device Model ID"), "<0d000000>");
  EXPECT_EQ(propertyText(properties, "IOPCITunnelled"), "1");
}

TEST_P(DesktopDump, CanBeReadInFull) {
  EXPECT_EQ(sampleDump(GetParam()).problems(), DumpProblems{});
}

INSTANTIATE_TEST_SUITE_P(Forms, DesktopDump,
                         testing::Values("desktop-2013.txt", "desktop-2013-hexadecimal.txt",
                                         "desktop-2013.plist"));

TEST(DumpTree, LinksSiblings) {
  const RegistryDump dump = sampleDump("desktop-2013.txt");
  const auto slots = dump.firstChild(dump.firstChild(dump.entriesNamed("UFS0").at(0)).value());
  std::vector<std::string> titles;
  for (auto slot = slots; slot; slot = dump.nextSibling(*slot)) {
    titles.push_back(dump.name(*slot) + "@" + dump.location(*slot));
  }
  EXPECT_EQ(titles, (std::vector<std::string>{"DSB0@0", "DSB1@3", "DSB2@4", "DSB3@5", "DSB4@6"}));
}

TEST(DumpOfOlderDriver, HoldsItsPorts) {
  const RegistryDump dump = sampleDump("laptop-2012.txt");
  EXPECT_EQ(dump.entriesWith({{"CFBundleIdentifier", "com.velmar.Corvane-FC"}}).size(), 2u);
  EXPECT_TRUE(dump.entriesWith(fibreChannelMatch).empty());
}

TEST(DumpWithoutHostBridges, IsReadAllTheSame) {
  const RegistryDump dump = sampleDump("apple-silicon.txt");
  EXPECT_EQ(dump.entryCount(), 5u);
  EXPECT_EQ(dump.location(dump.entriesNamed("apciec0").at(0)), "B0000000");
}

TEST(DumpOfSeveralRoots, KeepsThemApart) {
  for (const char* name : {"several-roots.txt", "several-roots.plist"}) {
    const RegistryDump dump = sampleDump(name);
    const auto ports = dump.entriesWith(fibreChannelMatch);
    ASSERT_EQ(ports.size(), 2u) << name;
    EXPECT_EQ(ancestry(dump, ports[0]).back(), "DSB1") << name;
    EXPECT_FALSE(dump.parent(dump.entriesNamed("IOResources").at(0)).has_value()) << name;
    EXPECT_EQ(dump.problems(), DumpProblems{}) << name;
  }
}

TEST(DumpWithAncestors, FollowsSingleChildren) {
  const RegistryDump dump = sampleDump("with-ancestors.plist");
  const auto ports = dump.entriesWith(fibreChannelMatch);
  ASSERT_EQ(ports.size(), 2u);
  EXPECT_EQ(ancestry(dump, ports[0]).back(), "Root");
}

TEST(TruncatedDump, KeepsWhatIsThere) {
  const RegistryDump dump = sampleDump("desktop-2013-truncated.txt");
  EXPECT_EQ(dump.entriesWith(fibreChannelMatch).size(), 2u);
  EXPECT_EQ(dump.entriesWith(ethernetMatch).size(), 2u);
  EXPECT_LT(dump.entryCount(), 46u);
}

TEST(CutDump, CountsWhatIsCutAndKeepsTheTree) {
  const RegistryDump dump = sampleDump("desktop-2013-cut.txt");
  EXPECT_EQ(dump.entryCount(), 46u);
  const DumpProblems problems = dump.problems();
  EXPECT_GT(problems.cutLines, 10u);
  EXPECT_EQ(problems.unreadableLines, 0u);
  EXPECT_EQ(problems.unreadableValues, 0u);
}

TEST(WidelyCutDump, StillShowsThePorts) {
  const RegistryDump dump = sampleDump("desktop-2013-wide-cut.txt");
  const auto ports = dump.entriesWith(fibreChannelMatch);
  ASSERT_EQ(ports.size(), 2u);
  EXPECT_NE(findProperty(dump.properties(ports[0]), "Controller Characteristics")->find("Vendor"),
            nullptr);
}

TEST(RedactedDump, CountsAndShowsWhatIsLeft) {
  const RegistryDump dump = sampleDump("desktop-2013-redacted.txt");
  EXPECT_EQ(dump.problems(), DumpProblems{.redactedValues = 4});
  const auto properties = dump.properties(dump.entriesWith(fibreChannelMatch).at(0));
  EXPECT_EQ(findProperty(properties, "Controller Characteristics")
                ->find("Node World Wide Name")
                ->description(),
            "<20000010 ********>");
}

TEST(ShortenedDump, HangsEntriesOnTheNearestAncestor) {
  const DumpReading reading = readRegistryDump(
      "      +-o a  <class A, id 0x1, retain 1>\n"
      "            +-o b  <class B, id 0x2, retain 1>\n"
      "        +-o c  <class C, id 0x3, retain 1>\n"
      "  +-o d  <class D, id 0x4, retain 1>\n");
  ASSERT_TRUE(reading.dump.has_value());
  const RegistryDump& dump = *reading.dump;
  EXPECT_EQ(dump.parent(1), 0u);
  EXPECT_EQ(dump.parent(2), 0u);
  EXPECT_FALSE(dump.parent(3).has_value());
  EXPECT_EQ(dump.nextSibling(1), 2u);
}

TEST(UnregisteredEntry, IsNotAnnounced) {
  const DumpReading reading =
      readRegistryDump("+-o a  <class A, id 0x1, !registered, !matched, active, retain 1>\n");
  ASSERT_TRUE(reading.dump.has_value());
  EXPECT_FALSE(reading.dump->isAnnounced(0));
}

TEST(EmptyDump, HasNoEntries) {
  for (const char* bytes : {"", "\n\n", "<plist version=\"1.0\"><array/></plist>"}) {
    const DumpReading reading = readRegistryDump(bytes);
    ASSERT_TRUE(reading.dump.has_value()) << bytes;
    EXPECT_EQ(reading.dump->entryCount(), 0u);
  }
}

TEST(OtherFile, IsRefusedWithAReason) {
  EXPECT_EQ(readRegistryDump("hello\nworld\n").problem, "It holds no entry of a device registry.");
  EXPECT_EQ(readRegistryDump("bplist00abc").problem,
            "It is a property list in binary form; \"plutil -convert xml1\" makes it readable.");
  EXPECT_EQ(readRegistryDump("<?xml version=\"1.0\"?><plist><dict><key>a").problem,
            "It is a property list that is not well formed.");
  EXPECT_EQ(
      readRegistryDump("<plist version=\"1.0\"><dict><key>a</key><true/></dict></plist>").problem,
      "It is a property list, but of no device registry.");
}

TEST(DeepPropertyList, IsRefused) {
  std::string bytes = "<plist version=\"1.0\">";
  for (int level = 0; level < 200000; ++level) bytes += "<array>";
  EXPECT_EQ(readRegistryDump(bytes).problem, "It is a property list that is not well formed.");
}

TEST(PropertyListText, MayHoldNoZeroByte) {
  for (const std::string& zero :
       {std::string(1, '\0'), std::string("&#0;"), std::string("&#x00;")}) {
    const DumpReading reading =
        readRegistryDump("<plist version=\"1.0\"><dict><key>IORegistryEntryName</key><string>a" +
                         zero + "b</string></dict></plist>");
    EXPECT_EQ(reading.problem, "It is a property list that is not well formed.");
  }
}

TEST(PropertyListEntry, WithoutANameIsSkippedAndCounted) {
  const DumpReading reading = readRegistryDump(
      "<plist version=\"1.0\"><array><dict><key>IORegistryEntryName</key><string>a</string></dict>"
      "<dict><key>x</key><true/></dict><string>y</string></array></plist>");
  ASSERT_TRUE(reading.dump.has_value());
  EXPECT_EQ(reading.dump->entryCount(), 1u);
  EXPECT_EQ(reading.dump->problems(), DumpProblems{.unreadableValues = 2});
}

}  // namespace
