#include "cli/session/CommandPlatform.h"

#include <vector>

#include "cli/answers/WaitingNote.h"
#include "cli/session/AdapterLabels.h"
#include "inventory/DeviceInventory.h"
#include "pages/DumpPages.h"

namespace corvane {

namespace {

[[noreturn]] void failWithAssertion(const std::string& assertion) {
  throw CommandFailure(ExitStatus::Failed, "driver", assertion,
                       "Attach the adapter again, or restart the computer.");
}

std::unique_ptr<Launch> launchFor(LaunchOptions options, const CommandContext& context,
                                  MainQueue& mainQueue, UserPrompts& prompts) {
  options.answerOnly = context.json;
  options.stopProgram = failWithAssertion;
  try {
    return std::make_unique<Launch>(options, mainQueue, prompts);
  } catch (const LaunchFailure& failure) {
    throw CommandFailure(static_cast<ExitStatus>(failure.status()), failure.subject(),
                         failure.reason(), failure.hint());
  }
}

std::string listed(const std::vector<DeviceListEntry>& entries, const std::vector<int64_t>& rows) {
  std::string text;
  for (const int64_t row : rows) {
    const auto& entry = entries[static_cast<size_t>(row)];
    if (!text.empty()) text += ", ";
    text += entry.Sequence + " (" + entry.ProductType + ", " + entry.WWN + ")";
  }
  return text;
}

}  // namespace

CommandPlatform::CommandPlatform(CommandContext& context, const LaunchOptions& options)
    : context_(context),
      prompts_(context, mainQueue_),
      launch_(launchFor(options, context, mainQueue_, prompts_)) {}

void CommandPlatform::requireChangeable(const std::string& label) const {
  if (!isDump()) return;
  throw CommandFailure(ExitStatus::Failed, label, "a dump cannot be changed",
                       "Run on the computer itself or on a bench.");
}

bool CommandPlatform::runUntil(const std::function<bool()>& done,
                               std::optional<std::chrono::milliseconds> limit) {
  return mainQueue_.runUntil(done, limit);
}

void CommandPlatform::waitForAdapters(DeviceInventory& inventory,
                                      const std::function<void()>& launch) {
  bool discovered = false;
  inventory.whenDiscovered([&discovered] { discovered = true; });
  launch();
  const WaitingNote note(context_, "discovery: waiting for each port to be named");
  const bool complete = runUntil([&discovered] { return discovered; }, discoveryLimit);
  inventory.whenDiscovered(nullptr);
  if (isDump()) tellOfDump(inventory.list());
  if (!complete)
    printNote(context_, "discovery: a port has not been named yet: the list may not be whole");
  requireMonitors(inventory);
}

void CommandPlatform::requireMonitors(const DeviceInventory& inventory) {
  if (!inventory.hasFailedMonitor()) return;
  throw CommandFailure(ExitStatus::Failed, "discovery",
                       "the system refused to tell which adapters are attached",
                       "Try again; the system log tells which of its calls failed.");
}

void CommandPlatform::tellOfDump(const DeviceList& list) {
  const std::string remark = launch_->remark();
  if (!remark.empty()) printNote(context_, launch_->source() + ": " + remark);
  for (const std::string& sentence :
       unlistedAdapters(launch_->platform().registry, list, remark.empty()))
    printNote(context_, sentence);
}

DeviceListEntry CommandPlatform::adapterNamed(const DeviceList& list,
                                              const std::string& label) const {
  const auto entries = list.entries();
  const auto rows = rowsNamedBy(entries, label);
  if (rows.empty())
    throw CommandFailure(ExitStatus::NotFound, label, "there is no such adapter",
                         "\"" + context_.program + " list\" shows the adapters with their labels.");
  if (rows.size() > 1)
    throw CommandFailure(ExitStatus::Failed, label,
                         "fits several adapters: " + listed(entries, rows),
                         "Name the adapter by its world wide name or MAC address.");
  return entries[static_cast<size_t>(rows.front())];
}

}  // namespace corvane
