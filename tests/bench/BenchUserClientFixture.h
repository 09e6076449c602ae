#pragma once

#include <gtest/gtest.h>

#include "bench/BenchMachineFixture.h"
#include "platform/StructureLayout.h"
#include "platform/bench/BenchUserClient.h"
#include "platform/bench/file/BenchEdits.h"
#include "platform/bench/file/BenchFirmwareImage.h"

namespace corvane {

/// Sleeps by moving the test's clock.
class BenchTestDispatch final : public Dispatch {
 public:
  explicit BenchTestDispatch(std::atomic<int64_t>& clock) : clock_(clock) {}

  void asyncMain(std::function<void()> work) override { work(); }
  void syncMain(std::function<void()> work) override { work(); }
  void asyncGlobal(QueuePriority, std::function<void()> work) override { work(); }
  std::unique_ptr<DispatchGroup> createGroup() override { return nullptr; }
  void sleep(std::chrono::milliseconds duration) override {
    clock_ += duration.count();
    slept += duration;
    if (onSleep) onSleep();
  }
  bool isMain() const override { return true; }

  std::chrono::milliseconds slept{0};
  std::function<void()> onSleep;

 private:
  std::atomic<int64_t>& clock_;
};

using Bytes = std::vector<uint8_t>;

inline Bytes bytesOfNumber(uint64_t value, size_t size) {
  Bytes bytes(size);
  putNumber(bytes, {"number", 0, size}, value);
  return bytes;
}

/// A driver with one adapter, called as the utility calls it.
class BenchUserClientFixture : public BenchMachineFixture {
 protected:
  /// Switches on a bench with one adapter of that product, and opens its first port's service.
  void begin(
      const std::string& product,
      const std::function<void(BenchState&)>& change = [](BenchState&) {}) {
    BenchState state;
    state.drivers = {{"Corvane2-FC", "2.0.10"}};
    plugAdapter(state, product, 1, 1, "20:00:00:10:9B:12:34:56");
    state.adapters[0].firmware = "2.02a1";
    change(state);
    registry_ = std::make_unique<BenchRegistry>(switchOn(state));
    client_ = std::make_unique<BenchUserClient>(*machine_, *registry_, dispatch_, log_);
    service_ = findService(0);
  }

  void TearDown() override { end(); }

  /// Ends what begin() began, with everything given back; it may be begun anew then.
  void end() {
    if (registry_) {
      for (const RegistryHandle service : found_) registry_->release(service);
      EXPECT_EQ(registry_->referenceCount(), 0U);
    }
    if (client_) {
      EXPECT_EQ(client_->connectionCount(), 0U);
    }
    client_.reset();
    registry_.reset();
    found_.clear();
    switchOff();
  }

  RegistryHandle findService(size_t number) {
    auto port = registry_->createNotificationPort();
    SharedDictionary matching = registry_->createMutableDictionary();
    (*matching)["IOPropertyMatch"] =
        PropertyValue::Dictionary{{"CFBundleIdentifier", "com.velmar.Corvane2-FC"}};
    RegistryHandle iterator = 0;
    registry_->addMatchingNotification(
        *port, firstMatchNotification, matching, [](void*, RegistryHandle) {}, nullptr, iterator);
    std::vector<RegistryHandle> services;
    while (const RegistryHandle service = registry_->next(iterator)) services.push_back(service);
    registry_->release(iterator);
    found_.insert(found_.end(), services.begin(), services.end());
    return services.at(number);
  }

  /// One call over a connection of its own. The reply is kept in reply_.
  Status call(uint32_t selector, const Bytes& input, std::optional<size_t> outputSize = {}) {
    UserClientConnection connection = 0;
    const Status opened = client_->open(service_, 0, connection);
    reply_.assign(outputSize.value_or(input.size()), 0xAA);
    size_t size = reply_.size();
    const Status status = client_->callStructMethod(connection, selector, input, reply_, size);
    if (opened == statusSuccess) {
      EXPECT_EQ(client_->release(connection), statusSuccess);
    }
    return status;
  }

  uint64_t field(size_t offset, size_t width) const {
    return StructureReader(reply_).number({"reply", offset, width});
  }

  Status readInformation() { return call(2, Bytes(104)); }

  bool isLinkUp() {
    EXPECT_EQ(readInformation(), statusSuccess);
    return field(76, 4) == 0;
  }

  BenchFibreChannelPort port() { return file().load().adapters[0].fibreChannelPorts[0]; }

  Status flash(const Bytes& image) {
    Bytes input(16);
    putNumber(input, {"length", 0, 4}, image.size());
    putNumber(input, {"address", 8, 8}, reinterpret_cast<uintptr_t>(image.data()));
    return call(3, input);
  }

  static Bytes image(int generation, const std::string& version, size_t size = 1000) {
    return makeFirmwareImage({generation, version}, Bytes(size, 0x5A));
  }

  BenchTestDispatch dispatch_{clock_};
  std::unique_ptr<BenchRegistry> registry_;
  std::unique_ptr<BenchUserClient> client_;
  std::vector<RegistryHandle> found_;
  RegistryHandle service_ = 0;
  Bytes reply_;
};

}  // namespace corvane
