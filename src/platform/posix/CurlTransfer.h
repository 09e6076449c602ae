#pragma once

#include <chrono>

#include "platform/Transfer.h"

namespace corvane {

/// How long a transfer may make no headway, and which places it may read.
struct CurlTransferOptions {
  std::chrono::milliseconds connectLimit{15'000};
  std::chrono::seconds stallLimit{30};  ///< not a byte for that long ends the transfer
  bool allowsFiles = false;             ///< "file://" URLs too, but never as a redirect's target
};

/// Transfers by libcurl over http and https. Redirects are followed between those two only, and
/// from https to https alone.
class CurlTransfer final : public Transfer {
 public:
  explicit CurlTransfer(CurlTransferOptions options = {});

  std::unique_ptr<TransferHandle> createHandle() override;

 private:
  const CurlTransferOptions options_;
};

}  // namespace corvane
