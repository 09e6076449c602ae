#include "CORVANE2Archive/ArchiveChunk.h"

#include <algorithm>

#include "CORVANE2Archive/VelmarArchive.h"

namespace corvane {

namespace {

constexpr std::size_t encodedLineLength = 72;
constexpr std::size_t bytesPerLine = encodedLineLength / 4 * 3;
constexpr std::size_t linesPerPiece = 1024;

// Whole lines with their line feeds, and room for the final one.
static_assert(linesPerPiece * (encodedLineLength + 1) + 1 <= ChunkEncoder::pieceCapacity);

/// The library counts in int; longer chunks are decoded in several calls.
constexpr std::size_t longestCall = std::size_t{1} << 30;

std::size_t decodePiece(std::string_view code, char* bytes, base64_decodestate& state) {
  return static_cast<std::size_t>(
      base64_decode_block(code.data(), static_cast<int>(code.size()), bytes, &state));
}

std::string_view takeFront(std::string_view& text, std::size_t length) {
  const auto front = text.substr(0, length);
  text.remove_prefix(front.size());
  return front;
}

}  // namespace

ChunkEncoder::ChunkEncoder(std::span<const std::uint8_t> bytes) : rest_(bytes) {
  base64_init_encodestate(&state_);
}

std::size_t ChunkEncoder::next(char* piece) {
  if (ended_) return 0;
  const auto bytes = rest_.first(std::min(rest_.size(), linesPerPiece * bytesPerLine));
  rest_ = rest_.subspan(bytes.size());
  int used = base64_encode_block(reinterpret_cast<const char*>(bytes.data()),
                                 static_cast<int>(bytes.size()), piece, &state_);
  if (rest_.empty()) {
    used += base64_encode_blockend(piece + used, &state_);
    ended_ = true;
  }
  return static_cast<std::size_t>(used);
}

ChunkDecoder::ChunkDecoder(std::string_view chunk) : rest_(chunk) {
  base64_init_decodestate(&state_);
}

std::string_view ChunkDecoder::next() {
  while (!rest_.empty()) {
    const auto code = takeFront(rest_, pieceLength);
    const auto length = decodePiece(code, piece_.data(), state_);
    if (length > 0) return {piece_.data(), length};
  }
  return {};
}

std::uint64_t ArchiveMember::decodedSize() const {
  std::uint64_t decoded = 0;
  ChunkDecoder decoder(chunk);
  for (auto piece = decoder.next(); !piece.empty(); piece = decoder.next()) {
    decoded += piece.size();
  }
  return decoded;
}

std::size_t decodeChunk(std::string_view chunk, char* bytes) {
  base64_decodestate state;
  base64_init_decodestate(&state);
  std::size_t length = 0;
  while (!chunk.empty()) {
    length += decodePiece(takeFront(chunk, longestCall), bytes + length, state);
  }
  return length;
}

}  // namespace corvane
