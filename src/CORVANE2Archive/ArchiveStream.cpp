#include "CORVANE2Archive/ArchiveStream.h"

namespace corvane {

namespace {

bool nothingCanBeRead(std::FILE* file) {
  const bool failed = std::fgetc(file) == EOF && std::ferror(file) != 0;
  std::rewind(file);
  return failed;
}

}  // namespace

ArchiveStream::ArchiveStream(const char* path, const char* mode) : file_(std::fopen(path, mode)) {
  if (file_) static_cast<void>(std::setvbuf(file_.get(), nullptr, _IONBF, 0));
}

ArchiveStream ArchiveStream::forReading(const char* path) {
  ArchiveStream stream(path, "rb");
  if (stream && nothingCanBeRead(stream.file_.get())) stream.file_.reset();
  return stream;
}

std::size_t ArchiveStream::writeSome(const void* bytes, std::size_t length) {
  return std::fwrite(bytes, 1, length, file_.get());
}

bool ArchiveStream::write(const void* bytes, std::size_t length) {
  return writeSome(bytes, length) == length;
}

bool ArchiveStream::read(void* bytes, std::size_t length) {
  return std::fread(bytes, 1, length, file_.get()) == length;
}

bool ArchiveStream::seek(std::size_t offset) {
  return std::fseek(file_.get(), static_cast<long>(offset), SEEK_SET) == 0;
}

std::optional<std::uint64_t> ArchiveStream::measure() {
  if (std::fseek(file_.get(), 0, SEEK_END) != 0) return std::nullopt;
  const long end = std::ftell(file_.get());
  std::rewind(file_.get());
  if (end < 0) return std::nullopt;
  return static_cast<std::uint64_t>(end);
}

bool ArchiveStream::close() {
  return std::fclose(file_.release()) == 0;
}

}  // namespace corvane
