#include "platform/dump/InertPlatform.h"

#include <memory>

namespace corvane {

namespace {

/// The wait status of a shell that ends with "command not found".
constexpr int commandNotFound = 127 << 8;

class InertDiskSession final : public DiskSession {
 public:
  void registerAppeared(DiskCallback, void*) override {}
  void registerDisappeared(DiskCallback, void*) override {}
  void schedule(RunLoop&) override {}
  void unschedule(RunLoop&) override {}
  std::unique_ptr<Disk> createDisk(const std::string&) override { return nullptr; }
  void unmount(Disk& disk, DiskRequestCallback callback, void* context) override {
    callback(disk, true, context);
  }
  void mount(Disk& disk, DiskRequestCallback callback, void* context) override {
    callback(disk, true, context);
  }
};

}  // namespace

Status InertUserClient::open(RegistryHandle, uint32_t, UserClientConnection& connection) {
  connection = 0;
  return statusUnsupported;
}

Status InertUserClient::callStructMethod(UserClientConnection, uint32_t, std::span<const uint8_t>,
                                         std::span<uint8_t>, size_t& outputSize) {
  outputSize = 0;
  return statusUnsupported;
}

Status InertUserClient::release(UserClientConnection) {
  return statusBadArgument;
}

void DriverlessLog::standardOutput(std::string_view) {}

std::unique_ptr<DiskSession> InertDiskArbitration::createSession() {
  return std::make_unique<InertDiskSession>();
}

int InertShell::run(const std::string&) {
  return commandNotFound;
}

int InertShell::runWithin(const std::string&, std::chrono::milliseconds) {
  return commandNotFound;
}

ScriptResult InertScriptRunner::run(const std::string&) {
  return {false, "There is no computer to run a script on, only its registry dump."};
}

void InertAuthorization::setRight(const std::string&) {}
void InertAuthorization::setString(const std::string&) {}
void InertAuthorization::setDelegate(AuthorizationDelegate*) {}
void InertAuthorization::updateStatus() {}
void InertAuthorization::deauthorize() {}

bool InertAuthorization::authorize() {
  return false;
}

bool InertAuthorization::isAuthorized() const {
  return false;
}

std::unique_ptr<TransferHandle> InertTransfer::createHandle() {
  return nullptr;
}

}  // namespace corvane
