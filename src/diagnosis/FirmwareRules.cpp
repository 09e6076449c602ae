#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <tuple>

#include "diagnosis/Rules.h"
#include "diagnosis/SentenceWords.h"
#include "discovery/FirmwareVersion.h"

namespace corvane {

namespace {

std::string trimmedVersion(const std::string& text) {
  const auto isBlank = [](unsigned char character) {
    return std::isspace(character) != 0 || character == 0;
  };
  const auto first = std::find_if_not(text.begin(), text.end(), isBlank);
  const auto last = std::find_if_not(text.rbegin(), text.rend(), isBlank).base();
  return first < last ? std::string(first, last) : std::string();
}

/// The firmware that the adapter runs, by whichever port tells it; empty when none does.
std::string runningFirmware(const Look& look, size_t adapter) {
  for (const int64_t number : {1, 2}) {
    const auto* information = look.port(adapter, number).information();
    if (information == nullptr) continue;
    std::string version = trimmedVersion(information->fwVer);
    if (!version.empty()) return version;
  }
  return {};
}

/// A finding for each listed adapter whose running firmware is known and for which `say` gives
/// words.
template <typename Say>
std::vector<Said> eachWithFirmware(const Look& look, Say say) {
  std::vector<Said> findings;
  for (size_t index = 0; index < look.reading().adapters.size(); ++index) {
    const std::string running = runningFirmware(look, index);
    if (running.empty()) continue;
    if (std::optional<Words> words = say(index, running))
      findings.push_back(
          {std::move(*words), look.portsOfAdapter(index), AdapterFamily::FibreChannel});
  }
  return findings;
}

/// The flashed version that the adapter does not run; null when there is none.
const FlashedFirmware* otherFlashed(const Look& look, size_t adapter, const std::string& running) {
  const auto& pending = look.memory().pending;
  const auto found = pending.find(look.reading().adapters[adapter].WWN);
  if (found == pending.end()) return nullptr;
  const std::string flashed = trimmedVersion(found->second.version);
  return flashed.empty() || flashed == running ? nullptr : &found->second;
}

bool isBeingUpdated(const Look& look, size_t adapter) {
  const auto& update = look.reading().runningUpdate;
  return update &&
         (update->label.empty() || update->label == look.reading().adapters[adapter].label);
}

struct NewestFirmware {
  std::string version;
  std::vector<std::string> labels;
};

/// The newest firmware that runs on an adapter of the product, and on which.
NewestFirmware newestOf(const Look& look, const std::string& product) {
  NewestFirmware newest;
  for (size_t index = 0; index < look.reading().adapters.size(); ++index) {
    const AdapterReading& adapter = look.reading().adapters[index];
    const std::string running = runningFirmware(look, index);
    if (adapter.product != product || running.empty()) continue;
    if (isOlderFirmware(newest.version, running)) newest = {running, {}};
    if (!isOlderFirmware(running, newest.version)) newest.labels.push_back(adapter.label);
  }
  return newest;
}

}  // namespace

constinit const WideRule firmwareNotTaken{[](const Look& look) {
  return eachWithFirmware(
      look, [&look](size_t adapter, const std::string& running) -> std::optional<Words> {
        const FlashedFirmware* const flashed = otherFlashed(look, adapter, running);
        if (flashed == nullptr || !flashed->isAttachedAgain) return std::nullopt;
        const std::string version = trimmedVersion(flashed->version);
        const std::string text =
            flashed->time ? fmt::format(
                                "Firmware {} was flashed on {}; after being attached again the "
                                "adapter still runs {}.",
                                version, dateOf(*flashed->time), running)
                          : fmt::format(
                                "Firmware {} was flashed; after being attached again the adapter "
                                "still runs {}.",
                                version, running);
        return Words{text,
                     "Flash it again and read what the update says; then another package; then "
                     "repair."};
      });
}};

constinit const WideRule firmwarePending{[](const Look& look) {
  return eachWithFirmware(
      look, [&look](size_t adapter, const std::string& running) -> std::optional<Words> {
        const FlashedFirmware* const flashed = otherFlashed(look, adapter, running);
        if (flashed == nullptr || flashed->isAttachedAgain || isBeingUpdated(look, adapter))
          return std::nullopt;
        const std::string version = trimmedVersion(flashed->version);
        const std::string text = flashed->time
                                     ? fmt::format("Firmware {}, flashed on {}, waits; {} runs.",
                                                   version, dateOf(*flashed->time), running)
                                     : fmt::format("Firmware {} waits; {} runs.", version, running);
        return Words{text,
                     "Unmount what is behind the adapter, unplug its Thunderbolt cable, attach it "
                     "again."};
      });
}};

constinit const WideRule firmwareDiffers{[](const Look& look) {
  return eachWithFirmware(
      look, [&look](size_t adapter, const std::string& running) -> std::optional<Words> {
        const NewestFirmware newest = newestOf(look, look.reading().adapters[adapter].product);
        if (!isOlderFirmware(running, newest.version)) return std::nullopt;
        return Words{fmt::format("Runs firmware {}; {} of the same product run {}.", running,
                                 listed(newest.labels), newest.version),
                     "Update it with the others' package when convenient."};
      });
}};

constinit const WideRule firmwareCatalogue{[](const Look& look) {
  return eachWithFirmware(
      look, [&look](size_t adapter, const std::string& running) -> std::optional<Words> {
        const auto& catalogue = look.memory().catalogue;
        const auto name = catalogueProduct(look.reading().adapters[adapter].product);
        const auto found = catalogue.find(std::string(name));
        if (name.empty() || found == catalogue.end() || !offersMore(running, found->second))
          return std::nullopt;
        return Words{fmt::format("Firmware {} is offered; {} runs.", found->second, running),
                     "Update when convenient."};
      });
}};

}  // namespace corvane
