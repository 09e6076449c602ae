#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include "platform/macos/Reference.h"

namespace corvane::macos {

struct CoreFoundationCounting {
  static void retain(CFTypeRef object) { CFRetain(object); }
  static void release(CFTypeRef object) { CFRelease(object); }
};

/// A Core Foundation object, or one that is counted like it, such as a disk arbitration session.
template <typename Object>
using CoreFoundationReference = Reference<Object, CoreFoundationCounting>;

}  // namespace corvane::macos
