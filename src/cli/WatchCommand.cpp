#include <CLI/CLI.hpp>
#include <chrono>
#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>

#include "cli/Verbs.h"
#include "cli/answers/Interruption.h"
#include "cli/session/Session.h"

namespace corvane {

namespace {

nlohmann::ordered_json eventFields(const AdapterEvent& event) {
  return {{"event", event.notification.name},
          {"object", event.notification.object},
          {"Sequence", event.entry.Sequence},
          {"ProductType", event.entry.ProductType}};
}

void printEvent(CommandContext& context, const AdapterEvent& event) {
  if (context.json) {
    context.out << eventFields(event).dump(-1, ' ', false,
                                           nlohmann::ordered_json::error_handler_t::replace)
                << '\n';
  } else {
    printAnswer(context, event.notification.name + "  " + event.notification.object + "  " +
                             event.entry.Sequence + "  " + event.entry.ProductType);
  }
  context.out << std::flush;
}

void watchAdapters(CommandContext& context, const LaunchOptions& options, double seconds) {
  const Interruption interruption;  // first: the session takes its time to begin
  Session session(context, options, SessionPurpose::Looking);
  const InterruptionAnswer answer(interruption, [&session] { session.stop(); });
  DeviceInventory& inventory = session.inventory();
  inventory.whenAdaptersChange([&context, &session](const std::vector<AdapterEvent>& events) {
    for (const AdapterEvent& event : events) printEvent(context, event);
    if (!context.out) session.stop();  // nobody can read it any more
  });
  inventory.whenDiscovered([&session, &inventory] {
    if (inventory.hasFailedMonitor()) session.stop();
  });
  session.launch();
  std::optional<std::chrono::milliseconds> limit;
  if (seconds > 0) limit = std::chrono::milliseconds(static_cast<int64_t>(seconds * 1000));
  session.runUntil([] { return false; }, limit);
  session.requireMonitors();
}

}  // namespace

void addWatchCommand(CLI::App& app, CommandContext& context, const LaunchOptions& options) {
  const auto seconds = std::make_shared<double>(0);
  auto* command =
      app.add_subcommand("watch", "Tell of each adapter that appears or goes, until interrupted");
  addJsonFlag(*command, context);
  command->add_option("--seconds", *seconds, "End after so many seconds")
      ->check(CLI::Range(0.001, 1e9));
  command->callback([&context, &options, seconds] { watchAdapters(context, options, *seconds); });
}

}  // namespace corvane
