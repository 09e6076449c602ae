#include "diagnosis/CaseFile.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>

#include "discovery/Products.h"

namespace corvane {

namespace {

using nlohmann::json;

const json& collection() {
  static const json all = json::parse(std::ifstream(CORVANE_TEST_DATA "/findings/cases.json"));
  return all;
}

const json& valueAt(const json& object, const char* key) {
  static const json none;
  return object.contains(key) ? object.at(key) : none;
}

std::string textAt(const json& object, const char* key) {
  const json value = valueAt(object, key);
  return value.is_string() ? value.get<std::string>() : std::string();
}

/// How the whole of a case bears on single facts.
struct Circumstances {
  NoValue toolSilence;  ///< why the tool gives no value
  NoValue fileSilence;  ///< why what goes through the answer file gives none
};

std::optional<Reason> reasonNamed(const json& fact) {
  if (!fact.is_string()) return std::nullopt;
  const auto text = fact.get<std::string>();
  if (text == "not asked") return Reason::DriverTooOld;
  if (text == "not in this dump") return Reason::NotInDump;
  if (text == "refused") return Reason::Refused;
  return std::nullopt;
}

/// A number, or the reason in its place.
Answer<int64_t> numberFact(const json& fact, const NoValue& silence) {
  if (fact.is_number()) return fact.get<int64_t>();
  if (fact.is_boolean()) return static_cast<int64_t>(fact.get<bool>());
  if (const auto reason = reasonNamed(fact)) return *reason;
  return silence;
}

Answer<std::string> textFact(const json& fact, const NoValue& silence) {
  if (const auto reason = reasonNamed(fact)) return *reason;
  if (fact.is_string()) return fact.get<std::string>();
  return silence;
}

ReadingTime timeFact(const json& fact) {
  return timeOfUtcText(fact.get<std::string>()).value();
}

std::optional<ReadingTime> timeAt(const json& object, const char* key) {
  const json value = valueAt(object, key);
  return value.is_string() ? std::optional(timeFact(value)) : std::nullopt;
}

// Fibre Channel.

Answer<FibreChannelPortInformation> informationOf(const json& adapter, const json& port) {
  const json call = valueAt(port, "call");
  if (const auto reason = reasonNamed(call)) return *reason;
  if (call != "ok") return Reason::NoAnswer;
  FibreChannelPortInformation told;
  told.WWNN = textAt(adapter, "nodeWWN");
  told.WWPN = textAt(port, "wwpn");
  told.fwVer = textAt(adapter, "firmware");
  told.linkState = port.at("linkState");
  told.portSpeed = port.at("portSpeed");
  told.settingSpeed = port.at("settingSpeed");
  told.portTopology = port.at("portTopology");
  told.settingTopology = port.at("settingTopology");
  told.hard_alpa = port.at("hardAlpa");
  told.queueDepth = port.at("queueDepth");
  return told;
}

Answer<std::optional<ModuleReading>> moduleOf(const json& fact) {
  if (const auto reason = reasonNamed(fact)) return *reason;
  if (!fact.is_string()) return Reason::NoAnswer;
  if (fact == "none") return std::optional<ModuleReading>();
  return std::optional(moduleReading(moduleBytes(fact.get<std::string>())));
}

Answer<std::vector<std::string>> disksOf(const json& fact) {
  if (const auto reason = reasonNamed(fact)) return *reason;
  if (!fact.is_array()) return Reason::NoAnswer;
  return fact.get<std::vector<std::string>>();
}

FibreChannelPortReading fibreChannelPort(const json& adapter, const json& port) {
  FibreChannelPortReading reading;
  reading.port = port.at("port");
  reading.portName = textFact(valueAt(port, "wwpn"), {Reason::NoAnswer, {}});
  reading.information = informationOf(adapter, port);
  reading.module = moduleOf(valueAt(port, "sfp"));
  reading.disks = disksOf(valueAt(port, "disks"));
  return reading;
}

// 10GbE.

bool hasCage(const std::string& product) {
  return product == corvane2_10G_SFP || product == corvane3_10G_SFP;
}

Answer<bool> linkFact(const json& status, const NoValue& silence) {
  if (const auto reason = reasonNamed(status)) return *reason;
  if (status == "active") return true;
  if (status == "inactive") return false;
  return silence;
}

Answer<bool> checksumFact(const json& fact, const NoValue& silence) {
  const auto number = numberFact(fact, silence);
  if (!number) return number.none();
  if (*number == 1 || *number == 2) return *number == 2;
  return NoValue{Reason::Senseless, std::to_string(*number)};
}

Answer<bool> coalescingFact(const json& fact, const NoValue& silence) {
  const auto text = textFact(fact, silence);
  if (!text) return text.none();
  if (*text == "unsupported" || text->empty()) return Reason::NotOffered;
  if (*text == "0x00000001") return true;
  if (*text == "0x00000000") return false;
  return NoValue{Reason::Senseless, *text};
}

Answer<int64_t> moduleClassFact(const json& fact, const std::string& product,
                                const NoValue& silence) {
  if (!hasCage(product)) return Reason::NotOffered;
  const auto report = textFact(fact, silence);
  if (!report) return report.none();
  return classifyModule(*report).moduleClass;
}

void readSettings(const json& settings, const NoValue& silence, TenGigabitPortReading& reading) {
  const auto fact = [&settings](const char* key) {
    return settings.is_object() ? valueAt(settings, key) : settings;
  };
  reading.preset.rxIntrThrottle = numberFact(fact("RxIntrThrottle"), silence);
  reading.preset.rxRingSize = numberFact(fact("RxRingSize"), silence);
  reading.preset.txIntrThrottle = numberFact(fact("TxIntrThrottle"), silence);
  reading.preset.txRingSize = numberFact(fact("TxRingSize"), silence);
  reading.preset.rxRingCount = numberFact(fact("RxRingCount"), silence);
  reading.checksumOffload = checksumFact(fact("TCPipv4ChecksumEnable"), silence);
  reading.receiveCoalescing = coalescingFact(fact("RSCEnable"), silence);
}

TenGigabitPortReading tenGigabitPort(const std::string& product, const json& port,
                                     const Circumstances& circumstances) {
  TenGigabitPortReading reading;
  reading.port = port.at("port");
  reading.macAddress = textFact(valueAt(port, "mac"), {Reason::NoAnswer, {}});
  reading.enName = textFact(valueAt(port, "interface"), {Reason::NoAnswer, {}});
  const auto enabled = numberFact(valueAt(port, "enabled"), {Reason::NoAnswer, {}});
  reading.isEnabled = enabled.map([](int64_t value) { return value == 1; });
  reading.hasLink = linkFact(valueAt(port, "status"), circumstances.fileSilence);
  reading.medium = textFact(valueAt(port, "medium"), circumstances.fileSilence);
  reading.MTU = numberFact(valueAt(port, "mtu"), circumstances.fileSilence);
  reading.moduleClass =
      moduleClassFact(valueAt(port, "SFPModule"), product, circumstances.toolSilence);
  readSettings(valueAt(port, "settings"), circumstances.toolSilence, reading);
  return reading;
}

// Adapters and the computer.

Circumstances circumstancesOf(const json& facts) {
  const std::string file = textAt(facts, "scratchFile");
  if (!file.empty() && file != "usable") {
    const NoValue blocked{Reason::Blocked, file == "held" ? "held by another program" : ""};
    return {blocked, blocked};
  }
  const std::string tool = textAt(facts, "tool");
  const NoValue none{Reason::NoAnswer, {}};
  if (tool == "missing") return {{Reason::Missing, {}}, none};
  if (tool == "hangs") return {{Reason::Hangs, {}}, none};
  if (tool == "refuses") return {{Reason::Refused, {}}, none};
  if (tool == "makes no sense") return {{Reason::Senseless, "Segmentation fault"}, none};
  return {none, none};
}

AdapterReading adapterOf(const json& facts, const Circumstances& circumstances) {
  AdapterReading adapter;
  adapter.label = textAt(facts, "label");
  adapter.product = textAt(facts, "product");
  adapter.WWN = textAt(facts, "nodeWWN");
  const Product* const product = productNamed(adapter.product);
  const bool isTenGigabit = product != nullptr ? product->family == AdapterFamily::TenGigabit
                                               : facts.at("ports").at(0).contains("mac");
  if (isTenGigabit) {
    adapter.WWN = textAt(facts.at("ports").at(0), "mac");
    adapter.ports =
        std::array{tenGigabitPort(adapter.product, facts.at("ports").at(0), circumstances),
                   tenGigabitPort(adapter.product, facts.at("ports").at(1), circumstances)};
  } else {
    adapter.ports = std::array{fibreChannelPort(facts, facts.at("ports").at(0)),
                               fibreChannelPort(facts, facts.at("ports").at(1))};
  }
  return adapter;
}

AdapterFamily familyNamed(const std::string& name) {
  return name == "FC" ? AdapterFamily::FibreChannel : AdapterFamily::TenGigabit;
}

UnlistedAdapter unlistedOf(const json& facts) {
  UnlistedAdapter adapter;
  adapter.label = textAt(facts, "label");
  adapter.family = familyNamed(textAt(facts, "family"));
  const std::string product = textAt(facts, "product");
  if (productNamed(product) != nullptr) adapter.product = product;
  adapter.model = facts.contains("model") ? textAt(facts, "model") : product;
  adapter.functions =
      valueAt(facts, "functions").is_number() ? facts.at("functions").get<int>() : 0;
  adapter.services = valueAt(facts, "services").is_number() ? facts.at("services").get<int>() : 0;
  adapter.identifier = textAt(facts, "identifier");
  adapter.nodeWWN = textAt(facts, "nodeWWN");
  adapter.isUnnamed = textAt(facts, "interface") == "IOEthernetInterface" ||
                      valueAt(facts, "unnamedPort").is_number();
  if (adapter.isUnnamed && facts.contains("unnamedPort"))
    adapter.unnamedPort = facts.at("unnamedPort");
  adapter.isArriving = valueAt(facts, "arriving") == true;
  return adapter;
}

Answer<std::map<std::string, std::optional<std::string>>> bundlesOf(const json& facts) {
  if (const auto reason = reasonNamed(facts)) return *reason;
  if (!facts.is_object()) return Reason::NoAnswer;
  std::map<std::string, std::optional<std::string>> bundles;
  for (const auto& [name, version] : facts.items())
    bundles[name] = version.is_string() ? std::optional(version.get<std::string>()) : std::nullopt;
  return bundles;
}

std::optional<RunningUpdate> updateOf(const json& fact) {
  if (fact.is_object())
    return RunningUpdate{textAt(fact, "program"), textAt(fact, "label"), textAt(fact, "since")};
  return fact == true ? std::optional(RunningUpdate{"corvane", "", ""}) : std::nullopt;
}

VolumeLeftOff volumeOf(const json& fact) {
  return {textAt(fact, "disk"), textAt(fact, "under"), textAt(fact, "since")};
}

// Memory.

PortMemory portMemoryOf(const json& fact) {
  PortMemory memory;
  memory.firstLook = timeAt(fact, "firstLook");
  memory.lookDays = valueAt(fact, "lookDays").is_number() ? fact.at("lookDays").get<int>() : 0;
  memory.lastUp = timeAt(fact, "lastUp");
  memory.module = textAt(fact, "module");
  memory.bestSpeed =
      valueAt(fact, "bestSpeed").is_number() ? fact.at("bestSpeed").get<uint64_t>() : 0;
  memory.bestAt = timeAt(fact, "bestAt");
  const json disks = valueAt(fact, "disks");
  const bool hadDisks =
      disks == true || (disks.is_number() && disks > 0) || (disks.is_array() && !disks.empty());
  memory.lastDisks = disks.is_string() ? std::optional(timeFact(disks)) : std::nullopt;
  if (hadDisks) memory.lastDisks = memory.lastUp;
  return memory;
}

std::string addressOf(const json& fact, const ComputerReading& reading) {
  for (const char* key : {"address", "wwpn", "mac", "WWPN", "MAC"})
    if (fact.contains(key)) return textAt(fact, key);
  for (const AdapterReading& adapter : reading.adapters) {
    const bool isMeant = adapter.label == textAt(fact, "label") ||
                         adapter.WWN == textAt(fact, "WWN") ||
                         adapter.WWN == textAt(fact, "nodeWWN");
    const size_t place = static_cast<size_t>(fact.at("port").get<int>() - 1);
    if (!isMeant) continue;
    return adapter.family() == AdapterFamily::FibreChannel
               ? adapter.fibreChannelPorts().at(place).portName.valueOr("")
               : adapter.tenGigabitPorts().at(place).macAddress.valueOr("");
  }
  throw std::runtime_error("a change names no port: " + fact.dump());
}

ChangedSetting settingNamed(const std::string& name) {
  if (name.find("opology") != std::string::npos) return ChangedSetting::Topology;
  if (name.find("peed") != std::string::npos) return ChangedSetting::Speed;
  const bool isDepth = name.find("epth") != std::string::npos;
  return isDepth ? ChangedSetting::QueueDepth : ChangedSetting::Other;
}

PortChange changeOf(const json& fact, const ComputerReading& reading) {
  PortChange change;
  change.time = timeFact(fact.contains("time") ? fact.at("time") : fact.at("at"));
  change.address = addressOf(fact, reading);
  change.what = textAt(fact, fact.contains("what") ? "what" : "setting");
  change.setting = settingNamed(change.what);
  const json to = valueAt(fact, "to");
  if (to.is_number()) change.to = to;
  const std::string outcome = textAt(fact, "outcome");
  change.isTaken = outcome.empty() ? valueAt(fact, "taken") != false : outcome == "taken";
  change.isMade = outcome != "refused";
  return change;
}

bool isChangedWithin(const std::vector<PortChange>& changes, const std::string& address,
                     ReadingTime now) {
  return std::any_of(changes.begin(), changes.end(), [&](const PortChange& change) {
    return change.address == address && now - change.time <= std::chrono::minutes(10);
  });
}

// A mere number of drops tells no times: those beside a change are taken for its consequences.
std::vector<ReadingTime> dropsOf(const json& fact, const std::string& address, const Memory& memory,
                                 ReadingTime now) {
  std::vector<ReadingTime> times;
  if (fact.is_array())
    for (const json& time : fact) times.push_back(timeFact(time));
  if (fact.is_number() && !isChangedWithin(memory.changes, address, now))
    times.assign(fact.get<size_t>(), now);
  return times;
}

}  // namespace

const json& caseCollection() {
  return collection();
}

std::vector<uint8_t> moduleBytes(const std::string& nameOrDigits) {
  const json& modules = collection().at("modules");
  const std::string digits =
      modules.contains(nameOrDigits) ? textAt(modules.at(nameOrDigits), "bytes") : nameOrDigits;
  std::vector<uint8_t> bytes;
  for (size_t place = 0; place < digits.size(); place += 2)
    bytes.push_back(static_cast<uint8_t>(std::stoul(digits.substr(place, 2), nullptr, 16)));
  return bytes;
}

ModuleReading moduleReading(const std::vector<uint8_t>& bytes) {
  ModuleReading module;
  std::copy_n(bytes.begin(), module.eeprom.size(), module.eeprom.begin());
  module.result = decodeSFP(sfpReplyForEEPROM(bytes)).result;
  return module;
}

ComputerReading readingOf(const json& facts) {
  ComputerReading reading;
  reading.readAt = timeFact(facts.at("readAt"));
  reading.isDump = textAt(facts, "source") != "computer";
  reading.productVersion = textFact(valueAt(facts, "os"), {Reason::NoAnswer, {}});
  reading.hasAppleSilicon = valueAt(facts, "appleSilicon") == true;
  reading.bundles = bundlesOf(valueAt(facts, "bundles"));
  const json monitors = valueAt(facts, "monitors");
  const NoValue unknown{Reason::NotInDump, {}};
  reading.fibreChannelMonitor =
      numberFact(monitors.is_object() ? valueAt(monitors, "FC") : monitors, unknown);
  reading.tenGigabitMonitor =
      numberFact(monitors.is_object() ? valueAt(monitors, "10GbE") : monitors, unknown);
  reading.runningUpdate = updateOf(valueAt(facts, "updateRunning"));
  const Circumstances circumstances = circumstancesOf(facts);
  for (const json& volume : facts.at("leftUnmounted"))
    reading.leftUnmounted.push_back(volumeOf(volume));
  for (const json& adapter : facts.at("unlisted")) reading.unlisted.push_back(unlistedOf(adapter));
  for (const json& adapter : facts.at("adapters"))
    reading.adapters.push_back(adapterOf(adapter, circumstances));
  return reading;
}

Memory memoryOf(const json& fact, const ComputerReading& reading) {
  Memory memory;
  if (!fact.is_object()) return memory;
  for (const auto& [address, port] : valueAt(fact, "ports").items())
    memory.ports[address] = portMemoryOf(port);
  for (const json& change : valueAt(fact, "changes"))
    memory.changes.push_back(changeOf(change, reading));
  for (const auto& [node, flashed] : valueAt(fact, "pending").items())
    memory.pending[node] = {textAt(flashed, "version"), valueAt(flashed, "reattached") == true,
                            timeAt(flashed, "time")};
  for (const auto& [product, version] : valueAt(fact, "catalogue").items())
    memory.catalogue[product] = version;
  for (const auto& [address, drops] : valueAt(fact, "drops").items())
    memory.drops[address] = dropsOf(drops, address, memory, reading.readAt);
  return memory;
}

}  // namespace corvane
