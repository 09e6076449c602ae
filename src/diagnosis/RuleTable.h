#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>
#include <variant>

#include "diagnosis/Finding.h"
#include "diagnosis/Rules.h"

namespace corvane {

/// Whether the findings of both ports of an adapter become one.
enum class Merging {
  Never,        ///< each is an errand of its own
  SameNumbers,  ///< where both would say the same
  Always,
};

/// Where a rule looks: at the port, at everything, or at what the other rules left standing.
using RuleOrigin = std::variant<const PortRule*, const WideRule*, std::nullptr_t>;

/// One row of the table of rules.
struct Rule {
  std::string_view code;
  std::string_view name;  ///< at most 28 letters
  Severity severity;
  Segment segment;
  Merging merging;
  RuleOrigin origin;

  /// A problem only without a link: what carries data is none.
  bool isCapped = false;
};

inline constexpr size_t longestRuleName = 28;

/// All rules, in the order in which findings of the same weight and place come out.
std::span<const Rule> allRules();

/// The rule of that code. It must be one of the table.
const Rule& ruleOf(std::string_view code);

}  // namespace corvane
