#pragma once

#include <string>

#include "cli/answers/CommandOutput.h"

namespace corvane {

/// A context on the standard streams of this process, for `main` to make first of all. From then on
/// a standard descriptor that the caller left closed is taken, so that no file that is opened later
/// is written to by mistake, and a reader of the answer that goes away does not end the program in
/// the midst of a change.
CommandContext standardContext(std::string program);

/// Brings what was printed on standard output to its end and returns the exit status for the shell:
/// `status`, or that of a failure, told on standard error, when not everything could be written.
/// A reader that has gone is not told of: like other programs, this one then ends by SIGPIPE.
int endStandardOutput(CommandContext& context, int status);

}  // namespace corvane
