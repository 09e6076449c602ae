#include "cli/archive/ArchiveVerification.h"

#include <fmt/format.h>

#include <set>
#include <string_view>

#include "cli/archive/ArchiveReport.h"

namespace corvane {

void ArchiveVerification::add(const std::string& problem) {
  if (problems++ == 0) firstProblem = problem;
}

std::string ArchiveVerification::text() const {
  return problems > 1 ? fmt::format("{} (and {} more)", firstProblem, problems - 1) : firstProblem;
}

ArchiveVerification verifyPackage(CommandContext& context, const std::string& path) {
  ArchiveVerification found;
  std::set<std::string_view> ids;
  std::uint64_t looked = 0;
  const std::uint64_t size = packageSize(path);
  PackageProgress progress(context, "verifying", size);
  const auto look = [&](const ArchiveMember& member) {
    const auto decoded = member.decodedSize();
    if (static_cast<std::int64_t>(decoded) != member.size) {
      found.add(sizeProblem(member.id, decoded, member.size));
    }
    if (!ids.emplace(member.id).second) {
      found.add(fmt::format("two files have the id {}, of which only the first can be read",
                            quotedId(member.id)));
    }
    ++found.files;
    found.bytes += decoded;
    looked += member.chunk.size();
    progress.show(size + looked, 2 * size);
  };
  // Looking at the files counts as much as reading the package.
  const PackageRecord package(
      path, look, [&](std::uint64_t done, std::uint64_t total) { progress.show(done, 2 * total); });
  if (static_cast<std::int64_t>(found.files) != package.info().fileCount) {
    found.add(fmt::format("the package announces {} files but holds {}", package.info().fileCount,
                          found.files));
  }
  return found;
}

}  // namespace corvane
