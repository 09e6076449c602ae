#include <algorithm>
#include <array>
#include <initializer_list>
#include <span>

#include "diagnosis/Draft.h"

namespace corvane {

namespace {

using Codes = std::span<const std::string_view>;

constexpr std::array<std::string_view, 3> driverLine{"driver-missing", "driver-other-runs",
                                                     "driver-not-running"};

constexpr std::array<std::string_view, 6> unlistedLine{
    "adapter-no-function",     "address-twice", "product-unknown",
    "adapter-without-service", "port-unnamed",  "adapter-one-port"};

/// What keeps a port from being read at all.
constexpr std::array<std::string_view, 7> unreadPortLine{
    "driver-no-answer", "port-unnamed",      "adapter-disabled", "port-disabled",
    "scratch-blocked",  "interface-missing", "link-not-read"};

/// What keeps the settings of all 10GbE ports from being read.
constexpr std::array<std::string_view, 6> toolLine{"scratch-blocked", "driver-version-unknown",
                                                   "driver-too-old",  "tool-missing",
                                                   "tool-hangs",      "tool-unreadable"};
constexpr std::array<std::string_view, 4> toolFindings{"values-not-read", "value-senseless",
                                                       "preset-custom", "offload-off"};

/// What is wrong with a module before its content can be looked at.
constexpr std::array<std::string_view, 5> moduleLine{
    "module-unreadable", "module-half-read", "module-wrong-class", "module-gone", "module-none"};
constexpr std::array<std::string_view, 2> checksumFindings{"module-checksum",
                                                           "module-checksum-extended"};

constexpr std::array<std::string_view, 9> noLinkLine{
    "speed-unsupported", "topology-unsupported", "speed-not-in-module",
    "link-flaps",        "link-settling",        "link-down-forced",
    "link-down",         "port-spare",           "link-idle"};

constexpr std::array<std::string_view, 6> speedLine{
    "speed-not-as-set", "link-at-100", "link-slower-than-before",
    "speed-forced",     "module-1g",   "link-slower"};

constexpr std::array<std::string_view, 4> firmwareLine{"firmware-not-taken", "firmware-pending",
                                                       "firmware-catalogue", "firmware-differs"};

constexpr std::array<std::string_view, 3> behindLine{"volumes-unmounted", "behind-gone",
                                                     "behind-empty"};

bool isOneOf(Codes codes, const Draft& draft) {
  return std::find(codes.begin(), codes.end(), draft.rule->code) != codes.end();
}

/// The first code of the line that stands for the place.
std::optional<std::string_view> firstAt(const Drafts& drafts, Codes line, const Place& place) {
  for (const std::string_view code : line)
    for (const Draft& draft : drafts)
      if (draft.isFor(code) && draft.concernsPlace(place)) return code;
  return std::nullopt;
}

/// Takes the place out of what the drafts concern; those that concerned nothing else go.
template <typename Condition>
void takeOut(Drafts& drafts, const Place& place, Condition condition) {
  std::erase_if(drafts, [&](Draft& draft) {
    if (!draft.concernsPlace(place) || !condition(draft)) return false;
    std::erase(draft.concerns, place);
    return draft.concerns.empty();
  });
}

/// Lets the first of the line alone stand for the place, and returns it.
std::optional<std::string_view> keepFirst(Drafts& drafts, Codes line, const Place& place) {
  const auto first = firstAt(drafts, line, place);
  if (first)
    takeOut(drafts, place, [&line, &first](const Draft& draft) {
      return isOneOf(line, draft) && !draft.isFor(*first);
    });
  return first;
}

template <typename Condition>
bool hasAny(const Drafts& drafts, Condition condition) {
  return std::any_of(drafts.begin(), drafts.end(), condition);
}

bool concernsUnlisted(const Draft& draft) {
  return std::any_of(draft.concerns.begin(), draft.concerns.end(),
                     [](const Place& place) { return !place.isListed; });
}

// Without its monitor nothing of a family is known.
void silenceUnwatched(Drafts& drafts, AdapterFamily family) {
  const bool isUnwatched = hasAny(drafts, [family](const Draft& draft) {
    return draft.isFor("monitor-not-started") && draft.family == family;
  });
  if (!isUnwatched) return;
  std::erase_if(drafts, [family](const Draft& draft) {
    return draft.isFor("no-adapter") ||
           (draft.family == family && !draft.isFor("monitor-not-started"));
  });
}

// A driver that is missing explains every adapter of its family that is not listed.
void silenceUnserved(Drafts& drafts, AdapterFamily family) {
  for (const std::string_view code : driverLine) {
    const bool stands = hasAny(drafts, [code, family](const Draft& draft) {
      return draft.isFor(code) && draft.family == family;
    });
    if (!stands) continue;
    std::erase_if(drafts, [code, family](const Draft& draft) {
      return draft.family == family && !draft.isFor(code) && !draft.isFor("adapter-no-function") &&
             (isOneOf(driverLine, draft) || concernsUnlisted(draft));
    });
    return;
  }
}

void silenceUnlisted(const Look& look, Drafts& drafts) {
  for (size_t index = 0; index < look.reading().unlisted.size(); ++index)
    keepFirst(drafts, unlistedLine, {false, index, 0});
}

// Nothing else is said of a port that could not be read.
void silenceUnread(Drafts& drafts, const PortFacts& port) {
  const auto first = keepFirst(drafts, unreadPortLine, placeOf(port));
  if (!first) return;
  std::erase_if(drafts, [&port, &first](const Draft& draft) {
    return draft.port == &port && !draft.isFor(*first);
  });
}

void silenceToolFindings(Drafts& drafts) {
  const auto family = AdapterFamily::TenGigabit;
  const auto isOfFamily = [=](const Draft& draft) { return draft.family == family; };
  for (const std::string_view code : toolLine) {
    if (!hasAny(drafts, [&](const Draft& draft) { return draft.isFor(code) && isOfFamily(draft); }))
      continue;
    std::erase_if(drafts, [&](const Draft& draft) {
      if (!isOfFamily(draft) || draft.isFor(code)) return false;
      return isOneOf(toolLine, draft) || isOneOf(toolFindings, draft) ||
             draft.rule->segment == Segment::Module;
    });
    return;
  }
}

void silenceByModule(Drafts& drafts, const PortFacts& port) {
  const Place place = placeOf(port);
  const bool isUnsuited = keepFirst(drafts, moduleLine, place).has_value();
  const bool isWithoutSpeed = hasAny(drafts, [&place](const Draft& draft) {
    return draft.isFor("module-no-fc-speed") && draft.concernsPlace(place);
  });
  if (isUnsuited)
    takeOut(drafts, place, [](const Draft& draft) { return isOneOf(checksumFindings, draft); });
  if (isWithoutSpeed || (isUnsuited && !port.hasLink()))
    takeOut(drafts, place, [](const Draft& draft) { return isOneOf(noLinkLine, draft); });
}

// One cause is named for a missing link, one for its speed.
void silenceByLink(Drafts& drafts, const PortFacts& port) {
  if (port.hasLink()) {
    keepFirst(drafts, speedLine, placeOf(port));
  } else {
    keepFirst(drafts, noLinkLine, placeOf(port));
  }
}

}  // namespace

void silence(const Look& look, Drafts& drafts) {
  for (const auto family : {AdapterFamily::FibreChannel, AdapterFamily::TenGigabit}) {
    silenceUnwatched(drafts, family);
    silenceUnserved(drafts, family);
  }
  silenceUnlisted(look, drafts);
  silenceToolFindings(drafts);
  for (const PortFacts& port : look.ports()) {
    silenceUnread(drafts, port);
    silenceByModule(drafts, port);
    silenceByLink(drafts, port);
    keepFirst(drafts, firmwareLine, placeOf(port));
    keepFirst(drafts, behindLine, placeOf(port));
  }
}

}  // namespace corvane
