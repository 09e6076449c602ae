#pragma once

#include <map>
#include <string>

#include <unistd.h>

#include "platform/Shell.h"

namespace corvane {

/// The system's own "/bin/sh", one process for each command line. Unlike the library's system(), it
/// changes nothing process-wide, so any number of threads may run commands at once.
class SystemShell final : public Shell {
 public:
  /// Variables that the commands see in place of, or beside, those of this process.
  using Environment = std::map<std::string, std::string>;

  /// `standardOutput` is the descriptor that the commands write their output to.
  explicit SystemShell(Environment overrides = {}, int standardOutput = STDOUT_FILENO);

  /// -1 when the shell could not be started or its end could not be learned.
  int run(const std::string& line) override;

  /// The command's standard input is empty.
  int runWithin(const std::string& line, std::chrono::milliseconds limit) override;

 private:
  enum class Grouping { WithCaller, Own };

  pid_t start(const std::string& line, Grouping grouping) const;

  const Environment overrides_;
  const int standardOutput_;
};

}  // namespace corvane
