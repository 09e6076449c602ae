#pragma once

#include <functional>
#include <string>

namespace corvane {

/// Told when the lock view's state changes, on the main thread.
class AuthorizationDelegate {
 public:
  virtual ~AuthorizationDelegate() = default;
  virtual void authorizationViewDidAuthorize() = 0;
  virtual void authorizationViewDidDeauthorize() = 0;
};

/// The lock view of the main window (SFAuthorizationView). Main thread only.
class Authorization {
 public:
  virtual ~Authorization() = default;

  /// setAuthorizationRights: with the single right given.
  virtual void setRight(const std::string& right) = 0;

  /// setString: the right's name that is asked for.
  virtual void setString(const std::string& name) = 0;

  /// Not owned; null for none. It must outlive the view or be taken back.
  virtual void setDelegate(AuthorizationDelegate* delegate) = 0;

  /// updateStatus: looks anew whether the rights are held, and tells the delegate of a change.
  virtual void updateStatus() = 0;

  /// authorize: asks the user for the right, waiting for the answer; true when it was granted. The
  /// delegate is told before it returns.
  virtual bool authorize() = 0;

  /// deauthorize: closes the lock again.
  virtual void deauthorize() = 0;

  virtual bool isAuthorized() const = 0;
};

}  // namespace corvane
