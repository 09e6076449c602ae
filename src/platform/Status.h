#pragma once

#include <cstdint>

namespace corvane {

/// What a platform call returns (a kernel return code): 0 is success, anything else failure. The
/// value is passed on untouched for the journal; the system only compares it with success.
using Status = int32_t;

inline constexpr Status statusSuccess = 0;
/// The I/O Kit's general failure, used where a call has no code of its own to give.
inline constexpr Status statusFailure = static_cast<Status>(0xE00002BC);
/// The I/O Kit's "not found", "bad argument", "unsupported" and "no device".
inline constexpr Status statusNotFound = static_cast<Status>(0xE00002F0);
inline constexpr Status statusBadArgument = static_cast<Status>(0xE00002C2);
inline constexpr Status statusUnsupported = static_cast<Status>(0xE00002C7);
inline constexpr Status statusNoDevice = static_cast<Status>(0xE00002C0);

}  // namespace corvane
