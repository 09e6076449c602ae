#include "platform/posix/CurlTransfer.h"

#include <curl/curl.h>

#include <array>
#include <limits>
#include <utility>

#include "platform/posix/CurlProtocols.h"

namespace corvane {

namespace {

constexpr long redirectLimit = 10;
constexpr long slowestBytesPerSecond = 1;
constexpr const char* userAgent = "CorvaneUtility/1.0";

struct CurlHandleDeleter {
  void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
};
using CurlHandle = std::unique_ptr<CURL, CurlHandleDeleter>;

class CurlTransferHandle final : public TransferHandle {
 public:
  CurlTransferHandle(CurlHandle handle, const CurlTransferOptions& options)
      : handle_(std::move(handle)), allowsFiles_(options.allowsFiles) {
    set(CURLOPT_ERRORBUFFER, failure_.data());
    set(CURLOPT_NOSIGNAL, 1L);
    set(CURLOPT_USERAGENT, userAgent);
    set(CURLOPT_FAILONERROR, 1L);
    set(CURLOPT_FOLLOWLOCATION, 1L);
    set(CURLOPT_MAXREDIRS, redirectLimit);
    limitTime(options);
    set(CURLOPT_WRITEFUNCTION, &CurlTransferHandle::write);
    set(CURLOPT_WRITEDATA, this);
    set(CURLOPT_XFERINFOFUNCTION, &CurlTransferHandle::report);
    set(CURLOPT_XFERINFODATA, this);
    set(CURLOPT_NOPROGRESS, 0L);
  }

  void setUrl(const std::string& url) override {
    set(CURLOPT_URL, url.c_str());
    note(limitProtocols(protocolsFor(url, allowsFiles_), setters()));
  }

  void setDestination(const std::string&) override {}

  void setWrite(WriteFunction function, std::FILE* stream) override {
    writeFunction_ = function;
    stream_ = stream;
  }

  void setProgress(TransferProgress progress) override { progress_ = std::move(progress); }

  void setMaximumSize(uint64_t bytes) override { maximumSize_ = bytes; }

  void setTimeLimit(std::chrono::milliseconds limit) override {
    set(CURLOPT_TIMEOUT_MS, static_cast<long>(limit.count()));
  }

  int perform() override {
    received_ = 0;
    tooLarge_ = false;
    failure_.front() = '\0';
    code_ = refused_ != CURLE_OK ? refused_ : curl_easy_perform(handle_.get());
    if (tooLarge_) code_ = CURLE_FILESIZE_EXCEEDED;
    return code_;
  }

  std::string failureText() const override {
    if (code_ == CURLE_OK) return {};
    const bool described = failure_.front() != '\0' && code_ != CURLE_FILESIZE_EXCEEDED;
    return described ? failure_.data() : curl_easy_strerror(code_);
  }

 private:
  template <typename Value>
  void set(CURLoption option, Value value) {
    note(curl_easy_setopt(handle_.get(), option, value));
  }

  /// The first option that the library did not take; without it the transfer would not be the one
  /// that was asked for, so there is none.
  void note(CURLcode code) {
    if (refused_ == CURLE_OK) refused_ = code;
  }

  CurlOptionSetters setters() {
    const auto set = [this](CURLoption option, auto value) {
      return curl_easy_setopt(handle_.get(), option, value);
    };
    return {set, set};
  }

  void limitTime(const CurlTransferOptions& options) {
    set(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(options.connectLimit.count()));
    set(CURLOPT_LOW_SPEED_LIMIT, slowestBytesPerSecond);
    set(CURLOPT_LOW_SPEED_TIME, static_cast<long>(options.stallLimit.count()));
  }

  bool exceeds(uint64_t bytes) const { return maximumSize_ != 0 && bytes > maximumSize_; }

  static size_t write(char* buffer, size_t size, size_t count, void* context) {
    auto& self = *static_cast<CurlTransferHandle*>(context);
    self.received_ += size * count;
    self.tooLarge_ = self.tooLarge_ || self.exceeds(self.received_);
    if (self.tooLarge_ || self.writeFunction_ == nullptr) return 0;
    return self.writeFunction_(buffer, size, count, self.stream_);
  }

  static int report(void* context, curl_off_t total, curl_off_t received, curl_off_t, curl_off_t) {
    auto& self = *static_cast<CurlTransferHandle*>(context);
    self.tooLarge_ = self.tooLarge_ || self.exceeds(static_cast<uint64_t>(total));
    if (self.tooLarge_) return 1;
    const bool goesOn = !self.progress_ || self.progress_(static_cast<uint64_t>(received),
                                                          static_cast<uint64_t>(total));
    return goesOn ? 0 : 1;
  }

  CurlHandle handle_;
  const bool allowsFiles_;
  std::array<char, CURL_ERROR_SIZE> failure_{};
  WriteFunction writeFunction_ = nullptr;
  std::FILE* stream_ = nullptr;
  TransferProgress progress_;
  uint64_t maximumSize_ = 0;
  uint64_t received_ = 0;
  bool tooLarge_ = false;
  CURLcode code_ = CURLE_OK;
  CURLcode refused_ = CURLE_OK;
};

bool libraryIsReady() {
  static const bool ready = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
  return ready;
}

}  // namespace

CurlTransfer::CurlTransfer(CurlTransferOptions options) : options_(options) {}

std::unique_ptr<TransferHandle> CurlTransfer::createHandle() {
  if (!libraryIsReady()) return nullptr;
  CurlHandle handle(curl_easy_init());
  if (!handle) return nullptr;
  return std::make_unique<CurlTransferHandle>(std::move(handle), options_);
}

}  // namespace corvane
