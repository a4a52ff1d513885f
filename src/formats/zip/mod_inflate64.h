// Expands members compressed with Deflate (RFC 1951) and Deflate64, whole in memory.
//
// Deflate64 differs in one rule: a match whose length comes out as 258 reads 16 more bits, and its length is their
// value plus 3. Distances reach 64 KB in both: codes 30 and 31 are not refused in plain Deflate.
//
// Statuses: 0 done; -1 a block of type 3, or a stored block that is longer than the input or the output, or that has
// fewer than 4 bytes behind its header; -2 a stored block whose two lengths disagree, which is copied all the same.
// What came out before the fault stays.
//
// Error 9 is raised where the stream leaves its buffers: header or extra bits behind the end of the input, a distance
// behind the start of the output, a codeword or a length symbol that means nothing, more output than was announced. A
// codeword that the input's end cuts off is completed by zeros.
#pragma once

#include <cstdint>

#include "base/bytes.h"

namespace kestrun {

inline constexpr int32_t kInflateBadBlock = -1;
inline constexpr int32_t kInflateLengthsDisagree = -2;

// Replaces the data by what it expands to. `last` is the announced size in bytes less 1. Codes that cannot be built
// show "Error in tree creation (Static)", for dynamic blocks too, and leave the data as it was. Memory is taken
// for what comes out, whatever was announced.
int32_t Inflate(Bytes& data, int64_t last, bool deflate64);

namespace deflate {

struct Expansion {
  int32_t status = 0;
  bool codes_built = true;
  size_t bytes = 0;  // written to the front of the output
};

// The same between two buffers, without a message.
[[nodiscard]] Expansion Expand(ByteView input, MutableByteView output, bool deflate64);
// The fast way as processors without BMI2 go it, on any processor.
[[nodiscard]] Expansion ExpandPortably(ByteView input, MutableByteView output, bool deflate64);
// As if the input were always near its end, byte by byte: what the fast ways have to agree with.
[[nodiscard]] Expansion ExpandCarefully(ByteView input, MutableByteView output, bool deflate64);

// Into a buffer that becomes as long as what comes out, and no longer than `most`.
[[nodiscard]] Expansion ExpandGrowing(ByteView input, uint64_t most, Bytes& output, bool deflate64);

// What a stream of that many bytes can expand to at most.
[[nodiscard]] uint64_t MostBytes(uint64_t input_bytes, bool deflate64);

}  // namespace deflate
}  // namespace kestrun
