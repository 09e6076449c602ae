// A file id, a zero byte, an index text: the block must be what plain searches find,
// and taking the text apart block by block must come to an end inside it.

#include <cstdint>
#include <vector>

#include "CORVANE2Archive/ArchiveIndex.h"
#include "fuzz/Require.h"
#include "fuzz/TakenText.h"

using namespace corvane;

namespace {

constexpr std::string_view openTag = "<archive_file>";
constexpr std::string_view closeTag = "</archive_file>";

std::string expectedBlock(const std::string& text, const std::string& id) {
  const auto key = text.find("<file_id>" + id + "<");
  if (key == std::string::npos) return {};
  const auto close = text.find(closeTag, key);
  const auto open = text.substr(0, key).rfind(openTag);
  if (close == std::string::npos || open == std::string::npos) return {};
  return text.substr(open, close + closeTag.size() - open);
}

void checkLookup(const std::string& text, const std::string& id) {
  std::vector<char> out(text.size() + 1, '\0');
  const auto status = _xmlBase_list_one("archive_file", "file_id", id.c_str(), text.c_str(),
                                        text.size(), out.data());
  const auto expected = expectedBlock(text, id);
  fuzz::require(status == (expected.empty() ? ArchiveFileIdNotFound : ArchiveSuccess),
                "block status");
  fuzz::require(expected == out.data(), "block text");
}

void checkEnumeration(std::string_view text) {
  const auto whole = text;
  std::uint64_t blocks = 0;
  while (const auto block = takeFileBlock(text)) {
    ++blocks;
    fuzz::require(block->data() >= whole.data() &&
                      block->data() + block->size() <= whole.data() + whole.size(),
                  "block inside the text");
    ArchiveMember member;
    if (readMember(*block, member) == ArchiveSuccess) {
      fuzz::require(member.chunk.size() < block->size(), "chunk inside the block");
    }
  }
  fuzz::require(blocks <= countFileBlocks(whole), "no more blocks than open tags");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string_view input(reinterpret_cast<const char*>(data), size);
  const auto id = fuzz::takeText(input);
  const auto text = fuzz::takeText(input);
  checkLookup(text, id);
  checkEnumeration(text);
  return 0;
}
