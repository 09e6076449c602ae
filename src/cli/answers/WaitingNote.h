#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

#include "cli/answers/CommandOutput.h"

namespace corvane {

/// Tells the user on standard error, once, what is being waited for: when the note still lives
/// after its patience. An adapter's tool that hangs, say, is given up only after some time.
class WaitingNote {
 public:
  static constexpr std::chrono::milliseconds usualPatience{3000};

  /// `context` outlives the note; the text is printed from a thread of the note's own.
  WaitingNote(CommandContext& context, std::string text,
              std::chrono::milliseconds patience = usualPatience);

  /// Ends the waiting; nothing is printed from then on.
  ~WaitingNote();
  WaitingNote(const WaitingNote&) = delete;
  WaitingNote& operator=(const WaitingNote&) = delete;

 private:
  std::mutex mutex_;  ///< guards isOver_
  std::condition_variable over_;
  bool isOver_ = false;
  std::thread thread_;  ///< none without a terminal
};

}  // namespace corvane
