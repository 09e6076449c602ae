#include "cli/archive/ArchiveVerification.h"

#include <fmt/format.h>

#include <set>
#include <string_view>

#include "CORVANE2Archive/ArchiveChunk.h"
#include "cli/archive/ArchiveReport.h"

namespace corvane {

namespace {

std::uint64_t decodedSize(std::string_view chunk) {
  std::uint64_t size = 0;
  ChunkDecoder decoder(chunk);
  for (auto piece = decoder.next(); !piece.empty(); piece = decoder.next()) size += piece.size();
  return size;
}

}  // namespace

void ArchiveVerification::add(const std::string& problem) {
  if (problems++ == 0) firstProblem = problem;
}

std::string ArchiveVerification::text() const {
  return problems > 1 ? fmt::format("{} (and {} more)", firstProblem, problems - 1) : firstProblem;
}

ArchiveVerification verifyPackage(CommandContext& context, const ReadPackage& package) {
  ArchiveVerification found;
  std::set<std::string_view> ids;
  std::uint64_t looked = 0;
  PackageProgress progress(context, "verifying", package.size());
  package.eachFile([&](const ArchiveMember& member) {
    const auto decoded = decodedSize(member.chunk);
    if (static_cast<std::int64_t>(decoded) != member.size) {
      found.add(sizeProblem(member.id, decoded, member.size));
    }
    if (!ids.insert(member.id).second) {
      found.add(fmt::format("two files have the id {}, of which only the first can be read",
                            quotedId(member.id)));
    }
    ++found.files;
    found.bytes += decoded;
    looked += member.chunk.size();
    progress.show(looked, package.size());
  });
  if (static_cast<std::int64_t>(found.files) != package.info().fileCount) {
    found.add(fmt::format("the package announces {} files but holds {}", package.info().fileCount,
                          found.files));
  }
  return found;
}

}  // namespace corvane
