#pragma once

#include <functional>
#include <string>

#include "CLIParser/commandBody.h"
#include "platform/Platform.h"
#include "support/AdministratorRights.h"
#include "window/MainWindowControls.h"

namespace corvane {

/// The lock of the main window. While it is closed, every control that changes an adapter is out of
/// use and says why. Main thread only.
class AdministratorLock final : public AuthorizationDelegate {
 public:
  /// `command` asks whether the driver knows receive-side coalescing; `driverFitness` tells whether
  /// the driver on show is too old for its settings: 0 when it is not. They, `controls` and what
  /// the platform refers to outlive the object.
  AdministratorLock(const Platform& platform, MainWindowControls& controls, commandBody& command,
                    std::function<int64_t()> driverFitness);
  AdministratorLock(const AdministratorLock&) = delete;
  AdministratorLock& operator=(const AdministratorLock&) = delete;
  ~AdministratorLock() override;

  AdministratorRights& rights() { return rights_; }

  /// For a face that has no lock view: no control is disabled for want of rights, and whoever
  /// changes an adapter calls authorize() first. Set before setUp().
  void useWithoutView() { hasView_ = false; }

  /// For a face that only looks at the adapters, as AdministratorRights::askNothing().
  void askNothing() { rights_.askNothing(); }

  /// Gives the lock view the right that is asked for and shows its state.
  void setUp();

  /// As AdministratorRights::giveTool(); the lock view is set up anew when the user cancels.
  void giveToolAdministratorRights();

  /// At the end of the launch: a right that was held already enables what unlocking enables.
  void openIfHeld();

  /// As AdministratorRights::authorize().
  bool authorize() { return rights_.authorize(); }

  /// Closes the lock for good and takes it out of use; `reason` is the hint of all that it guards.
  void keepClosed(const std::string& reason);

  /// A page was filled: while the lock is open, only what was read takes its settings out of use.
  void pageWasShown();

  void authorizationViewDidAuthorize() override;
  void authorizationViewDidDeauthorize() override;

 private:
  void toggle();
  void close();
  void openTenGigabitSettings();
  void guard(Control& control, bool locked);
  bool driverKnowsCoalescing();

  const Platform platform_;
  MainWindowControls& controls_;
  commandBody& command_;
  std::function<int64_t()> driverFitness_;
  AdministratorRights rights_;
  std::string closedHint_;
  bool hasView_ = true;
};

}  // namespace corvane
