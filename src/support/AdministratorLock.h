#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "CLIParser/commandBody.h"
#include "platform/Platform.h"
#include "window/MainWindowControls.h"

namespace corvane {

/// The lock of the main window, and the administrator's rights of the adapter utility. While the
/// lock is closed, every control that changes an adapter is disabled and says why; it is closed at
/// start. Main thread only.
class AdministratorLock final : public AuthorizationDelegate {
 public:
  /// `command` asks whether the driver knows receive-side coalescing; `compareDriverVersion` tells
  /// whether the driver on show is too old for its settings: 0 when it is not. They, `controls` and
  /// what the platform refers to outlive the object.
  AdministratorLock(const Platform& platform, MainWindowControls& controls, commandBody& command,
                    std::function<int64_t()> compareDriverVersion);
  AdministratorLock(const AdministratorLock&) = delete;
  AdministratorLock& operator=(const AdministratorLock&) = delete;
  ~AdministratorLock() override;

  /// For a face that has no lock view: no control is disabled for want of rights, and whoever
  /// changes an adapter calls authorize() first. Set before setUp().
  void useWithoutView() { hasView_ = false; }

  /// For a face that only looks at the adapters: the adapter utility keeps the rights that it has
  /// where giving it others would bring up the system's password dialog. Set before the launch.
  void askNothing() { mayAsk_ = false; }

  /// Gives the lock view the right that is asked for and shows its state.
  void setUp();

  /// Runs the script that lets the adapter utility run with raised rights. When the user cancels
  /// the password dialog, the lock view is set up anew; any other failure is passed over.
  void giveToolAdministratorRights();

  /// Asks the user for the administrator's right, waiting for the answer; true when it was granted.
  /// A refusal changes nothing.
  bool authorize();

  /// Closes the lock for good and takes it out of use; `reason` is the hint of all that it guards.
  void keepClosed(const std::string& reason);

  void authorizationViewDidAuthorize() override;
  void authorizationViewDidDeauthorize() override;

 private:
  std::vector<Control*> settings() const;
  void toggle();
  void close();
  void allow(Control& control, bool allowed);
  bool driverKnowsCoalescing();

  const Platform platform_;
  MainWindowControls& controls_;
  commandBody& command_;
  std::function<int64_t()> compareDriverVersion_;
  std::string closedHint_;
  bool hasView_ = true;
  bool mayAsk_ = true;
};

}  // namespace corvane
