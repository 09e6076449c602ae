#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "cli/Verbs.h"
#include "cli/answers/Interruption.h"
#include "cli/session/AdministratorRights.h"
#include "cli/session/ControllerSession.h"
#include "fibre_channel/FirmwareImageFile.h"

namespace corvane {

namespace {

using nlohmann::ordered_json;

struct FirmwareOptions {
  std::string label;
  std::string package;
  bool yes = false;
  bool checkOnly = false;
};

/// How far the update came before it was left.
enum class Confirmation { None, Confirmed, Declined };

// Verifying.

std::string refusalReason(const PackageVerification& verification) {
  switch (verification.result) {
    case PackageVerification::Result::TooLarge:
      return fmt::format("the file has {} bytes or more", firmwarePackageSizeLimit);
    case PackageVerification::Result::PathNot7Bit:
      return "the path has characters beyond ASCII";
    default:
      return fmt::format("status {:#x}, {}", static_cast<uint32_t>(verification.status),
                         VelmarArchive_status_text(verification.status));
  }
}

// The status that scripts get: that of the archive, or -1 when the archive was not even opened.
int64_t statusOf(const PackageVerification& verification) {
  const bool wasRead =
      verification.succeeded() || verification.result == PackageVerification::Result::Refused;
  return wasRead ? int64_t{verification.status} : -1;
}

std::string verifiedVersion(const std::string& package) {
  std::error_code error;
  if (!std::filesystem::exists(package, error)) {
    throw CommandFailure(ExitStatus::NotFound, package, "there is no such file",
                         "Name a firmware package.", ordered_json{{"status", ArchiveNotOpened}});
  }
  const PackageVerification verification = verifyFirmwarePackage(package);
  if (verification.succeeded()) return verification.version;
  throw CommandFailure(ExitStatus::Failed, package,
                       "the package cannot be verified: " + refusalReason(verification),
                       "Name a firmware package that holds \"" + std::string(firmwareImageMember) +
                           "\"; \"corvane archive verify\" tells more.",
                       ordered_json{{"status", statusOf(verification)}});
}

ordered_json answerFields(const std::string& version) {
  return {{"status", ArchiveSuccess}, {"version", version}};
}

// Asking.

void requireAnswerable(const CommandContext& context, const FirmwareOptions& options) {
  if (options.yes || options.checkOnly || context.inputIsTerminal) return;
  throw CommandFailure(ExitStatus::Failed, options.label,
                       "the update has to be confirmed, and there is no terminal to ask on",
                       "Give --yes to go on without being asked.");
}

bool isConfirmed(CommandContext& context, const FirmwareOptions& options,
                 const std::string& question) {
  return options.yes || askToGoOn(context, {question});
}

// Updating.

constexpr const char* finishedFirst =
    "interrupted, but an update must not be left half done: it is finished first";

void requireFibreChannel(AppDelegate& app, const FirmwareOptions& options) {
  if (app.state().intProduct == static_cast<int64_t>(AdapterFamily::FibreChannel)) return;
  throw CommandFailure(ExitStatus::Failed, options.label,
                       "only Fibre Channel adapters have firmware to update",
                       "\"corvane list\" shows the adapters with their families.");
}

// Another adapter is on show once the one that was named has gone.
void requireOnShow(AppDelegate& app, const std::weak_ptr<Corvane2Device>& adapter,
                   const FirmwareOptions& options) {
  if (const auto device = adapter.lock(); device && device == app.state().corvaneDevice) return;
  throw CommandFailure(ExitStatus::Failed, options.label, "the adapter has gone",
                       "Nothing was changed.");
}

// The update's own dialogue, answered by the command line: the package is chosen in the panel, and
// the first alert asks for the confirmation. From then on an interrupt is kept, since volumes that
// are offline and half a firmware are no state to leave behind.
void answerDialogue(ControllerSession& session, CommandContext& context,
                    const FirmwareOptions& options, Confirmation& answer,
                    std::optional<KeptInterruption>& interruption) {
  CommandPrompts& prompts = session.prompts();
  prompts.answerOpenPanel = [&options](const OpenPanelRequest&) {
    return std::vector<std::string>{std::filesystem::absolute(options.package).string()};
  };
  prompts.answerAlert = [&](const AlertContent& content) -> std::optional<int> {
    if (answer != Confirmation::None) return std::nullopt;
    const bool asks = content.buttons.size() > 1;
    const bool confirmed = asks && isConfirmed(context, options, content.informativeText);
    answer = confirmed ? Confirmation::Confirmed : Confirmation::Declined;
    if (confirmed) interruption.emplace([&context] { printNote(context, finishedFirst); });
    return confirmed ? 0 : 1;
  };
}

// Says whether it was confirmed.
bool runUpdate(ControllerSession& session, CommandContext& context,
               const FirmwareOptions& options) {
  AppDelegate& app = session.app();
  if (!app.controls().updateFW.isEnabled()) {
    throw CommandFailure(ExitStatus::Failed, options.label, "updates are out of use now",
                         "Open the lock with an administrator's rights first.");
  }
  Confirmation answer = Confirmation::None;
  std::optional<KeptInterruption> interruption;
  answerDialogue(session, context, options, answer, interruption);
  ProgressBar bar(context, "updating " + options.label);
  session.prompts().showProgress = [&bar](std::optional<double> fraction) {
    constexpr uint64_t steps = 1000;
    if (fraction) bar.show(static_cast<uint64_t>(*fraction * static_cast<double>(steps)), steps);
  };
  app.controls().updateFW.click();
  session.runUntil(
      [&] { return answer != Confirmation::None && !app.firmwareUpdate().isUnderWay(); });
  session.prompts().showProgress = nullptr;
  session.prompts().answerAlert = nullptr;
  return answer == Confirmation::Confirmed;
}

std::string failureOf(const FirmwareUpdateOutcome& outcome) {
  const ArchiveStatus status = outcome.extraction.status;
  if (status != ArchiveSuccess) {
    return fmt::format("the image could not be extracted: status {:#x}, {}",
                       static_cast<uint32_t>(status), VelmarArchive_status_text(status));
  }
  if (outcome.extraction.replaced) return "the package was replaced after it was checked";
  if (!outcome.extraction.complete) return "the package does not hold the whole image";
  if (outcome.transferResult != 0) return "the extracted image could not be read";
  if (outcome.driverStatus == statusNoDevice) return "the adapter has gone during the update";
  return fmt::format("the adapter refused the image: status {:#x}",
                     static_cast<uint32_t>(outcome.driverStatus));
}

void requireStarted(const FirmwareOptions& options, bool isConfirmed,
                    const std::optional<FirmwareUpdateOutcome>& outcome) {
  if (outcome) return;
  throw CommandFailure(
      ExitStatus::Failed, options.label,
      isConfirmed ? "the adapter has gone before the update began" : "the update was not confirmed",
      "Nothing was changed.");
}

void requireSuccess(const FirmwareOptions& options, const FirmwareUpdateOutcome& outcome) {
  if (outcome.succeeded()) return;
  throw CommandFailure(
      ExitStatus::Failed, options.label, failureOf(outcome),
      "The adapter keeps its firmware; attach it again and repeat the update.",
      ordered_json{{"status", outcome.extraction.status}, {"version", outcome.version}});
}

// Returns the version that the adapter has taken.
std::string updateAdapter(ControllerSession& session, CommandContext& context,
                          const FirmwareOptions& options) {
  AppDelegate& app = session.app();
  const std::weak_ptr<Corvane2Device> adapter = app.state().corvaneDevice;
  session.requireChangeable(options.label);
  takeAdministratorRights(session, options.label);
  requireOnShow(app, adapter, options);
  const bool isConfirmed = runUpdate(session, context, options);
  const auto& outcome = app.firmwareUpdate().lastOutcome();
  requireStarted(options, isConfirmed, outcome);
  requireSuccess(options, *outcome);
  printNote(context, app.state().updateAlert.informativeText);
  return outcome->version;
}

void updateFirmware(CommandContext& context, const LaunchOptions& launch,
                    const FirmwareOptions& options) {
  const std::string version = verifiedVersion(options.package);
  ControllerSession session(context, launch);
  session.discover();
  session.select(options.label);
  requireFibreChannel(session.app(), options);
  requireAnswerable(context, options);
  printAnswer(context,
              answerFields(options.checkOnly ? version : updateAdapter(session, context, options)));
}

}  // namespace

void addFirmwareCommand(CLI::App& app, CommandContext& context, const LaunchOptions& launch) {
  const auto options = std::make_shared<FirmwareOptions>();
  auto* command = app.add_subcommand("firmware", "Update an adapter's firmware from a package");
  addJsonFlag(*command, context);
  command->add_option("LABEL", options->label, "The adapter: a label or a WWN")->required();
  command->add_option("PACKAGE", options->package, "The firmware package")->required();
  auto* yes = command->add_flag("--yes", options->yes, "Go on without being asked");
  command->add_flag("--check", options->checkOnly, "Verify the package and print its version only")
      ->excludes(yes);
  command->callback([&context, &launch, options] { updateFirmware(context, launch, *options); });
}

}  // namespace corvane
