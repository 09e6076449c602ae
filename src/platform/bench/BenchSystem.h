#pragma once

#include <fstream>
#include <functional>
#include <memory>
#include <mutex>

#include "platform/Authorization.h"
#include "platform/Bundles.h"
#include "platform/ForwardingLog.h"
#include "platform/Shell.h"
#include "platform/Transfer.h"
#include "platform/bench/BenchMachine.h"
#include "platform/bench/file/BenchFolder.h"

// The smaller parts of the simulated operating system.
namespace corvane {

/// The driver bundles that the bench says are installed, and the application's own. A driver is in
/// the one of the two extension folders that the system's release uses.
class BenchBundles final : public Bundles {
 public:
  /// `samplesFolder` is where an update folder is looked for that is not beside the bench file.
  BenchBundles(BenchMachine& machine, Paths paths, std::string samplesFolder = {});

  bool exists(const std::string& path) override;
  std::optional<PropertyValue> infoValue(const std::string& path, const std::string& key) override;
  std::optional<PropertyValue> mainInfoValue(const std::string& key) override;
  std::optional<PropertyValue::Dictionary> resourcePropertyList(const std::string& name,
                                                                const std::string& type) override;

 private:
  std::optional<PropertyValue::Dictionary> information(const std::string& path);

  BenchMachine& machine_;
  const Paths paths_;
  const std::string samplesFolder_;
};

class BenchSystemVersion final : public SystemVersion {
 public:
  explicit BenchSystemVersion(BenchMachine& machine) : machine_(machine) {}

  std::string productVersion() override { return machine_.state()->computer.osVersion; }

 private:
  BenchMachine& machine_;
};

/// Scripts with administrator rights are played, not run: the mode of a tool is never touched. Of
/// what a script's command would do, only the log collection happens, by the bench's own tool. The
/// fault "password-cancelled" has the user cancel.
class BenchScriptRunner final : public ScriptRunner {
 public:
  BenchScriptRunner(BenchMachine& machine, Shell& shell);

  ScriptResult run(const std::string& script) override;
  bool asksForPassword() const override { return false; }

 private:
  BenchMachine& machine_;
  Shell& shell_;
};

/// The lock view. Whoever shows it on a bench says how the password is asked for; without that the
/// right is granted. The fault "password-cancelled" has the user cancel.
class BenchAuthorization final : public Authorization {
 public:
  explicit BenchAuthorization(BenchMachine& machine) : machine_(machine) {}

  /// `ask` waits for the user and returns whether a password was given. Main thread.
  void setPasswordPrompt(std::function<bool()> ask) { ask_ = std::move(ask); }

  void setRight(const std::string& right) override { right_ = right; }
  void setString(const std::string& name) override { name_ = name; }
  void setDelegate(AuthorizationDelegate* delegate) override { delegate_ = delegate; }
  void updateStatus() override {}
  bool authorize() override;
  void deauthorize() override;
  bool isAuthorized() const override { return isAuthorized_; }

 private:
  bool isGranted();

  BenchMachine& machine_;
  std::function<bool()> ask_;
  std::string right_;
  std::string name_;
  AuthorizationDelegate* delegate_ = nullptr;
  bool isAuthorized_ = false;
};

/// Transfers that find no network while the fault "no-network" is on.
class BenchTransfer final : public Transfer {
 public:
  BenchTransfer(BenchMachine& machine, Transfer& network);

  std::unique_ptr<TransferHandle> createHandle() override;

 private:
  BenchMachine& machine_;
  Transfer& network_;
};

/// Passes every line on, and keeps those for the system log in the bench's own as well.
class BenchLog final : public ForwardingLog {
 public:
  BenchLog(Log& next, const std::string& systemLog);

  void system(std::string_view line) override;

 private:
  const std::string path_;
  std::mutex mutex_;  ///< keeps lines whole
};

}  // namespace corvane
