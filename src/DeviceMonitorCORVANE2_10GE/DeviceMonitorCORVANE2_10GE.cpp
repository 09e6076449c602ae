#include "DeviceMonitorCORVANE2_10GE/DeviceMonitorCORVANE2_10GE.h"

namespace corvane {

namespace {

constexpr const char* tenGigabitDriver = "com.velmar.driver.Corvane2-10GE";
constexpr AdapterNotifications tenGigabitNotifications{
    "Corvane2Appeared_10GE", "Corvane3Appeared_10GE", "Corvane2Disppeared_10GE"};

}  // namespace

DeviceMonitorCORVANE2_10GE::DeviceMonitorCORVANE2_10GE(const Platform& platform)
    : AdapterMonitor(platform),
      callbackRef_{{platform, std::make_shared<DeviceTable<Corvane2Device_10GE>>(), gate_,
                    tenGigabitNotifications},
                   std::make_shared<SmallTree>(),
                   stopping_.get_token()} {}

DeviceMonitorCORVANE2_10GE::~DeviceMonitorCORVANE2_10GE() {
  stop();
}

int32_t DeviceMonitorCORVANE2_10GE::registCorvane2Event_10GE() {
  const int32_t status =
      watchDriver(tenGigabitDriver, corvane2Appeared_10GE, corvane2Disappeared_10GE, &callbackRef_);
  forgetDeparted(callbackRef_);
  return status;
}

std::shared_ptr<Corvane2Device_10GE> DeviceMonitorCORVANE2_10GE::getDevice(
    const std::string& key) const {
  return callbackRef_.deviceList->find(key);
}

}  // namespace corvane
