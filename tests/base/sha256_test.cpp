#include "base/sha256.h"

#include <gtest/gtest.h>

namespace kestrun {
namespace {

// The examples that NIST publishes with FIPS 180-4.
TEST(Sha256Test, GivesThePublishedDigests) {
  EXPECT_EQ(Sha256Hex({}), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
  EXPECT_EQ(Sha256Hex(AsBytes("abc")), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  EXPECT_EQ(Sha256Hex(AsBytes("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq")),
            "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
  EXPECT_EQ(Sha256Hex(AsBytes("abcdefghbcdefghicdefghijdefghijkefghijklfghijklmghijklmnhijklmnoijklmnopjklmnopqklmnopqr"
                              "lmnopqrsmnopqrstnopqrstu")),
            "cf5b16a778af8380036ce59e7b0492370b249b11e8f07a51afac45037afee9d1");
  EXPECT_EQ(Sha256Hex(Bytes(1'000'000, 'a')), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(Sha256Test, PiecesOfAnySizeGiveTheDigestOfTheWhole) {
  Bytes bytes(1000);
  for (size_t at = 0; at < bytes.size(); ++at) bytes[at] = static_cast<uint8_t>(at * 7);
  const std::string whole = Sha256Hex(bytes);
  for (const size_t piece : {1, 3, 55, 56, 63, 64, 65, 127, 128, 999}) {
    Sha256 hash;
    for (size_t at = 0; at < bytes.size(); at += piece) {
      hash.Add(ByteView(bytes).subspan(at, std::min(piece, bytes.size() - at)));
    }
    EXPECT_EQ(HexOf(hash.Finish()), whole) << piece;
  }
}

// A length at each side of the place where the padding needs another block.
TEST(Sha256Test, LengthsAroundTheEndOfABlockDifferFromEachOther) {
  EXPECT_EQ(Sha256Hex(Bytes(55, 'a')), "9f4390f8d30c2dd92ec9f095b65e2b9ae9b0a925a5258e241c9f1e910f734318");
  EXPECT_EQ(Sha256Hex(Bytes(56, 'a')), "b35439a4ac6f0948b6d6f9e3c6af0f5f590ce20f1bde7090ef7970686ec6738a");
  EXPECT_EQ(Sha256Hex(Bytes(64, 'a')), "ffe054fe7ae0cb6dc65c3af9b61d5209f439851db43d0ba5997337df154668eb");
}

// On a processor with instructions of its own for it the digests above come from those.
TEST(Sha256Test, EveryProcessorGivesTheSameState) {
  Bytes bytes(9 * sha256::kBlockBytes);
  for (size_t at = 0; at < bytes.size(); ++at) bytes[at] = static_cast<uint8_t>(at * at + 3);
  for (size_t blocks = 0; blocks <= 9; ++blocks) {
    sha256::State by_words{1, 2, 3, 4, 5, 6, 7, 0xFFFFFFFF};
    sha256::State state = by_words;
    sha256::AddBlocksByWords(by_words, bytes.data(), blocks);
    sha256::AddBlocks(state, bytes.data(), blocks);
    EXPECT_EQ(state, by_words) << blocks;
  }
}

TEST(Sha256Test, OnlySixtyFourLowerCaseDigitsAreADigest) {
  EXPECT_TRUE(IsSha256Hex(std::string(64, 'a')));
  EXPECT_FALSE(IsSha256Hex(std::string(63, 'a')));
  EXPECT_FALSE(IsSha256Hex(std::string(64, 'A')));
  EXPECT_FALSE(IsSha256Hex(".." + std::string(62, '/')));
}

}  // namespace
}  // namespace kestrun
