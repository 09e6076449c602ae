#pragma once

#include <memory>
#include <string>
#include <utility>

#include "platform/Transfer.h"

namespace corvane {

/// Passes everything on to another handle, which it owns. A handle that changes or looks at some of
/// it derives from it and overrides that.
class ForwardingTransferHandle : public TransferHandle {
 public:
  explicit ForwardingTransferHandle(std::unique_ptr<TransferHandle> next)
      : next_(std::move(next)) {}

  void setUrl(const std::string& url) override { next_->setUrl(url); }
  void setDestination(const std::string& path) override { next_->setDestination(path); }
  void setWrite(WriteFunction function, std::FILE* stream) override {
    next_->setWrite(function, stream);
  }
  void setProgress(TransferProgress progress) override { next_->setProgress(std::move(progress)); }
  void setMaximumSize(uint64_t bytes) override { next_->setMaximumSize(bytes); }
  void setTimeLimit(std::chrono::milliseconds limit) override { next_->setTimeLimit(limit); }
  int perform() override { return next_->perform(); }
  std::string failureText() const override { return next_->failureText(); }

 private:
  const std::unique_ptr<TransferHandle> next_;
};

}  // namespace corvane
