#include "CLIParser/toolReports.h"

#include <array>
#include <system_error>

namespace corvane {

namespace {

constexpr size_t columnGap = 8;
constexpr int ringCountColumn = 2;

bool contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

/// The piece behind the first `separator`, up to the second one or the end.
std::optional<std::string_view> secondPiece(std::string_view text, char separator) {
  const size_t first = text.find(separator);
  if (first == std::string_view::npos) return std::nullopt;
  const std::string_view rest = text.substr(first + 1);
  return rest.substr(0, rest.find(separator));
}

/// Where the next run of exactly eight blanks begins; npos when there is none.
size_t findColumnGap(std::string_view line) {
  size_t start = line.find(' ');
  while (start != std::string_view::npos) {
    const size_t end = line.find_first_not_of(' ', start);
    const size_t length = (end == std::string_view::npos ? line.size() : end) - start;
    if (length == columnGap) return start;
    start = end == std::string_view::npos ? end : line.find(' ', end);
  }
  return std::string_view::npos;
}

std::optional<std::string_view> column(std::string_view line, int index) {
  for (; index > 0; --index) {
    const size_t gap = findColumnGap(line);
    if (gap == std::string_view::npos) return std::nullopt;
    line.remove_prefix(gap + columnGap);
  }
  return line.substr(0, findColumnGap(line));
}

/// Takes the first line off `text`.
std::string_view takeLine(std::string_view& text) {
  const size_t end = text.find('\n');
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return line;
}

struct ModuleClass {
  int64_t number;
  std::string_view code;
  std::string_view name;
  std::string_view excludedBy;
};

/// In the order in which the code words are searched for.
constexpr std::array moduleClasses = {
    ModuleClass{1, "Unknown", "", ""},
    ModuleClass{2, "srlr", "10G Optical", ""},
    ModuleClass{3, "da_cu", "10G Copper Passive", ""},
    ModuleClass{4, "da_act_lmt", "10G Copper Active", ""},
    ModuleClass{5, "1g_sx", "1G Optical SX Short Reach", ""},
    ModuleClass{6, "1g_lx", "1G Optical LX Long Reach", ""},
    ModuleClass{7, "1g_cu", "1G Copper Passive", ""},
    ModuleClass{8, "10g_1g_c", "1G/10G Optical", ""},
    ModuleClass{9, "10g_1g_er", "1G/10G Optical ER Extended Reach", ""},
    ModuleClass{10, "er_c", "10G Optical ER Extended Reach", "10g_1g"},
};

bool hasModuleCode(std::string_view code, const ModuleClass& candidate) {
  const bool excluded = !candidate.excludedBy.empty() && contains(code, candidate.excludedBy);
  return contains(code, candidate.code) && !excluded;
}

int64_t moduleClassOf(std::string_view code) {
  for (const ModuleClass& candidate : moduleClasses) {
    if (hasModuleCode(code, candidate)) return candidate.number;
  }
  return 0;
}

struct Medium {
  std::string_view spelling;
  std::string_view otherSpelling;
  std::string_view shown;
};

/// In the order in which the media are searched for.
constexpr std::array media = {
    Medium{"100baseTX", "100base-TX", "100baseTX"},
    Medium{"1000baseT", "1000base-T", "1000BaseT"},
    Medium{"10GbaseT", "10Gbase-T", "10GbaseT"},
    Medium{"1000baseLX", "1000base-LX", "1000baseLX"},
    Medium{"10GbaseSR", "10Gbase-SR", "10GbaseSR"},
};

}  // namespace

std::optional<std::string> settingValue(std::string_view report) {
  const auto value = secondPiece(report, '=');
  if (!value) return std::nullopt;
  return std::string(*value);
}

int64_t receiveRingCount(std::string_view table, std::string_view nicName) {
  if (nicName.empty()) return 0;
  int64_t count = 0;
  while (!table.empty()) {
    const std::string_view line = takeLine(table);
    if (!contains(line, nicName)) continue;
    const auto text = column(line, ringCountColumn);
    if (text) count = leadingInteger(*text);
  }
  return count;
}

ModuleReport classifyModule(std::string_view report) {
  const auto code = secondPiece(report, ':');
  if (!code) return {};
  return {moduleClassOf(*code), std::string(*code)};
}

std::string_view moduleClassName(int64_t moduleClass) {
  for (const ModuleClass& candidate : moduleClasses) {
    if (candidate.number == moduleClass) return candidate.name;
  }
  return {};
}

LinkState linkState(std::string_view statusLines) {
  if (statusLines == "\tstatus: inactive\n") return LinkState::NoLink;
  if (statusLines == "\tstatus: active\n") return LinkState::Link;
  return LinkState::Unknown;
}

int64_t interfaceMTU(std::string_view interfaceReport) {
  constexpr std::string_view keyword = "mtu";
  const size_t found = interfaceReport.find(keyword);
  if (found == std::string_view::npos) return 0;
  const std::string_view rest = interfaceReport.substr(found + keyword.size());
  const size_t start = rest.find_first_not_of(" \t");
  return start == std::string_view::npos ? 0 : leadingInteger(rest.substr(start));
}

std::string_view interfaceMedium(std::string_view interfaceReport) {
  for (const Medium& medium : media) {
    if (contains(interfaceReport, medium.spelling) ||
        contains(interfaceReport, medium.otherSpelling)) {
      return medium.shown;
    }
  }
  return "Unknow";
}

}  // namespace corvane
