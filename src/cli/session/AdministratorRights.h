#pragma once

#include <string>

namespace corvane {

class Session;

/// Opens the main window's lock, without which nothing can be changed. Throws CommandFailure when
/// the rights are refused; `label` is what was to be changed.
void takeAdministratorRights(Session& session, const std::string& label);

}  // namespace corvane
