#include "platform/dump/DumpRegistry.h"

#include <gtest/gtest.h>

#include "platform/dump/SupportFolder.h"

using namespace corvane;

namespace {

class DumpRegistryTest : public testing::Test {
 protected:
  SharedDictionary matching(const char* identifier) {
    auto dictionary = registry.createMutableDictionary();
    (*dictionary)["IOPropertyMatch"] =
        PropertyValue::Dictionary{{"CFBundleIdentifier", identifier}};
    return dictionary;
  }

  std::vector<RegistryHandle> arrivals(const char* identifier,
                                       const char* type = firstMatchNotification) {
    const auto port = registry.createNotificationPort();
    RegistryHandle iterator = 0;
    EXPECT_EQ(registry.addMatchingNotification(*port, type, matching(identifier), nullptr, nullptr,
                                               iterator),
              statusSuccess);
    const RegistryObject owned(registry, iterator);
    std::vector<RegistryHandle> found;
    while (const RegistryHandle service = registry.next(iterator)) found.push_back(service);
    return found;
  }

  SupportMaterial material =
      std::move(*openSupportMaterial(CORVANE_TEST_DATA "/dumps/desktop-2013.txt").material);
  DumpRegistry registry{material.dump};
};

TEST_F(DumpRegistryTest, FindsTheServicesOfEachDriver) {
  EXPECT_EQ(arrivals("com.velmar.Corvane2-FC").size(), 2u);
  EXPECT_EQ(arrivals("com.velmar.driver.Corvane2-10GE").size(), 2u);
  EXPECT_TRUE(arrivals("com.velmar.Corvane-FC").empty());
  EXPECT_TRUE(arrivals("").empty());
}

TEST_F(DumpRegistryTest, ReportsNoDepartures) {
  EXPECT_TRUE(arrivals("com.velmar.Corvane2-FC", terminateNotification).empty());
}

TEST_F(DumpRegistryTest, RefusesUnknownNotifications) {
  const auto port = registry.createNotificationPort();
  RegistryHandle iterator = 7;
  EXPECT_NE(registry.addMatchingNotification(*port, "IOServicePublish", matching("x"), nullptr,
                                             nullptr, iterator),
            statusSuccess);
  EXPECT_EQ(iterator, 0u);
}

TEST_F(DumpRegistryTest, FindsAServiceByItsInterfaceName) {
  auto dictionary = registry.createMutableDictionary();
  (*dictionary)["BSD Name"] = "en13";
  const RegistryObject interface(registry, registry.matchingService(dictionary));
  ASSERT_TRUE(interface);
  std::string name;
  EXPECT_EQ(registry.name(interface.get(), name), statusSuccess);
  EXPECT_EQ(name, "en13");
}

TEST_F(DumpRegistryTest, MatchesNothingWithoutConditions) {
  EXPECT_EQ(registry.matchingService(registry.createMutableDictionary()), 0u);
  EXPECT_EQ(registry.matchingService(nullptr), 0u);
}

TEST_F(DumpRegistryTest, WalksUpToTheRoot) {
  RegistryObject entry(registry, arrivals("com.velmar.Corvane2-FC").front());
  size_t steps = 0;
  RegistryHandle parent = 0;
  std::string name;
  while (registry.parentEntry(entry.get(), servicePlane, parent) == statusSuccess) {
    entry = RegistryObject(registry, parent);
    ++steps;
  }
  EXPECT_EQ(registry.name(entry.get(), name), statusSuccess);
  EXPECT_EQ(name, "Root");
  EXPECT_EQ(steps, 16u);
  EXPECT_EQ(parent, 0u);
}

TEST_F(DumpRegistryTest, PrintsPaths) {
  const RegistryObject port(registry, arrivals("com.velmar.Corvane2-FC").front());
  std::string path;
  ASSERT_EQ(registry.path(port.get(), servicePlane, path), statusSuccess);
  EXPECT_EQ(path,
            "IOService:/MacPro6,1/AppleACPIPlatformExpert/PCI0@0/AppleACPIPCI/PEG0@1/IOPP/UFS0@0/"
            "IOPP/DSB1@3/IOPP/UPS0@0/IOPP/pci-bridge@0/IOPP/pci10df,e200@0/CorvaneFCController");
}

TEST_F(DumpRegistryTest, KnowsOnePlaneOnly) {
  const RegistryObject port(registry, arrivals("com.velmar.Corvane2-FC").front());
  RegistryHandle other = 0;
  std::string path;
  EXPECT_NE(registry.parentEntry(port.get(), "IOUSB", other), statusSuccess);
  EXPECT_NE(registry.childEntry(port.get(), "IOUSB", other), statusSuccess);
  EXPECT_NE(registry.path(port.get(), "IOUSB", path), statusSuccess);
}

TEST_F(DumpRegistryTest, GivesTheFirstChild) {
  const RegistryObject port(registry, arrivals("com.velmar.driver.Corvane2-10GE").front());
  RegistryHandle child = 0;
  ASSERT_EQ(registry.childEntry(port.get(), servicePlane, child), statusSuccess);
  const RegistryObject interface(registry, child);
  RegistryHandle none = 0;
  EXPECT_NE(registry.childEntry(child, servicePlane, none), statusSuccess);
}

TEST(DumpRegistryChild, IsWithheldWhileItHadNoName) {
  const DumpReading reading = readRegistryDump(
      "+-o driver  <class D, id 0x1, registered, matched, active, retain 1>\n"
      "    {\n      \"BSD Name\" = \"x\"\n    }\n    \n"
      "  +-o IOEthernetInterface  <class IOEthernetInterface, id 0x2, retain 1>\n");
  DumpRegistry registry(*reading.dump);
  auto dictionary = registry.createMutableDictionary();
  (*dictionary)["BSD Name"] = "x";
  const RegistryObject driver(registry, registry.matchingService(dictionary));
  ASSERT_TRUE(driver);
  RegistryHandle child = 0;
  EXPECT_NE(registry.childEntry(driver.get(), servicePlane, child), statusSuccess);
}

TEST_F(DumpRegistryTest, CountsReferences) {
  const auto services = arrivals("com.velmar.Corvane2-FC");
  EXPECT_EQ(registry.referenceCount(), 2u);
  registry.retain(services[0]);
  EXPECT_EQ(registry.referenceCount(), 3u);
  registry.release(services[0]);
  registry.release(services[0]);
  std::string name;
  EXPECT_NE(registry.name(services[0], name), statusSuccess);
  EXPECT_EQ(registry.name(services[1], name), statusSuccess);
  registry.release(services[1]);
  registry.release(services[1]);
  EXPECT_EQ(registry.referenceCount(), 0u);
}

TEST_F(DumpRegistryTest, RefusesHandlesThatWereNeverGiven) {
  std::string name;
  PropertyValue::Dictionary properties;
  for (const RegistryHandle handle : {0u, 1u, 47u, 0xFFFFFFFFu}) {
    EXPECT_NE(registry.name(handle, name), statusSuccess);
    EXPECT_NE(registry.properties(handle, properties), statusSuccess);
    EXPECT_EQ(registry.next(handle), 0u);
  }
}

TEST(DumpRegistryMatch, LeavesOutWhatWasNotRegistered) {
  const DumpReading reading = readRegistryDump(
      "+-o a  <class A, id 0x1, !registered, !matched, active, retain 1>\n"
      "    {\n      \"BSD Name\" = \"en1\"\n    }\n    \n");
  DumpRegistry registry(*reading.dump);
  auto dictionary = registry.createMutableDictionary();
  (*dictionary)["BSD Name"] = "en1";
  EXPECT_EQ(registry.matchingService(dictionary), 0u);
}

TEST(DumpRegistryMatch, TakesAnIdentifierThatIsCutForTheOneItBegins) {
  struct CutIdentifierRow {
    const char* printed;
    bool matches;
  };
  for (const CutIdentifierRow& row :
       {CutIdentifierRow{"\"com.velm$", true}, CutIdentifierRow{"\"com.velmar.driver.Cor$\r", true},
        CutIdentifierRow{"\"com.velmar.Corvane$", false}, CutIdentifierRow{"\"com.vel$", false},
        CutIdentifierRow{"\"com.apple.dri$", false}, CutIdentifierRow{"\"$", false},
        CutIdentifierRow{"\"com.velmar.driver\"", false}, CutIdentifierRow{"163$", false}}) {
    const DumpReading reading = readRegistryDump(
        "+-o port  <class D, id 0x1, registered, matched, active, retain 1>\n"
        "    {\n      \"CFBundleIdentifier\" = " +
        std::string(row.printed) + "\n      \"other\" = 5$\n    }\n    \n");
    DumpRegistry registry(*reading.dump);
    auto dictionary = registry.createMutableDictionary();
    (*dictionary)["IOPropertyMatch"] =
        PropertyValue::Dictionary{{"CFBundleIdentifier", "com.velmar.driver.Corvane2-10GE"}};
    const RegistryObject found(registry, registry.matchingService(dictionary));
    EXPECT_EQ(found.get() != 0, row.matches) << row.printed;
  }
}

TEST(DumpRegistryPath, FailsWhenItIsTooLong) {
  std::string text;
  for (size_t depth = 0; depth < 12; ++depth) {
    text += std::string(2 * depth, ' ') + "+-o " + std::string(50, 'n') + "  <class A>\n" +
            std::string(2 * depth + 4, ' ') + "{\n" + std::string(2 * depth + 6, ' ') +
            "\"BSD Name\" = \"d" + std::to_string(depth) + "\"\n" +
            std::string(2 * depth + 4, ' ') + "}\n";
  }
  const DumpReading reading = readRegistryDump(text);
  DumpRegistry registry(*reading.dump);
  for (const bool fits : {true, false}) {
    auto dictionary = registry.createMutableDictionary();
    (*dictionary)["BSD Name"] = fits ? "d8" : "d9";
    const RegistryObject entry(registry, registry.matchingService(dictionary));
    std::string path;
    EXPECT_EQ(registry.path(entry.get(), servicePlane, path) == statusSuccess, fits);
  }
}

}  // namespace
