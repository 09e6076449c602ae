#include "DeviceMonitorCORVANE2_8FC/DeviceMonitorCORVANE2.h"

#include <utility>

#include "DeviceMonitorCORVANE2_8FC/FCDriver.h"

namespace corvane {

namespace {

constexpr int8_t childPowerState = 2;
constexpr AdapterNotifications fibreChannelNotifications{"Corvane2Appeared", "Corvane3Appeared",
                                                         "Corvane2Disppeared"};

}  // namespace

DeviceMonitorCORVANE2::DeviceMonitorCORVANE2(const Platform& platform)
    : AdapterMonitor(platform),
      callbackRef_{{platform, std::make_shared<DeviceTable<Corvane2Device>>(), gate_,
                    fibreChannelNotifications},
                   std::make_shared<VolumeSet>()} {}

DeviceMonitorCORVANE2::~DeviceMonitorCORVANE2() {
  stop();
}

int32_t DeviceMonitorCORVANE2::registerEvents() {
  const int32_t status = registCorvane2Event();
  return status == 0 ? registDiskEvent() : status;
}

int32_t DeviceMonitorCORVANE2::registCorvane2Event() {
  const int32_t status =
      watchDriver(_getDriverAddress(), corvane2Appeared, corvane2Disappeared, &callbackRef_);
  forgetDeparted(callbackRef_);
  return status;
}

int32_t DeviceMonitorCORVANE2::registCorvane2ChildEvent() {
  if (!createMatching(platform_, ioPropertyChildDic_, ioPropertyChildSubDic_))
    return registrationFailed;
  const auto powerState = platform_.registry.createNumber(childPowerState);
  if (!powerState) {
    platform_.log.system("CFNumberCreate failed");
    return registrationFailed;
  }
  (*ioPropertyChildSubDic_)["CFBundleIdentifier"] = _getDriverAddress();
  (*ioPropertyChildDic_)["IOPropertyMatch"] = *ioPropertyChildSubDic_;
  (*ioPropertyChildDic_)["IOPowerManagement"] =
      PropertyValue::Dictionary{{"ChildrenPowerState", *powerState}};
  return notifications_.watchBoth(ioPropertyChildDic_, corvane2ChildAppeared,
                                  corvane2ChildDisappeared, &callbackRef_, ioChildAppeared_,
                                  ioChildDisappeared_);
}

int32_t DeviceMonitorCORVANE2::registDiskEvent() {
  const auto loop = notifications_.currentLoop();
  if (!loop) return registrationFailed;
  auto created = platform_.diskArbitration.createSession();
  if (!created) return registrationFailed;
  DiskSession& session = *created;
  session.registerAppeared(hello_disk, &callbackRef_);
  session.registerDisappeared(goodbye_disk, &callbackRef_);
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
  return callbackRef_.deviceList->find(nodeWWN);
}

std::vector<std::string> DeviceMonitorCORVANE2::getBSDVolumeList() const {
  return callbackRef_.bsdVolumeList->names();
}

void DeviceMonitorCORVANE2::prepareToStop() {
  std::lock_guard guard(mutex_);
  const auto loop = notifications_.currentLoop();
  if (session_ && loop) session_->unschedule(*loop);
}

void DeviceMonitorCORVANE2::releaseOwn() {
  session_.reset();
  ioPropertyChildDic_.reset();
  ioPropertyChildSubDic_.reset();
  ioChildAppeared_.reset();
  ioChildDisappeared_.reset();
}

void DeviceMonitorCORVANE2::dropDevices() {
  dropAdapters(*callbackRef_.deviceList);
  callbackRef_.bsdVolumeList->clear();
}

}  // namespace corvane
