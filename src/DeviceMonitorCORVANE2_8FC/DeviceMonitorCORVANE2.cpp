#include "DeviceMonitorCORVANE2_8FC/DeviceMonitorCORVANE2.h"

#include <chrono>
#include <utility>

#include "DeviceMonitorCORVANE2_8FC/FCDriver.h"
#include "discovery/LoggedExceptions.h"

namespace corvane {

namespace {

constexpr int8_t childPowerState = 2;
constexpr std::chrono::milliseconds stopPause{10};

}  // namespace

DeviceMonitorCORVANE2::DeviceMonitorCORVANE2(const Platform& platform)
    : platform_(platform),
      callbackRef_(std::make_unique<callbackRef>(
          callbackRef{platform, std::make_shared<DeviceTable<Corvane2Device>>(),
                      std::make_shared<VolumeSet>(), std::make_shared<WorkGate>()})),
      notifications_(platform.registry, platform.runLoops, platform.log) {}

DeviceMonitorCORVANE2::~DeviceMonitorCORVANE2() {
  stop();
}

void DeviceMonitorCORVANE2::whenStarted(std::function<void(int32_t)> started) {
  started_ = std::move(started);
}

void DeviceMonitorCORVANE2::start() {
  platform_.dispatch.asyncGlobal(QueuePriority::Default, [this, gate = callbackRef_->gate] {
    gate->pass([this] { startMonitorRunLoop(); });
  });
}

int32_t DeviceMonitorCORVANE2::startMonitorRunLoop() {
  int32_t status = registrationFailed;
  logExceptions(platform_.log, [&] {
    if (registCorvane2Event() == 0) status = registDiskEvent();
  });
  if (started_) started_(status);
  if (status == 0) logExceptions(platform_.log, [this] { platform_.runLoops.run(); });
  return status;
}

int32_t DeviceMonitorCORVANE2::registCorvane2Event() {
  ioPropertyMatchDic_ = createLoggedDictionary(platform_.registry, platform_.log);
  if (!ioPropertyMatchDic_) return registrationFailed;
  ioPropertyMatchSubDic_ = createLoggedDictionary(platform_.registry, platform_.log);
  if (!ioPropertyMatchSubDic_) return registrationFailed;
  (*ioPropertyMatchSubDic_)["CFBundleIdentifier"] = _getDriverAddress();
  (*ioPropertyMatchDic_)["IOPropertyMatch"] = *ioPropertyMatchSubDic_;

  if (notifications_.open() != 0) return registrationFailed;
  if (notifications_.watch(firstMatchNotification, ioPropertyMatchDic_, corvane2Appeared,
                           callbackRef_.get(), ioDeviceAppeared_) != 0)
    return registrationFailed;
  return notifications_.watch(terminateNotification, ioPropertyMatchDic_, corvane2Disappeared,
                              callbackRef_.get(), ioDeviceDisappeared_);
}

int32_t DeviceMonitorCORVANE2::registCorvane2ChildEvent() {
  ioPropertyChildDic_ = createLoggedDictionary(platform_.registry, platform_.log);
  if (!ioPropertyChildDic_) return registrationFailed;
  ioPropertyChildSubDic_ = createLoggedDictionary(platform_.registry, platform_.log);
  if (!ioPropertyChildSubDic_) return registrationFailed;
  const auto powerState = platform_.registry.createNumber(childPowerState);
  if (!powerState) {
    platform_.log.system("CFNumberCreate failed");
    return registrationFailed;
  }
  (*ioPropertyChildSubDic_)["CFBundleIdentifier"] = _getDriverAddress();
  (*ioPropertyChildDic_)["IOPropertyMatch"] = *ioPropertyChildSubDic_;
  (*ioPropertyChildDic_)["IOPowerManagement"] =
      PropertyValue::Dictionary{{"ChildrenPowerState", *powerState}};

  if (notifications_.open() != 0) return registrationFailed;
  if (notifications_.watch(firstMatchNotification, ioPropertyChildDic_, corvane2ChildAppeared,
                           callbackRef_.get(), ioChildAppeared_) != 0)
    return registrationFailed;
  return notifications_.watch(terminateNotification, ioPropertyChildDic_, corvane2ChildDisappeared,
                              callbackRef_.get(), ioChildDisappeared_);
}

int32_t DeviceMonitorCORVANE2::registDiskEvent() {
  const auto loop = notifications_.currentLoop();
  if (!loop) return registrationFailed;
  auto created = platform_.diskArbitration.createSession();
  if (!created) return registrationFailed;
  DiskSession& session = *created;
  session.registerAppeared(hello_disk, callbackRef_.get());
  session.registerDisappeared(goodbye_disk, callbackRef_.get());
  {
    std::lock_guard guard(mutex_);
    session_ = std::move(created);
  }
  session.schedule(*loop);
  return 0;
}

std::string DeviceMonitorCORVANE2::_getDriverAddress() const {
  switch (FCDriver(platform_).getDriverVer()) {
    case 3:
      return "com.velmar.Corvane-FC";
    case 2:
      return "com.velmar.Corvane2-FC";
    default:
      return "";
  }
}

std::shared_ptr<Corvane2Device> DeviceMonitorCORVANE2::getDevice(const std::string& nodeWWN) const {
  return callbackRef_->deviceList->find(nodeWWN);
}

std::vector<std::string> DeviceMonitorCORVANE2::getBSDVolumeList() const {
  return callbackRef_->bsdVolumeList->names();
}

void DeviceMonitorCORVANE2::stop() {
  if (std::exchange(stopped_, true)) return;
  callbackRef_->gate->close();
  logExceptions(platform_.log, [this] { unscheduleSession(); });
  endRunLoop();
  logExceptions(platform_.log, [this] { tearDown(); });
}

// Nothing of the monitor's runs any more.
void DeviceMonitorCORVANE2::tearDown() {
  session_.reset();
  ioPropertyMatchDic_.reset();
  ioPropertyMatchSubDic_.reset();
  ioPropertyChildDic_.reset();
  ioPropertyChildSubDic_.reset();
  for (auto* iterator :
       {&ioDeviceAppeared_, &ioDeviceDisappeared_, &ioChildAppeared_, &ioChildDisappeared_})
    iterator->reset();
  dropDevices();
  callbackRef_->bsdVolumeList->clear();
  notifications_.close();
  platform_.log.system("Monitor stopped");
}

void DeviceMonitorCORVANE2::unscheduleSession() {
  std::lock_guard guard(mutex_);
  const auto loop = notifications_.currentLoop();
  if (session_ && loop) session_->unschedule(*loop);
}

// A stop that comes before the monitor's thread serves its run loop would be lost, so it is
// repeated until the thread has left.
void DeviceMonitorCORVANE2::endRunLoop() {
  while (true) {
    if (const auto loop = notifications_.currentLoop()) loop->stop();
    if (callbackRef_->gate->isIdle()) return;
    platform_.dispatch.sleep(stopPause);
  }
}

void DeviceMonitorCORVANE2::dropDevices() {
  for (const auto& device : callbackRef_->deviceList->takeAll()) device->clearAll();
}

}  // namespace corvane
