#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "inventory/Answer.h"
#include "inventory/PortReadings.h"
#include "inventory/PortTarget.h"

/// A change of one setting of one port, as every face makes it: what is wished, whether the product
/// offers it, what was sent, and what came of it by what the driver or the tool says afterwards.
namespace corvane {

/// What can be set at a port. Values are numbers: speeds in Mb/s with 0 for automatic, topology
/// codes, AL_PAs, queue depths, presets by their number, 0 and 1 for off and on.
enum class Setting {
  Speed,
  Topology,
  HardAlpa,
  QueueDepth,
  Mode,
  ChecksumOffload,
  ReceiveCoalescing,
};

struct SettingWish {
  Setting setting = Setting::Speed;
  int64_t value = 0;

  bool operator==(const SettingWish&) const = default;
};

/// The setting's and a value's name in sentences: "speed", "4 Gbps".
std::string settingName(Setting setting);
std::string settingText(Setting setting, int64_t value);

/// Whether the setting belongs to adapters of that family.
bool isSettingOf(Setting setting, AdapterFamily family);

/// The values that an adapter of that product, with a driver of that version, offers for the
/// setting, in rising order; for a queue depth those of the menu, for an AL_PA all 126 addresses.
std::vector<int64_t> offeredValues(Setting setting, std::string_view product,
                                   std::string_view driverVersion);

/// The queue depths that may be entered as a number: 1 to this.
inline constexpr int64_t largestEnteredQueueDepth = 254;

/// What the setting is by a reading of the port.
Answer<int64_t> settingIn(const FibreChannelPortReading& reading, Setting setting);
Answer<int64_t> settingIn(const TenGigabitPortReading& reading, Setting setting);

/// What came of a change.
enum class Outcome {
  Taken,          ///< read back as wished
  Refused,        ///< the driver or the tool said no, or could not be asked
  NotTaken,       ///< sent, and something else was read back
  NotVerifiable,  ///< sent, and nothing was read back
  GoneBefore,     ///< the port had gone; nothing was sent
  GoneAfter,      ///< sent, and the port went before it could be read
  Declined,       ///< the person changed their mind
};

struct ChangeOutcome {
  std::string label;
  std::string WWN;
  int64_t port = 1;
  SettingWish wish;
  Outcome outcome = Outcome::Taken;
  Answer<int64_t> before;
  Answer<int64_t> after;

  /// The driver's number of a refusal, or why nothing could be read back.
  std::string reason;

  /// For a change that drops the link: whether there is one now, and after how many seconds.
  std::optional<bool> hasLink;
  int64_t seconds = 0;

  bool isTaken() const { return outcome == Outcome::Taken; }
  bool operator==(const ChangeOutcome&) const = default;
};

/// An outcome with nothing but the target and the wish filled in.
ChangeOutcome outcomeFor(const PortTarget& target, const SettingWish& wish);

/// Judges a change that was sent by what was read back.
Outcome judged(const SettingWish& wish, const Answer<int64_t>& after);

/// The sentence that tells of it: "A - 1 port 1: speed Automatic → 4 Gbps. Link back after 4 s."
std::string sentenceOf(const ChangeOutcome& outcome);

}  // namespace corvane
