#include "platform/journal/JournalPlatform.h"

#include "platform/journal/JournalParts.h"

namespace corvane {

struct JournalPlatform::Parts {
  Parts(const Platform& platform, const std::string& path)
      : wrapped(platform),
        journal(platform, path),
        userClient(journal, platform.userClient),
        diskArbitration(journal, platform.diskArbitration),
        runLoops(platform.runLoops),
        notifications(journal, platform.notifications),
        shell(journal, platform.shell),
        scripts(journal, platform.scripts),
        transfer(journal, platform.transfer),
        log(journal, platform.log),
        prompts(journal, platform.prompts) {}

  const Platform wrapped;
  Journal journal;
  JournalUserClient userClient;
  JournalDiskArbitration diskArbitration;
  JournalRunLoops runLoops;
  JournalNotificationCenter notifications;
  JournalShell shell;
  JournalScriptRunner scripts;
  JournalTransfer transfer;
  JournalLog log;
  JournalPrompts prompts;
};

JournalPlatform::JournalPlatform(const Platform& wrapped, const std::string& path)
    : parts_(std::make_unique<Parts>(wrapped, path)) {}

JournalPlatform::~JournalPlatform() = default;

Platform JournalPlatform::platform() {
  const Platform& wrapped = parts_->wrapped;
  return {wrapped.registry,      parts_->userClient,    parts_->diskArbitration,
          parts_->runLoops,      wrapped.dispatch,      parts_->notifications,
          parts_->shell,         parts_->scripts,       wrapped.bundles,
          wrapped.systemVersion, wrapped.authorization, parts_->transfer,
          parts_->log,           parts_->prompts,       wrapped.paths};
}

}  // namespace corvane
