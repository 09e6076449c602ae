#include "platform/journal/JournalParts.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

#include "platform/ForwardingTransferHandle.h"
#include "text/Hexadecimal.h"

namespace corvane {

namespace {

using Json = nlohmann::ordered_json;

/// Whether the calling thread has asked for its run loop and not left it since.
thread_local bool threadIsMonitor = false;

class JournalDiskSession final : public DiskSession {
 public:
  JournalDiskSession(Journal& journal, std::unique_ptr<DiskSession> wrapped)
      : journal_(journal), wrapped_(std::move(wrapped)) {}

  void registerAppeared(DiskCallback callback, void* context) override {
    wrapped_->registerAppeared(callback, context);
  }
  void registerDisappeared(DiskCallback callback, void* context) override {
    wrapped_->registerDisappeared(callback, context);
  }
  void schedule(RunLoop& runLoop) override { wrapped_->schedule(runLoop); }
  void unschedule(RunLoop& runLoop) override { wrapped_->unschedule(runLoop); }
  std::unique_ptr<Disk> createDisk(const std::string& bsdName) override {
    return wrapped_->createDisk(bsdName);
  }

  void unmount(Disk& disk, DiskRequestCallback callback, void* context) override {
    note("unmount", disk);
    wrapped_->unmount(disk, callback, context);
  }
  void mount(Disk& disk, DiskRequestCallback callback, void* context) override {
    note("mount", disk);
    wrapped_->mount(disk, callback, context);
  }

 private:
  void note(const char* call, const Disk& disk) {
    journal_.write({{"call", call}, {"disk", disk.bsdName().value_or("")}});
  }

  Journal& journal_;
  const std::unique_ptr<DiskSession> wrapped_;
};

class JournalTransferHandle final : public ForwardingTransferHandle {
 public:
  JournalTransferHandle(Journal& journal, std::unique_ptr<TransferHandle> wrapped)
      : ForwardingTransferHandle(std::move(wrapped)), journal_(journal) {}

  void setUrl(const std::string& url) override {
    url_ = url;
    ForwardingTransferHandle::setUrl(url);
  }
  void setDestination(const std::string& path) override {
    path_ = path;
    ForwardingTransferHandle::setDestination(path);
  }

  int perform() override {
    const int result = ForwardingTransferHandle::perform();
    journal_.write({{"call", "download"}, {"url", url_}, {"path", path_}, {"result", result}});
    return result;
  }

 private:
  Journal& journal_;
  std::string url_;
  std::string path_;
};

}  // namespace

Journal::Journal(const Platform& wrapped, const std::string& path)
    : dispatch_(wrapped.dispatch), file_(path, [&log = wrapped.log](const std::string& problem) {
        log.standardError("corvane: " + problem + "\n");
      }) {}

void Journal::write(const Json& happening) {
  file_.write(threadName(), happening);
}

const char* Journal::threadName() const {
  if (dispatch_.isMain()) return "main";
  return threadIsMonitor ? "monitor" : "background";
}

Status JournalUserClient::open(RegistryHandle service, uint32_t type,
                               UserClientConnection& connection) {
  const Status result = wrapped_.open(service, type, connection);
  if (result == statusSuccess) {
    const std::lock_guard lock(mutex_);
    services_[connection] = service;
  }
  journal_.write({{"call", "open"}, {"service", service}, {"result", result}});
  return result;
}

Status JournalUserClient::callStructMethod(UserClientConnection connection, uint32_t selector,
                                           std::span<const uint8_t> input,
                                           std::span<uint8_t> output, size_t& outputSize) {
  const Status result = wrapped_.callStructMethod(connection, selector, input, output, outputSize);
  const auto reply = output.first(std::min(outputSize, output.size()));
  journal_.write({{"call", "userClient"},
                  {"service", serviceOf(connection)},
                  {"selector", selector},
                  {"input", lowerHexadecimal(input)},
                  {"output", lowerHexadecimal(reply)},
                  {"result", result}});
  return result;
}

Status JournalUserClient::release(UserClientConnection connection) {
  const RegistryHandle service = serviceOf(connection);
  {
    const std::lock_guard lock(mutex_);
    services_.erase(connection);
  }
  const Status result = wrapped_.release(connection);
  journal_.write({{"call", "release"}, {"service", service}, {"result", result}});
  return result;
}

RegistryHandle JournalUserClient::serviceOf(UserClientConnection connection) {
  const std::lock_guard lock(mutex_);
  const auto found = services_.find(connection);
  return found == services_.end() ? 0 : found->second;
}

int JournalShell::run(const std::string& line) {
  return noted(line, wrapped_.run(line));
}

int JournalShell::runWithin(const std::string& line, std::chrono::milliseconds limit) {
  return noted(line, wrapped_.runWithin(line, limit));
}

int JournalShell::noted(const std::string& line, int status) {
  journal_.write({{"call", "shell"}, {"line", line}, {"status", status}});
  return status;
}

ScriptResult JournalScriptRunner::run(const std::string& script) {
  ScriptResult result = wrapped_.run(script);
  journal_.write({{"call", "script"},
                  {"script", script},
                  {"result", result.succeeded ? "ok" : result.errorMessage}});
  return result;
}

std::unique_ptr<DiskSession> JournalDiskArbitration::createSession() {
  auto session = wrapped_.createSession();
  if (!session) return nullptr;
  return std::make_unique<JournalDiskSession>(journal_, std::move(session));
}

std::unique_ptr<TransferHandle> JournalTransfer::createHandle() {
  auto handle = wrapped_.createHandle();
  if (!handle) return nullptr;
  return std::make_unique<JournalTransferHandle>(journal_, std::move(handle));
}

void JournalNotificationCenter::post(const std::string& name, const std::string& object) {
  journal_.write({{"call", "post"}, {"name", name}, {"object", object}});
  wrapped_.post(name, object);
}

std::unique_ptr<Observation> JournalNotificationCenter::observe(
    const std::string& name, std::function<void(const Notification&)> observer) {
  return wrapped_.observe(name, std::move(observer));
}

std::shared_ptr<RunLoop> JournalRunLoops::current() {
  threadIsMonitor = true;
  return wrapped_.current();
}

void JournalRunLoops::run() {
  threadIsMonitor = true;
  wrapped_.run();
  threadIsMonitor = false;
}

void JournalLog::system(std::string_view line) {
  journal_.write({{"call", "log"}, {"line", line}});
  ForwardingLog::system(line);
}

int JournalPrompts::showModalAlert(const AlertContent& content) {
  note(content);
  return wrapped_.showModalAlert(content);
}

void JournalPrompts::showAlertSheet(AlertIdentity alert, const AlertContent& content,
                                    SheetParent parent, std::function<void(int code)> ended) {
  note(content);
  wrapped_.showAlertSheet(alert, content, parent, std::move(ended));
}

void JournalPrompts::endAlertSheet(AlertIdentity alert) {
  wrapped_.endAlertSheet(alert);
}

void JournalPrompts::showAlertProgress(AlertIdentity alert, std::optional<double> fraction) {
  wrapped_.showAlertProgress(alert, fraction);
}

void JournalPrompts::showOpenPanel(const OpenPanelRequest& request,
                                   std::function<void(std::vector<std::string>)> chosen) {
  wrapped_.showOpenPanel(request, std::move(chosen));
}

void JournalPrompts::beep() {
  wrapped_.beep();
}

void JournalPrompts::terminate() {
  wrapped_.terminate();
}

void JournalPrompts::note(const AlertContent& content) {
  Json buttons = Json::array();
  for (const AlertButton& button : content.buttons) {
    if (!button.hidden) buttons.push_back(button.title);
  }
  journal_.write({{"call", "alert"},
                  {"message", content.message},
                  {"text", content.informativeText},
                  {"buttons", std::move(buttons)},
                  {"icon", content.icon}});
}

}  // namespace corvane
