#include "platform/posix/CurlTransfer.h"

#include <curl/curl.h>

#include <cstdlib>

#include "fakes/LoopbackServer.h"

using namespace corvane;
using namespace std::chrono_literals;

namespace {

size_t writeToFile(const void* buffer, size_t size, size_t count, std::FILE* stream) {
  return std::fwrite(buffer, size, count, stream);
}

size_t refuseBytes(const void*, size_t, size_t, std::FILE*) {
  return 0;
}

class CurlTransferTest : public testing::Test {
 protected:
  /// What a transfer of `url` left, and its code.
  struct Outcome {
    int code = 0;
    std::string body;
    std::string failure;
  };

  Outcome fetch(const std::string& url) {
    const auto handle = CurlTransfer(options_).createHandle();
    char* text = nullptr;
    size_t size = 0;
    std::FILE* const stream = open_memstream(&text, &size);
    handle->setUrl(url);
    handle->setWrite(writeFunction_, stream);
    handle->setMaximumSize(maximumSize_);
    handle->setTimeLimit(timeLimit_);
    if (progress_) handle->setProgress(progress_);
    const int code = handle->perform();
    std::fclose(stream);
    Outcome outcome{code, std::string(text, size), handle->failureText()};
    std::free(text);
    return outcome;
  }

  LoopbackServer server_;
  CurlTransferOptions options_{1min, 1min, false};
  TransferHandle::WriteFunction writeFunction_ = writeToFile;
  uint64_t maximumSize_ = 0;
  std::chrono::milliseconds timeLimit_{};
  TransferProgress progress_;
};

TEST_F(CurlTransferTest, BringsTheBody) {
  server_.serve("/file", "the body");
  const Outcome outcome = fetch(server_.url("/file"));
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.body, "the body");
  EXPECT_EQ(outcome.failure, "");
}

TEST_F(CurlTransferTest, FollowsRedirectsBetweenWebSchemes) {
  server_.redirect("/old", server_.url("/newer"));
  server_.redirect("/newer", "/newest");
  server_.serve("/newest", "moved");
  EXPECT_EQ(fetch(server_.url("/old")).body, "moved");
  EXPECT_THAT(server_.requests(), testing::ElementsAre("/old", "/newer", "/newest"));
}

TEST_F(CurlTransferTest, ARedirectToAFileIsRefusedEvenWhereFilesAreAllowed) {
  options_.allowsFiles = true;
  server_.redirect("/trap", "file:///etc/passwd");
  const Outcome outcome = fetch(server_.url("/trap"));
  EXPECT_EQ(outcome.code, CURLE_UNSUPPORTED_PROTOCOL);
  EXPECT_EQ(outcome.body, "");
}

TEST_F(CurlTransferTest, RedirectsInACircleEnd) {
  server_.redirect("/circle", "/circle");
  EXPECT_EQ(fetch(server_.url("/circle")).code, CURLE_TOO_MANY_REDIRECTS);
}

TEST_F(CurlTransferTest, AnErrorPageIsAFailureAndLeavesNothing) {
  for (const int status : {400, 403, 404, 500, 503}) {
    server_.fail("/" + std::to_string(status), status);
    const Outcome outcome = fetch(server_.url("/" + std::to_string(status)));
    EXPECT_EQ(outcome.code, CURLE_HTTP_RETURNED_ERROR) << status;
    EXPECT_EQ(outcome.body, "") << status;
    EXPECT_THAT(outcome.failure, testing::HasSubstr(std::to_string(status)));
  }
}

TEST_F(CurlTransferTest, ATransferThatIsCutIsAFailure) {
  server_.cut("/cut", "half", 8);
  EXPECT_EQ(fetch(server_.url("/cut")).code, CURLE_PARTIAL_FILE);
}

TEST_F(CurlTransferTest, AServerThatFallsSilentIsGivenUp) {
  options_.stallLimit = 1s;
  server_.stall("/silent", "first bytes");
  EXPECT_EQ(fetch(server_.url("/silent")).code, CURLE_OPERATION_TIMEDOUT);
}

TEST_F(CurlTransferTest, ADeadServerIsAFailureWithWords) {
  std::string dead;
  {
    LoopbackServer gone;
    dead = gone.url("/file");
  }
  const Outcome outcome = fetch(dead);
  EXPECT_EQ(outcome.code, CURLE_COULDNT_CONNECT);
  EXPECT_NE(outcome.failure, "");
}

TEST_F(CurlTransferTest, AnAnnouncedSizeAboveTheBoundIsRefused) {
  maximumSize_ = 10;
  server_.serve("/large", std::string(11, 'x'));
  const Outcome outcome = fetch(server_.url("/large"));
  EXPECT_EQ(outcome.code, CURLE_FILESIZE_EXCEEDED);
  EXPECT_NE(outcome.failure, "");
}

TEST_F(CurlTransferTest, ExactlyTheBoundIsAccepted) {
  maximumSize_ = 10;
  server_.serve("/exact", std::string(10, 'x'));
  EXPECT_EQ(fetch(server_.url("/exact")).code, 0);
}

TEST_F(CurlTransferTest, ABodyWithoutLengthIsBoundedToo) {
  maximumSize_ = 100'000;
  server_.serveEndlessly("/endless");
  const Outcome outcome = fetch(server_.url("/endless"));
  EXPECT_EQ(outcome.code, CURLE_FILESIZE_EXCEEDED);
  EXPECT_LE(outcome.body.size(), maximumSize_);
}

TEST_F(CurlTransferTest, ABodyWithoutLengthArrivesWhole) {
  server_.serveWithoutLength("/chunked", "in pieces");
  const Outcome outcome = fetch(server_.url("/chunked"));
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.body, "in pieces");
}

TEST_F(CurlTransferTest, TellsTheProgressUpToTheTotal) {
  uint64_t lastReceived = 0;
  uint64_t lastTotal = 0;
  progress_ = [&](uint64_t received, uint64_t total) {
    EXPECT_GE(received, lastReceived);
    lastReceived = received;
    lastTotal = total;
    return true;
  };
  server_.serve("/file", std::string(300'000, 'x'));
  EXPECT_EQ(fetch(server_.url("/file")).code, 0);
  EXPECT_EQ(lastReceived, 300'000u);
  EXPECT_EQ(lastTotal, 300'000u);
}

TEST_F(CurlTransferTest, AListenerEndsATransferThatHasFallenSilent) {
  server_.stall("/silent", "first bytes");
  progress_ = [](uint64_t received, uint64_t) { return received == 0; };
  EXPECT_EQ(fetch(server_.url("/silent")).code, CURLE_ABORTED_BY_CALLBACK);
}

TEST_F(CurlTransferTest, AServerThatIsSlowButNotSilentIsWaitedFor) {
  options_.stallLimit = 2s;
  server_.trickle("/slow", "in single bytes", 200ms);
  const Outcome outcome = fetch(server_.url("/slow"));
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.body, "in single bytes");
}

TEST_F(CurlTransferTest, AServerThatIsSlowWithoutEndIsGivenUpWhenTheTimeIsUp) {
  timeLimit_ = 300ms;
  server_.trickle("/slow", std::string(1'000, 'x'), 100ms);
  const Outcome outcome = fetch(server_.url("/slow"));
  EXPECT_EQ(outcome.code, CURLE_OPERATION_TIMEDOUT);
  EXPECT_LT(outcome.body.size(), 1'000u);
}

TEST_F(CurlTransferTest, AWriteThatTakesNothingEndsTheTransfer) {
  writeFunction_ = refuseBytes;
  server_.serve("/file", "body");
  EXPECT_EQ(fetch(server_.url("/file")).code, CURLE_WRITE_ERROR);
}

TEST_F(CurlTransferTest, FilesAreReadOnlyWhereAllowed) {
  const std::string url = std::string("file://") + CORVANE_TEST_DATA + "/archive/README.md";
  EXPECT_EQ(fetch(url).code, CURLE_UNSUPPORTED_PROTOCOL);
  options_.allowsFiles = true;
  const Outcome outcome = fetch(url);
  EXPECT_EQ(outcome.code, 0);
  EXPECT_NE(outcome.body, "");
  maximumSize_ = 10;
  EXPECT_EQ(fetch(url).code, CURLE_FILESIZE_EXCEEDED);
}

TEST_F(CurlTransferTest, OtherSchemesAreRefused) {
  options_.allowsFiles = true;
  for (const char* const url :
       {"ftp://127.0.0.1/x", "gopher://127.0.0.1/x", "dict://127.0.0.1/x"}) {
    EXPECT_EQ(fetch(url).code, CURLE_UNSUPPORTED_PROTOCOL) << url;
  }
}

}  // namespace
