#pragma once

#include <string>

namespace corvane {

class CommandPlatform;

/// Opens the main window's lock, without which nothing can be changed. Throws CommandFailure when
/// the rights are refused; `label` is what was to be changed.
void takeAdministratorRights(CommandPlatform& session, const std::string& label);

}  // namespace corvane
