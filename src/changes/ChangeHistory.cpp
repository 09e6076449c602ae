#include "changes/ChangeHistory.h"

#include "changes/History.h"

namespace corvane {

namespace {

std::string outcomeText(const ChangeOutcome& outcome) {
  switch (outcome.outcome) {
    case Outcome::Taken:
      return "taken";
    case Outcome::Refused:
      return "refused: " + outcome.reason;
    case Outcome::NotTaken:
      return "not taken";
    case Outcome::NotVerifiable:
      return "not known: " + outcome.reason;
    case Outcome::GoneBefore:
      return "gone before, nothing sent";
    case Outcome::GoneAfter:
      return "gone after, nothing read";
    case Outcome::Declined:
      return "declined";
  }
  return {};
}

HistoryEntry entryOf(const ChangeOutcome& outcome) {
  const Setting setting = outcome.wish.setting;
  HistoryEntry entry;
  entry.what = settingName(setting);
  entry.label = outcome.label;
  entry.WWN = outcome.WWN;
  entry.port = outcome.port;
  if (outcome.before) entry.from = settingText(setting, *outcome.before);
  entry.to = settingText(setting, outcome.wish.value);
  entry.outcome = outcomeText(outcome);
  return entry;
}

}  // namespace

void recordChanges(const Paths& paths, const std::vector<ChangeOutcome>& outcomes) {
  const History history(paths);
  for (const ChangeOutcome& outcome : outcomes) history.append(entryOf(outcome));
}

}  // namespace corvane
