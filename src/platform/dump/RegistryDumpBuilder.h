#pragma once

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "platform/dump/DumpForm.h"
#include "platform/dump/RegistryDump.h"

namespace corvane {

/// Puts a dump's entries together, given from top to bottom with their depths.
class RegistryDumpBuilder {
 public:
  /// An entry becomes a child of the nearest one before it that is less deep. Depths need not be
  /// without gaps: a dump may have been shortened by hand.
  RegistryDump::Entry add(size_t begin, size_t end, size_t depth);

  RegistryDump finish(std::string bytes, std::unique_ptr<const DumpForm> form,
                      const DumpProblems& problems);

 private:
  struct Open {
    size_t depth;
    RegistryDump::Entry entry;
    RegistryDump::Entry lastChild;
  };

  std::deque<RegistryDump::Node> nodes_;
  std::vector<Open> path_;  ///< from a root to the entry added last
};

/// The two forms. Null with a `problem` when the bytes are not of that form at all.
DumpReading readTextDump(std::string bytes);
DumpReading readPropertyListDump(std::string bytes);

}  // namespace corvane
