#include "base/convert.h"
#include "formats/zip_fixture.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using ZipListTest = ZipTest;

// The box of the walk stands up again and again: the test leaves it, as a user does by ending the program.
struct EndOfPatience {};

constexpr uint16_t kDate = (26 << 9) | (3 << 5) | 14;         // 14 March 2006
constexpr uint16_t kTime = (15 << 11) | (9 << 5) | (26 / 2);  // 15:09:26

TEST_F(ZipListTest, AnArchiveWithoutCommentIsFoundByItsEndRecord) {
  LoadZip({{"alpha.bms", "BMS"}, {"maps/", ""}, {"maps/beta.bms", "BMS!"}});
  EXPECT_THAT(Names(), ElementsAre("alpha.bms", "maps/", "maps/beta.bms"));
  EXPECT_EQ(zip->CommentsPack(), "");
}

TEST_F(ZipListTest, AllFieldsOfAMemberAreTold) {
  ZipMember member{"alpha.bms", "twelve bytes"};
  member.method = 8;
  member.flags = 1;
  member.version_made_by = 0x0A3F;  // NTFS, 6.3
  member.version_needed = 0x0314;   // UNIX, 2.0
  member.date = kDate;
  member.time = kTime;
  member.crc = 0x89ABCDEF;
  member.uncompressed_size = 60000;
  member.extra = "extra field";
  member.comment = "A map";
  LoadZip({{"first", ""}, member});
  EXPECT_EQ(zip->FileCount(), 2);
  EXPECT_EQ(zip->FileName(2), "alpha.bms");
  EXPECT_EQ(zip->CommentsFile(2), "A map");
  EXPECT_EQ(zip->Method(2), "Deflated");
  EXPECT_EQ(zip->CRC32(2), 0x89ABCDEFU);
  EXPECT_EQ(zip->Compressed_Size(2), 12U);
  EXPECT_EQ(zip->UnCompressed_Size(2), 60000U);
  EXPECT_TRUE(zip->Encrypted(2));
  EXPECT_FALSE(zip->Encrypted(1));
  EXPECT_EQ(zip->SystemMadeBy(2), "Windows NTFS");
  EXPECT_EQ(zip->VersionMadeBy(2), "6.3");
  EXPECT_EQ(zip->SystemNeeded(2), "UNIX");
  EXPECT_EQ(zip->VersionNeeded(2), "2.0");
  // 38790 is 14 March 2006.
  EXPECT_DOUBLE_EQ(zip->FileDateTime(2), 38790 + (15 * 3600 + 9 * 60 + 26) / 86400.0);
}

TEST_F(ZipListTest, ANameIsTakenByteForByteWhateverItsFlagsSay) {
  ZipMember member{"caf\xE9", ""};
  member.flags = 0x0800;
  LoadZip({member, {"\xC3\xA9", ""}});
  EXPECT_THAT(Names(), ElementsAre("café", "Ã©"));
}

TEST_F(ZipListTest, ATextOf65535BytesIsNotTakenForANegativeLength) {
  ZipMember member{std::string(65535, 'n'), ""};
  member.extra = std::string(40000, 'e');
  member.comment = std::string(65535, 'c');
  LoadZip({member, {"next", ""}});
  EXPECT_EQ(zip->FileName(1), member.name);
  EXPECT_EQ(zip->CommentsFile(1), member.comment);
  EXPECT_EQ(zip->FileName(2), "next");
}

TEST_F(ZipListTest, ADirectoryEndsInASlashAndHoldsNothing) {
  LoadZip({{"maps/", ""}, {"maps\\", ""}, {"maps", ""}, {"odd/", "x"}});
  EXPECT_TRUE(zip->IsDir(1));
  EXPECT_FALSE(zip->IsDir(2));
  EXPECT_FALSE(zip->IsDir(3));
  EXPECT_FALSE(zip->IsDir(4));
}

TEST_F(ZipListTest, AnArchiveWithATrailingCommentIsListedByTheWalk) {
  LoadZip({{"alpha.bms", "BMS"}, {"beta.bms", "BMS"}}, {"Made by hand"});
  EXPECT_THAT(Names(), ElementsAre("alpha.bms", "beta.bms"));
  EXPECT_EQ(zip->CommentsPack(), "Made by hand");
}

TEST_F(ZipListTest, TheWalkCountsTheLocalHeadersNotWhatTheEndRecordSays) {
  LoadZip({{"alpha.bms", "BMS"}, {"beta.bms", "BMS"}}, {"comment", uint16_t{1}, 0xFFFFFFFF});
  EXPECT_THAT(Names(), ElementsAre("alpha.bms", "beta.bms"));
}

TEST_F(ZipListTest, TheWalkSkipsLocalNamesExtraFieldsAndDescriptors) {
  ZipMember first{"alpha.bms", "data"};
  first.local_name = "another and longer name";
  first.local_extra = std::string(40000, 'x');
  first.has_descriptor = true;
  LoadZip({first, {"beta.bms", "BMS"}}, {"comment"});
  EXPECT_THAT(Names(), ElementsAre("alpha.bms", "beta.bms"));
}

TEST_F(ZipListTest, TheWalkSaysUnknownHeaderForEachFourBytesThatAreNone) {
  ExpectBox("Unknown header");
  ExpectBox("Unknown header");
  WriteFile(zip_path, "junkjunk" + BuildZip({{"alpha.bms", "BMS"}}, {"comment"}));
  Load();
  EXPECT_THAT(Names(), ElementsAre("alpha.bms"));
}

TEST_F(ZipListTest, TheWalkOfAFileWithoutADirectoryNeverEnds) {
  for (int times = 0; times < 19; ++times) ExpectBox("Unknown header");
  desktop.dialogs().ExpectBox("Unknown header").WhileShown([] { throw EndOfPatience(); });
  WriteFile(zip_path, std::string(40, '\0'));
  EXPECT_THROW(zip->Get_Contents(zip_path), EndOfPatience);
  EXPECT_EQ(zip->FileCount(), 0);
}

TEST_F(ZipListTest, AnEmptyArchiveHasNoMembers) {
  LoadZip({});
  EXPECT_EQ(zip->FileCount(), 0);
  EXPECT_EQ(zip->FileName(1), "");
}

TEST_F(ZipListTest, ManyMembersAreListed) {
  std::vector<ZipMember> members;
  for (int at = 0; at < 65535; ++at) members.push_back({"maps/" + std::to_string(at) + ".bms", ""});
  LoadZip(members);
  EXPECT_EQ(zip->FileCount(), 65535);
  EXPECT_EQ(zip->FileName(1), "maps/0.bms");
  EXPECT_EQ(zip->FileName(65535), "maps/65534.bms");
}

TEST_F(ZipListTest, AMemberThatDoesNotExistGivesEmptyValues) {
  LoadZip({{"alpha.bms", "BMS"}});
  for (const int32_t member : {0, -1, 2, 2147483647}) {
    EXPECT_EQ(zip->FileName(member), "");
    EXPECT_EQ(zip->CommentsFile(member), "");
    EXPECT_FALSE(zip->IsDir(member));
    EXPECT_EQ(zip->Method(member), "");
    EXPECT_EQ(zip->CRC32(member), 0U);
    EXPECT_EQ(zip->Compressed_Size(member), 0U);
    EXPECT_EQ(zip->UnCompressed_Size(member), 0U);
    EXPECT_FALSE(zip->Encrypted(member));
    EXPECT_EQ(zip->FileDateTime(member), 0.0);
    EXPECT_EQ(zip->SystemMadeBy(member), "");
    EXPECT_EQ(zip->SystemNeeded(member), "");
    EXPECT_EQ(zip->VersionMadeBy(member), "");
    EXPECT_EQ(zip->VersionNeeded(member), "");
  }
}

TEST_F(ZipListTest, CountAndCommentBelongToAllObjectsTheMembersToEach) {
  LoadZip({{"alpha.bms", "BMS"}}, {"first"});
  const std::string other_path = Path("other.zip");
  WriteFile(other_path, BuildZip({{"beta.bms", ""}, {"gamma.bms", ""}}, {"second"}));
  const Ref<Cls_Zip> other = MakeRef<Cls_Zip>();
  other->Get_Contents(other_path);
  EXPECT_EQ(zip->FileCount(), 2);
  EXPECT_EQ(zip->CommentsPack(), "second");
  EXPECT_EQ(zip->FileName(1), "alpha.bms");
  EXPECT_EQ(zip->FileName(2), "");
  EXPECT_EQ(other->FileName(2), "gamma.bms");
}

TEST_F(ZipListTest, AFailedReadLeavesNothingLoadedForAnyObject) {
  LoadZip({{"alpha.bms", "BMS"}}, {"comment"});
  const Ref<Cls_Zip> other = MakeRef<Cls_Zip>();
  EXPECT_EQ(ErrorNumberOf([&] { return other->Get_Contents(Path("missing.zip")); }), error::kFileNotFound);
  EXPECT_EQ(zip->FileCount(), 0);
  EXPECT_EQ(zip->CommentsPack(), "");
  EXPECT_EQ(zip->FileName(1), "");
}

TEST_F(ZipListTest, AReaderUnpacksAndHasASlotForPacking) {
  EXPECT_TRUE(zip->CanUnpack());
  EXPECT_EQ(zip->Pack({}, {}, {}, {}, {}), 0);
}

// ---- what the headers claim --------------------------------------------------------------------------------------

class ZipBadListTest : public ZipTest {
 protected:
  void ExpectRefused(const std::string& bytes, const std::string& rest) {
    WriteFile(zip_path, bytes);
    EXPECT_EQ(ErrorOf([&] { return zip->Get_Contents(zip_path); }), "62: The " + rest);
    EXPECT_EQ(zip->FileCount(), 0);
  }
  [[nodiscard]] std::string CutShort() const { return "archive '" + zip_path + "' ends inside its directory."; }
  [[nodiscard]] std::string TooShort() const { return "file '" + zip_path + "' is too short for a zip archive."; }
};

TEST_F(ZipBadListTest, AFileShorterThanAnEndRecordIsNoArchive) {
  ExpectRefused("", TooShort());
  ExpectRefused("PK\x05\x06", TooShort());
  ExpectRefused(BuildZip({}).substr(0, 21), TooShort());
}

TEST_F(ZipBadListTest, ACountOf65535InATinyFileIsRefused) {
  ExpectRefused(BuildZip({{"alpha.bms", ""}}, {"", uint16_t{65535}}), CutShort());
}

TEST_F(ZipBadListTest, ADirectoryBehindTheEndIsRefused) {
  ExpectRefused(BuildZip({{"alpha.bms", ""}}, {"", {}, 0xFFFFFFFF}), CutShort());
}

TEST_F(ZipBadListTest, ANameLongerThanTheFileIsRefused) {
  std::string bytes = BuildZip({{"alpha.bms", ""}});
  const size_t directory = bytes.find("PK\x01\x02");
  bytes[directory + 28] = '\xFF';  // the length of the name: 255
  ExpectRefused(bytes, CutShort());
}

TEST_F(ZipBadListTest, ACommentLongerThanTheFileEndsWithIt) {
  std::string bytes = BuildZip({{"alpha.bms", ""}}, {"short"});
  bytes[bytes.size() - 6] = '\x70';  // the high byte of the comment's length
  WriteFile(zip_path, bytes);
  Load();
  EXPECT_EQ(zip->CommentsPack(), "short");
}

// ---- by name -----------------------------------------------------------------------------------------------------

using ZipMembersTest = ZipTest;

TEST_F(ZipMembersTest, TheOperationsStandInTheOrderOfTheirSlots) {
  std::vector<std::string> names;
  for (const MemberInfo& member : zip->ListMembers()) names.push_back(member.name);
  EXPECT_THAT(names, ElementsAre("Get_Contents", "UnPack", "Pack", "CanUnpack", "FileCount", "FileName", "CommentsFile",
                                 "CommentsPack", "IsDir", "Method", "CRC32", "Compressed_Size", "UnCompressed_Size",
                                 "Encrypted", "FileDateTime", "SystemMadeBy", "SystemNeeded", "VersionMadeBy",
                                 "VersionNeeded"));
  EXPECT_EQ(zip->TypeName(), "Cls_Zip");
}

TEST_F(ZipMembersTest, AScriptListsAndUnpacks) {
  ZipMember member{"alpha.bms", "BMS"};
  member.date = kDate;
  member.crc = 0xFFFFFFFF;
  WriteZip({member, {"beta.bms", "BMS"}});
  EXPECT_EQ(ToLong(CallMember(*zip, "get_contents", {zip_path})), 0);
  EXPECT_EQ(ToLong(GetMember(*zip, "FileCount")), 2);
  EXPECT_EQ(ToText(GetMember(*zip, "FileName", {2})), "beta.bms");
  EXPECT_EQ(ToLong(GetMember(*zip, "CRC32", {1})), -1);
  EXPECT_TRUE(GetMember(*zip, "FileDateTime", {1}).Is(VarType::kDate));
  EXPECT_TRUE(
      GetMember(*zip, "UnPack", {Variant(MakeRef<ArrayBody>(std::vector<int32_t>{1})), out}).Is(VarType::kInteger));
  EXPECT_EQ(ToLong(CallMember(*zip, "Pack", {1, 2, 3, 4, 5})), 0);

  const Ref<ArrayBody> selection = MakeRef<ArrayBody>(std::vector<int32_t>{3});
  selection->elements[2] = true;
  EXPECT_EQ(ToLong(CallMember(*zip, "UnPack", {Variant(selection), out})), 0);
  EXPECT_THAT(OutEntries(), ElementsAre("beta.bms"));
}

TEST_F(ZipMembersTest, OnlyAnArrayOfOneDimensionIsASelection) {
  LoadZip({{"alpha.bms", "BMS"}});
  EXPECT_EQ(ErrorNumberOf([&] { return CallMember(*zip, "UnPack", {true, out}); }), error::kTypeMismatch);
  const Variant square(MakeRef<ArrayBody>(std::vector<int32_t>{2, 2}));
  EXPECT_EQ(ErrorNumberOf([&] { return CallMember(*zip, "UnPack", {square, out}); }), error::kSubscriptOutOfRange);
}

}  // namespace
}  // namespace kestrun
