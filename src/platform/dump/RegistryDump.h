#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/PropertyValue.h"
#include "platform/dump/DumpProblems.h"

namespace corvane {

class DumpForm;
class RegistryDumpBuilder;

/// The device registry of a computer as one of its dumps holds it. Read-only; any thread may ask.
///
/// It keeps the dump's own bytes and some twenty bytes for each entry; names and properties are
/// read from the bytes each time they are asked for. A dump of several parts of the registry has
/// several roots.
class RegistryDump {
 public:
  /// An entry, counted from 0 in the dump's own order.
  using Entry = uint32_t;

  ~RegistryDump();
  RegistryDump(RegistryDump&&) noexcept;
  RegistryDump& operator=(RegistryDump&&) noexcept;

  size_t entryCount() const { return nodes_.size(); }

  /// Nothing for a root, a leaf and the last of its siblings, in that order.
  std::optional<Entry> parent(Entry entry) const;
  std::optional<Entry> firstChild(Entry entry) const;
  std::optional<Entry> nextSibling(Entry entry) const;

  std::string name(Entry entry) const;

  /// What is printed behind the name's "@"; empty for none.
  std::string location(Entry entry) const;

  /// Empty when the dump was cut before it.
  std::string className(Entry entry) const;

  /// Whether notifications would have told of the entry: the dump does not say that it is
  /// unregistered or inactive.
  bool isAnnounced(Entry entry) const;

  PropertyValue::Dictionary properties(Entry entry) const;

  /// The entries that hold all of `wanted` among their properties, in the dump's order.
  std::vector<Entry> entriesWith(const PropertyValue::Dictionary& wanted) const;

  /// The entries that hold all of `wanted`, and those that may have held it before the dump was cut
  /// at the width of a terminal: what is left of a text is its beginning, and long enough to tell
  /// the maker by.
  std::vector<Entry> entriesThatMayHold(const PropertyValue::Dictionary& wanted) const;

  /// The entries of that name.
  std::vector<Entry> entriesNamed(std::string_view name) const;

  /// Everything that could not be read. Reads all properties for it.
  DumpProblems problems() const;

 private:
  friend class RegistryDumpBuilder;

  static constexpr Entry none = UINT32_MAX;

  struct Node {
    uint32_t begin = 0;  ///< of the entry's bytes
    uint32_t end = 0;
    Entry parent = none;
    Entry firstChild = none;
    Entry nextSibling = none;
  };

  RegistryDump(std::string bytes, std::deque<Node> nodes, std::unique_ptr<const DumpForm> form,
               DumpProblems problems);

  std::string_view bytes(Entry entry) const;
  bool holds(Entry entry, const PropertyValue::Dictionary& wanted) const;
  bool mayHaveHeld(Entry entry, const PropertyValue::Dictionary& wanted) const;

  std::string bytes_;
  std::deque<Node> nodes_;  ///< grows without ever being copied
  std::unique_ptr<const DumpForm> form_;
  DumpProblems problems_;  ///< of what lies between the entries
};

/// The most bytes of a dump; more is refused.
inline constexpr size_t mostDumpBytes = UINT32_MAX;

/// A dump, or why there is none.
struct DumpReading {
  std::optional<RegistryDump> dump;
  std::string problem;  ///< one sentence, empty with a dump
};

/// Reads what `ioreg -l` (with or without -r, -x, -w) or `ioreg -a` printed; which of them it was
/// is seen from the bytes. Whatever cannot be read is skipped and counted; bytes that are no dump
/// at all are refused. No bytes at all are a dump without entries, as is printed when nothing
/// matches.
DumpReading readRegistryDump(std::string bytes);

}  // namespace corvane
