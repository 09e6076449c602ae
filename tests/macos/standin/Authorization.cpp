#include <Security/Authorization.h>

#include "macos/standin/SystemState.h"

using namespace corvane::standin;

struct AuthorizationOpaqueRef : Object {
  AuthorizationOpaqueRef() : Object("authorization") {}
};

namespace {

OSStatus answerFor(const AuthorizationRights& rights, AuthorizationFlags flags) {
  if (rights.count != 1 || rights.items == nullptr || rights.items->name == nullptr) {
    return errAuthorizationInvalidSet;
  }
  if (*rights.items->name == '\0') return errAuthorizationDenied;
  if ((flags & kAuthorizationFlagExtendRights) == 0) return errAuthorizationDenied;
  corvane::Authorization& lock = macSystem().platform.authorization;
  lock.setRight(rights.items->name);
  if (lock.isAuthorized()) return errAuthorizationSuccess;
  if ((flags & kAuthorizationFlagInteractionAllowed) == 0) {
    return errAuthorizationInteractionNotAllowed;
  }
  return lock.authorize() ? errAuthorizationSuccess : errAuthorizationCanceled;
}

}  // namespace

extern "C" {

OSStatus AuthorizationCreate(const AuthorizationRights*, const AuthorizationEnvironment*,
                             AuthorizationFlags, AuthorizationRef* authorization) {
  if (isToFail("AuthorizationCreate")) return errAuthorizationInternal;
  *authorization = makeObject<AuthorizationOpaqueRef>();
  return errAuthorizationSuccess;
}

OSStatus AuthorizationFree(AuthorizationRef authorization, AuthorizationFlags flags) {
  isToFail("AuthorizationFree");
  if (!isThere(authorization, "AuthorizationFree")) return errAuthorizationInvalidRef;
  if ((flags & kAuthorizationFlagDestroyRights) != 0) {
    macSystem().platform.authorization.deauthorize();
  }
  releaseObject(const_cast<AuthorizationOpaqueRef*>(authorization), "AuthorizationFree");
  return errAuthorizationSuccess;
}

OSStatus AuthorizationCopyRights(AuthorizationRef authorization, const AuthorizationRights* rights,
                                 const AuthorizationEnvironment*, AuthorizationFlags flags,
                                 AuthorizationRights**) {
  if (isToFail("AuthorizationCopyRights")) return errAuthorizationInternal;
  if (!isThere(authorization, "AuthorizationCopyRights")) return errAuthorizationInvalidRef;
  return rights == nullptr ? errAuthorizationInvalidSet : answerFor(*rights, flags);
}

}  // extern "C"
