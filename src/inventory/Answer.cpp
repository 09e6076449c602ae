#include "inventory/Answer.h"

namespace corvane {

namespace {

std::string with(const char* sentence, const std::string& text) {
  return text.empty() ? sentence : std::string(sentence) + ": " + text;
}

}  // namespace

std::string reasonText(const NoValue& none) {
  switch (none.reason) {
    case Reason::DriverTooOld:
      return "the driver is too old";
    case Reason::PortNotEnabled:
      return "the port is not enabled";
    case Reason::NotOffered:
      return "not offered here";
    case Reason::NotAsked:
      return "not asked";
    case Reason::NoAnswer:
      return with("no answer", none.text);
    case Reason::Missing:
      return "not installed";
    case Reason::Hangs:
      return "the tool does not answer";
    case Reason::Refused:
      return with("refused", none.text);
    case Reason::Blocked:
      return with("the answer file cannot be used", none.text);
    case Reason::Senseless:
      return with("the answer makes no sense", none.text);
    case Reason::NotInDump:
      return "not in the dump";
  }
  return "not known";
}

}  // namespace corvane
