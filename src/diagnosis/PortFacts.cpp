#include "diagnosis/PortFacts.h"

#include <algorithm>
#include <chrono>

#include "discovery/Products.h"

namespace corvane {

namespace {

using std::chrono::days;

constexpr days linkIsRemembered{30};
constexpr days shortestIdleness{7};
constexpr int64_t fewestIdleLooks = 3;

constexpr int64_t noModuleClass = 0;
constexpr int64_t firstCableClass = 3;
constexpr int64_t lastCableClass = 4;

bool isZeroName(const std::string& name) {
  return name.find_first_not_of("0:") == std::string::npos;
}

bool isZeroReply(const FibreChannelPortInformation& information) {
  return isZeroName(information.WWNN) && isZeroName(information.WWPN);
}

bool isWithin(ReadingTime now, const std::optional<ReadingTime>& time, days bound) {
  return time && now - *time <= bound;
}

bool wasAsked(Reason reason) {
  return !isNotAsked(reason) && reason != Reason::NotInDump;
}

}  // namespace

std::vector<uint64_t> speedsOffered(std::string_view product) {
  if (product == corvane2_8G_FC || product == corvane3_8G_FC) return {speed2G, speed4G, speed8G};
  if (product == corvane2_16G_FC) return {speed2G, speed4G, speed8G, speed16G};
  if (product == corvane3_F2) return {speed4G, speed8G, speed16G};
  return {};
}

uint64_t mediumSpeed(std::string_view medium) {
  constexpr uint64_t hundredMegabits = 100;
  constexpr uint64_t gigabit = 1000;
  constexpr uint64_t tenGigabits = 10000;
  if (medium.starts_with("10Gbase")) return tenGigabits;
  if (medium.starts_with("1000base")) return gigabit;
  if (medium.starts_with("100base")) return hundredMegabits;
  return 0;
}

PortFacts::PortFacts(const ComputerReading& computer, size_t adapter, size_t place,
                     const Memory& memory)
    : adapter_(&computer.adapters.at(adapter)),
      adapterIndex_(adapter),
      number_(static_cast<int64_t>(place) + 1),
      now_(computer.readAt) {
  if (adapter_->family() == AdapterFamily::FibreChannel) {
    readFibreChannel(*adapter_, place);
  } else {
    readTenGigabit(*adapter_, place);
  }
  const auto found = memory.ports.find(address_);
  if (found != memory.ports.end() && !address_.empty()) memory_ = &found->second;
}

void PortFacts::readFibreChannel(const AdapterReading& adapter, size_t place) {
  fibreChannel_ = &adapter.fibreChannelPorts().at(place);
  offeredSpeeds_ = speedsOffered(adapter.product);
  address_ = fibreChannel_->portName.valueOr("");
  if (fibreChannel_->information && !isZeroReply(*fibreChannel_->information)) {
    information_ = &fibreChannel_->information.value();
    link_ = information_->hasLink();
    speed_ = information_->hasLink() ? information_->portSpeed : 0;
    if (address_.empty()) address_ = information_->WWPN;
  }
  readModule();
}

void PortFacts::readTenGigabit(const AdapterReading& adapter, size_t place) {
  tenGigabit_ = &adapter.tenGigabitPorts().at(place);
  address_ = tenGigabit_->macAddress.valueOr("");
  if (tenGigabit_->hasLink) link_ = *tenGigabit_->hasLink;
  if (hasLink()) speed_ = mediumSpeed(tenGigabit_->medium.valueOr(""));
  readModuleClass();
}

void PortFacts::readModule() {
  const auto& answer = fibreChannel_->module;
  if (!answer) {
    module_ = wasAsked(answer.none().reason) ? ModuleState::NotKnown : ModuleState::NotThere;
  } else if (!answer->has_value()) {
    module_ = ModuleState::Empty;
  } else {
    transceiver_.emplace((*answer)->eeprom);
    if (transceiver_->isBlank()) {
      module_ = ModuleState::Blank;
    } else if (transceiver_->isHalfRead()) {
      module_ = ModuleState::HalfRead;
    } else {
      const bool suits = (*answer)->result == SFPResult::Usable;
      module_ = suits ? ModuleState::Good : ModuleState::WrongClass;
    }
  }
}

void PortFacts::readModuleClass() {
  const auto& answer = tenGigabit_->moduleClass;
  if (!hasCage()) return;
  if (!answer) {
    module_ = wasAsked(answer.none().reason) ? ModuleState::NotKnown : ModuleState::NotThere;
  } else if (*answer == noModuleClass) {
    module_ = ModuleState::Empty;
  } else {
    module_ = *answer == unknownModuleClass ? ModuleState::WrongClass : ModuleState::Good;
  }
}

uint64_t PortFacts::setSpeed() const {
  if (information_ == nullptr) return speedAutomatic;
  const uint64_t speed = information_->settingSpeed;
  return speed == speedAutomaticOf16G ? speedAutomatic : speed;
}

bool PortFacts::isSetToLoop() const {
  return information_ != nullptr && information_->settingTopology == topologyArbitratedLoop;
}

uint64_t PortFacts::queueDepth() const {
  if (information_ == nullptr || information_->queueDepth == 0) return defaultQueueDepth;
  return information_->queueDepth;
}

bool PortFacts::hasCage() const {
  return isFibreChannel() || adapter_->product == corvane2_10G_SFP ||
         adapter_->product == corvane3_10G_SFP;
}

bool PortFacts::holdsCable() const {
  if (!hasGoodModule()) return false;
  if (transceiver_) return transceiver_->isCable();
  const int64_t moduleClass = tenGigabit_->moduleClass.valueOr(noModuleClass);
  return moduleClass >= firstCableClass && moduleClass <= lastCableClass;
}

std::vector<uint64_t> PortFacts::trustedSpeeds() const {
  const bool isTrusted =
      hasGoodModule() && transceiver_ && transceiver_->base().fits() && !transceiver_->isCable();
  return isTrusted ? transceiver_->speeds() : std::vector<uint64_t>();
}

uint64_t PortFacts::possibleSpeed() const {
  uint64_t possible = 0;
  for (const uint64_t speed : trustedSpeeds())
    if (std::find(offeredSpeeds_.begin(), offeredSpeeds_.end(), speed) != offeredSpeeds_.end())
      possible = std::max(possible, speed);
  return possible;
}

std::string PortFacts::moduleName() const {
  if (!transceiver_) {
    const bool isNamed = module_ == ModuleState::Good && tenGigabit_ != nullptr;
    return isNamed ? std::string(moduleClassName(*tenGigabit_->moduleClass)) : std::string();
  }
  for (std::string text :
       {transceiver_->serialNumber(), transceiver_->partNumber(), transceiver_->vendorName()})
    if (!text.empty()) return text;
  return {};
}

bool PortFacts::isIdle() const {
  return memory_ != nullptr && memory_->firstLook &&
         now_ - *memory_->firstLook >= shortestIdleness && memory_->lookDays >= fewestIdleLooks &&
         !wasSeenWithLink();
}

bool PortFacts::wasSeenWithLink() const {
  return memory_ != nullptr && isWithin(now_, memory_->lastUp, linkIsRemembered);
}

}  // namespace corvane
