#include "bench/BenchUserClientFixture.h"

using namespace corvane;

namespace {

class BenchFlashingTest : public BenchUserClientFixture {};

}  // namespace

TEST_F(BenchFlashingTest, FlashedFirmwareRunsAfterTheNextPluggingIn) {
  begin("Corvane2 8G FC");
  EXPECT_EQ(flash(image(2, "2.10")), statusSuccess);
  EXPECT_EQ(file().load().adapters[0].pendingFirmware, "2.10");
  ASSERT_EQ(readInformation(), statusSuccess);
  EXPECT_STREQ(reinterpret_cast<const char*>(reply_.data() + 32), "2.02a1");
  change([](BenchState& state) {
    unplugAdapter(state.adapters[0]);
    plugAdapter(state, "Corvane2 8G FC", 1, 1, {});
  });
  EXPECT_EQ(file().load().adapters[0].firmware, "2.10");
  EXPECT_EQ(file().load().adapters[0].pendingFirmware, std::nullopt);
}

TEST_F(BenchFlashingTest, FlashingTakesTimeByItsSize) {
  begin("Corvane2 8G FC");
  ASSERT_EQ(flash(image(2, "2.10", 256 * 100)), statusSuccess);
  EXPECT_EQ(dispatch_.slept.count(), 2100);
  dispatch_.slept = {};
  ASSERT_EQ(flash(image(2, "2.10", 256 * 1000)), statusSuccess);
  EXPECT_EQ(dispatch_.slept.count(), 3000);
}

TEST_F(BenchFlashingTest, BadImagesAreTurnedAway) {
  begin("Corvane2 8G FC");
  const Bytes good = image(2, "2.10");
  Bytes wrongMagic = good;
  wrongMagic[0] ^= 1;
  Bytes wrongChecksum = good;
  wrongChecksum.back() ^= 1;
  const Bytes cut(good.begin(), good.end() - 1);
  const Bytes headerCut(good.begin(), good.begin() + 51);
  Bytes endlessVersion = good;
  std::fill_n(endlessVersion.begin() + 12, 32, uint8_t{'9'});
  for (const Bytes& bad : {wrongMagic, wrongChecksum, cut, headerCut, endlessVersion}) {
    EXPECT_EQ(flash(bad), statusBadArgument);
  }
  EXPECT_EQ(flash(image(3, "2.10")), statusUnsupported) << "for the other generation";
  EXPECT_EQ(flash({}), statusBadArgument);
  EXPECT_EQ(file().load().adapters[0].pendingFirmware, std::nullopt);
}

TEST_F(BenchFlashingTest, AnImageThatChangesDuringTheFlashingIsNotTaken) {
  begin("Corvane2 8G FC");
  Bytes changing = image(2, "2.10");
  dispatch_.onSleep = [&changing, once = true]() mutable {
    if (std::exchange(once, false)) changing.back() ^= 1;
  };
  EXPECT_EQ(flash(changing), statusFailure);
}

TEST_F(BenchFlashingTest, FaultsOfTheFlashing) {
  begin("Corvane2 8G FC", [](BenchState& state) { state.faults = {"firmware-refused"}; });
  EXPECT_EQ(flash(image(2, "2.10")), statusFailure);
  EXPECT_EQ(file().load().adapters[0].pendingFirmware, std::nullopt);
  change([](BenchState& state) { state.faults = {"unplugged-while-flashing"}; });
  EXPECT_EQ(flash(image(2, "2.10")), statusNoDevice);
  EXPECT_FALSE(file().load().adapters[0].attached);
  EXPECT_EQ(file().load().adapters[0].firmware, "2.02a1");
}

TEST_F(BenchFlashingTest, AnAdapterPulledOutDuringTheFlashingKeepsItsFirmware) {
  begin("Corvane2 8G FC");
  dispatch_.onSleep = [this] {
    change([](BenchState& state) { unplugAdapter(state.adapters[0]); });
  };
  EXPECT_EQ(flash(image(2, "2.10")), statusNoDevice);
  EXPECT_EQ(file().load().adapters[0].firmware, "2.02a1");
}
