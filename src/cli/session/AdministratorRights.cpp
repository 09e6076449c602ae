#include "cli/session/AdministratorRights.h"

#include "cli/session/CommandPlatform.h"

namespace corvane {

void takeAdministratorRights(CommandPlatform& session, const std::string& label) {
  Authorization& lock = session.platform().authorization;
  if (lock.isAuthorized() || lock.authorize()) return;
  throw CommandFailure(ExitStatus::Failed, label, "changing it needs an administrator",
                       "Run the command again and give an administrator's password.");
}

}  // namespace corvane
