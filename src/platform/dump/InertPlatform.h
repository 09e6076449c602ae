#pragma once

#include "platform/Authorization.h"
#include "platform/DiskArbitration.h"
#include "platform/ForwardingLog.h"
#include "platform/Shell.h"
#include "platform/Transfer.h"
#include "platform/UserClient.h"

namespace corvane {

// A computer of which only the registry is at hand: every other call fails, as it would on a
// computer that refuses it, and nothing of the computer that the program runs on is touched.

/// No driver can be reached.
class InertUserClient final : public UserClient {
 public:
  Status open(RegistryHandle service, uint32_t type, UserClientConnection& connection) override;
  Status callStructMethod(UserClientConnection connection, uint32_t selector,
                          std::span<const uint8_t> input, std::span<uint8_t> output,
                          size_t& outputSize) override;
  Status release(UserClientConnection connection) override;
};

/// Drops what is printed of a driver's answers, which are none.
class DriverlessLog final : public ForwardingLog {
 public:
  using ForwardingLog::ForwardingLog;

  void standardOutput(std::string_view text) override;
};

/// There are sessions, but never a disk.
class InertDiskArbitration final : public DiskArbitration {
 public:
  std::unique_ptr<DiskSession> createSession() override;
};

/// Runs nothing. Answers as a shell that does not find the command.
class InertShell final : public Shell {
 public:
  int run(const std::string& line) override;
  int runWithin(const std::string& line, std::chrono::milliseconds limit) override;
};

/// Runs no script.
class InertScriptRunner final : public ScriptRunner {
 public:
  ScriptResult run(const std::string& script) override;
  bool asksForPassword() const override { return false; }
};

/// The lock stays closed.
class InertAuthorization final : public Authorization {
 public:
  void setRight(const std::string& right) override;
  void setString(const std::string& name) override;
  void setDelegate(AuthorizationDelegate* delegate) override;
  void updateStatus() override;
  bool authorize() override;
  void deauthorize() override;
  bool isAuthorized() const override;
};

/// Transfers nothing.
class InertTransfer final : public Transfer {
 public:
  std::unique_ptr<TransferHandle> createHandle() override;
};

}  // namespace corvane
