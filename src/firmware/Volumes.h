#pragma once

#include <string>
#include <vector>

#include "firmware/UnmountedVolumesRecord.h"
#include "platform/Platform.h"

namespace corvane {

/// Takes the adapters' volumes offline before a firmware transfer and brings them back after it.
/// Any thread may call.
class Volumes {
 public:
  explicit Volumes(const Platform& platform);

  /// Ask for the unmounting or mounting of disks and partitions by BSD name, in the order given.
  /// Nothing waits for the answers, and no answer is looked at. What is unmounted is remembered in
  /// a file of the user's home until it has been asked to be mounted again.
  void unmountAllVolume(const std::vector<std::string>& names);
  void mountAllVolume(const std::vector<std::string>& names);

  /// For the start of the program: tells the system log which volumes an update that never ended
  /// left unmounted, and returns their BSD names. They are told once.
  std::vector<std::string> tellLeftUnmounted();

  /// What tellLeftUnmounted() found at the start. Belongs to the thread that called it.
  const std::vector<std::string>& leftUnmounted() const { return leftUnmounted_; }

 private:
  DiskArbitration& diskArbitration_;
  Log& log_;
  UnmountedVolumesRecord record_;
  std::vector<std::string> leftUnmounted_;
};

/// The sentence that tells a person which volumes an update that did not end left unmounted; empty
/// when there are none.
std::string leftUnmountedNote(const std::vector<std::string>& names);

}  // namespace corvane
