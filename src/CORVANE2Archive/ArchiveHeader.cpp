#include "CORVANE2Archive/ArchiveHeader.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "CORVANE2Archive/ArchiveMemory.h"
#include "CORVANE2Archive/checksum.h"

namespace corvane {

namespace {

constexpr std::string_view packageMagic = "*VELARC*";
constexpr std::string_view openMarker = "0000";
constexpr char scrambledMark = '1';
constexpr char reservedMark = '0';

/// An even number of bytes, so that no word of the sum crosses two pieces.
constexpr std::size_t longestPiece = std::size_t{64} * 1024;

struct HeaderField {
  std::size_t offset;
  std::size_t length;
};

constexpr HeaderField headerFields[] = {
    {offsetof(ArchiveHeader, magic), sizeof(ArchiveHeader::magic)},
    {offsetof(ArchiveHeader, scramble), sizeof(ArchiveHeader::scramble)},
    {offsetof(ArchiveHeader, reserved), sizeof(ArchiveHeader::reserved)},
    {offsetof(ArchiveHeader, checksum), sizeof(ArchiveHeader::checksum)},
};

/// The sum of a piece of at least one byte. The bound leaves out the last byte of
/// an odd one, which only the end of a body is.
std::uint64_t pieceSum(const char* piece, std::size_t length) {
  return CalcEEPROM16BitCheckSum(reinterpret_cast<const std::uint8_t*>(piece), 0, length - 1);
}

}  // namespace

ArchiveHeader openHeader() {
  ArchiveHeader header;
  std::copy(packageMagic.begin(), packageMagic.end(), header.magic);
  header.scramble = scrambledMark;
  std::fill(std::begin(header.reserved), std::end(header.reserved), reservedMark);
  std::copy(openMarker.begin(), openMarker.end(), header.checksum);
  return header;
}

bool hasMagic(const ArchiveHeader& header) {
  return std::equal(packageMagic.begin(), packageMagic.end(), std::begin(header.magic));
}

bool hasOpenMarker(const ArchiveHeader& header) {
  return std::equal(openMarker.begin(), openMarker.end(), std::begin(header.checksum));
}

bool isScrambled(const ArchiveHeader& header) {
  return header.scramble == scrambledMark;
}

ChecksumField storedChecksum(const ArchiveHeader& header) {
  ChecksumField field;
  std::copy(std::begin(header.checksum), std::end(header.checksum), field.begin());
  return field;
}

ChecksumField checksumField(std::uint64_t sum) {
  ChecksumField field;
  for (auto& byte : field) {
    byte = static_cast<std::uint8_t>(sum & 0xFF);
    if (byte == 0x00) byte = 0x01;
    sum >>= 8;
  }
  return field;
}

ArchiveStatus stampChecksum(const char* path, const ChecksumField& field) {
  ArchiveStream archive(path, "r+b");
  if (!archive) return ArchiveNotOpened;
  const bool stamped =
      archive.seek(offsetof(ArchiveHeader, checksum)) && archive.write(field.data(), field.size());
  return archive.close() && stamped ? ArchiveSuccess : ArchiveShortWrite;
}

ArchiveStatus readBody(ArchiveStream& archive, char* body, std::size_t length, bool scrambled,
                       std::uint64_t& sum, const ArchiveProgress& progress) {
  sum = 0;
  for (std::size_t done = 0; done < length;) {
    char* piece = body + done;
    const std::size_t pieceLength = std::min(longestPiece, length - done);
    if (!archive.read(piece, pieceLength)) return ArchiveShortRead;
    sum += pieceSum(piece, pieceLength);
    if (scrambled) complement(piece, pieceLength);
    done += pieceLength;
    if (progress) progress(done, length);
  }
  return ArchiveSuccess;
}

ArchiveStatus _save_Header(const char* path, const ArchiveHeader& header) {
  ArchiveStream archive(path, "wb");
  if (!archive) return ArchiveNotOpened;
  const auto* bytes = reinterpret_cast<const char*>(&header);
  ArchiveStatus status = ArchiveSuccess;
  for (const auto& field : headerFields) {
    if (!archive.write(bytes + field.offset, field.length)) status = ArchiveShortWrite;
  }
  return archive.close() ? status : ArchiveShortWrite;
}

ArchiveStatus _load_Header(const char* path, ArchiveHeader& header) {
  auto archive = ArchiveStream::forReading(path);
  if (!archive) return ArchiveNotOpened;
  auto* bytes = reinterpret_cast<char*>(&header);
  ArchiveStatus status = ArchiveSuccess;
  for (const auto& field : headerFields) {
    if (!archive.seek(field.offset) || !archive.read(bytes + field.offset, field.length)) {
      status = ArchiveShortRead;
    }
  }
  return status;
}

}  // namespace corvane
