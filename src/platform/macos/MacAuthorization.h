#pragma once

#include <Security/Authorization.h>

#include "platform/Authorization.h"
#include "platform/macos/LockState.h"

namespace corvane::macos {

/// The rights behind the lock, asked for through the platform's Security interface.
class MacAuthorization final : public Authorization {
 public:
  MacAuthorization();
  MacAuthorization(const MacAuthorization&) = delete;
  MacAuthorization& operator=(const MacAuthorization&) = delete;
  ~MacAuthorization() override;

  void setRight(const std::string& right) override { right_ = right; }
  void setString(const std::string& name) override { right_ = name; }
  void setDelegate(AuthorizationDelegate* delegate) override { lock_.setDelegate(delegate); }
  void updateStatus() override;
  bool authorize() override;
  void deauthorize() override;
  bool isAuthorized() const override { return lock_.isOpen(); }

 private:
  OSStatus copyRight(AuthorizationFlags flags);

  AuthorizationRef authorization_ = nullptr;
  std::string right_;
  LockState lock_;
};

}  // namespace corvane::macos
