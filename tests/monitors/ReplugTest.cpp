// Adapters that go, or go and come back, at any moment of their being read.

#include <chrono>
#include <map>
#include <set>

#include "DeviceMonitorCORVANE2_10GE/DeviceMonitorCORVANE2_10GE.h"
#include "DeviceMonitorCORVANE2_8FC/DeviceMonitorCORVANE2.h"
#include "discovery/ChainPosition.h"
#include "fakes/FakeAdapters.h"
#include "fakes/FakePlatform.h"
#include "fakes/ManualDispatch.h"

using namespace corvane;
using std::chrono::milliseconds;
using std::chrono::seconds;
using ::testing::IsEmpty;

namespace {

struct TenGigabitPlug {
  using Monitor = DeviceMonitorCORVANE2_10GE;
  static constexpr const char* appeared = "Corvane2Appeared_10GE";
  static constexpr const char* disappeared = "Corvane2Disppeared_10GE";
  static std::vector<RegistryHandle> add(FakeRegistry& registry, int bus) {
    FakeTenGigabitAdapter adapter;
    adapter.bus = bus;
    return addTenGigabitAdapter(registry, adapter);
  }
};

struct FibreChannelPlug {
  using Monitor = DeviceMonitorCORVANE2;
  static constexpr const char* appeared = "Corvane2Appeared";
  static constexpr const char* disappeared = "Corvane2Disppeared";
  static std::vector<RegistryHandle> add(FakeRegistry& registry, int) {
    return addFibreChannelAdapter(registry, {});
  }
};

/// A monitor, and a list that follows it as the application's does. The adapter that comes back has
/// services of its own, on another bus when it comes back elsewhere.
template <typename Plug>
struct ReplugScene {
  explicit ReplugScene(int latterBus = 12) : latter(Plug::add(fake.registry, latterBus)) {
    fake.bundles.install("/Library/Extensions/Corvane2-FC.kext", "2.0.8");
  }

  void unplugAfter(milliseconds moment) {
    dispatch.asyncGlobal(QueuePriority::Default, [this, moment] {
      dispatch.sleep(moment);
      fake.registry.terminate(former);
    });
  }

  void plugInAfter(milliseconds moment) {
    dispatch.asyncGlobal(QueuePriority::Default, [this, moment] {
      dispatch.sleep(moment);
      fake.registry.publish(latter);
    });
  }

  /// The services of the adapters that are listed.
  std::set<RegistryHandle> listedServices() {
    std::set<RegistryHandle> services;
    for (const auto& [key, label] : listed) {
      EXPECT_NE(label, "(null)");
      const auto device = monitor.getDevice(key);
      if (!device) continue;
      for (const auto& port : {device->port1(), device->port2()})
        services.insert(port ? port->portService() : 0);
    }
    return services;
  }

  std::set<RegistryHandle> latterServices() const { return {latter.begin(), latter.end()}; }

  void list(const std::string& key) {
    const auto device = monitor.getDevice(key);
    if (!device) return;
    const RegistryObject service = device->port1()->retainedService();
    listed[key] = findChainPosition(fake.registry, service.get()).port.value_or("(null)");
  }

  ManualDispatch dispatch;
  FakePlatform fake{dispatch};
  const std::vector<RegistryHandle> former = Plug::add(fake.registry, 12);
  const std::vector<RegistryHandle> latter;
  std::map<std::string, std::string> listed;  ///< letters by key
  typename Plug::Monitor monitor{fake.platform()};
  const std::unique_ptr<Observation> arrivals = fake.notifications.observe(
      Plug::appeared, [this](const Notification& each) { list(each.object); });
  const std::unique_ptr<Observation> departures =
      fake.notifications.observe(Plug::disappeared, [this](const Notification& each) {
        const auto device = monitor.getDevice(each.object);
        if (!device || device->isEmpty()) listed.erase(each.object);
      });
};

template <typename Plug>
class ReplugTest : public ::testing::Test {
 protected:
  /// Does `work` with each moment at which the adapter may go while it is read.
  template <typename Work>
  static void atEachMoment(Work work) {
    for (milliseconds moment{0}; moment < seconds(5); moment += milliseconds(100)) {
      SCOPED_TRACE(moment.count());
      work(moment);
    }
  }
};

using Plugs = ::testing::Types<TenGigabitPlug, FibreChannelPlug>;
TYPED_TEST_SUITE(ReplugTest, Plugs);

}  // namespace

TYPED_TEST(ReplugTest, AnAdapterThatGoesAtTheStartIsNotListed) {
  this->atEachMoment([](milliseconds moment) {
    ReplugScene<TypeParam> scene;
    scene.fake.registry.publish(scene.former);
    scene.monitor.start();
    scene.unplugAfter(moment);
    scene.dispatch.advance(seconds(20));
    EXPECT_THAT(scene.listed, IsEmpty());
    EXPECT_EQ(scene.fake.registry.references(), 2) << "the two iterators";
  });
}

TYPED_TEST(ReplugTest, AnAdapterThatComesBackAtTheStartIsListedAnew) {
  this->atEachMoment([](milliseconds moment) {
    ReplugScene<TypeParam> scene;
    scene.fake.registry.publish(scene.former);
    scene.monitor.start();
    scene.unplugAfter(moment);
    scene.plugInAfter(moment + milliseconds(50));
    scene.dispatch.advance(seconds(20));
    EXPECT_EQ(scene.listedServices(), scene.latterServices());
  });
}

TYPED_TEST(ReplugTest, AnAdapterThatGoesWhileItIsReadIsNotListed) {
  this->atEachMoment([](milliseconds moment) {
    ReplugScene<TypeParam> scene;
    scene.monitor.start();
    scene.dispatch.advance(seconds(1));
    scene.unplugAfter(moment);
    scene.fake.registry.publish(scene.former);
    scene.dispatch.advance(seconds(20));
    EXPECT_THAT(scene.listed, IsEmpty());
    EXPECT_EQ(scene.fake.registry.references(), 2) << "the two iterators";
  });
}

TYPED_TEST(ReplugTest, AnAdapterThatComesBackWhileItIsReadIsListedAnew) {
  this->atEachMoment([](milliseconds moment) {
    ReplugScene<TypeParam> scene;
    scene.monitor.start();
    scene.dispatch.advance(seconds(1));
    scene.unplugAfter(moment);
    scene.plugInAfter(moment + milliseconds(50));
    scene.fake.registry.publish(scene.former);
    scene.dispatch.advance(seconds(20));
    EXPECT_EQ(scene.listedServices(), scene.latterServices());
  });
}

TYPED_TEST(ReplugTest, AnAdapterThatComesBackElsewhereGoesForGoodAfterwards) {
  this->atEachMoment([](milliseconds moment) {
    ReplugScene<TypeParam> scene(30);
    scene.fake.registry.publish(scene.former);
    scene.monitor.start();
    scene.unplugAfter(moment);
    scene.plugInAfter(moment + milliseconds(50));
    scene.dispatch.advance(seconds(20));
    EXPECT_EQ(scene.listedServices(), scene.latterServices());
    scene.fake.registry.terminate(scene.latter);
    scene.dispatch.advance(seconds(20));
    EXPECT_THAT(scene.listed, IsEmpty());
    EXPECT_EQ(scene.fake.registry.references(), 2) << "the two iterators";
  });
}

// Opening a dump in a second window builds a second monitor.
TYPED_TEST(ReplugTest, AMonitorSeesItsDeparturesWhateverOthersAreMade) {
  ReplugScene<TypeParam> scene;
  scene.monitor.start();
  scene.fake.registry.publish(scene.former);
  scene.dispatch.advance(seconds(20));
  ASSERT_EQ(scene.listed.size(), 1U);
  FakePlatform elsewhere{scene.dispatch};
  const typename TypeParam::Monitor another(elsewhere.platform());
  scene.fake.registry.terminate(scene.former);
  scene.dispatch.advance(seconds(20));
  EXPECT_THAT(scene.listed, IsEmpty());
}
