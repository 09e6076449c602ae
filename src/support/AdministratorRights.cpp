#include "support/AdministratorRights.h"

namespace corvane {

namespace {

constexpr const char* administratorRight = "system.privilege.admin";
constexpr const char* rightName = "TEST";

constexpr const char* administratorScript =
    "do shell script \"chmod +s /usr/local/bin/corvaneutil \" with administrator privileges";
constexpr const char* userCancelled = "User canceled.";

}  // namespace

void AdministratorRights::setUp() {
  platform_.authorization.setRight(administratorRight);
  platform_.authorization.updateStatus();
  platform_.authorization.setString(rightName);
}

bool AdministratorRights::giveTool() {
  if (!mayAsk_ && platform_.scripts.asksForPassword()) return true;
  const ScriptResult result = platform_.scripts.run(administratorScript);
  return result.succeeded || result.errorMessage != userCancelled;
}

bool AdministratorRights::authorize() {
  platform_.authorization.setString(rightName);
  return platform_.authorization.authorize();
}

}  // namespace corvane
