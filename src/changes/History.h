#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/Paths.h"

namespace corvane {

/// One change that was made, or tried, on this computer.
struct HistoryEntry {
  std::string time;  ///< UTC, "2026-11-21T02:14:07Z"; when empty, append() fills in the present
  std::string what;  ///< what was changed, in a word or two: "speed", "preset", "firmware", "mount"
  std::string label;  ///< the adapter's label at that time, "B - 2"; empty when it had none
  std::string WWN;  ///< the adapter's WWN, or the key of a 10GbE adapter; empty without an adapter
  std::optional<int64_t> port;      ///< 1 or 2; nothing when the change is about no one port
  std::optional<std::string> from;  ///< what it was before; nothing when that was not read
  std::optional<std::string> to;    ///< what was asked for; nothing when nothing was
  std::string outcome;              ///< "taken", or what happened instead, for people

  bool operator==(const HistoryEntry&) const = default;
};

/// The file that lists the changes made on this computer, oldest first: one JSON object a line.
/// Several programs may add to it at once, and a program that is killed leaves at most its last
/// line undone; what follows such a line is whole again. Once the file has reached its bound, the
/// older half goes. Any thread may call.
class History {
 public:
  /// The history of the user whose home the paths name.
  explicit History(const Paths& paths);

  /// The history in this file, which is made with its folder by the first entry. It is kept below
  /// `sizeLimit` bytes.
  explicit History(std::string path, size_t sizeLimit = usualSizeLimit);

  /// Adds a change; texts longer than textLimit bytes are cut. False when the file cannot be
  /// written, or another program has had it longer than a change takes.
  bool append(const HistoryEntry& entry) const;

  /// All changes, oldest first. What is not the line of a change is passed over; empty when there
  /// is no file.
  std::vector<HistoryEntry> entries() const;

  static constexpr size_t usualSizeLimit = size_t{4} << 20;
  static constexpr size_t textLimit = 1000;

 private:
  std::string path_;
  size_t sizeLimit_;
};

}  // namespace corvane
