// Names of members that would lead outside the folder that the user chose.
#include "base/code_page.h"
#include "formats/zip/member_path.h"
#include "formats/zip_fixture.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Names that stay inside, with what is left of them on disk.
constexpr std::string_view kHarmless[]{
    "alpha.bms",
    "maps/alpha.bms",
    "maps\\alpha.bms",
    "./alpha.bms",
    "maps/./alpha.bms",
    "maps//alpha.bms",
    "..alpha.bms",
    "...alpha",
    ".hidden",
    "a..b/c",
    "my map v1.2.bms",
    "console.txt",
    "COM10.bms",
    "comb.bms",
    "null/alpha.bms",
    "auxiliary",
    "lpt",
    "COM",
    "CON-alpha.bms",
    " leading blank",
    "maps/café.bms",
};

constexpr std::string_view kDangerous[]{
    "../alpha.bms",
    "..\\alpha.bms",
    "maps/../../alpha.bms",
    "maps/..",
    "maps\\..\\alpha.bms",
    "..",
    "/alpha.bms",
    "\\alpha.bms",
    "//server/share/alpha.bms",
    "\\\\server\\share\\alpha.bms",
    "\\\\.\\C:",
    "\\\\?\\C:\\a",
    "/",
    "\\??\\C:\\a",
    "C:alpha.bms",
    "C:\\alpha.bms",
    "c:/alpha.bms",
    "maps/C:/alpha.bms",
    "alpha.bms:hidden",
    "alpha.bms::$DATA",
    "maps:x/alpha.bms",
    "CON",
    "con",
    "NUL",
    "nul.txt",
    "maps/Aux.bms",
    "PRN.",
    "COM1",
    "com9.bms",
    "COM0",
    "LPT1.tar.gz",
    "lpt5/alpha.bms",
    "CONIN$",
    "conout$.txt",
    "COM¹",
    "LPT³.txt",
    "NUL .txt",
    "nul /alpha.bms",
    "alpha.bms.",
    "alpha.bms ",
    "alpha.bms. .",
    "maps./alpha.bms",
    "maps /alpha.bms",
    ".. /alpha.bms",
    ".../alpha.bms",
    ". ./alpha.bms",
    "... ",
    "alpha\x01.bms",
    "alpha\n.bms",
    "alpha\x7F.bms",
    "",
};

TEST(ZipMemberPathTest, HarmlessNamesStayInside) {
  for (const std::string_view name : kHarmless) EXPECT_TRUE(zip::StaysInside(name)) << name;
}

TEST(ZipMemberPathTest, NamesThatLeadElsewhereAreSeen) {
  for (const std::string_view name : kDangerous) EXPECT_FALSE(zip::StaysInside(name)) << name;
  EXPECT_FALSE(zip::StaysInside(std::string_view("alpha.bms\0.txt", 14)));
  EXPECT_FALSE(zip::StaysInside(std::string_view("..\0", 3)));
}

class ZipPathsTest : public ZipTest {
 protected:
  // All that is in the test's folder, as names; the destination among it.
  [[nodiscard]] std::vector<std::string> Surroundings() {
    std::vector<std::string> names;
    for (const FolderEntry& entry : native_files.List(Folder())) names.push_back(entry.name);
    return names;
  }
};

TEST_F(ZipPathsTest, NoDangerousNameIsWrittenAndNoOtherMemberSuffers) {
  native_files.MakeFolder(out);
  std::vector<ZipMember> members;
  for (const std::string_view name : kDangerous) members.push_back({EncodeText(name), "evil"});
  members.push_back({"alpha.bms", "BMS"});
  WriteZip(members);
  const std::vector<std::string> before = Surroundings();
  Load();
  for (size_t at = 0; at < std::size(kDangerous); ++at) ExpectBox("error writing file");
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_EQ(Surroundings(), before);
  EXPECT_THAT(OutEntries(), ElementsAre("alpha.bms"));
}

TEST_F(ZipPathsTest, NoDirectoryIsMadeOutsideEither) {
  native_files.MakeFolder(out);
  WriteZip({{"../evil/", ""}, {"C:/evil/", ""}, {"/evil/", ""}, {"NUL/", ""}, {"evil./", ""}});
  const std::vector<std::string> before = Surroundings();
  Load();
  for (int member = 1; member <= 5; ++member) ExpectBox("error writing file");
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_EQ(Surroundings(), before);
  EXPECT_THAT(OutEntries(), IsEmpty());
}

TEST_F(ZipPathsTest, AnUnsupportedStatusStaysWhenAnotherMemberIsNotWritten) {
  ZipMember shrunk{"shrunk.bms", "data"};
  shrunk.method = 1;
  LoadZip({shrunk, {"../evil", "evil"}});
  ExpectBox("error writing file");
  EXPECT_EQ(UnPackAll(), -10);
}

TEST_F(ZipPathsTest, ANameLongerThanPathsMayBeReachesTheCaller) {
  const std::string long_name(300, 'n');
  LoadZip({{long_name, "BMS"}});
  EXPECT_NE(ErrorNumberOf([&] { return UnPackAll(); }), 0);
  EXPECT_THAT(OutEntries(), IsEmpty());
}

}  // namespace
}  // namespace kestrun
