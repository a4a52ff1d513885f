// Expanding whole buffers and their checksum, beside libdeflate and zlib in the same run. Each ratio is the best time
// of the peer over our best, in rounds that take turns.
#include <libdeflate.h>
#include <zlib.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>

#include "base/crc32.h"
#include "deflate64_transcoder.h"
#include "formats/zip/mod_inflate64.h"
#include "inflate_corpora.h"

namespace kestrun {
namespace {

constexpr int kRounds = 150;
constexpr size_t kBytesPerRound = 500'000;
constexpr double kLeastOfLibdeflate = 0.9;
constexpr double kLeastOfZlib = 2.0;
constexpr double kLeastOfOwnDeflate = 0.9;
constexpr double kLeastOfZlibChecksum = 2.0;
constexpr double kLeastOfLibdeflateChecksum = 0.8;

void Require(bool holds) {
  if (!holds) std::abort();
}

bool all_passed = true;

void Report(const char* what, double ratio, double least) {
  const bool passed = ratio >= least;
  all_passed = all_passed && passed;
  std::printf("   %s %.2f %s", what, ratio, passed ? "PASS" : "FAIL");
}

// The shortest of the times that are told.
class Best {
 public:
  template <class Work>
  void Time(size_t times, Work&& work) {
    const auto start = std::chrono::steady_clock::now();
    for (size_t at = 0; at < times; ++at) work();
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    seconds_ = std::min(seconds_, taken.count());
  }
  [[nodiscard]] double Seconds() const { return seconds_; }

 private:
  double seconds_ = 1e9;
};

// ---- expanding ---------------------------------------------------------------------------------------------------

Bytes DeflateByZlib(const Bytes& data, int level) {
  Bytes out(compressBound(data.size()) + 64);
  z_stream stream{};
  Require(deflateInit2(&stream, level, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY) == Z_OK);
  stream.next_in = const_cast<Bytef*>(data.data());
  stream.avail_in = static_cast<uInt>(data.size());
  stream.next_out = out.data();
  stream.avail_out = static_cast<uInt>(out.size());
  Require(::deflate(&stream, Z_FINISH) == Z_STREAM_END);
  out.resize(stream.total_out);
  deflateEnd(&stream);
  return out;
}

void InflateByZlib(const Bytes& data, Bytes& out) {
  z_stream stream{};
  Require(inflateInit2(&stream, -15) == Z_OK);
  stream.next_in = const_cast<Bytef*>(data.data());
  stream.avail_in = static_cast<uInt>(data.size());
  stream.next_out = out.data();
  stream.avail_out = static_cast<uInt>(out.size());
  Require(inflate(&stream, Z_FINISH) == Z_STREAM_END);
  inflateEnd(&stream);
}

void InflateByLibdeflate(libdeflate_decompressor* peer, const Bytes& data, Bytes& out) {
  size_t bytes = 0;
  Require(libdeflate_deflate_decompress(peer, data.data(), data.size(), out.data(), out.size(), &bytes) ==
          LIBDEFLATE_SUCCESS);
}

void InflateByOurs(const Bytes& data, Bytes& out, bool deflate64) {
  const deflate::Expansion done = deflate::Expand(data, out, deflate64);
  Require(done.status == 0 && done.bytes == out.size());
}

// A buffer in its three shapes, and room for what comes out.
struct Sample {
  Sample(const Bytes& bytes, int level)
      : data(DeflateByZlib(bytes, level)), data64(Deflate64Transcoder(data).Run()), out(bytes.size()) {
    for (const bool deflate64 : {false, true}) {
      InflateByOurs(deflate64 ? data64 : data, out, deflate64);
      Require(out == bytes);
    }
  }
  Bytes data;
  Bytes data64;
  Bytes out;
};

void CompareExpanding(const Corpus& corpus, int level, libdeflate_decompressor* decompressor) {
  std::vector<Sample> samples;
  size_t packed = 0;
  size_t bytes = 0;
  for (const Bytes& buffer : corpus.buffers) {
    const Sample& sample = samples.emplace_back(buffer, level);
    packed += sample.data.size();
    bytes += buffer.size();
  }
  const auto with_each = [&](auto expand) {
    return [&samples, expand] {
      for (Sample& sample : samples) expand(sample);
    };
  };
  const size_t times = 1 + kBytesPerRound / bytes;
  Best ours;
  Best ours64;
  Best libdeflate;
  Best zlib;
  for (int round = 0; round < kRounds; ++round) {
    ours.Time(times, with_each([](Sample& one) { InflateByOurs(one.data, one.out, false); }));
    libdeflate.Time(times, with_each([&](Sample& one) { InflateByLibdeflate(decompressor, one.data, one.out); }));
    ours64.Time(times, with_each([](Sample& one) { InflateByOurs(one.data64, one.out, true); }));
    zlib.Time(times, with_each([](Sample& one) { InflateByZlib(one.data, one.out); }));
  }
  const double megabytes = static_cast<double>(bytes * times) / 1e6;
  std::printf("%-14s level %d %8zu -> %8zu  %5.0f MB/s", corpus.name.c_str(), level, packed, bytes,
              megabytes / ours.Seconds());
  Report("of libdeflate", libdeflate.Seconds() / ours.Seconds(), kLeastOfLibdeflate);
  Report("of zlib", zlib.Seconds() / ours.Seconds(), kLeastOfZlib);
  Report("Deflate64 of Deflate", ours.Seconds() / ours64.Seconds(), kLeastOfOwnDeflate);
  std::printf("\n");
}

void CompareExpanding() {
  libdeflate_decompressor* decompressor = libdeflate_alloc_decompressor();
  Require(decompressor != nullptr);
  for (const Corpus& corpus : MakeCorpora()) {
    for (const int level : {1, 6, 9}) CompareExpanding(corpus, level, decompressor);
  }
  libdeflate_free_decompressor(decompressor);
}

// ---- checksum ----------------------------------------------------------------------------------------------------

void CompareChecksum(size_t bytes) {
  const Bytes data = MakeRecords(bytes, 1);
  const auto length = static_cast<uInt>(bytes);
  const uint32_t expected = static_cast<uint32_t>(::crc32(0, data.data(), length));
  Require(~crc32::Update(crc32::kStart, data) == expected && ~crc32::UpdateByTables(crc32::kStart, data) == expected);
  const size_t times = 1 + kBytesPerRound / bytes;
  uint32_t sum = 0;
  Best ours;
  Best tables;
  Best libdeflate;
  Best zlib;
  for (int round = 0; round < kRounds; ++round) {
    ours.Time(times, [&] { sum += crc32::Update(crc32::kStart, data); });
    libdeflate.Time(times, [&] { sum += libdeflate_crc32(0, data.data(), bytes); });
    zlib.Time(times, [&] { sum += static_cast<uint32_t>(::crc32(0, data.data(), length)); });
    tables.Time(times, [&] { sum += crc32::UpdateByTables(crc32::kStart, data); });
  }
  const double megabytes = static_cast<double>(bytes * times) / 1e6;
  std::printf("CRC-32 %8zu bytes %6.0f MB/s", bytes, megabytes / ours.Seconds());
  Report("of zlib", zlib.Seconds() / ours.Seconds(), kLeastOfZlibChecksum);
  Report("of libdeflate", libdeflate.Seconds() / ours.Seconds(), kLeastOfLibdeflateChecksum);
  std::printf("   by tables alone, of zlib %.2f (sum %u)\n", zlib.Seconds() / tables.Seconds(), sum & 1);
}

}  // namespace
}  // namespace kestrun

int main() {
  kestrun::CompareExpanding();
  for (const size_t bytes : {256, 1000, 4096, 65536, 1 << 20}) kestrun::CompareChecksum(bytes);
  return kestrun::all_passed ? 0 : 1;
}
