#pragma once

#include <filesystem>
#include <optional>

namespace corvane {

/// The files that come with the programs. They are looked for from where the program stands, so an
/// installation can be moved, and a build tree finds the files of its sources.
class ShippedFiles {
 public:
  /// `program` is the path of the running program.
  explicit ShippedFiles(const std::filesystem::path& program);

  /// The files that come with the program that runs now.
  static ShippedFiles ofThisProgram();

  /// The folder of the sample benches: "../share/corvane/bench" beside an installed program,
  /// "../Resources/bench" in a Mac's application bundle, the sources' "bench" above a build tree.
  /// Nothing when there is none.
  std::optional<std::filesystem::path> benchFolder() const;

  /// The folder of the programs that a bench's shell finds first: "bench-tools" beside a program of
  /// a build tree, "../libexec/corvane/bench-tools" beside an installed one,
  /// "../Helpers/bench-tools" in a Mac's application bundle. Nothing when there is none.
  std::optional<std::filesystem::path> benchToolsFolder() const;

 private:
  const std::filesystem::path folder_;  ///< in which the program stands
};

}  // namespace corvane
