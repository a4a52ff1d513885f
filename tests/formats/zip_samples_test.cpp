// Archives that other programs made once, for the machines where those programs are not. tests/formats/data/README.md
// says how each was made.
#include "formats/zip_fixture.h"
#include "formats/zip_sample.h"

namespace kestrun {
namespace {

using testing::ElementsAre;

class ZipSamplesTest : public ZipTest {
 protected:
  void Load(const std::string& name) {
    ASSERT_EQ(zip->Get_Contents(std::string(KESTRUN_FORMATS_DATA) + "/" + name), 0);
  }
  // All sample files but the one that only the Deflate64 archive holds.
  void ExpectAllExtracted() {
    for (const auto& [name, content] : SampleFiles()) {
      if (name == "far.bin") continue;
      ASSERT_TRUE(IsThere(name)) << name;
      EXPECT_TRUE(Extracted(name) == content) << name;
    }
  }
  void ExpectWhole(const std::string& name) {
    Load(name);
    EXPECT_EQ(UnPackAll(), 0);
    ExpectAllExtracted();
  }
};

TEST_F(ZipSamplesTest, InfoZipStored) { ExpectWhole("infozip_stored.zip"); }

TEST_F(ZipSamplesTest, InfoZipDeflated) {
  ExpectWhole("infozip_deflated.zip");
  EXPECT_EQ(zip->SystemMadeBy(1), "UNIX");
  EXPECT_EQ(zip->VersionMadeBy(1), "3.0");
}

TEST_F(ZipSamplesTest, InfoZipWithAnArchiveComment) {
  ExpectWhole("infozip_comment.zip");
  EXPECT_EQ(zip->CommentsPack(), "Maps of the month");
}

TEST_F(ZipSamplesTest, InfoZipToAPipe) { ExpectWhole("infozip_stream.zip"); }

TEST_F(ZipSamplesTest, PythonWithAnArchiveComment) {
  ExpectWhole("python.zip");
  EXPECT_EQ(zip->CommentsPack(), "Packed by a snake");
}

TEST_F(ZipSamplesTest, Java) { ExpectWhole("java.zip"); }

TEST_F(ZipSamplesTest, SevenZipDeflate64) {
  ExpectWhole("sevenzip_deflate64.zip");
  EXPECT_TRUE(Extracted("far.bin") == SampleFiles().at("far.bin"));
}

TEST_F(ZipSamplesTest, SevenZipEncrypted) {
  Load("sevenzip_encrypted.zip");
  ExpectPassword("secret");
  EXPECT_EQ(UnPackAll(), 0);
  ExpectAllExtracted();
}

TEST_F(ZipSamplesTest, SevenZipEncryptedWithAWrongPassword) {
  Load("sevenzip_encrypted.zip");
  ExpectPassword("Secret");
  ExpectBox("Password is incorrect");
  EXPECT_EQ(UnPackAll(), -1);
}

TEST_F(ZipSamplesTest, TheMembersOfAnArchiveInOrder) {
  Load("sevenzip_deflate64.zip");
  std::vector<std::string> rows;
  for (int32_t at = 1; at <= zip->FileCount(); ++at) {
    rows.push_back(zip->FileName(at) + " " + zip->Method(at) + " " + std::to_string(zip->UnCompressed_Size(at)));
  }
  EXPECT_THAT(rows,
              ElementsAre("empty.txt No Compression 0", "far.bin Enhanced Deflating 150000", "maps/ No Compression 0",
                          "maps/deep/ No Compression 0", "maps/deep/noise.bin No Compression 5000",
                          "maps/river.bms Enhanced Deflating 7456", "readme.txt Enhanced Deflating 6290"));
}

}  // namespace
}  // namespace kestrun
