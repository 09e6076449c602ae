#pragma once

#include "platform/Authorization.h"

namespace corvane::macos {

/// Whether the lock is open. Tells the delegate of each change, and of nothing else.
class LockState {
 public:
  void setDelegate(AuthorizationDelegate* delegate) { delegate_ = delegate; }

  bool isOpen() const { return open_; }

  void set(bool open) {
    if (open_ == open) return;
    open_ = open;
    if (delegate_ == nullptr) return;
    if (open) {
      delegate_->authorizationViewDidAuthorize();
    } else {
      delegate_->authorizationViewDidDeauthorize();
    }
  }

 private:
  AuthorizationDelegate* delegate_ = nullptr;
  bool open_ = false;
};

}  // namespace corvane::macos
