#pragma once

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>

namespace corvane {

/// Called on the transferring thread while bytes arrive, and every second or so while none do.
/// `total` is 0 when it is not known. Answers whether to go on; if not, the transfer fails.
using TransferProgress = std::function<bool(uint64_t received, uint64_t total)>;

/// One transfer of a URL into a stream (libcurl's easy handle).
class TransferHandle {
 public:
  virtual ~TransferHandle() = default;

  /// CURLOPT_WRITEFUNCTION's shape: returns the bytes taken; fewer than size * count ends the
  /// transfer.
  using WriteFunction = size_t (*)(const void* buffer, size_t size, size_t count,
                                   std::FILE* stream);

  virtual void setUrl(const std::string& url) = 0;
  /// The path of the file that the bytes end up in, for the record; it is not opened here.
  virtual void setDestination(const std::string& path) = 0;
  virtual void setWrite(WriteFunction function, std::FILE* stream) = 0;
  virtual void setProgress(TransferProgress progress) = 0;
  /// The most bytes accepted; more ends the transfer as failed. 0 for no bound.
  virtual void setMaximumSize(uint64_t bytes) = 0;
  /// The longest that perform() may take in all; more ends the transfer as failed. 0 for no bound.
  virtual void setTimeLimit(std::chrono::milliseconds limit) = 0;

  /// curl_easy_perform: 0 on success, else the library's code. Follows redirects between web
  /// schemes, takes an answer of 400 and above as a failure, gives up when no connection is made or
  /// nothing moves for a while. Blocks the caller.
  virtual int perform() = 0;

  /// What the last perform() failed of, in words.
  virtual std::string failureText() const = 0;
};

/// The transfer library.
class Transfer {
 public:
  virtual ~Transfer() = default;

  /// curl_easy_init; null on failure. Destroying the handle is curl_easy_cleanup.
  virtual std::unique_ptr<TransferHandle> createHandle() = 0;
};

}  // namespace corvane
