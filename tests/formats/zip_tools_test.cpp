// Archives that other programs write while the test runs: Info-ZIP, 7-Zip, Python and Java. What they pack has to come
// out as it went in, without a word.
#ifndef _WIN32

#include "formats/zip_fixture.h"
#include "formats/zip_sample.h"
#include "support/outside_tools.h"

namespace kestrun {
namespace {

using testing::Each;

class ZipToolsTest : public ZipTest {
 protected:
  ZipToolsTest() {
    native_files.MakeFolder(Path("source"));
    native_files.MakeFolder(Path("source\\maps"));
    native_files.MakeFolder(Path("source\\maps\\deep"));
    for (const auto& [name, content] : SampleFiles()) WriteFile(Path("source\\" + name), content);
  }

  // The command runs among the files to be packed and writes ../maps.zip.
  void Pack(const std::string& command) { ASSERT_TRUE(RunIn(Path("source"), command)) << command; }
  void ExpectAllExtracted() {
    for (const auto& [name, content] : SampleFiles()) {
      ASSERT_TRUE(IsThere(name)) << name;
      EXPECT_EQ(Extracted(name) == content, true) << name;
    }
  }
  void ExpectRoundTrip(const std::string& command) {
    Pack(command);
    Load();
    EXPECT_EQ(UnPackAll(), 0);
    ExpectAllExtracted();
  }
  [[nodiscard]] std::vector<std::string> Methods() const {
    std::vector<std::string> methods;
    for (int32_t at = 1; at <= zip->FileCount(); ++at) {
      if (!zip->IsDir(at)) methods.push_back(zip->Method(at));
    }
    return methods;
  }
};

#define NEED_TOOL(name) \
  if (!HasTool(name)) GTEST_SKIP() << name << " is not installed"

TEST_F(ZipToolsTest, InfoZipStored) {
  NEED_TOOL("zip");
  ExpectRoundTrip("zip -q -0 -r ../maps.zip .");
  EXPECT_THAT(Methods(), Each("No Compression"));
  EXPECT_EQ(zip->SystemMadeBy(1), "UNIX");
}

class ZipLevelTest : public ZipToolsTest, public testing::WithParamInterface<int> {};

TEST_P(ZipLevelTest, InfoZipDeflated) {
  NEED_TOOL("zip");
  ExpectRoundTrip("zip -q -" + std::to_string(GetParam()) + " -r ../maps.zip .");
  EXPECT_THAT(Methods(), testing::Contains("Deflated"));
}

TEST_P(ZipLevelTest, SevenZipDeflated) {
  NEED_TOOL("7z");
  ExpectRoundTrip("7z a -tzip -mm=Deflate -mx=" + std::to_string(GetParam()) + " ../maps.zip .");
  EXPECT_THAT(Methods(), testing::Contains("Deflated"));
}

TEST_P(ZipLevelTest, SevenZipDeflate64) {
  NEED_TOOL("7z");
  ExpectRoundTrip("7z a -tzip -mm=Deflate64 -mx=" + std::to_string(GetParam()) + " ../maps.zip .");
  EXPECT_THAT(Methods(), testing::Contains("Enhanced Deflating"));
}

INSTANTIATE_TEST_SUITE_P(AllLevels, ZipLevelTest, testing::Range(1, 10));

TEST_F(ZipToolsTest, SevenZipStored) {
  NEED_TOOL("7z");
  ExpectRoundTrip("7z a -tzip -mm=Copy ../maps.zip .");
  EXPECT_THAT(Methods(), Each("No Compression"));
}

TEST_F(ZipToolsTest, SevenZipEncrypted) {
  NEED_TOOL("7z");
  Pack("7z a -tzip -mem=ZipCrypto -psecret ../maps.zip .");
  Load();
  ExpectPassword("secret");
  EXPECT_EQ(UnPackAll(), 0);
  ExpectAllExtracted();
  ExpectPassword("Secret");
  ExpectBox("Password is incorrect");
  EXPECT_EQ(UnPackAll(), -1);
}

TEST_F(ZipToolsTest, SevenZipEncryptedDeflate64) {
  NEED_TOOL("7z");
  Pack("7z a -tzip -mm=Deflate64 -mem=ZipCrypto -psecret ../maps.zip .");
  Load();
  ExpectPassword("secret");
  EXPECT_EQ(UnPackAll(), 0);
  ExpectAllExtracted();
}

// Info-ZIP checks its passwords by the time of the file, in the place of a checksum that it does not know yet. The
// reader compares with the checksum all the same, so that even the right password is refused.
TEST_F(ZipToolsTest, InfoZipEncryptedIsRefusedForItsCheckByTime) {
  NEED_TOOL("zip");
  const auto crc_byte = static_cast<uint8_t>(ReferenceCrc(SampleFiles().at("readme.txt")) >> 24);
  ASSERT_NE(crc_byte, 0x79);  // 15:09 in a DOS time
  Pack("TZ=UTC touch -d '2006-03-14 15:09:26' readme.txt && TZ=UTC zip -q -P secret ../maps.zip readme.txt");
  Load();
  EXPECT_TRUE(zip->Encrypted(1));
  ExpectPassword("secret");
  ExpectBox("Password is incorrect");
  EXPECT_EQ(UnPackAll(), -1);
}

TEST_F(ZipToolsTest, InfoZipWithAnArchiveComment) {
  NEED_TOOL("zip");
  ExpectRoundTrip("printf 'Maps of the month' | zip -q -z -r ../maps.zip .");
  EXPECT_EQ(zip->CommentsPack(), "Maps of the month");
}

TEST_F(ZipToolsTest, InfoZipWithDataDescriptors) {
  NEED_TOOL("zip");
  ExpectRoundTrip("zip -q -fd -r ../maps.zip .");
}

TEST_F(ZipToolsTest, InfoZipToAPipe) {
  NEED_TOOL("zip");
  ExpectRoundTrip("zip -q -r - . | cat > ../maps.zip");
}

TEST_F(ZipToolsTest, InfoZipWithoutDirectoriesAndExtraFields) {
  NEED_TOOL("zip");
  ExpectRoundTrip("zip -q -X -D -r ../maps.zip .");
  for (const std::string& name : Names()) EXPECT_NE(name.back(), '/');
}

TEST_F(ZipToolsTest, ThousandsOfMembers) {
  NEED_TOOL("zip");
  Pack(
      "mkdir many && cd many && for at in $(seq 5000); do echo map $at > m$at.txt; done && zip -q -r ../../maps.zip .");
  Load();
  EXPECT_EQ(zip->FileCount(), 5000);
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_EQ(Extracted("m1.txt"), "map 1\n");
  EXPECT_EQ(Extracted("m5000.txt"), "map 5000\n");
}

constexpr const char* kPython = R"(python3 - <<'END'
import os, zipfile
with zipfile.ZipFile('../maps.zip', 'w', zipfile.ZIP_DEFLATED) as archive:
    for folder, _, files in os.walk('.'):
        for name in files:
            archive.write(os.path.join(folder, name))
    archive.getinfo('readme.txt').comment = b'Read me'
    archive.comment = b'Packed by a snake'
END)";

TEST_F(ZipToolsTest, PythonWithComments) {
  NEED_TOOL("python3");
  ExpectRoundTrip(kPython);
  EXPECT_EQ(zip->CommentsPack(), "Packed by a snake");
  std::vector<std::string> comments;
  for (int32_t at = 1; at <= zip->FileCount(); ++at) {
    if (zip->FileName(at) == "readme.txt") comments.push_back(zip->CommentsFile(at));
  }
  EXPECT_THAT(comments, testing::ElementsAre("Read me"));
}

TEST_F(ZipToolsTest, PythonToAStreamThatCannotGoBack) {
  NEED_TOOL("python3");
  ExpectRoundTrip(R"(python3 - <<'END' | cat > ../maps.zip
import os, sys, zipfile
class Stream:
    def write(self, data):
        return sys.stdout.buffer.write(data)
    def flush(self):
        sys.stdout.buffer.flush()
with zipfile.ZipFile(Stream(), 'w', zipfile.ZIP_DEFLATED) as archive:
    for folder, _, files in os.walk('.'):
        for name in files:
            archive.write(os.path.join(folder, name))
END)");
}

TEST_F(ZipToolsTest, JavaWithDataDescriptors) {
  NEED_TOOL("jar");
  ExpectRoundTrip("jar cfM ../maps.zip .");
}

TEST_F(ZipToolsTest, JavaStored) {
  NEED_TOOL("jar");
  ExpectRoundTrip("jar cfM0 ../maps.zip .");
}

// The folder of a jar's manifest holds two compressed bytes of nothing: it is no directory by its size, and no file by
// its name.
TEST_F(ZipToolsTest, TheManifestFolderOfAJarIsNoFile) {
  NEED_TOOL("jar");
  Pack("jar cf ../maps.zip .");
  Load();
  ExpectBox("error writing file");
  EXPECT_EQ(UnPackAll(), 0);
  ExpectAllExtracted();
  EXPECT_TRUE(IsThere("META-INF\\MANIFEST.MF"));
}

TEST_F(ZipToolsTest, TheDateOfAFileIsTold) {
  NEED_TOOL("zip");
  Pack("touch -d '2006-03-14 15:09:26' readme.txt && zip -q ../maps.zip readme.txt");
  Load();
  EXPECT_DOUBLE_EQ(zip->FileDateTime(1), 38790 + (15 * 3600 + 9 * 60 + 26) / 86400.0);
}

}  // namespace
}  // namespace kestrun

#endif  // _WIN32
