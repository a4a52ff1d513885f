#include "styles/wave_file.h"

#include <algorithm>
#include <string_view>

#include "base/runtime_error.h"

namespace kestrun {
namespace {

// "RIFF", the size of what follows, "WAVE", then chunks: a name of four characters, a size, and so many bytes, padded
// to an even number.
constexpr size_t kRiffHeaderBytes = 12;
constexpr size_t kRiffSizeAt = 4;
constexpr size_t kChunkHeaderBytes = 8;
// Inside the chunk "fmt ".
constexpr size_t kLeastFormatBytes = 14;
constexpr size_t kBytesPerSecondAt = 8;
constexpr size_t kBlockBytesAt = 12;

[[noreturn]] void Refuse(const char* sentence) { Raise(error::kInvalidFileFormat, sentence); }

struct Chunk {
  std::string_view name;
  size_t at = 0;  // of its bytes
  size_t size = 0;
};

// The next chunk at `at`, which is moved behind it. False where no more can follow.
bool NextChunk(ByteView file, size_t& at, Chunk& chunk) {
  if (at > file.size() || file.size() - at < kChunkHeaderBytes) return false;
  chunk.name = AsChars(file.subspan(at, 4));
  chunk.size = LoadU32(file, at + 4);
  chunk.at = at + kChunkHeaderBytes;
  if (chunk.size > file.size() - chunk.at) Refuse("The sound file ends before what it claims to hold.");
  at = chunk.at + chunk.size + chunk.size % 2;
  return true;
}

struct Format {
  uint32_t bytes_per_second = 0;
  uint32_t block_bytes = 0;
};

Format ReadFormat(ByteView file, const Chunk& chunk) {
  if (chunk.size < kLeastFormatBytes) Refuse("The sound file does not say how its sound is stored.");
  const Format format{LoadU32(file, chunk.at + kBytesPerSecondAt), LoadU16(file, chunk.at + kBlockBytesAt)};
  if (format.bytes_per_second == 0 || format.block_bytes == 0) {
    Refuse("The sound file does not say how its sound is stored.");
  }
  return format;
}

Bytes CutBehind(ByteView file, const Chunk& sound, const Format& format, uint32_t most_ms) {
  const uint64_t allowed = uint64_t{format.bytes_per_second} * most_ms / 1000;
  uint64_t kept = std::min<uint64_t>(sound.size, allowed);
  kept -= kept % format.block_bytes;
  if (kept == 0) Refuse("The sound file holds no sound.");
  const auto end = sound.at + static_cast<size_t>(kept);
  Bytes wave(file.begin(), file.begin() + static_cast<ptrdiff_t>(end));
  StoreU32(wave, sound.at - 4, static_cast<uint32_t>(kept));
  StoreU32(wave, kRiffSizeAt, static_cast<uint32_t>(end - kRiffSizeAt - 4));
  return wave;
}

}  // namespace

Bytes PlayableWave(ByteView file, uint32_t most_ms) {
  if (file.size() < kRiffHeaderBytes || AsChars(file.first(4)) != "RIFF" || AsChars(file.subspan(8, 4)) != "WAVE") {
    Refuse("The sound file is no WAVE file.");
  }
  Format format;
  Chunk chunk;
  for (size_t at = kRiffHeaderBytes; NextChunk(file, at, chunk);) {
    if (chunk.name == "fmt ") format = ReadFormat(file, chunk);
    if (chunk.name != "data") continue;
    if (format.block_bytes == 0) Refuse("The sound file does not say how its sound is stored.");
    return CutBehind(file, chunk, format, most_ms);
  }
  Refuse("The sound file holds no sound.");
}

}  // namespace kestrun
