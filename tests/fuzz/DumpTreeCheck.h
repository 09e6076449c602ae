#pragma once

#include <cstdlib>

#include "platform/dump/RegistryDump.h"

namespace corvane {

/// Reads everything that a dump gives and stops the program where its tree does not hold together.
inline void checkDumpTree(const RegistryDump& dump) {
  for (RegistryDump::Entry entry = 0; entry < dump.entryCount(); ++entry) {
    const auto parent = dump.parent(entry);
    const auto child = dump.firstChild(entry);
    const auto sibling = dump.nextSibling(entry);
    if (parent && *parent >= entry) std::abort();
    if (child && dump.parent(*child) != entry) std::abort();
    if (sibling && (*sibling <= entry || dump.parent(*sibling) != parent)) std::abort();
    if (dump.location(entry).find_first_of("@\n") != std::string::npos) std::abort();
    if (dump.name(entry).size() + dump.className(entry).size() > mostDumpBytes) std::abort();
    dump.isAnnounced(entry);
    dump.properties(entry);
  }
  if (dump.problems() != dump.problems()) std::abort();
  const PropertyValue::Dictionary driver{{"CFBundleIdentifier", "com.velmar.Corvane2-FC"}};
  if (dump.entriesWith(driver).size() > dump.entriesThatMayHold(driver).size()) std::abort();
}

}  // namespace corvane
