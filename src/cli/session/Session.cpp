#include "cli/session/Session.h"

#include <vector>

#include "cli/answers/WaitingNote.h"
#include "cli/session/AdapterLabels.h"
#include "pages/DumpPages.h"

namespace corvane {

namespace {

[[noreturn]] void failWithAssertion(const std::string& assertion) {
  throw CommandFailure(ExitStatus::Failed, "driver", assertion,
                       "Attach the adapter again, or restart the computer.");
}

std::unique_ptr<Launch> launch(LaunchOptions options, const CommandContext& context,
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

Session::Session(CommandContext& context, const LaunchOptions& options, SessionPurpose purpose)
    : context_(context),
      prompts_(context, mainQueue_),
      launch_(launch(options, context, mainQueue_, prompts_)),
      app_(std::make_unique<AppDelegate>(launch_->platform())) {
  app_->administratorLock().useWithoutView();
  if (purpose == SessionPurpose::Looking) app_->administratorLock().askNothing();
  if (launch_->isReadOnly()) app_->showAsDump("A dump cannot be changed.");
}

Session::~Session() {
  app_.reset();
  launch_->end();
}

void Session::discover() {
  bool discovered = false;
  app_->whenDiscovered([&discovered] { discovered = true; });
  app_->applicationDidFinishLaunching();
  tellLeftUnmounted();
  const WaitingNote note(context_, "discovery: waiting for each port to be named");
  const bool complete = runUntil([&discovered] { return discovered; }, discoveryLimit);
  app_->whenDiscovered(nullptr);
  if (isDump()) tellOfDump();
  if (!complete)
    printNote(context_, "discovery: a port has not been named yet: the list may not be whole");
  requireMonitors();
}

void Session::requireMonitors() const {
  if (!app_->hasFailedMonitor()) return;
  throw CommandFailure(ExitStatus::Failed, "discovery",
                       "the system refused to tell which adapters are attached",
                       "Try again; the system log tells which of its calls failed.");
}

void Session::tellLeftUnmounted() {
  std::string names;
  for (const std::string& name : app_->volumes().leftUnmounted()) names += " " + name;
  if (names.empty()) return;
  printNote(context_,
            "a firmware update did not end; these volumes may still be unmounted:" + names);
}

void Session::tellOfDump() {
  const std::string remark = launch_->remark();
  if (!remark.empty()) printNote(context_, launch_->source() + ": " + remark);
  for (const std::string& sentence :
       unlistedAdapters(launch_->platform().registry, app_->state().CorvaneList, remark.empty()))
    printNote(context_, sentence);
}

int64_t Session::select(const std::string& label) {
  const auto entries = app_->state().CorvaneList.entries();
  const auto rows = rowsNamedBy(entries, label);
  if (rows.empty())
    throw CommandFailure(ExitStatus::NotFound, label, "there is no such adapter",
                         "\"" + context_.program + " list\" shows the adapters with their labels.");
  if (rows.size() > 1)
    throw CommandFailure(ExitStatus::Failed, label,
                         "fits several adapters: " + listed(entries, rows),
                         "Name the adapter by its world wide name or MAC address.");
  app_->selectRow(rows.front());
  return rows.front();
}

void Session::requireChangeable(const std::string& label) const {
  if (!launch_->isReadOnly()) return;
  throw CommandFailure(ExitStatus::Failed, label, "a dump cannot be changed",
                       "Run on the computer itself or on a bench.");
}

bool Session::runUntil(const std::function<bool()>& done,
                       std::optional<std::chrono::milliseconds> limit) {
  return mainQueue_.runUntil(done, limit);
}

}  // namespace corvane
