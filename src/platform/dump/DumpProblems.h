#pragma once

#include <cstddef>
#include <string>

namespace corvane {

/// What of a registry dump could not be read, by kind. None of it keeps the rest from being read.
struct DumpProblems {
  size_t cutLines = 0;          ///< cut at the width of the terminal that printed them
  size_t unreadableLines = 0;   ///< stand where no line of a dump can stand
  size_t unreadableValues = 0;  ///< properties whose value has no form that is known
  size_t redactedValues = 0;    ///< data that holds asterisks in place of bytes

  size_t total() const { return cutLines + unreadableLines + unreadableValues + redactedValues; }

  /// One sentence with the counts that are not 0; empty when all are.
  std::string summary() const;

  DumpProblems& operator+=(const DumpProblems& other);
  bool operator==(const DumpProblems&) const = default;
};

}  // namespace corvane
