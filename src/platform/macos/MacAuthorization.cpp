#include "platform/macos/MacAuthorization.h"

namespace corvane::macos {

namespace {

AuthorizationRef newAuthorization() {
  AuthorizationRef authorization = nullptr;
  AuthorizationCreate(nullptr, kAuthorizationEmptyEnvironment, kAuthorizationFlagDefaults,
                      &authorization);
  return authorization;
}

}  // namespace

MacAuthorization::MacAuthorization() : authorization_(newAuthorization()) {}

MacAuthorization::~MacAuthorization() {
  if (authorization_ != nullptr) {
    AuthorizationFree(authorization_, kAuthorizationFlagDestroyRights);
  }
}

OSStatus MacAuthorization::copyRight(AuthorizationFlags flags) {
  if (authorization_ == nullptr) return errAuthorizationInvalidRef;
  AuthorizationItem item = {right_.c_str(), 0, nullptr, 0};
  const AuthorizationRights rights = {1, &item};
  return AuthorizationCopyRights(authorization_, &rights, kAuthorizationEmptyEnvironment,
                                 flags | kAuthorizationFlagExtendRights, nullptr);
}

void MacAuthorization::updateStatus() {
  lock_.set(copyRight(kAuthorizationFlagDefaults) == errAuthorizationSuccess);
}

bool MacAuthorization::authorize() {
  lock_.set(copyRight(kAuthorizationFlagInteractionAllowed) == errAuthorizationSuccess);
  return lock_.isOpen();
}

void MacAuthorization::deauthorize() {
  if (authorization_ != nullptr) {
    AuthorizationFree(authorization_, kAuthorizationFlagDestroyRights);
  }
  authorization_ = newAuthorization();
  lock_.set(false);
}

}  // namespace corvane::macos
