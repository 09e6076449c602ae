#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// How much a finding matters: data does not flow that should, somebody should look, or it merely
/// explains something. In falling order.
enum class Severity { Problem, Warning, Note };

/// The worst that was found about something; Good without any finding.
enum class Verdict { Problem, Warning, Note, Good };

/// The stations of a port's path, from the computer to what is behind the port.
enum class Segment { Computer, Chain, Adapter, Port, Module, Link, Behind };
inline constexpr size_t segmentCount = 7;

enum class SegmentState { Good, Bad, Unknown, NotAsked };

/// One port of the adapter with that WWN and label; 0 stands for an adapter off the device list as
/// a whole.
struct PortName {
  std::string label;
  std::string WWN;
  int64_t port = 1;

  bool operator==(const PortName&) const = default;
};

/// One thing that was found. `label` and `port` are set when it is about one adapter, one port; the
/// sentences then do not name them.
struct Finding {
  std::string code;  ///< stable: scripts and metrics go by it
  std::string name;  ///< at most 28 letters, for tables
  Severity severity = Severity::Note;
  std::optional<std::string> label;
  std::optional<int64_t> port;
  Segment where = Segment::Computer;
  std::string text;    ///< one sentence with the numbers
  std::string remedy;  ///< one sentence what to do
  std::vector<PortName> concerns;

  bool operator==(const Finding&) const = default;
};

/// One station of a port's path.
struct PathStation {
  Segment segment = Segment::Computer;
  SegmentState state = SegmentState::NotAsked;
  std::optional<Severity> severity;  ///< of a bad one: of what stands there
  std::string text;                  ///< its main fact, or the reason why it is not known
  /// Further facts, caption and value, for whoever wants to know more.
  std::vector<std::pair<std::string, std::string>> facts;

  bool operator==(const PathStation&) const = default;
};

/// What was found about one port.
struct PortDiagnosis {
  int64_t port = 1;
  Verdict verdict = Verdict::Good;
  std::array<PathStation, segmentCount> path;

  bool operator==(const PortDiagnosis&) const = default;
};

struct AdapterDiagnosis {
  std::string label;
  std::string WWN;
  std::string product;
  Verdict verdict = Verdict::Good;
  std::array<PortDiagnosis, 2> ports;

  bool operator==(const AdapterDiagnosis&) const = default;
};

/// What was found about a computer: the findings worst first, and for each adapter of the device
/// list, in its order, the paths of its ports.
struct Diagnosis {
  Verdict verdict = Verdict::Good;
  std::vector<Finding> findings;
  std::vector<AdapterDiagnosis> adapters;

  bool operator==(const Diagnosis&) const = default;
};

/// The words that documents use: "problem", "warning", "note", "good"; "computer", "chain", ...;
/// "good", "bad", "unknown", "not asked".
std::string_view nameOf(Severity severity);
std::string_view nameOf(Verdict verdict);
std::string_view nameOf(Segment segment);
std::string_view nameOf(SegmentState state);

}  // namespace corvane
