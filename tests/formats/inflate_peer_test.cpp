// Against zlib: streams of all its levels, whole, cut and damaged.
#ifndef _WIN32

#include <zlib.h>

#include <algorithm>

#include "base/runtime_error.h"
#include "formats/inflate_ways.h"
#include "formats/zip/mod_inflate64.h"
#include "formats/zip_sample.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

constexpr int kRaw = -15;  // no header, 32 KB back

Bytes Deflate(std::string_view text, int level, int strategy) {
  Bytes out(compressBound(text.size()) + 64);
  z_stream stream{};
  EXPECT_EQ(deflateInit2(&stream, level, Z_DEFLATED, kRaw, 9, strategy), Z_OK);
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
  stream.avail_in = static_cast<uInt>(text.size());
  stream.next_out = out.data();
  stream.avail_out = static_cast<uInt>(out.size());
  EXPECT_EQ(::deflate(&stream, Z_FINISH), Z_STREAM_END);
  out.resize(stream.total_out);
  deflateEnd(&stream);
  return out;
}

// Nothing when zlib does not come to the end of the stream.
std::optional<std::string> InflateByZlib(const Bytes& data, size_t most) {
  std::string out(most + 1, '\0');
  z_stream stream{};
  EXPECT_EQ(inflateInit2(&stream, kRaw), Z_OK);
  stream.next_in = const_cast<Bytef*>(data.data());
  stream.avail_in = static_cast<uInt>(data.size());
  stream.next_out = reinterpret_cast<Bytef*>(out.data());
  stream.avail_out = static_cast<uInt>(out.size());
  const int result = inflate(&stream, Z_FINISH);
  out.resize(stream.total_out);
  inflateEnd(&stream);
  if (result != Z_STREAM_END || out.size() > most) return std::nullopt;
  return out;
}

class InflatePeerTest : public HeadlessTest {
 protected:
  InflatePeerTest() {
    desktop.OnUnexpected([](const UnexpectedQuestion&) {});
  }

  static std::optional<std::string> InflateByOurs(const Bytes& data, size_t most) {
    Bytes buffer = data;
    try {
      if (Inflate(buffer, static_cast<int64_t>(most) - 1, false) != 0) return std::nullopt;
    } catch (const RuntimeError&) {
      return std::nullopt;
    }
    return std::string(AsChars(buffer));
  }
};

std::vector<std::string> Texts() {
  std::vector<std::string> texts;
  for (const auto& [name, content] : SampleFiles()) texts.push_back(content);
  std::string book;
  for (int at = 0; at < 40000; ++at) book += "the quick brown fox " + std::to_string(at * 7919 % 1000) + "\n";
  texts.push_back(book);
  return texts;
}

TEST_F(InflatePeerTest, EveryLevelAndStrategyComesOutWhole) {
  for (const std::string& text : Texts()) {
    for (int level = 0; level <= 9; ++level) {
      for (const int strategy : {Z_DEFAULT_STRATEGY, Z_FILTERED, Z_HUFFMAN_ONLY, Z_RLE, Z_FIXED}) {
        const Bytes data = Deflate(text, level, strategy);
        ASSERT_TRUE(InflateByOurs(data, text.size()) == text) << level << " " << strategy << " " << text.size();
        for (const Way way : {&deflate::ExpandPortably, &deflate::ExpandCarefully}) {
          const Outcome outcome = RunWay(way, data, text.size(), false);
          ASSERT_EQ(outcome.status, 0);
          ASSERT_TRUE(AsChars(outcome.bytes) == text);
        }
      }
    }
  }
}

TEST_F(InflatePeerTest, EveryCutOfASmallStreamIsNeverWhole) {
  const std::string text = SampleFiles().at("readme.txt");
  const Bytes data = Deflate(text, 9, Z_DEFAULT_STRATEGY);
  for (size_t bytes = 0; bytes + 2 < data.size(); ++bytes) {
    const Bytes cut(data.begin(), data.begin() + static_cast<ptrdiff_t>(bytes));
    const std::optional<std::string> ours = InflateByOurs(cut, text.size());
    ASSERT_FALSE(InflateByZlib(cut, text.size()));
    // Short, or a failure; never the announced size.
    ASSERT_TRUE(!ours || ours->size() < text.size()) << bytes;
  }
}

TEST_F(InflatePeerTest, DamagedStreamsThatZlibReadsComeOutTheSame) {
  const std::string text = SampleFiles().at("maps/river.bms");
  const Bytes whole = Deflate(text, 6, Z_DEFAULT_STRATEGY);
  int read_by_both = 0;
  for (size_t bit = 0; bit < whole.size() * 8; bit += 3) {
    Bytes damaged = whole;
    damaged[bit / 8] = static_cast<uint8_t>(damaged[bit / 8] ^ (1U << (bit % 8)));
    const size_t most = text.size() * 2;
    const std::optional<std::string> peer = InflateByZlib(damaged, most);
    if (!peer) continue;
    ASSERT_TRUE(InflateByOurs(damaged, most) == peer) << bit;
    ++read_by_both;
  }
  EXPECT_GT(read_by_both, 10);
}

}  // namespace
}  // namespace kestrun

#endif  // _WIN32
