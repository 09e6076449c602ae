#include "platform/dump/DumpProblems.h"

#include <fmt/format.h>

namespace corvane {

namespace {

void addCount(std::string& text, size_t count, const char* one, const char* several) {
  if (count == 0) return;
  if (!text.empty()) text += ", ";
  text += fmt::format(fmt::runtime(count == 1 ? one : several), count);
}

}  // namespace

std::string DumpProblems::summary() const {
  std::string text;
  addCount(text, cutLines, "{} line is cut (\"ioreg -l -w0\" cuts none)",
           "{} lines are cut (\"ioreg -l -w0\" cuts none)");
  addCount(text, unreadableLines, "{} line cannot be read", "{} lines cannot be read");
  addCount(text, unreadableValues, "{} value cannot be read", "{} values cannot be read");
  addCount(text, redactedValues, "{} value is redacted", "{} values are redacted");
  return text;
}

DumpProblems& DumpProblems::operator+=(const DumpProblems& other) {
  cutLines += other.cutLines;
  unreadableLines += other.unreadableLines;
  unreadableValues += other.unreadableValues;
  redactedValues += other.redactedValues;
  return *this;
}

}  // namespace corvane
