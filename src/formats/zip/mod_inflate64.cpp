#include "formats/zip/mod_inflate64.h"

#include <algorithm>
#include <array>

#include "base/runtime_error.h"
#include "base/to_size.h"
#include "formats/zip/block_codes.h"
#include "formats/zip/fast_loop.h"
#include "platform/platform.h"

namespace kestrun {
namespace deflate {
namespace {

// A match takes 2 bits for 258 bytes at best; in Deflate64 18 bits for 65538.
constexpr uint64_t kMostPerByte = 1032;
constexpr uint64_t kMostPerByte64 = 29128;

// Few streams expand further than this; those that do get more room as they fill it, so that a stream takes memory for
// what comes out of it and not for what was announced.
constexpr uint64_t kFirstPerByte = 16;
constexpr uint64_t kFirstBytes = 64 * 1024;

enum class Pace { kFast, kFastPortable, kCareful };

// The buffer behind an output that may grow, and how long it may become.
struct Growth {
  Bytes& buffer;
  size_t most;
};

template <bool kDeflate64>
class Inflater {
 public:
  Inflater(ByteView input, MutableByteView output, Pace pace)
      : reader_(input), begin_(output.data()), out_(begin_), end_(begin_ + output.size()), pace_(pace) {}
  Inflater(ByteView input, Growth& growth) : Inflater(input, growth.buffer, Pace::kFast) { growth_ = &growth; }

  Expansion Run() {
    while (ExpandBlock()) {
    }
    result_.bytes = static_cast<size_t>(out_ - begin_);
    return result_;
  }

 private:
  // False after the last block, and when a fault ends the stream.
  bool ExpandBlock() {
    const bool is_last = reader_.Read(1) != 0;
    switch (reader_.Read(2)) {
      case 0: return CopyStored() && !is_last;
      case 1: codes_ = &StaticCodes(); break;
      case 2:
        if (!ReadCodes(reader_, dynamic_codes_)) {
          result_.codes_built = false;
          return false;
        }
        codes_ = &dynamic_codes_;
        break;
      default: return Fail();
    }
    ExpandCodes();
    return !is_last;
  }

  bool Fail() {
    result_.status = kInflateBadBlock;
    return false;
  }

  bool CopyStored() {
    if (reader_.Remaining() < 4) return Fail();
    reader_.AlignToByte();
    const uint8_t* header = reader_.next;
    const size_t length = LoadU16(ByteView(header, 4), 0);
    if (length != (LoadU16(ByteView(header, 4), 2) ^ 0xFFFFU)) result_.status = kInflateLengthsDisagree;
    reader_.next += 4;
    if (static_cast<int64_t>(length) > reader_.Remaining() || !HasRoom(length)) return Fail();
    out_ = std::copy_n(reader_.next, length, out_);
    reader_.next += length;
    return true;
  }

  [[nodiscard]] size_t Room() const { return static_cast<size_t>(end_ - out_); }
  [[nodiscard]] bool CanGrow() const { return growth_ && growth_->buffer.size() < growth_->most; }

  // True when that many bytes fit, if need be after the output has grown.
  [[nodiscard]] bool HasRoom(size_t bytes) {
    if (bytes > Room() && CanGrow()) Grow(bytes);
    return bytes <= Room();
  }

  void Grow(size_t bytes) {
    const auto used = static_cast<size_t>(out_ - begin_);
    Bytes& buffer = growth_->buffer;
    buffer.resize(std::min(growth_->most, std::max(buffer.size() * 2, used + bytes)));
    begin_ = buffer.data();
    out_ = begin_ + used;
    end_ = begin_ + buffer.size();
  }

  void ExpandCodes() {
    do {
      if (RunFarFromTheEnds() == BlockEnd::kReached) return;
    } while (ExpandSymbol());
  }

  BlockEnd RunFarFromTheEnds() {
    // A long match of Deflate64 may not fit into what is there yet, which the fast way takes for a fault.
    if (kDeflate64 && CanGrow()) return BlockEnd::kNotYet;
    switch (pace_) {
      case Pace::kFast: return RunFast<kDeflate64>(reader_, *codes_, begin_, out_, end_);
      case Pace::kFastPortable: return RunFastPortably<kDeflate64>(reader_, *codes_, begin_, out_, end_);
      case Pace::kCareful: break;
    }
    return BlockEnd::kNotYet;
  }

  // False at the end of the block.
  bool ExpandSymbol() {
    const Entry entry = Next(codes_->literals, kLiteralTableBits, codes_->longest_literal);
    if ((entry & kLiteral) != 0) {
      if (!HasRoom(1)) Raise(error::kSubscriptOutOfRange);
      *out_++ = static_cast<uint8_t>(entry >> 16);
      return true;
    }
    if ((entry & kExceptional) != 0) return false;
    size_t length = ValueOf(entry) + ReadExtraBits(entry);
    if (kDeflate64 && length == 258) length = reader_.Read(16) + 3;
    const Entry distance_entry = Next(codes_->distances, kDistanceTableBits, codes_->longest_distance);
    Copy(length, (distance_entry >> 16) + ReadExtraBits(distance_entry));
    return true;
  }

  // Removes the codeword; the extra bits are still there.
  Entry Next(std::span<const Entry> table, unsigned table_bits, int longest) {
    reader_.Fill(static_cast<unsigned>(longest));
    Entry entry = table[reader_.bits & ((1U << table_bits) - 1)];
    if ((entry & kExceptional) != 0 && (entry & kPointer) != 0) {
      reader_.Remove(table_bits);
      entry = table[ValueOf(entry) + (reader_.bits & ((1U << CodewordBits(entry)) - 1))];
    }
    if ((entry & kExceptional) != 0 && (entry & kInvalid) != 0) Raise(error::kSubscriptOutOfRange);
    reader_.Remove(CodewordBits(entry));
    return entry;
  }

  [[nodiscard]] unsigned ReadExtraBits(Entry entry) {
    const unsigned extra_bits = BitsOf(entry) - CodewordBits(entry);
    return extra_bits == 0 ? 0 : reader_.Read(extra_bits);
  }

  // Byte by byte: a match may overlap what it produces.
  void Copy(size_t length, size_t distance) {
    if (distance > static_cast<size_t>(out_ - begin_) || !HasRoom(length)) Raise(error::kSubscriptOutOfRange);
    for (const uint8_t* from = out_ - distance; length > 0; --length) *out_++ = *from++;
  }

  BitReader reader_;
  uint8_t* begin_;
  uint8_t* out_;
  uint8_t* end_;
  Pace pace_;
  Growth* growth_ = nullptr;
  const BlockCodes* codes_ = nullptr;
  BlockCodes dynamic_codes_;
  Expansion result_;
};

Expansion ExpandAt(Pace pace, ByteView input, MutableByteView output, bool deflate64) {
  if (deflate64) return Inflater<true>(input, output, pace).Run();
  return Inflater<false>(input, output, pace).Run();
}

}  // namespace

Expansion Expand(ByteView input, MutableByteView output, bool deflate64) {
  return ExpandAt(Pace::kFast, input, output, deflate64);
}

Expansion ExpandPortably(ByteView input, MutableByteView output, bool deflate64) {
  return ExpandAt(Pace::kFastPortable, input, output, deflate64);
}

Expansion ExpandCarefully(ByteView input, MutableByteView output, bool deflate64) {
  return ExpandAt(Pace::kCareful, input, output, deflate64);
}

Expansion ExpandGrowing(ByteView input, uint64_t most, Bytes& output, bool deflate64) {
  // A cast alone would make a small limit of a large one where sizes have 32 bits.
  const size_t limit = ToSize(std::min(most, kMostMemoryBytes));
  output.assign(ToSize(std::min<uint64_t>(limit, input.size() * kFirstPerByte + kFirstBytes)), 0);
  Growth growth{output, limit};
  const Expansion done = deflate64 ? Inflater<true>(input, growth).Run() : Inflater<false>(input, growth).Run();
  output.resize(done.bytes);
  return done;
}

uint64_t MostBytes(uint64_t input_bytes, bool deflate64) {
  return input_bytes * (deflate64 ? kMostPerByte64 : kMostPerByte);
}

}  // namespace deflate

int32_t Inflate(Bytes& data, int64_t last, bool deflate64) {
  const auto announced = static_cast<uint64_t>(std::max<int64_t>(last + 1, 0));
  // No file of the program's is larger.
  constexpr uint64_t kLargest = 0x7FFFFFFF;
  const uint64_t most = std::min({announced, deflate::MostBytes(data.size(), deflate64), kLargest});
  Bytes output;
  const deflate::Expansion done = deflate::ExpandGrowing(data, most, output, deflate64);
  if (!done.codes_built) {
    MsgBox("Error in tree creation (Static)");
    return done.status;
  }
  data = std::move(output);
  return done.status;
}

}  // namespace kestrun
