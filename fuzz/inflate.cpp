// Any bytes as a Deflate and as a Deflate64 stream. Both fast ways have to agree with the careful one in verdict
// and bytes, plain Deflate with zlib but for what the reader allows on purpose. The first two bytes choose the
// announced size.
#include <zlib.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>

#include "base/runtime_error.h"
#include "formats/zip/mod_inflate64.h"

namespace {

using kestrun::Bytes;
using kestrun::ByteView;
using kestrun::deflate::Expansion;
using Way = Expansion (*)(ByteView, kestrun::MutableByteView, bool);

constexpr size_t kMostBytes = 70000;
// More than zeros can stand for at the end of a stream that is read as whole: the lengths of both codes, and the end of
// the block.
constexpr size_t kMostZeros = 512;

void Require(bool holds) {
  if (!holds) std::abort();
}

struct Outcome {
  bool raised = false;  // error 9, the only one that may come
  Expansion done;
  Bytes bytes;

  [[nodiscard]] bool IsWhole() const { return !raised && done.codes_built && done.status == 0; }
  [[nodiscard]] bool IsLike(const Outcome& other) const {
    return raised == other.raised && done.status == other.done.status && done.codes_built == other.done.codes_built &&
           bytes == other.bytes;
  }
};

Outcome Run(Way way, ByteView stream, size_t announced, bool deflate64) {
  Outcome outcome;
  outcome.bytes.resize(announced);
  try {
    outcome.done = way(stream, outcome.bytes, deflate64);
  } catch (const kestrun::RuntimeError& error) {
    Require(error.number() == kestrun::error::kSubscriptOutOfRange);
    outcome.raised = true;
    outcome.bytes.clear();
    return outcome;
  }
  Require(outcome.done.bytes <= announced);
  outcome.bytes.resize(outcome.done.bytes);
  return outcome;
}

// Exact, a little too small, a little too large, or any size.
size_t AnnouncedSize(uint8_t kind, uint8_t by, ByteView stream, bool deflate64) {
  if (kind % 4 == 3) return size_t{by} * 16;
  const Outcome measured = Run(kestrun::deflate::ExpandCarefully, stream, kMostBytes, deflate64);
  const size_t exact = measured.bytes.size();
  if (kind % 4 == 1) return exact - std::min<size_t>(exact, size_t{by} + 1);
  return kind % 4 == 2 ? exact + by * 4 : exact;
}

struct PeerOutcome {
  std::optional<Bytes> whole;
  std::string_view complaint;
};

PeerOutcome RunZlib(Bytes stream, size_t announced) {
  z_stream peer{};
  Require(inflateInit2(&peer, -15) == Z_OK);
  Bytes output(announced + 1);
  peer.next_in = stream.data();
  peer.avail_in = static_cast<uInt>(stream.size());
  peer.next_out = output.data();
  peer.avail_out = static_cast<uInt>(output.size());
  const int result = inflate(&peer, Z_FINISH);
  output.resize(peer.total_out);
  PeerOutcome outcome;
  if (peer.msg != nullptr) outcome.complaint = peer.msg;
  inflateEnd(&peer);
  if (result == Z_STREAM_END && output.size() <= announced) outcome.whole = std::move(output);
  return outcome;
}

Bytes WithZeros(ByteView stream, size_t count) {
  Bytes padded(stream.begin(), stream.end());
  padded.resize(padded.size() + count);
  return padded;
}

// What zlib reads whole, ours does. A stored block may stand too near the end for the bytes that are buffered before
// it; that alone makes -1, and bytes behind the stream mend it.
void CompareWithZlib(ByteView stream, size_t announced, const Outcome& ours) {
  const PeerOutcome peer = RunZlib(Bytes(stream.begin(), stream.end()), announced);
  if (peer.whole && !ours.IsWhole()) {
    Require(!ours.raised && ours.done.codes_built && ours.done.status == kestrun::kInflateBadBlock);
    Require(std::equal(ours.bytes.begin(), ours.bytes.end(), peer.whole->begin()));
    const Outcome mended = Run(kestrun::deflate::Expand, WithZeros(stream, 4), announced, false);
    Require(mended.IsWhole() && mended.bytes == *peer.whole);
  }
  if (!ours.IsWhole()) return;
  if (peer.whole) {
    Require(ours.bytes == *peer.whole);
    return;
  }
  // What ours alone reads whole is either completed by zeros, or it has distances behind 32 KB or room for them.
  const PeerOutcome completed = RunZlib(WithZeros(stream, kMostZeros), announced);
  if (completed.whole) {
    Require(ours.bytes == *completed.whole);
  } else {
    Require(completed.complaint == "invalid distance code" ||
            completed.complaint == "too many length or distance symbols");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 2) return 0;
  // In a buffer of its own, so that a byte read behind it is seen.
  const Bytes stream(data + 2, data + size);
  for (const bool deflate64 : {false, true}) {
    const size_t announced = AnnouncedSize(data[0], data[1], stream, deflate64);
    const Outcome fast = Run(kestrun::deflate::Expand, stream, announced, deflate64);
    const Outcome careful = Run(kestrun::deflate::ExpandCarefully, stream, announced, deflate64);
    Require(fast.IsLike(careful));
    Require(Run(kestrun::deflate::ExpandPortably, stream, announced, deflate64).IsLike(careful));
    if (!deflate64) CompareWithZlib(stream, announced, fast);
  }
  return 0;
}
