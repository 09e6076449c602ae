#pragma once

#include "platform/Platform.h"

namespace corvane {

/// The administrator's right that changing an adapter needs, and the rights that the adapter's tool
/// runs with. Main thread only.
class AdministratorRights {
 public:
  /// What the platform refers to outlives the object.
  explicit AdministratorRights(const Platform& platform) : platform_(platform) {}

  /// For a face that only looks at the adapters: the adapter's tool keeps the rights that it has
  /// where giving it others would bring up the system's password dialog.
  void askNothing() { mayAsk_ = false; }

  /// Names the right that is asked for.
  void setUp();

  /// Runs the script that lets the adapter's tool run with raised rights. False when the user
  /// cancelled the password dialog: the right is to be named anew then. Any other failure is passed
  /// over.
  bool giveTool();

  /// Asks the user for the administrator's right, waiting for the answer; true when it was granted.
  /// A refusal changes nothing.
  bool authorize();

  bool areHeld() const { return platform_.authorization.isAuthorized(); }
  void giveUp() { platform_.authorization.deauthorize(); }

 private:
  const Platform platform_;
  bool mayAsk_ = true;
};

}  // namespace corvane
