#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/Transfer.h"

namespace corvane {

/// A network in which the test places what is at each address.
class FakeTransfer : public Transfer {
 public:
  struct Answer {
    int result = 0;
    std::string content;  ///< handed over before the result, also of a failing transfer
    std::string failure;
  };

  bool failCreate = false;
  std::map<std::string, Answer> answers;
  Answer unknown{6, "", "Could not resolve host"};  ///< the answer of every other address
  std::vector<std::string> requests;
  std::vector<std::string> destinations;  ///< where what was asked for was to end up
  uint64_t maximumSize = 0;               ///< what the last transfer was limited to
  std::chrono::milliseconds timeLimit{};  ///< the same in time
  size_t openHandles = 0;

  std::unique_ptr<TransferHandle> createHandle() override {
    if (failCreate) return nullptr;
    return std::make_unique<Handle>(*this);
  }

 private:
  class Handle : public TransferHandle {
   public:
    explicit Handle(FakeTransfer& owner) : owner_(owner) {
      ++owner_.openHandles;
      owner_.maximumSize = 0;
      owner_.timeLimit = {};
    }
    ~Handle() override { --owner_.openHandles; }
    void setUrl(const std::string& url) override { url_ = url; }
    void setDestination(const std::string& path) override { owner_.destinations.push_back(path); }
    void setWrite(WriteFunction function, std::FILE* stream) override {
      write_ = function;
      stream_ = stream;
    }
    void setProgress(TransferProgress progress) override { progress_ = std::move(progress); }
    void setMaximumSize(uint64_t bytes) override { owner_.maximumSize = maximum_ = bytes; }
    void setTimeLimit(std::chrono::milliseconds limit) override { owner_.timeLimit = limit; }

    int perform() override {
      owner_.requests.push_back(url_);
      const auto found = owner_.answers.find(url_);
      const Answer& answer = found == owner_.answers.end() ? owner_.unknown : found->second;
      failure_ = answer.failure;
      const size_t size = answer.content.size();
      if (maximum_ != 0 && size > maximum_) return 63;
      if (progress_ && !progress_(size, size)) return 42;
      if (write_ != nullptr && size > 0 && write_(answer.content.data(), 1, size, stream_) != size)
        return 23;
      return answer.result;
    }

    std::string failureText() const override { return failure_; }

   private:
    FakeTransfer& owner_;
    std::string url_;
    std::string failure_;
    WriteFunction write_ = nullptr;
    std::FILE* stream_ = nullptr;
    TransferProgress progress_;
    uint64_t maximum_ = 0;
  };
};

}  // namespace corvane
