#pragma once

#include <cstdint>
#include <mutex>
#include <optional>
#include <string>

#include "CLIParser/CommandChannel.h"

namespace corvane {

/// A text that several threads may read and write.
class AtomicText {
 public:
  std::string get() const {
    const std::lock_guard lock(mutex_);
    return text_;
  }

  void set(std::string text) {
    const std::lock_guard lock(mutex_);
    text_ = std::move(text);
  }

 private:
  mutable std::mutex mutex_;
  std::string text_;
};

/// The command channel to the 10GbE adapters: reads and writes the settings of one network
/// interface with the adapter utility, and its state with `ifconfig`.
///
/// One object carries the request and the last answer; every operation takes the object that
/// describes its request. Operations block until the shell returns, and wait for one another as
/// CommandTurn says. A command that fails shows only as an empty answer.
///
/// Names and values that are not plain are quoted, so that each stays one word of the line.
class commandBody {
 public:
  /// `shell` and `paths` outlive the object.
  commandBody(Shell& shell, const Paths& paths) : channel_(shell, paths) {}

  /// The BSD name of the interface, such as "en5".
  std::string nicName() const { return nicName_.get(); }
  void setNicName(std::string name) { nicName_.set(std::move(name)); }

  /// The setting's name as the utility knows it, such as "RxRingSize".
  std::string commandTittle() const { return commandTittle_.get(); }
  void setCommandTittle(std::string title) { commandTittle_.set(std::move(title)); }

  /// The value that a set command writes.
  std::string setValue() const { return setValue_.get(); }
  void setSetValue(std::string value) { setValue_.set(std::move(value)); }

  /// The value last read.
  std::string returnValue() const { return returnValue_.get(); }
  void setReturnValue(std::string value) { returnValue_.set(std::move(value)); }

  /// What became of the last line that this object ran: the last one of an operation that runs
  /// several. Hold a CommandTurn around the operation and the look at it.
  const CommandOutcome& lastOutcome() const { return channel_.lastOutcome(); }

  /// Asks all interfaces for the setting. True when the utility printed nothing: the driver does
  /// not know the setting. False as well when there is no scratch file.
  bool checkCommand(commandBody& request);

  /// Reads the setting: the text behind "=", untrimmed, which also becomes `returnValue`. Nothing,
  /// and `returnValue` left as it was, when the report has no "=".
  std::optional<std::string> getCommand(commandBody& request);

  /// Writes `setValue` and reads it back, trimmed, into `returnValue`. True when the texts are
  /// equal.
  bool setCommand(commandBody& request);

  /// Makes the settings of the interface persistent.
  void saveCommand(commandBody& request);

  /// Writes `setValue` without reading it back.
  void setFuckSmallTreeRxring(commandBody& request);

  /// Reads the number of receive rings from the utility's table; 0 when it is not there.
  int64_t getFuckSmallTreeRxring(commandBody& request);

  /// Reads the class of the transceiver module (toolReports.h); the text behind ":" becomes
  /// `returnValue`. The setting's name must be "SFPModule".
  int64_t getSFPinfo(commandBody& request);

  /// The link of the interface: 0 none, 1 there is one, 2 anything else.
  int64_t getNICstatus(commandBody& request);

  /// The MTU of the interface in bytes; 0 when there is no such interface.
  int64_t getMTU(commandBody& request);

  /// The medium of the interface, such as "10GbaseT", or "Unknow".
  std::string getCurrendSpeed(commandBody& request);

 private:
  std::string readLine(const commandBody& request, const std::string& target) const;
  std::string writeLine(const commandBody& request) const;
  std::optional<std::string> readSetting(const commandBody& request);

  CommandChannel channel_;
  AtomicText nicName_;
  AtomicText commandTittle_;
  AtomicText setValue_;
  AtomicText returnValue_;
};

/// `text` without the blanks, tabs and line ends around it.
std::string trimmedText(const std::string& text);

}  // namespace corvane
