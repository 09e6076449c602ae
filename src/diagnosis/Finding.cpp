#include "diagnosis/Finding.h"

namespace corvane {

std::string_view nameOf(Severity severity) {
  constexpr std::array<std::string_view, 3> names{"problem", "warning", "note"};
  return names.at(static_cast<size_t>(severity));
}

std::string_view nameOf(Verdict verdict) {
  constexpr std::array<std::string_view, 4> names{"problem", "warning", "note", "good"};
  return names.at(static_cast<size_t>(verdict));
}

std::string_view nameOf(Segment segment) {
  constexpr std::array<std::string_view, segmentCount> names{"computer", "chain", "adapter", "port",
                                                             "module",   "link",  "behind"};
  return names.at(static_cast<size_t>(segment));
}

std::string_view nameOf(SegmentState state) {
  constexpr std::array<std::string_view, 4> names{"good", "bad", "unknown", "not asked"};
  return names.at(static_cast<size_t>(state));
}

}  // namespace corvane
