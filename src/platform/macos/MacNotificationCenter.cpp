#include "platform/macos/MacNotificationCenter.h"

#include "platform/macos/PropertyConversion.h"

namespace corvane::macos {

namespace {

/// The centre compares objects by address, so the object's text travels in the user information.
constexpr const char* objectKey = "object";

class MacObservation final : public Observation {
 public:
  MacObservation(const std::string& name, std::function<void(const Notification&)> observer)
      : observer_(std::move(observer)) {
    CFNotificationCenterAddObserver(CFNotificationCenterGetLocalCenter(), this, posted,
                                    platformString(name).get(), nullptr,
                                    CFNotificationSuspensionBehaviorDeliverImmediately);
  }

  ~MacObservation() override {
    CFNotificationCenterRemoveEveryObserver(CFNotificationCenterGetLocalCenter(), this);
  }

  MacObservation(const MacObservation&) = delete;
  MacObservation& operator=(const MacObservation&) = delete;

 private:
  static void posted(CFNotificationCenterRef, void* observation, CFNotificationName name,
                     const void*, CFDictionaryRef information) noexcept {
    const PropertyValue::Dictionary values = propertyDictionary(information);
    static_cast<const MacObservation*>(observation)
        ->observer_({text(name).value_or(std::string()), propertyText(values, objectKey)});
  }

  std::function<void(const Notification&)> observer_;
};

}  // namespace

void MacNotificationCenter::post(const std::string& name, const std::string& object) {
  CFNotificationCenterPostNotification(CFNotificationCenterGetLocalCenter(),
                                       platformString(name).get(), nullptr,
                                       platformDictionary({{objectKey, object}}).get(), true);
}

std::unique_ptr<Observation> MacNotificationCenter::observe(
    const std::string& name, std::function<void(const Notification&)> observer) {
  return std::make_unique<MacObservation>(name, std::move(observer));
}

}  // namespace corvane::macos
