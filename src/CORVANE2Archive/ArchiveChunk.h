#pragma once

/// A file's bytes as base64, in pieces that fit the processor's cache. The library's
/// own line breaks are a part of the format: one after 72 characters and one at the
/// end, also when the last line is full.

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

// The library's headers do not say themselves that they are C.
extern "C" {
#include <b64/cdecode.h>
#include <b64/cencode.h>
}

namespace corvane {

/// Encodes some bytes piece by piece.
class ChunkEncoder {
 public:
  /// How many characters a piece may have at most.
  static constexpr std::size_t pieceCapacity = std::size_t{75} * 1024;

  explicit ChunkEncoder(std::span<const std::uint8_t> bytes);

  /// Fills `piece`, of pieceCapacity characters, and returns how many it used;
  /// 0 when everything has been encoded.
  std::size_t next(char* piece);

  /// How many bytes are still to be encoded.
  std::size_t remaining() const noexcept { return rest_.size(); }

 private:
  std::span<const std::uint8_t> rest_;
  base64_encodestate state_;
  bool ended_ = false;
};

/// Decodes a chunk piece by piece. What is not base64 is skipped.
class ChunkDecoder {
 public:
  explicit ChunkDecoder(std::string_view chunk);

  /// The next bytes, valid until the next call; empty when there are no more.
  std::string_view next();

 private:
  static constexpr std::size_t pieceLength = std::size_t{64} * 1024;

  std::string_view rest_;
  base64_decodestate state_;
  // The library touches one byte behind the last one that it decodes.
  std::array<char, pieceLength + 1> piece_;
};

/// Decodes a whole chunk into `bytes`, which is at least as long as the chunk and
/// one byte more. Returns how many bytes came out.
std::size_t decodeChunk(std::string_view chunk, char* bytes);

}  // namespace corvane
