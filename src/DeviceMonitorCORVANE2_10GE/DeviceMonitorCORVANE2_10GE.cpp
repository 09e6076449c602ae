#include "DeviceMonitorCORVANE2_10GE/DeviceMonitorCORVANE2_10GE.h"

#include <chrono>
#include <utility>

#include "DeviceMonitorCORVANE2_10GE/SmallTree.h"
#include "discovery/LoggedExceptions.h"

namespace corvane {

namespace {

constexpr const char* driverIdentifier = "com.velmar.driver.Corvane2-10GE";
constexpr std::chrono::milliseconds stopPause{10};

}  // namespace

DeviceMonitorCORVANE2_10GE::DeviceMonitorCORVANE2_10GE(const Platform& platform)
    : platform_(platform),
      callbackRef_(std::make_unique<callbackRef_10GE>(
          callbackRef_10GE{platform, std::make_shared<DeviceTable<Corvane2Device_10GE>>(),
                           std::make_shared<WorkGate>(), stopping_.get_token()})),
      notifications_(platform.registry, platform.runLoops, platform.log) {
  initFUCKsmalltree();
}

DeviceMonitorCORVANE2_10GE::~DeviceMonitorCORVANE2_10GE() {
  stop();
}

void DeviceMonitorCORVANE2_10GE::whenStarted(std::function<void(int32_t)> started) {
  started_ = std::move(started);
}

void DeviceMonitorCORVANE2_10GE::start() {
  platform_.dispatch.asyncGlobal(QueuePriority::Default, [this, gate = callbackRef_->gate] {
    gate->pass([this] { startMonitorRunLoop(); });
  });
}

int32_t DeviceMonitorCORVANE2_10GE::startMonitorRunLoop() {
  int32_t status = registrationFailed;
  logExceptions(platform_.log, [&] { status = registCorvane2Event_10GE(); });
  if (started_) started_(status);
  if (status == 0) logExceptions(platform_.log, [this] { platform_.runLoops.run(); });
  return status;
}

int32_t DeviceMonitorCORVANE2_10GE::registCorvane2Event_10GE() {
  ioPropertyMatchDic_ = createLoggedDictionary(platform_.registry, platform_.log);
  if (!ioPropertyMatchDic_) return registrationFailed;
  ioPropertyMatchSubDic_ = createLoggedDictionary(platform_.registry, platform_.log);
  if (!ioPropertyMatchSubDic_) return registrationFailed;
  (*ioPropertyMatchSubDic_)["CFBundleIdentifier"] = driverIdentifier;
  (*ioPropertyMatchDic_)["IOPropertyMatch"] = *ioPropertyMatchSubDic_;

  if (notifications_.open() != 0) return registrationFailed;
  if (notifications_.watch(firstMatchNotification, ioPropertyMatchDic_, corvane2Appeared_10GE,
                           callbackRef_.get(), ioDeviceAppeared_) != 0)
    return registrationFailed;
  return notifications_.watch(terminateNotification, ioPropertyMatchDic_, corvane2Disappeared_10GE,
                              callbackRef_.get(), ioDeviceDisappeared_);
}

std::shared_ptr<Corvane2Device_10GE> DeviceMonitorCORVANE2_10GE::getDevice(
    const std::string& key) const {
  return callbackRef_->deviceList->find(key);
}

void DeviceMonitorCORVANE2_10GE::stop() {
  if (std::exchange(stopped_, true)) return;
  callbackRef_->gate->close();
  stopping_.request_stop();
  endRunLoop();
  logExceptions(platform_.log, [this] { tearDown(); });
}

// Nothing of the monitor's runs any more.
void DeviceMonitorCORVANE2_10GE::tearDown() {
  ioPropertyMatchDic_.reset();
  ioPropertyMatchSubDic_.reset();
  ioDeviceAppeared_.reset();
  ioDeviceDisappeared_.reset();
  dropDevices();
  notifications_.close();
  platform_.log.system("Monitor stopped");
}

// A stop that comes before the monitor's thread serves its run loop would be lost, so it is
// repeated until the thread has left.
void DeviceMonitorCORVANE2_10GE::endRunLoop() {
  while (true) {
    if (const auto loop = notifications_.currentLoop()) loop->stop();
    if (callbackRef_->gate->isIdle()) return;
    platform_.dispatch.sleep(stopPause);
  }
}

void DeviceMonitorCORVANE2_10GE::dropDevices() {
  for (const auto& device : callbackRef_->deviceList->takeAll()) device->clearAll();
}

}  // namespace corvane
