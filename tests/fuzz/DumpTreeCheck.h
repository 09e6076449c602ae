#pragma once

#include <string>

#include "fuzz/Require.h"
#include "platform/dump/RegistryDump.h"

namespace corvane::fuzz {

/// Reads everything that a dump gives and stops the program where its tree does not hold together.
inline void checkDumpTree(const RegistryDump& dump) {
  for (RegistryDump::Entry entry = 0; entry < dump.entryCount(); ++entry) {
    const auto parent = dump.parent(entry);
    const auto child = dump.firstChild(entry);
    const auto sibling = dump.nextSibling(entry);
    require(!parent || *parent < entry, "a parent stands before its children");
    require(!child || dump.parent(*child) == entry, "the first child knows its parent");
    require(!sibling || (*sibling > entry && dump.parent(*sibling) == parent),
            "the next sibling stands later, below the same parent");
    require(dump.location(entry).find_first_of("@\n") == std::string::npos,
            "a location is one word");
    require(dump.name(entry).size() + dump.className(entry).size() <= mostDumpBytes,
            "names come from the dump's bytes");
    dump.isAnnounced(entry);
    dump.properties(entry);
  }
  require(dump.problems() == dump.problems(), "the same problems each time they are asked for");
  const PropertyValue::Dictionary driver{{"CFBundleIdentifier", "com.velmar.Corvane2-FC"}};
  require(dump.entriesWith(driver).size() <= dump.entriesThatMayHold(driver).size(),
          "what matches is among what may match");
}

}  // namespace corvane::fuzz
