#pragma once

#include <optional>
#include <vector>

#include "diagnosis/RuleTable.h"

namespace corvane {

/// A finding before it is known whether it is told, alone or together with others.
struct Draft {
  const Rule* rule = nullptr;
  Severity severity = Severity::Note;
  Words words;
  std::vector<Place> concerns;  ///< ports of listed adapters, and unlisted adapters as a whole

  /// The family, where all that it concerns is of one.
  std::optional<AdapterFamily> family;
  bool isOfComputer = false;

  /// The port of a rule about one port; null for the others and once both ports are merged.
  const PortFacts* port = nullptr;

  bool isFor(std::string_view code) const { return rule->code == code; }
  bool concernsPlace(const Place& place) const;
};

using Drafts = std::vector<Draft>;

/// What every rule finds by itself, in the order of the table.
Drafts findAll(const Look& look);

/// Takes out what another finding explains: the first of each line of causes stays.
void silence(const Look& look, Drafts& drafts);

/// Adds what the settings of two ports differ in, as far as no other finding names it.
void addDifferences(const Look& look, Drafts& drafts);

/// Makes one of what both ports of an adapter, or all ports of several, have in common.
void merge(const Look& look, Drafts& drafts);

/// Puts them into the order in which they are told.
void sortByWeight(const Look& look, Drafts& drafts);

}  // namespace corvane
