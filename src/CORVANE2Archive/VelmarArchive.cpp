#include "CORVANE2Archive/VelmarArchive.h"

#include <cstdlib>
#include <cstring>

#include "CORVANE2Archive/ArchiveIndex.h"
#include "CORVANE2Archive/ArchiveMemory.h"

namespace corvane {

namespace {

template <typename Pointer>
void release(Pointer& memory) {
  std::free(memory);
  memory = nullptr;
}

}  // namespace

const char* VelmarArchive_status_text(ArchiveStatus status) {
  switch (status) {
    case ArchiveSuccess:
      return "success";
    case ArchiveFileIdNotFound:
      return "the package holds no complete file with that id";
    case ArchiveNotRecognized:
      return "this is not a package, or not one that is open for writing";
    case ArchiveChecksumMismatch:
      return "the checksum does not match";
    case ArchiveFileCountMismatch:
      return "the package holds more or fewer files than it announces";
    case ArchiveOutputNotCreated:
      return "the output file cannot be created";
    case ArchiveNotOpened:
      return "the package cannot be opened";
    case ArchiveShortWrite:
      return "not everything could be written";
    case ArchiveShortRead:
      return "the package is shorter than it should be";
    case ArchiveOutOfMemory:
      return "there is not enough memory";
  }
  return "unknown status";
}

ArchiveStatus _xmlParse_element(const char* text, const char* name, char** out) {
  const auto element = elementText(text, name);
  if (!element) return ArchiveFileIdNotFound;
  auto copy = copyText(*element);
  if (!copy) return ArchiveOutOfMemory;
  *out = copy.release();
  return ArchiveSuccess;
}

ArchiveStatus _xmlBase_list_one(const char* listTag, const char* keyTag, const char* keyValue,
                                const char* text, std::size_t textLength, char* out) {
  const auto block = listBlock({text, textLength}, listTag, keyTag, keyValue);
  if (!block) return ArchiveFileIdNotFound;
  std::memcpy(out, block->data(), block->size());
  return ArchiveSuccess;
}

ArchiveStatus VelmarArchive_free_archive(ArchiveInfo& info) {
  release(info.id);
  release(info.version);
  return ArchiveSuccess;
}

ArchiveStatus VelmarArchive_free_file(ArchiveFile& file) {
  release(file.id);
  release(file.version);
  release(file.description);
  release(file.name);
  release(file.data);
  return ArchiveSuccess;
}

ArchiveStatus VelmarArchive_free_xml(char** text) {
  release(*text);
  return ArchiveSuccess;
}

}  // namespace corvane
