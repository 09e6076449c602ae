#include "cli/answers/WaitingNote.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>
#include <sstream>

namespace corvane {
namespace {

using namespace std::chrono_literals;

/// Standard error that tells when a line has arrived.
class ObservedLines : public std::stringbuf {
 public:
  std::string firstLine() {
    std::unique_lock lock(mutex_);
    arrived_.wait(lock, [this] { return text_.find('\n') != std::string::npos; });
    return text_;
  }

  std::string text() {
    const std::lock_guard lock(mutex_);
    return text_;
  }

 protected:
  int_type overflow(int_type character) override {
    const std::lock_guard lock(mutex_);
    text_ += static_cast<char>(character);
    arrived_.notify_all();
    return character;
  }
  std::streamsize xsputn(const char* text, std::streamsize size) override {
    const std::lock_guard lock(mutex_);
    text_.append(text, static_cast<size_t>(size));
    arrived_.notify_all();
    return size;
  }

 private:
  std::mutex mutex_;
  std::condition_variable arrived_;
  std::string text_;
};

class WaitingNoteTest : public testing::Test {
 protected:
  ObservedLines lines;
  std::istringstream in;
  std::ostringstream out;
  std::ostream err{&lines};
  CommandContext context{
      .program = "corvane", .in = in, .out = out, .err = err, .errorIsTerminal = true};
};

TEST_F(WaitingNoteTest, TellsWhatIsWaitedForOnceItsPatienceIsOver) {
  const WaitingNote note(context, "C1: waiting", 0ms);
  EXPECT_EQ(lines.firstLine(), "corvane: C1: waiting\n");
}

TEST_F(WaitingNoteTest, SaysNothingWhenTheWaitingIsOverBefore) {
  { const WaitingNote note(context, "C1: waiting", 1h); }
  EXPECT_EQ(lines.text(), "");
}

TEST_F(WaitingNoteTest, SaysNothingWithoutATerminal) {
  context.errorIsTerminal = false;
  { const WaitingNote note(context, "C1: waiting", 0ms); }
  EXPECT_EQ(lines.text(), "");
}

}  // namespace
}  // namespace corvane
