#include "base/byte_array.h"
#include "base/convert.h"
#include "formats/zip/cls_encrypt.h"
#include "formats/zip_fixture.h"

namespace kestrun {
namespace {

using testing::ElementsAre;

class ZipPasswordTest : public ZipTest {
 protected:
  // A stored member under a password, with the checksum and size of what it holds.
  static ZipMember Secret(const std::string& name, const std::string& data, const std::string& password = "secret") {
    ZipMember member{name, ""};
    member.flags = 1;
    member.crc = ReferenceCrc(data);
    member.uncompressed_size = static_cast<uint32_t>(data.size());
    member.stored = EncryptMember(data, password, static_cast<uint8_t>(*member.crc >> 24));
    return member;
  }
};

TEST_F(ZipPasswordTest, ThePasswordIsAskedOnceInACall) {
  LoadZip({Secret("alpha.bms", "BMS alpha"), {"plain.txt", "plain"}, Secret("beta.bms", "BMS beta")});
  ExpectPassword("secret");
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_EQ(Extracted("alpha.bms"), "BMS alpha");
  EXPECT_EQ(Extracted("plain.txt"), "plain");
  EXPECT_EQ(Extracted("beta.bms"), "BMS beta");
}

TEST_F(ZipPasswordTest, ThePasswordIsNotKeptForTheNextCall) {
  LoadZip({Secret("alpha.bms", "BMS")});
  ExpectPassword("secret");
  EXPECT_EQ(UnPackAll(), 0);
  ExpectPassword("secret");
  EXPECT_EQ(UnPackAll(), 0);
}

TEST_F(ZipPasswordTest, AWrongPasswordStopsTheWholeCallAndEarlierMembersStay) {
  LoadZip({{"first.bms", "BMS"}, Secret("alpha.bms", "BMS alpha"), {"last.bms", "BMS"}});
  ExpectPassword("wrong");
  ExpectBox("Password is incorrect");
  EXPECT_EQ(UnPackAll(), -1);
  EXPECT_THAT(OutEntries(), ElementsAre("first.bms"));
}

TEST_F(ZipPasswordTest, AnEmptyAnswerAndCancelAreNoPassword) {
  LoadZip({Secret("alpha.bms", "BMS")});
  ExpectPassword("");
  ExpectBox("Password is incorrect");
  EXPECT_EQ(UnPackAll(), -1);
  ExpectPassword(std::nullopt);
  ExpectBox("Password is incorrect");
  EXPECT_EQ(UnPackAll(), -1);
  EXPECT_FALSE(FileIsThere(out));
}

TEST_F(ZipPasswordTest, AMemberUnderAnotherPasswordStopsTheCall) {
  LoadZip({Secret("alpha.bms", "BMS alpha"), Secret("beta.bms", "BMS beta", "other")});
  ExpectPassword("secret");
  ExpectBox("Password is incorrect");
  EXPECT_EQ(UnPackAll(), -1);
  EXPECT_THAT(OutEntries(), ElementsAre("alpha.bms"));
}

TEST_F(ZipPasswordTest, TheCheckByteIsOfTheChecksumAlsoWithADataDescriptor) {
  ZipMember member = Secret("alpha.bms", "BMS");
  member.flags = 9;
  member.has_descriptor = true;
  member.time = 0x5A00;
  LoadZip({member});
  ExpectPassword("secret");
  EXPECT_EQ(UnPackAll(), 0);

  // Checked by the time, as some writers do.
  member.stored = EncryptMember("BMS", "secret", 0x5A);
  LoadZip({member});
  ExpectPassword("secret");
  ExpectBox("Password is incorrect");
  EXPECT_EQ(UnPackAll(), -1);
}

TEST_F(ZipPasswordTest, ThePasswordCountsInTheBytesOfTheCodePage) {
  LoadZip({Secret("alpha.bms", "BMS", "caf\xE9")});
  ExpectPassword("café");
  EXPECT_EQ(UnPackAll(), 0);
}

TEST_F(ZipPasswordTest, AnEmptyEncryptedMemberIsAnEmptyFile) {
  LoadZip({Secret("empty.txt", "")});
  ExpectPassword("secret");
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_EQ(Extracted("empty.txt"), "");
}

TEST_F(ZipPasswordTest, AnEncryptedMemberTooShortForItsHeaderIsAnError) {
  ZipMember member{"alpha.bms", "eleven byte"};
  member.flags = 1;
  LoadZip({member, {"beta.bms", "BMS"}});
  ExpectBox("Error in zipfile");
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_THAT(OutEntries(), ElementsAre("beta.bms"));
}

TEST_F(ZipPasswordTest, APasswordIsAskedAlsoForAMethodThatIsNotSupported) {
  ZipMember member = Secret("alpha.bms", "BMS");
  member.method = 6;
  LoadZip({member});
  ExpectPassword("secret");
  EXPECT_EQ(UnPackAll(), -10);
}

// ---- the cipher --------------------------------------------------------------------------------------------------

TEST(ClsEncryptTest, WhatTheReferenceEncryptsIsDecrypted) {
  const std::string stored = EncryptMember("the data", "pass", 0xC3);
  Bytes buffer(stored.begin(), stored.end());
  const Ref<Cls_Encrypt> cipher = MakeRef<Cls_Encrypt>();
  cipher->ZipPrepareKey(buffer, "pass");
  EXPECT_EQ(std::string(AsChars(buffer).substr(0, 11)), "salt salt s");
  EXPECT_EQ(buffer[11], 0xC3);
  buffer.erase(buffer.begin(), buffer.begin() + 12);
  cipher->ZipDecryptArray(buffer);
  EXPECT_EQ(AsChars(buffer), "the data");
}

TEST(ClsEncryptTest, EncryptingPutsTwelveBytesInFrontAndIsUndone) {
  Bytes buffer{'d', 'a', 't', 'a'};
  const Ref<Cls_Encrypt> cipher = MakeRef<Cls_Encrypt>();
  cipher->ZipEncryptArray(buffer, "pass");
  EXPECT_EQ(buffer.size(), 16U);
  cipher->ZipPrepareKey(buffer, "pass");
  buffer.erase(buffer.begin(), buffer.begin() + 12);
  EXPECT_NE(AsChars(buffer), "data");
  cipher->ZipDecryptArray(buffer);
  EXPECT_EQ(AsChars(buffer), "data");
}

TEST(ClsEncryptTest, TheHeaderDiffersEachTime) {
  const Ref<Cls_Encrypt> cipher = MakeRef<Cls_Encrypt>();
  Bytes first;
  Bytes second;
  cipher->ZipEncryptArray(first, "pass");
  cipher->ZipEncryptArray(second, "pass");
  EXPECT_NE(first, second);
}

TEST(ClsEncryptTest, ABufferWithoutAHeaderIsRefused) {
  Bytes buffer(11);
  EXPECT_EQ(ErrorNumberOf([&] { return MakeRef<Cls_Encrypt>()->ZipPrepareKey(buffer, "pass"), 0; }),
            error::kSubscriptOutOfRange);
}

TEST(ClsEncryptTest, AScriptDecryptsInPlace) {
  const Ref<Cls_Encrypt> cipher = MakeRef<Cls_Encrypt>();
  const MemberId prepare = cipher->FindMember("zippreparekey");
  const MemberId decrypt = cipher->FindMember("ZipDecryptArray");
  const std::string stored = EncryptMember("", "pass", 0xC3);
  std::vector<Variant> arguments{ToByteArray(AsBytes(stored)), "pass"};
  cipher->Call(prepare, arguments);
  EXPECT_EQ(FromByteArray(arguments[0])[11], 0xC3);

  const std::string data = EncryptMember("x", "pass", 0xC3).substr(12);
  std::vector<Variant> rest{ToByteArray(AsBytes(data))};
  cipher->Call(decrypt, rest);
  EXPECT_EQ(FromByteArray(rest[0]), Bytes{'x'});

  std::vector<Variant> plain{ToByteArray({}), "pass"};
  cipher->Call(cipher->FindMember("ZipEncryptArray"), plain);
  EXPECT_EQ(FromByteArray(plain[0]).size(), 12U);
}

}  // namespace
}  // namespace kestrun
