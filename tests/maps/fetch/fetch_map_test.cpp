#include "maps/fetch/fetch_map.h"

#include <gtest/gtest.h>

#include "base/convert.h"
#include "maps/fetch/fetch_turn.h"
#include "maps/fetch/frmzip.h"
#include "program/frame_fixture.h"
#include "program/path_text.h"
#include "support/zip_builder.h"

namespace kestrun {
namespace {

constexpr const char* kQuestion = "Kestrun detected a zip file. Do you want to load maps that are inside the zip file?";
constexpr const char* kMapUrl = "http://maps.example/Desert.bms";
constexpr const char* kScriptUrl = "http://maps.example/get.php?id=7";

class FetchMapTest : public FrameTest {
 protected:
  [[nodiscard]] std::string TempPath(std::string_view name) const { return Path("temp\\") + std::string(name); }

  // The server of the script gives the file behind it this name.
  void ServeScript(const std::string& name, std::string_view content) {
    const ByteView bytes = AsBytes(content);
    desktop.internet().Answer(
        kScriptUrl,
        {200, {{"Content-Disposition", "attachment; filename=" + name}}, Bytes(bytes.begin(), bytes.end())});
  }
  void AnswerZipQuestion(BoxAnswer answer) {
    desktop.dialogs().ExpectBox(kQuestion, answer).WithButtons(BoxButtons::kYesNoCancel).WithIcon(BoxIcon::kQuestion);
  }
  // The user picks a row of the zip's list.
  void PickRow(int row) {
    AnswerZipQuestion(BoxAnswer::kYes);
    desktop.windowing().ExpectModal("frmzip", [row](Form& form) {
      auto& window = static_cast<frmzip&>(form);
      window.LstZip.SetListIndex(row);
      window.Command1.Press();
    });
  }
  [[nodiscard]] std::string ZipOf(const std::vector<ZipMember>& members, std::string_view name = "maps.zip") {
    WriteFile(Path(name), BuildZip(members));
    return Path(name);
  }
};

// ---- kinds -------------------------------------------------------------------------------------------------------

TEST_F(FetchMapTest, TheEndOfTheNameInAnyCaseTellsTheKind) {
  EXPECT_EQ(MapFileKind("c:\\a.bms"), map_file_kind::kMap);
  EXPECT_EQ(MapFileKind("c:\\a.BmS"), map_file_kind::kMap);
  EXPECT_EQ(MapFileKind("c:\\a.ZIP"), map_file_kind::kZip);
  EXPECT_EQ(MapFileKind(".zip"), map_file_kind::kZip);
  EXPECT_EQ(MapFileKind("c:\\folder.zip\\a"), map_file_kind::kOther);
  EXPECT_EQ(MapFileKind("zip"), map_file_kind::kOther);
  EXPECT_EQ(MapFileKind("a.bms.bak"), map_file_kind::kOther);
  EXPECT_EQ(MapFileKind(""), map_file_kind::kOther);
}

TEST_F(FetchMapTest, AQueryBehindAnAddressIsNoPartOfTheName) {
  EXPECT_EQ(MapFileKind("http://maps.example/Desert.zip?from=news"), map_file_kind::kZip);
  EXPECT_EQ(MapFileKind(kScriptUrl), map_file_kind::kOther);
}

// ---- fetching ----------------------------------------------------------------------------------------------------

TEST_F(FetchMapTest, ALocalPathComesBackExistingOrNot) {
  EXPECT_EQ(FetchMap("c:\\nowhere\\a.bms"), "c:\\nowhere\\a.bms");
  EXPECT_EQ(FetchMap(""), "");
}

TEST_F(FetchMapTest, AnAddressIsFetchedToTheTemporaryMap) {
  desktop.internet().Reply(kMapUrl, "BMS desert");
  EXPECT_EQ(FetchMap(kMapUrl), TempPath("tempmap.bms"));
  EXPECT_EQ(ReadFile(TempPath("tempmap.bms")), "BMS desert");
}

TEST_F(FetchMapTest, AnAddressOfNoKnownKindIsKeptAsAMapWithoutAQuestion) {
  desktop.internet().Reply(kScriptUrl, "whatever");
  EXPECT_EQ(FetchMap(kScriptUrl), TempPath("tempmap.bms"));
  EXPECT_EQ(ReadFile(TempPath("tempmap.bms")), "whatever");
}

TEST_F(FetchMapTest, ASecondDownloadTakesTheNameAndAFailedOneLeavesTheFirstFile) {
  desktop.internet().Reply(kMapUrl, "first");
  desktop.internet().Reply("http://maps.example/Oasis.bms", "second");
  EXPECT_EQ(FetchMap(kMapUrl), TempPath("tempmap.bms"));
  EXPECT_EQ(FetchMap("http://maps.example/Oasis.bms"), TempPath("tempmap.bms"));
  EXPECT_EQ(ReadFile(TempPath("tempmap.bms")), "second");
  desktop.internet().ReplyWithFailure(kMapUrl, HeadlessInternet::kObjectNotFound);
  desktop.dialogs().ExpectBox("Can't download: http://maps.example/Desert.bms");
  EXPECT_EQ(FetchMap(kMapUrl), "");
  EXPECT_EQ(ReadFile(TempPath("tempmap.bms")), "second");
}

TEST_F(FetchMapTest, EscDuringADownloadEndsItWithoutAWordAndLeavesTheFileBefore) {
  WriteFile(TempPath("tempmap.bms"), "an older map");
  desktop.internet().Reply(kMapUrl, "BMS desert");
  desktop.internet().leave_after_bytes = 0;
  EXPECT_EQ(FetchMap(kMapUrl), "");
  EXPECT_EQ(ReadFile(TempPath("tempmap.bms")), "an older map");
}

TEST_F(FetchMapTest, EscWhileTheServerIsAskedForANameEndsTheFetchToo) {
  ServeScript("Desert.zip", "PK");
  desktop.internet().leave_after_requests = 1;
  EXPECT_EQ(FetchMap(kScriptUrl), "");
  EXPECT_EQ(desktop.internet().requests.size(), 2U);
}

TEST_F(FetchMapTest, ANameOfTheServerThatEndsInZipMakesAScriptAZip) {
  ServeScript("Desert.zip", BuildZip({{.name = "Desert.bms", .stored = "BMS desert"}}));
  PickRow(0);
  EXPECT_EQ(FetchMap(kScriptUrl), TempPath("tempzip\\Desert.bms"));
  EXPECT_EQ(ReadFile(TempPath("tempzip\\Desert.bms")), "BMS desert");
}

TEST_F(FetchMapTest, AQuotedNameOfTheServerEndsInItsQuoteAndTellsNoKind) {
  ServeScript("\"Desert.zip\"", "PK");
  EXPECT_EQ(FetchMap(kScriptUrl), TempPath("tempmap.bms"));
}

// The server's name tells the kind of the file and nothing else: it never becomes a path.
TEST_F(FetchMapTest, ANameOfTheServerThatLeadsElsewhereChangesNoPlace) {
  ServeScript("..\\..\\game\\D08M03.bms", "BMS hostile");
  EXPECT_EQ(FetchMap(kScriptUrl), TempPath("tempmap.bms"));
  EXPECT_EQ(ReadFile(TempPath("tempmap.bms")), "BMS hostile");
  EXPECT_FALSE(FileIsThere(GamePath("D08M03.bms")));
}

TEST_F(FetchMapTest, AFetchedZipThatIsNotOpenedStaysUnderTheTemporaryName) {
  desktop.internet().Reply("http://maps.example/all.zip", BuildZip({}));
  AnswerZipQuestion(BoxAnswer::kNo);
  EXPECT_EQ(FetchMap("http://maps.example/all.zip"), TempPath("tempmap.bms"));
}

// ---- zips --------------------------------------------------------------------------------------------------------

TEST_F(FetchMapTest, ALocalZipIsAskedAbout) {
  const std::string zip = ZipOf({{.name = "Desert.bms", .stored = "BMS desert"}}, "MAPS.ZIP");
  PickRow(0);
  EXPECT_EQ(FetchMap(zip), TempPath("tempzip\\Desert.bms"));
}

TEST_F(FetchMapTest, CancelGivesUpAndNoTakesTheZipItself) {
  AnswerZipQuestion(BoxAnswer::kCancel);
  EXPECT_EQ(GetFileFromZip("c:\\none.zip"), "");
  AnswerZipQuestion(BoxAnswer::kNo);
  EXPECT_EQ(GetFileFromZip("c:\\none.zip"), "c:\\none.zip");
}

TEST_F(FetchMapTest, AMissingZipGivesNothing) {
  AnswerZipQuestion(BoxAnswer::kYes);
  EXPECT_EQ(GetFileFromZip(Path("none.zip")), "");
}

TEST_F(FetchMapTest, AMemberInASubfolderComesBackWithBackslashesBelowTempzip) {
  const std::string zip =
      ZipOf({{.name = "maps/", .stored = ""}, {.name = "maps/old/Oasis.bms", .stored = "BMS oasis"}});
  PickRow(0);
  EXPECT_EQ(GetFileFromZip(zip), TempPath("tempzip\\maps\\old\\Oasis.bms"));
  EXPECT_EQ(ReadFile(TempPath("tempzip\\maps\\old\\Oasis.bms")), "BMS oasis");
}

TEST_F(FetchMapTest, UntilTheCommandHasUsedTheMapNoOtherProcessUnpacksOverIt) {
  const std::string zip = ZipOf({{.name = "Desert.bms", .stored = "BMS desert"}});
  NativeFileSystem other;
  const std::string lock = other.TruePath(TempPath("tempzip")) + ".lock";
  FetchTurn turn;
  PickRow(0);
  EXPECT_EQ(FetchMap(zip), TempPath("tempzip\\Desert.bms"));
  EXPECT_FALSE(other.TryLock(lock, "another kestrun"));
  turn.End();
  EXPECT_TRUE(other.TryLock(lock, "another kestrun"));
}

TEST_F(FetchMapTest, AnotherProcessThatUsesItsUnpackedMapIsNamed) {
  const std::string zip = ZipOf({{.name = "Desert.bms", .stored = "BMS desert"}});
  NativeFileSystem other;
  const std::string lock = other.TruePath(TempPath("tempzip")) + ".lock";
  const auto turn = other.TryLock(lock, "another kestrun");
  const std::string process = std::to_string(other.ReadLockHolder(lock).process);
  PickRow(0);
  desktop.dialogs().ExpectBox("Error: GetFileFromZip()70\r\n'" + TempPath("tempzip") +
                              "' is in use by another kestrun (process " + process +
                              "). Try again when it has finished.");
  EXPECT_EQ(FetchMap(zip), "");
  EXPECT_FALSE(FileIsThere(TempPath("tempzip\\Desert.bms")));
}

TEST_F(FetchMapTest, OnlyMembersThatEndInSmallBmsAreOffered) {
  const std::string zip = ZipOf({{.name = "readme.txt", .stored = "x"},
                                 {.name = "LOUD.BMS", .stored = "BMS loud"},
                                 {.name = "folder.bms/", .stored = ""},
                                 {.name = "maps/Oasis.bms", .stored = "BMS oasis"},
                                 {.name = "Desert.bms", .stored = "BMS desert"}});
  AnswerZipQuestion(BoxAnswer::kYes);
  desktop.windowing().ExpectModal("frmzip", [](Form& form) {
    auto& window = static_cast<frmzip&>(form);
    ASSERT_EQ(window.LstZip.ListCount(), 2);
    EXPECT_EQ(window.LstZip.List(0), "Oasis.bms");
    EXPECT_EQ(ToLong(window.LstZip.ItemData(0)), 4);
    EXPECT_EQ(window.LstZip.List(1), "Desert.bms");
    EXPECT_EQ(ToLong(window.LstZip.ItemData(1)), 5);
    window.LstZip.SetListIndex(1);
    window.LstZip.DbClick();
  });
  EXPECT_EQ(GetFileFromZip(zip), TempPath("tempzip\\Desert.bms"));
}

TEST_F(FetchMapTest, NoServerIsAskedAboutAMemberThatIsCalledLikeAnAddress) {
  const std::string zip = ZipOf({{.name = "http://maps.example/Oasis.bms", .stored = "BMS hostile"}});
  AnswerZipQuestion(BoxAnswer::kYes);
  desktop.windowing().ExpectModal("frmzip", [](Form& form) {
    auto& window = static_cast<frmzip&>(form);
    EXPECT_EQ(window.LstZip.List(0), "Oasis.bms");
    window.Command2.Press();
  });
  EXPECT_EQ(GetFileFromZip(zip), "");
  EXPECT_TRUE(desktop.internet().requests.empty());
}

// The message pass before the window is shown lets an event in that goes the same way with another zip.
TEST_F(FetchMapTest, AChoiceOutOfAnotherZipIsNotTakenForOneOutOfThis) {
  const std::string first = ZipOf({{.name = "Desert.bms", .stored = "BMS desert"}}, "first.zip");
  const std::string second = ZipOf({{.name = "Oasis.bms", .stored = "BMS oasis"}}, "second.zip");
  std::string inner = "not run";
  AnswerZipQuestion(BoxAnswer::kYes);
  PickRow(0);
  desktop.clock().Post([&] { inner = GetFileFromZip(second); });
  EXPECT_EQ(GetFileFromZip(first), "");
  EXPECT_EQ(inner, TempPath("tempzip\\Oasis.bms"));
  EXPECT_EQ(ReadFile(inner), "BMS oasis");
  EXPECT_FALSE(FileIsThere(TempPath("tempzip\\Desert.bms")));
}

TEST_F(FetchMapTest, AnotherZipThatIsOpenedWhileTheListStandsTakesItOver) {
  const std::string first =
      ZipOf({{.name = "Desert.bms", .stored = "BMS desert"}, {.name = "Camp.bms", .stored = "BMS camp"}}, "first.zip");
  const std::string second = ZipOf({{.name = "Oasis.bms", .stored = "BMS oasis"}}, "second.zip");
  std::string inner = "not run";
  AnswerZipQuestion(BoxAnswer::kYes);
  AnswerZipQuestion(BoxAnswer::kYes);
  desktop.windowing().ExpectModal("frmzip", [&](Form&) { inner = GetFileFromZip(second); });
  desktop.windowing().ExpectModal("frmzip", [](Form& form) {
    auto& window = static_cast<frmzip&>(form);
    ASSERT_EQ(window.LstZip.ListCount(), 1);
    window.LstZip.SetListIndex(0);
    window.Command1.Press();
  });
  EXPECT_EQ(GetFileFromZip(first), "");
  EXPECT_EQ(inner, TempPath("tempzip\\Oasis.bms"));
}

TEST_F(FetchMapTest, AZipWithoutMapsOpensAnEmptyListThatOnlyCancelLeaves) {
  const std::string zip = ZipOf({{.name = "readme.txt", .stored = "x"}});
  AnswerZipQuestion(BoxAnswer::kYes);
  desktop.dialogs().ExpectBox("Select map!");
  desktop.windowing().ExpectModal("frmzip", [](Form& form) {
    auto& window = static_cast<frmzip&>(form);
    EXPECT_EQ(window.LstZip.ListCount(), 0);
    window.Command1.Press();
    EXPECT_TRUE(window.IsShown());
    window.Command2.Press();
  });
  EXPECT_EQ(GetFileFromZip(zip), "");
}

TEST_F(FetchMapTest, ASecondZipMapReplacesTheOneOfItsName) {
  PickRow(0);
  EXPECT_EQ(GetFileFromZip(ZipOf({{.name = "Desert.bms", .stored = "BMS old"}}, "1.zip")),
            TempPath("tempzip\\Desert.bms"));
  PickRow(0);
  EXPECT_EQ(GetFileFromZip(ZipOf({{.name = "Desert.bms", .stored = "BMS new"}}, "2.zip")),
            TempPath("tempzip\\Desert.bms"));
  EXPECT_EQ(ReadFile(TempPath("tempzip\\Desert.bms")), "BMS new");
}

TEST_F(FetchMapTest, AFileThatIsNoZipIsAFailure) {
  WriteFile(Path("tiny.zip"), "PK");
  AnswerZipQuestion(BoxAnswer::kYes);
  desktop.dialogs().ExpectBox("Error: GetFileFromZip()62\r\nThe file '" + Path("tiny.zip") +
                              "' is too short for a zip archive.");
  EXPECT_EQ(GetFileFromZip(Path("tiny.zip")), "");
  EXPECT_EQ(LoadedWindow("frmzip"), nullptr);
}

TEST_F(FetchMapTest, AMemberThatLeadsOutOfTheFolderIsNeitherWrittenNorGiven) {
  WriteFile(Path("temp\\outside.bms"), "BMS of the user");
  const std::string zip = ZipOf({{.name = "../outside.bms", .stored = "BMS hostile"}});
  PickRow(0);
  desktop.dialogs().ExpectBox("error writing file");
  EXPECT_EQ(GetFileFromZip(zip), "");
  EXPECT_EQ(ReadFile(Path("temp\\outside.bms")), "BMS of the user");
}

TEST_F(FetchMapTest, WhatAnEarlierZipLeftBehindIsNotTakenForAMemberThatCannotBeUnpacked) {
  native_files.MakeFolder(TempPath("tempzip"));
  WriteFile(TempPath("tempzip\\Desert.bms"), "BMS of an earlier zip");
  const std::string zip = ZipOf({{.name = "Desert.bms", .stored = "data", .method = 6}});
  PickRow(0);
  EXPECT_EQ(GetFileFromZip(zip), TempPath("tempzip\\Desert.bms"));
  EXPECT_FALSE(FileIsThere(TempPath("tempzip\\Desert.bms")));
}

TEST_F(FetchMapTest, AnEncryptedMemberAsksForItsPassword) {
  const std::string plain = "BMS secret";
  const std::string zip =
      ZipOf({{.name = "Secret.bms",
              .stored = EncryptMember(plain, "open", static_cast<uint8_t>(ReferenceCrc(plain) >> 24)),
              .flags = 1,
              .crc = ReferenceCrc(plain),
              .uncompressed_size = static_cast<uint32_t>(plain.size())}});
  PickRow(0);
  desktop.dialogs().ExpectInput("Give Password", "open");
  EXPECT_EQ(GetFileFromZip(zip), TempPath("tempzip\\Secret.bms"));
  EXPECT_EQ(ReadFile(TempPath("tempzip\\Secret.bms")), plain);
}

TEST_F(FetchMapTest, AWrongPasswordIsToldAndNothingIsWritten) {
  const std::string zip =
      ZipOf({{.name = "Secret.bms",
              .stored = EncryptMember("BMS", "open", static_cast<uint8_t>(ReferenceCrc("BMS") >> 24)),
              .flags = 1,
              .crc = ReferenceCrc("BMS"),
              .uncompressed_size = 3}});
  PickRow(0);
  desktop.dialogs().ExpectInput("Give Password", "shut");
  desktop.dialogs().ExpectBox("Password is incorrect");
  EXPECT_EQ(GetFileFromZip(zip), TempPath("tempzip\\Secret.bms"));
  EXPECT_FALSE(FileIsThere(TempPath("tempzip\\Secret.bms")));
}

}  // namespace
}  // namespace kestrun
