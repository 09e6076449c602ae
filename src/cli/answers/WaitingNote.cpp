#include "cli/answers/WaitingNote.h"

#include <utility>

namespace corvane {

WaitingNote::WaitingNote(CommandContext& context, std::string text,
                         std::chrono::milliseconds patience) {
  if (!context.errorIsTerminal) return;
  thread_ = std::thread([this, &context, text = std::move(text), patience] {
    std::unique_lock lock(mutex_);
    if (!over_.wait_for(lock, patience, [this] { return isOver_; })) printNote(context, text);
  });
}

WaitingNote::~WaitingNote() {
  if (!thread_.joinable()) return;
  {
    const std::lock_guard lock(mutex_);
    isOver_ = true;
  }
  over_.notify_one();
  thread_.join();
}

}  // namespace corvane
