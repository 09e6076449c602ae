#pragma once

#include <exception>

#include "platform/Log.h"

namespace corvane {

/// Does a monitor's work. An exception ends the work and leaves its description in the log.
template <typename Work>
void logExceptions(Log& log, Work&& work) {
  try {
    work();
  } catch (const std::exception& exception) {
    log.system(exception.what());
  }
}

}  // namespace corvane
