#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <vector>

#include "platform/DiskArbitration.h"
#include "platform/bench/BenchMachine.h"
#include "platform/posix/ThreadRunLoops.h"

namespace corvane {

/// Disk arbitration of the simulated computer. Disks come and go with the machine's state; whether
/// they are mounted is kept in it.
class BenchDiskArbitration final : public DiskArbitration {
 public:
  /// `machine` outlives the object and is not watched yet.
  explicit BenchDiskArbitration(BenchMachine& machine);

  std::unique_ptr<DiskSession> createSession() override;

 private:
  class Session;

  void follow(const BenchState& state);
  void add(Session& session);
  void remove(Session& session);

  BenchMachine& machine_;
  std::mutex mutex_;  ///< guards everything below
  std::set<std::string> present_;
  std::set<Session*> sessions_;
};

}  // namespace corvane
