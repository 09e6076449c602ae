#include "diagnosis/Draft.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <set>
#include <tuple>

#include "diagnosis/SentenceWords.h"

namespace corvane {

namespace {

AdapterFamily familyAt(const Look& look, const Place& place) {
  return place.isListed ? look.reading().adapters.at(place.adapter).family()
                        : look.reading().unlisted.at(place.adapter).family;
}

std::optional<AdapterFamily> commonFamily(const Look& look, const std::vector<Place>& places) {
  std::set<AdapterFamily> families;
  for (const Place& place : places) families.insert(familyAt(look, place));
  return families.size() == 1 ? std::optional(*families.begin()) : std::nullopt;
}

/// A listed adapter as a whole is both its ports.
std::vector<Place> inPorts(const Look& look, const std::vector<Place>& places) {
  std::vector<Place> ports;
  for (const Place& place : places) {
    if (!place.isListed || place.port != 0) {
      ports.push_back(place);
      continue;
    }
    for (const Place& port : look.portsOfAdapter(place.adapter)) ports.push_back(port);
  }
  return ports;
}

Draft draftOf(const Look& look, const Rule& rule, Said said) {
  Draft draft;
  draft.rule = &rule;
  draft.severity = rule.severity;
  draft.words = std::move(said.words);
  draft.concerns = inPorts(look, said.concerns);
  draft.family = said.family ? said.family : commonFamily(look, draft.concerns);
  draft.isOfComputer = said.isOfComputer;
  return draft;
}

Draft draftOf(const Look& look, const Rule& rule, const PortFacts& port) {
  const std::array<const PortFacts*, 1> one{&port};
  Draft draft;
  draft.rule = &rule;
  draft.severity = rule.isCapped && port.hasLink() ? Severity::Warning : rule.severity;
  draft.words = (*std::get_if<const PortRule*>(&rule.origin))->words(look, one);
  draft.concerns = {placeOf(port)};
  draft.family = port.adapter().family();
  draft.port = &port;
  return draft;
}

void findAtPorts(const Look& look, const Rule& rule, const PortRule& origin, Drafts& drafts) {
  for (const PortFacts& port : look.ports())
    if (origin.holds(look, port)) drafts.push_back(draftOf(look, rule, port));
}

// Merging.

bool isMergeable(const Draft& one, const Draft& other) {
  if (one.rule != other.rule || one.severity != other.severity || one.port == nullptr ||
      other.port == nullptr || one.port->adapterIndex() != other.port->adapterIndex())
    return false;
  return one.rule->merging == Merging::Always ||
         (one.rule->merging == Merging::SameNumbers && one.words.text == other.words.text);
}

void mergeInto(const Look& look, Draft& one, const Draft& other) {
  const std::array<const PortFacts*, 2> both{one.port, other.port};
  one.words = (*std::get_if<const PortRule*>(&one.rule->origin))->words(look, both);
  one.concerns.push_back(placeOf(*other.port));
  one.port = nullptr;
}

void mergePorts(const Look& look, Drafts& drafts) {
  for (size_t index = 0; index < drafts.size(); ++index)
    for (size_t other = index + 1; other < drafts.size(); ++other) {
      if (!isMergeable(drafts[index], drafts[other])) continue;
      mergeInto(look, drafts[index], drafts[other]);
      drafts.erase(drafts.begin() + static_cast<std::ptrdiff_t>(other));
      break;
    }
}

bool isWholeAdapterSilent(const Draft& draft) {
  return draft.isFor("driver-no-answer") && draft.port == nullptr;
}

std::string labelsOfAdapters(const Look& look, const std::vector<Place>& places) {
  std::vector<std::string> labels;
  for (const Place& place : places)
    if (place.port == 1) labels.push_back(look.reading().adapters.at(place.adapter).label);
  return listed(labels);
}

// A driver that answers for no port of several adapters is one trouble.
void mergeSilentAdapters(const Look& look, Drafts& drafts) {
  if (std::count_if(drafts.begin(), drafts.end(), isWholeAdapterSilent) < 2) return;
  Draft merged = *std::find_if(drafts.begin(), drafts.end(), isWholeAdapterSilent);
  merged.concerns.clear();
  for (const Draft& draft : drafts)
    if (isWholeAdapterSilent(draft))
      merged.concerns.insert(merged.concerns.end(), draft.concerns.begin(), draft.concerns.end());
  merged.words.text =
      fmt::format("The driver does not answer for any port of {}; nothing of them is known.",
                  labelsOfAdapters(look, merged.concerns));
  std::erase_if(drafts, isWholeAdapterSilent);
  drafts.push_back(std::move(merged));
}

// Order.

/// The adapter that a finding is about when it is about one; nothing else.
std::optional<Place> onlyAdapter(const Draft& draft) {
  if (draft.isOfComputer || draft.concerns.empty()) return std::nullopt;
  const Place& first = draft.concerns.front();
  const bool isOne =
      std::all_of(draft.concerns.begin(), draft.concerns.end(), [&first](const Place& each) {
        return each.isListed == first.isListed && each.adapter == first.adapter;
      });
  return isOne ? std::optional(Place{first.isListed, first.adapter, 0}) : std::nullopt;
}

/// Where an adapter stands among the listed ones, and behind which of them one off the list would.
std::tuple<size_t, std::string> rankOf(const Look& look, const Place& adapter) {
  if (adapter.isListed) return {2 * adapter.adapter + 1, ""};
  const auto& listed = look.reading().adapters;
  const std::string& label = look.reading().unlisted.at(adapter.adapter).label;
  const auto next = std::find_if(listed.begin(), listed.end(),
                                 [&label](const auto& each) { return each.label > label; });
  return {2 * static_cast<size_t>(next - listed.begin()), label};
}

auto weightOf(const Look& look, const Draft& draft) {
  const auto adapter = onlyAdapter(draft);
  const bool isOnePort = adapter && draft.concerns.size() == 1;
  return std::tuple(draft.severity, draft.rule->segment != Segment::Computer,
                    adapter ? std::optional(rankOf(look, *adapter)) : std::nullopt,
                    isOnePort ? draft.concerns.front().port : 0, draft.rule->segment, draft.rule);
}

}  // namespace

bool Draft::concernsPlace(const Place& place) const {
  return std::find(concerns.begin(), concerns.end(), place) != concerns.end();
}

Drafts findAll(const Look& look) {
  Drafts drafts;
  for (const Rule& rule : allRules()) {
    if (const auto* atPort = std::get_if<const PortRule*>(&rule.origin)) {
      findAtPorts(look, rule, **atPort, drafts);
    } else if (const auto* wide = std::get_if<const WideRule*>(&rule.origin)) {
      for (Said& said : (*wide)->say(look)) drafts.push_back(draftOf(look, rule, std::move(said)));
    }
  }
  return drafts;
}

void addDifferences(const Look& look, Drafts& drafts) {
  for (size_t adapter = 0; adapter < look.reading().adapters.size(); ++adapter) {
    std::vector<std::string_view> codes;
    for (const Draft& draft : drafts)
      if (draft.port != nullptr && draft.port->adapterIndex() == adapter)
        codes.push_back(draft.rule->code);
    if (auto words = portsDifferWords(look, adapter, codes))
      drafts.push_back(draftOf(look, ruleOf("ports-differ"),
                               Said{std::move(*words), look.portsOfAdapter(adapter), {}}));
  }
}

void merge(const Look& look, Drafts& drafts) {
  mergePorts(look, drafts);
  mergeSilentAdapters(look, drafts);
}

void sortByWeight(const Look& look, Drafts& drafts) {
  std::stable_sort(drafts.begin(), drafts.end(), [&look](const Draft& one, const Draft& other) {
    return weightOf(look, one) < weightOf(look, other);
  });
}

}  // namespace corvane
