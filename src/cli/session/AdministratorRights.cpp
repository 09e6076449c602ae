#include "cli/session/AdministratorRights.h"

#include "cli/session/Session.h"

namespace corvane {

void takeAdministratorRights(Session& session, const std::string& label) {
  Authorization& lock = session.platform().authorization;
  if (lock.isAuthorized() || lock.authorize()) return;
  throw CommandFailure(ExitStatus::Failed, label, "changing it needs an administrator",
                       "Run the command again and give an administrator's password.");
}

}  // namespace corvane
