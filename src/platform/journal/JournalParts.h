#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <nlohmann/json_fwd.hpp>
#include <string>

#include "platform/ForwardingLog.h"
#include "platform/Platform.h"
#include "platform/journal/JournalFile.h"

namespace corvane {

/// Writes happenings with the name of the thread on which they happened: "main" for the main
/// thread, "monitor" for one that has asked for its run loop, "background" for any other.
class Journal {
 public:
  Journal(const Platform& wrapped, const std::string& path);

  void write(const nlohmann::ordered_json& happening);

 private:
  const char* threadName() const;

  const Dispatch& dispatch_;
  JournalFile file_;
};

class JournalUserClient final : public UserClient {
 public:
  JournalUserClient(Journal& journal, UserClient& wrapped) : journal_(journal), wrapped_(wrapped) {}

  Status open(RegistryHandle service, uint32_t type, UserClientConnection& connection) override;
  Status callStructMethod(UserClientConnection connection, uint32_t selector,
                          std::span<const uint8_t> input, std::span<uint8_t> output,
                          size_t& outputSize) override;
  Status release(UserClientConnection connection) override;

 private:
  RegistryHandle serviceOf(UserClientConnection connection);

  Journal& journal_;
  UserClient& wrapped_;
  std::mutex mutex_;  ///< guards services_
  std::map<UserClientConnection, RegistryHandle> services_;
};

class JournalShell final : public Shell {
 public:
  JournalShell(Journal& journal, Shell& wrapped) : journal_(journal), wrapped_(wrapped) {}

  int run(const std::string& line) override;
  int runWithin(const std::string& line, std::chrono::milliseconds limit) override;

 private:
  int noted(const std::string& line, int status);

  Journal& journal_;
  Shell& wrapped_;
};

class JournalScriptRunner final : public ScriptRunner {
 public:
  JournalScriptRunner(Journal& journal, ScriptRunner& wrapped)
      : journal_(journal), wrapped_(wrapped) {}

  ScriptResult run(const std::string& script) override;
  bool asksForPassword() const override { return wrapped_.asksForPassword(); }

 private:
  Journal& journal_;
  ScriptRunner& wrapped_;
};

class JournalDiskArbitration final : public DiskArbitration {
 public:
  JournalDiskArbitration(Journal& journal, DiskArbitration& wrapped)
      : journal_(journal), wrapped_(wrapped) {}

  std::unique_ptr<DiskSession> createSession() override;

 private:
  Journal& journal_;
  DiskArbitration& wrapped_;
};

class JournalTransfer final : public Transfer {
 public:
  JournalTransfer(Journal& journal, Transfer& wrapped) : journal_(journal), wrapped_(wrapped) {}

  std::unique_ptr<TransferHandle> createHandle() override;

 private:
  Journal& journal_;
  Transfer& wrapped_;
};

class JournalNotificationCenter final : public NotificationCenter {
 public:
  JournalNotificationCenter(Journal& journal, NotificationCenter& wrapped)
      : journal_(journal), wrapped_(wrapped) {}

  void post(const std::string& name, const std::string& object) override;
  [[nodiscard]] std::unique_ptr<Observation> observe(
      const std::string& name, std::function<void(const Notification&)> observer) override;

 private:
  Journal& journal_;
  NotificationCenter& wrapped_;
};

/// Passes run loops on as they are and learns from the calls which threads are monitors.
class JournalRunLoops final : public RunLoops {
 public:
  explicit JournalRunLoops(RunLoops& wrapped) : wrapped_(wrapped) {}

  std::shared_ptr<RunLoop> current() override;
  void run() override;

 private:
  RunLoops& wrapped_;
};

/// Writes the lines to the system log; what is printed is for the user alone.
class JournalLog final : public ForwardingLog {
 public:
  JournalLog(Journal& journal, Log& wrapped) : ForwardingLog(wrapped), journal_(journal) {}

  void system(std::string_view line) override;

 private:
  Journal& journal_;
};

class JournalPrompts final : public UserPrompts {
 public:
  JournalPrompts(Journal& journal, UserPrompts& wrapped) : journal_(journal), wrapped_(wrapped) {}

  int showModalAlert(const AlertContent& content) override;
  void showAlertSheet(AlertIdentity alert, const AlertContent& content, SheetParent parent,
                      std::function<void(int code)> ended) override;
  void endAlertSheet(AlertIdentity alert) override;
  void showAlertProgress(AlertIdentity alert, std::optional<double> fraction) override;
  void showOpenPanel(const OpenPanelRequest& request,
                     std::function<void(std::vector<std::string> paths)> chosen) override;
  void beep() override;
  void terminate() override;

 private:
  void note(const AlertContent& content);

  Journal& journal_;
  UserPrompts& wrapped_;
};

}  // namespace corvane
