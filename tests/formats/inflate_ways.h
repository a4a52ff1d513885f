// The ways to expand a Deflate stream, each with all that it says of the stream, so that they can be held against each
// other.
#pragma once

#include "base/runtime_error.h"
#include "formats/zip/mod_inflate64.h"

namespace kestrun {

using Way = deflate::Expansion (*)(ByteView, MutableByteView, bool);

struct Outcome {
  int error_number = 0;
  int32_t status = 0;
  bool codes_built = false;
  Bytes bytes;

  [[nodiscard]] bool operator==(const Outcome&) const = default;
};

// In buffers of exactly that size, so that a byte beyond their ends is seen.
inline Outcome RunWay(Way way, const Bytes& stream, size_t announced, bool deflate64) {
  const Bytes input(stream.begin(), stream.end());
  Bytes output(announced);
  try {
    const deflate::Expansion done = way(input, output, deflate64);
    output.resize(done.bytes);
    return {0, done.status, done.codes_built, std::move(output)};
  } catch (const RuntimeError& failure) {
    return {failure.number(), 0, false, {}};
  }
}

}  // namespace kestrun
