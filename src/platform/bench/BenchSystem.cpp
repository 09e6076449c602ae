#include "platform/bench/BenchSystem.h"

#include <fmt/format.h>

#include <algorithm>
#include <ctime>
#include <filesystem>

#include "platform/ForwardingTransferHandle.h"
#include "platform/bench/tree/RegistryTree.h"

namespace corvane {

namespace {

constexpr const char* cancelledMessage = "User canceled.";
constexpr int couldNotConnect = 7;  ///< libcurl's code for a host that cannot be reached

/// Drivers of the releases before 10.9 were installed in the system's own folder.
bool keepsDriversInSystemFolder(const BenchState& state) {
  return state.computer.osVersion.find("10.8.") != std::string::npos;
}

std::string bundleIdentifier(const std::string& driver) {
  BenchState only;
  only.drivers[driver] = "";
  const std::string fibreChannel = fibreChannelDriverIdentifier(only);
  return fibreChannel.empty() ? ethernetDriverIdentifier(only) : fibreChannel;
}

std::optional<PropertyValue> valueUnder(const PropertyValue::Dictionary& dictionary,
                                        const std::string& key) {
  const PropertyValue* value = findProperty(dictionary, key);
  return value == nullptr ? std::nullopt : std::optional(*value);
}

/// `path` as the path of a file URL, where only a few characters may stand as they are.
std::string percentEncoded(const std::string& path) {
  constexpr std::string_view plain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
  std::string encoded;
  for (const char character : path) {
    if (plain.find(character) != std::string_view::npos) {
      encoded += character;
    } else {
      encoded += fmt::format("%{:02X}", static_cast<unsigned char>(character));
    }
  }
  return encoded;
}

/// The address of an update server. One without a scheme is a folder, beside the bench file or else
/// among the samples.
std::string addressOf(const std::string& server, const BenchFile& bench,
                      const std::string& samplesFolder) {
  if (server.empty() || server.find("://") != std::string::npos) return server;
  std::error_code error;
  auto folder = std::filesystem::path(bench.path()).parent_path() / server;
  if (!std::filesystem::is_directory(folder, error) && !samplesFolder.empty()) {
    folder = std::filesystem::path(samplesFolder) / server;
  }
  return "file://" + percentEncoded(folder.lexically_normal().string());
}

/// A text of a script as it is between its quotation marks: a backslash stands before a quotation
/// mark and before a backslash.
std::string scriptTextValue(std::string_view quoted) {
  std::string value;
  for (size_t place = 0; place < quoted.size(); ++place) {
    if (quoted[place] == '\\' && place + 1 < quoted.size()) ++place;
    value += quoted[place];
  }
  return value;
}

/// The command of a script `do shell script "COMMAND" with administrator privileges`; nothing when
/// it is no such script.
std::optional<std::string> privilegedCommand(const std::string& script) {
  constexpr std::string_view before = "do shell script \"";
  constexpr std::string_view after = "\" with administrator privileges";
  if (script.size() < before.size() + after.size()) return std::nullopt;
  const bool isPrivileged = script.compare(0, before.size(), before) == 0 &&
                            script.compare(script.size() - after.size(), after.size(), after) == 0;
  if (!isPrivileged) return std::nullopt;
  return scriptTextValue(
      std::string_view(script).substr(before.size(), script.size() - before.size() - after.size()));
}

class BenchTransferHandle final : public ForwardingTransferHandle {
 public:
  BenchTransferHandle(BenchMachine& machine, std::unique_ptr<TransferHandle> handle)
      : ForwardingTransferHandle(std::move(handle)), machine_(machine) {}

  int perform() override {
    hasNoNetwork_ = machine_.state()->hasFault("no-network");
    return hasNoNetwork_ ? couldNotConnect : ForwardingTransferHandle::perform();
  }

  std::string failureText() const override {
    return hasNoNetwork_ ? "the bench has no network" : ForwardingTransferHandle::failureText();
  }

 private:
  BenchMachine& machine_;
  bool hasNoNetwork_ = false;
};

std::string timeStamp() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char text[32];
  return {text, std::strftime(text, sizeof text, "%b %e %H:%M:%S", &local)};
}

}  // namespace

BenchBundles::BenchBundles(BenchMachine& machine, Paths paths, std::string samplesFolder)
    : machine_(machine), paths_(std::move(paths)), samplesFolder_(std::move(samplesFolder)) {}

bool BenchBundles::exists(const std::string& path) {
  return information(path).has_value();
}

std::optional<PropertyValue> BenchBundles::infoValue(const std::string& path,
                                                     const std::string& key) {
  const auto found = information(path);
  return found ? valueUnder(*found, key) : std::nullopt;
}

std::optional<PropertyValue::Dictionary> BenchBundles::information(const std::string& path) {
  const auto state = machine_.state();
  const std::string& folder =
      keepsDriversInSystemFolder(*state) ? paths_.systemExtensions : paths_.localExtensions;
  for (const auto& [name, version] : state->drivers) {
    if (path != folder + name + ".kext") continue;
    return PropertyValue::Dictionary{{"CFBundleIdentifier", bundleIdentifier(name)},
                                     {"CFBundleName", name},
                                     {"CFBundleShortVersionString", version},
                                     {"CFBundleVersion", version}};
  }
  return std::nullopt;
}

std::optional<PropertyValue> BenchBundles::mainInfoValue(const std::string& key) {
  const BenchApplication& application = machine_.state()->application;
  return valueUnder({{"CFBundleIdentifier", "com.velmar.CorvaneUtility"},
                     {"CFBundleName", "Corvane Utility"},
                     {"CFBundleShortVersionString", application.version},
                     {"CFBundleVersion", application.version},
                     {"NSHumanReadableCopyright", application.copyright}},
                    key);
}

std::optional<PropertyValue::Dictionary> BenchBundles::resourcePropertyList(
    const std::string& name, const std::string& type) {
  if (name != "UpdateEngine" || type != "plist") return std::nullopt;
  return PropertyValue::Dictionary{{"plistURL", addressOf(machine_.state()->application.plistURL,
                                                          machine_.file(), samplesFolder_)}};
}

BenchScriptRunner::BenchScriptRunner(BenchMachine& machine, Shell& shell)
    : machine_(machine), shell_(shell) {}

ScriptResult BenchScriptRunner::run(const std::string& script) {
  if (machine_.state()->hasFault("password-cancelled")) return {false, cancelledMessage};
  const auto command = privilegedCommand(script);
  if (!command) return {false, "The bench plays scripts with administrator privileges only."};
  if (command->rfind("log collect ", 0) != 0) return {true, ""};
  if (shell_.run(*command) == 0) return {true, ""};
  return {false, "The command exited with a non-zero status."};
}

bool BenchAuthorization::authorize() {
  if (isAuthorized_) return true;
  if (!isGranted()) return false;
  isAuthorized_ = true;
  if (delegate_ != nullptr) delegate_->authorizationViewDidAuthorize();
  return true;
}

bool BenchAuthorization::isGranted() {
  if (machine_.state()->hasFault("password-cancelled")) return false;
  return !ask_ || ask_();
}

void BenchAuthorization::deauthorize() {
  if (!isAuthorized_) return;
  isAuthorized_ = false;
  if (delegate_ != nullptr) delegate_->authorizationViewDidDeauthorize();
}

BenchTransfer::BenchTransfer(BenchMachine& machine, Transfer& network)
    : machine_(machine), network_(network) {}

std::unique_ptr<TransferHandle> BenchTransfer::createHandle() {
  std::unique_ptr<TransferHandle> handle = network_.createHandle();
  if (!handle) return nullptr;
  return std::make_unique<BenchTransferHandle>(machine_, std::move(handle));
}

BenchLog::BenchLog(Log& next, const std::string& systemLog)
    : ForwardingLog(next), path_(systemLog) {}

void BenchLog::system(std::string_view line) {
  ForwardingLog::system(line);
  std::string kept(line);
  std::replace_if(
      kept.begin(), kept.end(), [](unsigned char byte) { return byte < ' '; }, '?');
  const std::lock_guard guard(mutex_);
  std::ofstream(path_, std::ios::app) << timeStamp() << " bench Corvane Utility: " << kept << '\n';
}

}  // namespace corvane
