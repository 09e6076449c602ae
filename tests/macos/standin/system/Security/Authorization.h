#pragma once

#include <cstddef>
#include <cstdint>

// The calls of the Security framework that the Mac layer makes, declared as the system's public
// header declares them.

using OSStatus = int32_t;
using AuthorizationFlags = uint32_t;
using AuthorizationString = const char*;

struct AuthorizationOpaqueRef;
using AuthorizationRef = const AuthorizationOpaqueRef*;

struct AuthorizationItem {
  AuthorizationString name;
  size_t valueLength;
  void* value;
  uint32_t flags;
};

struct AuthorizationItemSet {
  uint32_t count;
  AuthorizationItem* items;
};
using AuthorizationRights = AuthorizationItemSet;
using AuthorizationEnvironment = AuthorizationItemSet;

inline constexpr const AuthorizationEnvironment* kAuthorizationEmptyEnvironment = nullptr;

enum : AuthorizationFlags {
  kAuthorizationFlagDefaults = 0,
  kAuthorizationFlagInteractionAllowed = 1 << 0,
  kAuthorizationFlagExtendRights = 1 << 1,
  kAuthorizationFlagDestroyRights = 1 << 3,
};

enum : OSStatus {
  errAuthorizationSuccess = 0,
  errAuthorizationInvalidSet = -60001,
  errAuthorizationInvalidRef = -60002,
  errAuthorizationDenied = -60005,
  errAuthorizationCanceled = -60006,
  errAuthorizationInteractionNotAllowed = -60007,
  errAuthorizationInternal = -60008,
};

extern "C" {

OSStatus AuthorizationCreate(const AuthorizationRights* rights,
                             const AuthorizationEnvironment* environment, AuthorizationFlags flags,
                             AuthorizationRef* authorization);
OSStatus AuthorizationFree(AuthorizationRef authorization, AuthorizationFlags flags);
OSStatus AuthorizationCopyRights(AuthorizationRef authorization, const AuthorizationRights* rights,
                                 const AuthorizationEnvironment* environment,
                                 AuthorizationFlags flags, AuthorizationRights** authorized);

}  // extern "C"
