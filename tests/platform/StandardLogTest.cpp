#include "platform/posix/StandardLog.h"

#include <cstdlib>
#include <stdexcept>
#include <string>

using namespace corvane;

namespace {

/// A stream whose text can be read back.
class MemoryStream {
 public:
  MemoryStream() : stream_(open_memstream(&text_, &size_)) {}
  MemoryStream(const MemoryStream&) = delete;
  MemoryStream& operator=(const MemoryStream&) = delete;
  ~MemoryStream() {
    std::fclose(stream_);
    std::free(text_);
  }

  std::FILE* get() { return stream_; }
  std::string text() {
    std::fflush(stream_);
    return std::string(text_, size_);
  }

 private:
  char* text_ = nullptr;
  size_t size_ = 0;
  std::FILE* stream_;
};

TEST(StandardLog, SystemLinesGoToStandardErrorWithAPrefix) {
  MemoryStream out;
  MemoryStream err;
  StandardLog log({out.get(), err.get(), false});
  log.system("Monitor stopped");
  EXPECT_EQ(err.text(), "corvane log: Monitor stopped\n");
  EXPECT_EQ(out.text(), "");
}

TEST(StandardLog, ControlCharactersInSystemLinesDoNotReachTheTerminal) {
  MemoryStream out;
  MemoryStream err;
  StandardLog log({out.get(), err.get(), false});
  log.system("name \x1B[2J\nnext\x7F ü");
  EXPECT_EQ(err.text(), "corvane log: name ?[2J?next? ü\n");
}

TEST(StandardLog, TextsGoToTheirStreamsAsTheyStand) {
  MemoryStream out;
  MemoryStream err;
  StandardLog log({out.get(), err.get(), false});
  log.standardOutput("structureOutputSize=1488(Byte)\n");
  log.standardError("no line end");
  EXPECT_EQ(out.text(), "structureOutputSize=1488(Byte)\n");
  EXPECT_EQ(err.text(), "no line end");
}

TEST(StandardLog, StandardOutputCanBeKeptForTheAnswer) {
  MemoryStream err;
  StandardLog log({err.get(), err.get(), false});
  log.standardOutput("diagnostic\n");
  EXPECT_EQ(err.text(), "diagnostic\n");
}

TEST(StandardLog, LinesForTheSystemLogStayOffTheTerminalOnDemand) {
  MemoryStream out;
  MemoryStream err;
  StandardLog log({out.get(), err.get(), true});
  log.system("quiet");
  EXPECT_EQ(err.text(), "");
}

TEST(StandardLogDeathTest, AFailedAssertionNamesItsPlaceAndStops) {
  testing::GTEST_FLAG(death_test_style) = "threadsafe";
  StandardLog log;
  EXPECT_DEATH(log.assertionFailed("runLoop != NULL", "start", "Monitor.m", 42),
               "Assertion failure in start, Monitor.m:42: runLoop != NULL");
}

TEST(StandardLog, AFailedAssertionStopsTheProgramAsItIsToldTo) {
  MemoryStream err;
  StandardLogOptions options{err.get(), err.get()};
  options.stopProgram = [](const std::string& assertion) { throw std::runtime_error(assertion); };
  StandardLog log(options);
  try {
    log.assertionFailed("runLoop != NULL", "start", "Monitor.m", 42);
    FAIL() << "the assertion did not stop anything";
  } catch (const std::runtime_error& stopped) {
    EXPECT_STREQ(stopped.what(), "Assertion failure in start, Monitor.m:42: runLoop != NULL");
  }
  EXPECT_EQ(err.text(), "corvane log: Assertion failure in start, Monitor.m:42: runLoop != NULL\n");
}

}  // namespace
