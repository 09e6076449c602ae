#pragma once

#include "platform/Paths.h"

namespace corvane::macos {

/// The fixed places of a Mac's file system.
Paths macPaths();

}  // namespace corvane::macos
