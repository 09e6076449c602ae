#include "CLIParser/commandBody.h"

#include <fmt/format.h>

#include "CLIParser/toolReports.h"

namespace corvane {

bool commandBody::checkCommand(commandBody& request) {
  return channel_.runAndReadBack(readLine(request, "all")) == "";
}

std::optional<std::string> commandBody::getCommand(commandBody& request) {
  auto value = settingValue(readSetting(request).value_or(""));
  if (value) request.setReturnValue(*value);
  return value;
}

bool commandBody::setCommand(commandBody& request) {
  const CommandTurn turn;
  channel_.run(writeLine(request));
  request.setReturnValue(trimmedText(getCommand(request).value_or("")));
  return request.returnValue() == request.setValue();
}

void commandBody::saveCommand(commandBody& request) {
  channel_.run(fmt::format("{} {} saveConfig", shellPath(channel_.paths().utilityTool),
                           shellWord(request.nicName())));
}

void commandBody::setFuckSmallTreeRxring(commandBody& request) {
  channel_.run(writeLine(request));
}

int64_t commandBody::getFuckSmallTreeRxring(commandBody& request) {
  return receiveRingCount(readSetting(request).value_or(""), request.nicName());
}

int64_t commandBody::getSFPinfo(commandBody& request) {
  const ModuleReport report = classifyModule(readSetting(request).value_or(""));
  if (report.code) request.setReturnValue(*report.code);
  return report.moduleClass;
}

int64_t commandBody::getNICstatus(commandBody& request) {
  const auto lines = channel_.runAndReadBack(fmt::format("ifconfig {}|grep status > {}",
                                                         shellWord(request.nicName()),
                                                         shellPath(channel_.paths().scratchFile)));
  return static_cast<int64_t>(linkState(lines.value_or("")));
}

int64_t commandBody::getMTU(commandBody& request) {
  const auto report = channel_.runAndReadBack(fmt::format(
      "ifconfig {} > {}", shellWord(request.nicName()), shellPath(channel_.paths().scratchFile)));
  return interfaceMTU(report.value_or(""));
}

std::string commandBody::getCurrendSpeed(commandBody& request) {
  // The redirection takes the whole report before the pipe could filter it; the search relies on
  // it.
  const auto report = channel_.runAndReadBack(fmt::format("ifconfig {} > {}|grep media",
                                                          shellWord(request.nicName()),
                                                          shellPath(channel_.paths().scratchFile)));
  return std::string(interfaceMedium(report.value_or("")));
}

std::optional<std::string> commandBody::readSetting(const commandBody& request) {
  return channel_.runAndReadBack(readLine(request, shellWord(request.nicName())));
}

std::string commandBody::readLine(const commandBody& request, const std::string& target) const {
  return fmt::format("{} {} {} > {}", shellPath(channel_.paths().utilityTool), target,
                     shellWord("get" + request.commandTittle()),
                     shellPath(channel_.paths().scratchFile));
}

std::string commandBody::writeLine(const commandBody& request) const {
  return fmt::format("{} {} {} {}", shellPath(channel_.paths().utilityTool),
                     shellWord(request.nicName()), shellWord("set" + request.commandTittle()),
                     shellWord(request.setValue()));
}

std::string trimmedText(const std::string& text) {
  constexpr const char* whiteSpace = " \t\n\v\f\r";
  const size_t start = text.find_first_not_of(whiteSpace);
  if (start == std::string::npos) return {};
  return text.substr(start, text.find_last_not_of(whiteSpace) - start + 1);
}

}  // namespace corvane
