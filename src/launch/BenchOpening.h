#pragma once

#include <string>

#include "launch/LaunchFailure.h"
#include "launch/LaunchedComputer.h"
#include "platform/bench/BenchPlatform.h"

namespace corvane {

/// How a program runs a bench: with the tools and the samples that come with it.
BenchPlatformOptions benchOptions(const LaunchHost& host);

/// What a program ends with that cannot run the bench at `path`.
LaunchFailure benchRefusal(const std::string& path, const BenchFileError& error);

}  // namespace corvane
