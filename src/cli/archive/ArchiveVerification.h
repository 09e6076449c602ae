#pragma once

#include <cstdint>
#include <string>

namespace corvane {

struct CommandContext;

/// What a package that can be read turned out to hold.
struct ArchiveVerification {
  std::uint64_t files = 0;
  std::uint64_t bytes = 0;
  std::uint64_t problems = 0;
  std::string firstProblem;

  void add(const std::string& problem);

  /// The first problem, and how many more there are.
  std::string text() const;
};

/// Reads the package, decodes each of its files and compares what it holds with what it claims.
/// Throws CommandFailure with the archive status when it cannot be read or a file is not complete.
ArchiveVerification verifyPackage(CommandContext& context, const std::string& path);

}  // namespace corvane
