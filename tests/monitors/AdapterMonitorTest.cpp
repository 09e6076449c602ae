// What the monitors of both families do alike.

#include "DeviceMonitorCORVANE2_10GE/DeviceMonitorCORVANE2_10GE.h"
#include "DeviceMonitorCORVANE2_8FC/DeviceMonitorCORVANE2.h"
#include "fakes/FakeAdapters.h"
#include "monitors/MonitorFixture.h"

using namespace corvane;
using std::chrono::seconds;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

namespace {

struct AppearanceRow {
  uint32_t product;          ///< the registry's number
  const char* notification;  ///< null for none
  const char* logged;
};

struct FibreChannelFamily {
  using Monitor = DeviceMonitorCORVANE2;
  static constexpr const char* driver = "com.velmar.Corvane2-FC";
  static constexpr const char* second = "Corvane2Appeared";
  static constexpr const char* disappeared = "Corvane2Disppeared";
  static constexpr uint32_t secondGeneration = 0x0d;
  static constexpr uint32_t thirdGeneration = 0x12;
  static constexpr const char* secondProduct = "Corvane2 16G FC";
  static inline const std::vector<AppearanceRow> rows{{0x05, "Corvane2Appeared", "Corvane2 8G FC"},
                                                      {0x0d, "Corvane2Appeared", "Corvane2 16G FC"},
                                                      {0x15, "Corvane3Appeared", "Corvane3 8G FC"},
                                                      {0x12, "Corvane3Appeared", "Corvane3 F2"},
                                                      {0x07, nullptr, "(null)"}};

  static std::vector<RegistryHandle> add(FakeRegistry& registry, uint32_t product = 0x0d,
                                         uint8_t number = 0x56) {
    FakeFibreChannelAdapter adapter;
    adapter.model = product;
    adapter.number = number;
    return addFibreChannelAdapter(registry, adapter);
  }

  static std::string key(uint8_t number = 0x56) {
    FakeFibreChannelAdapter adapter;
    adapter.number = number;
    return fakeNodeName(adapter);
  }

  /// What reading the port of that interface leaves in the log.
  static std::vector<std::string> readingLines(const std::string&) { return {}; }

  /// Gives the port names that no adapter has.
  static void estrange(FakeRegistry& registry, RegistryHandle port) {
    registry.setProperty(
        port, "Controller Characteristics",
        PropertyValue::Dictionary{{"Node World Wide Name", PropertyValue::Data(8, 9)},
                                  {"Port World Wide Name", PropertyValue::Data(8, 9)}});
  }

  /// A port that tells nothing of its adapter.
  static RegistryHandle addPlain(FakeRegistry& registry) {
    return registry.add(registry.root, "port", {{"CFBundleIdentifier", PropertyValue(driver)}});
  }
};

struct TenGigabitFamily {
  using Monitor = DeviceMonitorCORVANE2_10GE;
  static constexpr const char* driver = "com.velmar.driver.Corvane2-10GE";
  static constexpr const char* second = "Corvane2Appeared_10GE";
  static constexpr const char* disappeared = "Corvane2Disppeared_10GE";
  static constexpr uint32_t secondGeneration = 0x6202;
  static constexpr uint32_t thirdGeneration = 0x7202;
  static constexpr const char* secondProduct = "Corvane2 10G SFP+";
  static inline const std::vector<AppearanceRow> rows{
      {0x6201, "Corvane2Appeared_10GE", "Corvane2 10G Base-T"},
      {0x6202, "Corvane2Appeared_10GE", "Corvane2 10G SFP+"},
      {0x7203, "Corvane3Appeared_10GE", "Corvane3 NBASE-T1"},
      {0x7201, "Corvane3Appeared_10GE", "Corvane3 10G Base-T"},
      {0x7202, "Corvane3Appeared_10GE", "Corvane3 10G SFP+"},
      {0x1234, nullptr, "(null)"}};

  static std::vector<RegistryHandle> add(FakeRegistry& registry, uint32_t product = 0x6202,
                                         uint8_t number = 12) {
    FakeTenGigabitAdapter adapter;
    adapter.subsystem = product;
    adapter.bus = number;
    adapter.number = number;
    return addTenGigabitAdapter(registry, adapter);
  }

  static std::string key(uint8_t number = 12) { return std::to_string(number); }

  static std::vector<std::string> readingLines(const std::string& interface) {
    return {"show current enNum --> " + interface, "port en" + interface + " is enable"};
  }

  static void estrange(FakeRegistry& registry, RegistryHandle port) {
    registry.setProperty(port, "IOMACAddress", PropertyValue(PropertyValue::Data(6, 9)));
  }

  static RegistryHandle addPlain(FakeRegistry& registry) {
    return registry.add(registry.root, "port", {{"CFBundleIdentifier", PropertyValue(driver)}});
  }
};

template <typename Family>
class AdapterMonitorTest : public MonitorFixture<typename Family::Monitor> {
 protected:
  AdapterMonitorTest() {
    this->fake.bundles.install("/Library/Extensions/Corvane2-FC.kext", "2.0.8");
  }

  /// Starts the monitor and lets the time pass that reading the ports present takes.
  void start() {
    MonitorFixture<typename Family::Monitor>::start();
    this->dispatch.advance(seconds(10));
  }

  std::vector<RegistryHandle> add() { return Family::add(this->fake.registry); }

  /// Adds and publishes an adapter.
  std::vector<RegistryHandle> plug() {
    const auto ports = add();
    this->publish(ports);
    return ports;
  }

  auto device() { return this->monitor.getDevice(Family::key()); }
  auto posts() const { return this->fake.notifications.posts(); }

  static auto isArrival() { return ElementsAre(Pair(Family::second, Family::key())); }
  static auto isDeparture() { return ElementsAre(Pair(Family::disappeared, Family::key())); }
};

using Families = ::testing::Types<FibreChannelFamily, TenGigabitFamily>;
TYPED_TEST_SUITE(AdapterMonitorTest, Families);

}  // namespace

TYPED_TEST(AdapterMonitorTest, TheSecondPortAnnouncesTheAdapter) {
  this->start();
  uint8_t number = 12;
  for (const AppearanceRow& row : TypeParam::rows) {
    SCOPED_TRACE(row.logged);
    this->fake.notifications.clear();
    const auto ports = TypeParam::add(this->fake.registry, row.product, ++number);
    this->fake.log.clear();
    this->publish({ports[0]});
    EXPECT_THAT(this->posts(), IsEmpty());
    EXPECT_EQ(this->fake.log.lines(), TypeParam::readingLines("5"));
    const auto device = this->monitor.getDevice(TypeParam::key(number));
    ASSERT_NE(device, nullptr) << "held, but not announced";

    this->fake.log.clear();
    this->publish({ports[1]});
    if (row.notification == nullptr) {
      EXPECT_THAT(this->posts(), IsEmpty());
    } else {
      EXPECT_THAT(this->posts(), ElementsAre(Pair(row.notification, TypeParam::key(number))));
    }
    auto lines = TypeParam::readingLines("6");
    lines.emplace_back(row.logged);
    EXPECT_EQ(this->fake.log.lines(), lines);
    EXPECT_EQ(device->port2()->portService(), ports[1]);
  }
}

TYPED_TEST(AdapterMonitorTest, RegistersForTheDriver) {
  this->start();
  const PropertyValue::Dictionary matching{
      {"IOPropertyMatch", PropertyValue::Dictionary{{"CFBundleIdentifier", TypeParam::driver}}}};
  EXPECT_THAT(this->fake.registry.registered, ElementsAre(Pair("IOServiceFirstMatch", matching),
                                                          Pair("IOServiceTerminate", matching)));
  EXPECT_EQ(this->fake.log.lines(), monitorStartLines);
  EXPECT_EQ(this->fake.runLoops.loop->sources.size(), 1U);
  EXPECT_EQ(this->fake.runLoops.loop->runs, 1);
}

TYPED_TEST(AdapterMonitorTest, StartReturnsBeforeTheMonitorRuns) {
  this->monitor.start();
  EXPECT_THAT(this->fake.log.lines(), IsEmpty());
  EXPECT_EQ(this->dispatch.unfinished(), 1U);
  EXPECT_THAT(this->dispatch.priorities(), ElementsAre(QueuePriority::Default));
}

TYPED_TEST(AdapterMonitorTest, AdaptersPresentAtTheStartAreReported) {
  this->plug();
  this->publish(TypeParam::add(this->fake.registry, TypeParam::thirdGeneration, 30));
  int32_t status = -1;
  size_t posted = 0;
  this->monitor.whenStarted([&](int32_t result) {
    status = result;
    posted = this->posts().size();
  });
  this->start();
  EXPECT_EQ(status, 0);
  EXPECT_EQ(posted, 2U) << "by the time the start is told";
}

TYPED_TEST(AdapterMonitorTest, BothPortsInOneBatchPostOnce) {
  this->start();
  this->plug();
  EXPECT_THAT(this->posts(), this->isArrival());
}

TYPED_TEST(AdapterMonitorTest, TheProductIsLoggedBeforeTheAdapterIsAnnounced) {
  this->start();
  std::string logged;
  const auto observation = this->fake.notifications.observe(
      TypeParam::second, [&](const Notification&) { logged = this->fake.log.lines().back(); });
  this->plug();
  EXPECT_EQ(logged, TypeParam::secondProduct);
}

TYPED_TEST(AdapterMonitorTest, OtherServicesAreLeftAlone) {
  this->start();
  const auto ports = this->add();
  for (const auto port : ports)
    this->fake.registry.setProperty(port, "CFBundleIdentifier", PropertyValue("com.example.other"));
  this->publish(ports);
  EXPECT_EQ(this->device(), nullptr);
  EXPECT_EQ(this->fake.registry.references(), 2) << "the two iterators";
}

TYPED_TEST(AdapterMonitorTest, DepartureIsPostedOnceFromAGlobalQueue) {
  this->start();
  const auto ports = TypeParam::add(this->fake.registry, TypeParam::thirdGeneration);
  this->publish(ports);
  this->fake.notifications.clear();
  bool onMain = true;
  const auto observation = this->fake.notifications.observe(
      TypeParam::disappeared, [&](const Notification&) { onMain = this->dispatch.isMain(); });

  this->terminate({ports[0]});
  EXPECT_THAT(this->posts(), IsEmpty());
  EXPECT_NE(this->device(), nullptr);

  this->fake.registry.terminate({ports[1]});
  EXPECT_THAT(this->posts(), IsEmpty()) << "not on the monitor's thread";
  EXPECT_EQ(this->device(), nullptr);
  this->dispatch.runUntilIdle();
  EXPECT_THAT(this->posts(), this->isDeparture());
  EXPECT_FALSE(onMain);
  EXPECT_THAT(this->dispatch.priorities(), Each(QueuePriority::Default));
  EXPECT_EQ(this->fake.registry.references(), 2) << "the two iterators";
}

TYPED_TEST(AdapterMonitorTest, AHalfPluggedAdapterGoesWithItsOnePort) {
  this->start();
  const auto ports = this->add();
  this->publish({ports[0]});
  this->terminate({ports[0]});
  EXPECT_THAT(this->posts(), this->isDeparture());
}

TYPED_TEST(AdapterMonitorTest, APortThatReturnsWhileItsPartnerStayedIsRefused) {
  this->start();
  const auto ports = this->plug();
  this->fake.notifications.clear();
  this->terminate({ports[0]});
  this->publish({ports[0]});
  EXPECT_THAT(this->posts(), IsEmpty());
  EXPECT_EQ(this->device()->port1()->portService(), 0U) << "the slot is still taken";
  EXPECT_EQ(this->fake.registry.references(), 3) << "the refused port's reference went";
}

TYPED_TEST(AdapterMonitorTest, AnAdapterPluggedInAgainIsANewDeviceAndAnnouncedAgain) {
  this->start();
  const auto ports = this->plug();
  const auto former = this->device();
  this->terminate(ports);
  this->fake.notifications.clear();
  this->publish(ports);
  EXPECT_THAT(this->posts(), this->isArrival());
  EXPECT_NE(this->device(), former);
}

TYPED_TEST(AdapterMonitorTest, APortThatTellsNoAdapterIsLeftAlone) {
  this->start();
  const auto service = TypeParam::addPlain(this->fake.registry);
  this->publish({service});
  EXPECT_EQ(this->fake.registry.references(), 2) << "the two iterators";
  this->terminate({service});
  EXPECT_THAT(this->posts(), IsEmpty());
}

TYPED_TEST(AdapterMonitorTest, ADepartedPortThatIsNotKnownIsIgnored) {
  this->start();
  const auto ports = this->plug();
  TypeParam::estrange(this->fake.registry, ports[0]);
  this->terminate({ports[0]});
  EXPECT_EQ(this->posts().size(), 1U) << "the arrival alone";
  EXPECT_FALSE(this->device()->isEmpty());
}

TYPED_TEST(AdapterMonitorTest, TenThousandPlugsLeaveNoReferenceBehind) {
  this->start();
  const std::vector<std::vector<RegistryHandle>> adapters{
      this->add(), TypeParam::add(this->fake.registry, TypeParam::thirdGeneration, 0x99)};
  for (int cycle = 0; cycle < 10000; ++cycle) {
    const auto& ports = adapters[static_cast<size_t>(cycle % 2)];
    this->fake.registry.publish(ports);
    this->fake.registry.terminate(ports);
    if (cycle % 100 == 0) {
      this->dispatch.runUntilIdle();
      ASSERT_EQ(this->fake.registry.references(), 2);
    }
  }
  this->dispatch.runUntilIdle();
  EXPECT_EQ(this->posts().size(), 20000U);
  this->monitor.stop();
  EXPECT_EQ(this->fake.registry.references(), 0);
  EXPECT_EQ(this->fake.registry.overReleases, 0);
  EXPECT_EQ(this->fake.registry.usesAfterRelease, 0);
}

TYPED_TEST(AdapterMonitorTest, StopTearsEverythingDown) {
  this->start();
  this->plug();
  const auto device = this->device();
  this->fake.notifications.clear();
  this->fake.log.clear();
  this->monitor.stop();
  EXPECT_THAT(this->fake.log.lines(), ElementsAre("Monitor stopped"));
  EXPECT_EQ(this->fake.runLoops.loop->stops, 1);
  EXPECT_EQ(this->fake.registry.references(), 0);
  EXPECT_EQ(this->fake.registry.openPorts(), 0U);
  EXPECT_EQ(this->fake.registry.registrations(), 0U);
  EXPECT_EQ(this->fake.diskArbitration.openSessions(), 0U);
  EXPECT_EQ(this->device(), nullptr);
  EXPECT_EQ(device->port1(), nullptr);
  this->dispatch.runUntilIdle();
  EXPECT_THAT(this->posts(), IsEmpty()) << "stopping announces no departure";
  this->monitor.stop();
  EXPECT_EQ(this->fake.log.count("Monitor stopped"), 1);
}

TYPED_TEST(AdapterMonitorTest, StopGoesFromTheIteratorsToTheAdapters) {
  this->start();
  this->plug();
  std::vector<std::string> steps;
  this->fake.registry.onRelease = [&] {
    steps.emplace_back(this->device() ? "iterator" : "service of an adapter no longer listed");
    EXPECT_EQ(this->fake.runLoops.loop->stops, 1);
    EXPECT_EQ(this->fake.registry.openPorts(), 1U) << "the notification port goes last";
    EXPECT_EQ(this->fake.log.count("Monitor stopped"), 0);
  };
  this->monitor.stop();
  this->fake.registry.onRelease = nullptr;
  EXPECT_THAT(steps, ElementsAre("iterator", "iterator", "service of an adapter no longer listed",
                                 "service of an adapter no longer listed"));
}

TYPED_TEST(AdapterMonitorTest, ADepartureThatIsStillOnItsWayIsDroppedByStop) {
  this->start();
  const auto ports = this->plug();
  this->fake.notifications.clear();
  this->fake.registry.terminate(ports);
  this->monitor.stop();
  this->dispatch.runUntilIdle();
  EXPECT_THAT(this->posts(), IsEmpty());
}

TYPED_TEST(AdapterMonitorTest, AMonitorStoppedBeforeItRanNeverRuns) {
  this->monitor.start();
  this->monitor.stop();
  this->dispatch.runUntilIdle();
  EXPECT_THAT(this->fake.log.lines(), ElementsAre("Monitor stopped"));
}
