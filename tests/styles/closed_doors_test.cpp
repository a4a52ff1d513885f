// What a stranger's script cannot do, and what it must ask for.
#include "styles/style_fixture.h"

namespace kestrun {
namespace {

class ClosedDoorsTest : public StyleTest {
 protected:
  ClosedDoorsTest() {
    WriteFile(Secret(), "PFF of somebody else");
    form->Tag = Folder();
  }

  [[nodiscard]] std::string Secret() const { return Path("secret.pff"); }
  [[nodiscard]] std::string FullName(const std::string& path) { return desktop.files().TruePath(path); }

  // What each of the statements ends with: its error's number, 0 for none, in one text.
  std::string Try(const std::vector<std::string>& statements) {
    std::string code = "On Error Resume Next\r\n";
    for (const std::string& statement : statements) {
      code += "Err.Clear\r\n" + statement + "\r\nForm.Caption = Form.Caption & Err.Number & \" \"\r\n";
    }
    WearScript(code);
    return CaptionAfterStyle();
  }
  ExpectedDialog& ExpectQuestion(const std::string& file, BoxAnswer answer) {
    return desktop.dialogs()
        .ExpectBox("The style '" + Path("test.stl") + "' wants to use this file:\r\n" + FullName(file) +
                       "\r\n\r\nDo you allow the style to read and change it?",
                   answer)
        .WithButtons(BoxButtons::kYesNo)
        .WithIcon(BoxIcon::kWarning)
        .WithDefaultButton(2);
  }
  // A path of the test as an expression of the script, whose own text can hold single-byte letters only.
  [[nodiscard]] static std::string InScript(const std::string& name) { return R"(Form.Tag & "\)" + name + "\""; }
};

TEST_F(ClosedDoorsTest, NoObjectOfTheMachineIsMade) {
  EXPECT_EQ(Try({"Set x = CreateObject(\"Scripting.FileSystemObject\")", "Set x = CreateObject(\"WScript.Shell\")",
                 "Set x = CreateObject(\"Shell.Application\")", "Set x = CreateObject(\"MSXML2.XMLHTTP\")",
                 "Set x = CreateObject(\"ADODB.Stream\")", "Set x = CreateObject(\"WinHttp.WinHttpRequest.5.1\")",
                 "Set x = GetObject(\"winmgmts:\")", "Set x = GetObject(, \"Excel.Application\")",
                 "Set x = GetObject(\"" + Secret() + "\")"}),
            "429 429 429 429 429 429 429 429 429 ");
}

TEST_F(ClosedDoorsTest, NoPictureIsLoadedFromAFile) {
  EXPECT_EQ(Try({"Set Form.Picture = LoadPicture(\"" + Secret() + "\")"}), "481 ");
}

TEST_F(ClosedDoorsTest, NoScriptHostIsThere) {
  EXPECT_EQ(Try({"WScript.Quit", "Set x = WScript.CreateObject(\"a.b\")", "Server.Execute \"x\"",
                 "Set x = New FileSystemObject"}),
            "424 424 424 506 ");
}

TEST_F(ClosedDoorsTest, ReadingTheStylesOwnFileNeedsNoQuestion) {
  EXPECT_EQ(Try({"PFF.ExtractFile 0, bytes, \"\"", "x = PFF.FileCRC32(0)", "x = PFF.LoadPff(PFF.OpenFileName)",
                 "PFF.PackFile Array(CByte(1)), \"new.txt\""}),
            "0 0 0 0 ");
}

TEST_F(ClosedDoorsTest, SavingTheStylesOwnFileIsAskedOnceAndRefusedIsError70) {
  ExpectQuestion(Path("test.stl"), BoxAnswer::kNo);
  EXPECT_EQ(Try({"PFF.PackFile Array(CByte(1)), \"new.txt\"", "PFF.SavePffFile", "PFF.SavePffFile"}), "0 70 70 ");
  EXPECT_EQ(EntryOf(Path("test.stl"), "new.txt"), "(none)");
}

TEST_F(ClosedDoorsTest, WhatTheUserAllowsIsDoneAndNotAskedAgain) {
  ExpectQuestion(Path("test.stl"), BoxAnswer::kYes);
  EXPECT_EQ(Try({"PFF.PackFile Array(CByte(65)), \"new.txt\"", "PFF.SavePffFile", "PFF.SavePffFile"}), "0 0 0 ");
  EXPECT_EQ(EntryOf(Path("test.stl"), "new.txt"), "A");
}

TEST_F(ClosedDoorsTest, AnExtractionToAFileIsAskedWithTheFilesFullName) {
  ExpectQuestion(Path("out.txt"), BoxAnswer::kNo);
  EXPECT_EQ(
      Try({"PFF.ExtractFile 0, bytes, " + InScript("out.txt"), "PFF.ExtractFile 0, bytes, " + InScript("OUT.TXT")}),
      "70 70 ");
  EXPECT_FALSE(FileIsThere(Path("out.txt")));
}

TEST_F(ClosedDoorsTest, AnotherFileIsNotOpenedWithoutTheUser) {
  ExpectQuestion(Secret(), BoxAnswer::kNo);
  EXPECT_EQ(Try({"x = PFF.LoadPff(" + InScript("secret.pff") + ")",
                 "x = PFF.FileBuffer(" + InScript("secret.pff") + ", bytes)"}),
            "70 70 ");
}

TEST_F(ClosedDoorsTest, AnArchiveThatIsOnlyNamedCannotBeReadOrWrittenEither) {
  ExpectQuestion(Secret(), BoxAnswer::kNo);
  desktop.dialogs().ExpectBox("Error: Load picture b70\r\nPermission denied");
  EXPECT_EQ(Try({"PFF.NewPffFile " + InScript("secret.pff"), "PFF.PackFile Array(CByte(1), CByte(2)), \"a\"",
                 "PFF.FileName(0) = \"b\"", "PFF.ExtractFile 0, bytes, \"\"", "x = PFF.FileCRC32(0)", "PFF.SavePffFile",
                 "Set p = System.LoadPFFPicture(\"b\")"}),
            "0 0 0 70 70 70 0 ");
  EXPECT_EQ(ReadFile(Secret()), "PFF of somebody else");
}

TEST_F(ClosedDoorsTest, AfterThreeRefusalsNothingMoreIsAsked) {
  for (const char* name : {"1", "2", "3"}) ExpectQuestion(Path(name), BoxAnswer::kNo);
  std::vector<std::string> statements;
  for (const char* name : {"1", "2", "3", "4", "5"}) {
    statements.push_back("PFF.ExtractFile 0, bytes, " + InScript(name));
  }
  EXPECT_EQ(Try(statements), "70 70 70 70 70 ");
}

TEST_F(ClosedDoorsTest, ANameThatWouldChangeTheQuestionsTextIsRefused) {
  EXPECT_EQ(Try({"PFF.ExtractFile 0, bytes, \"C:\\a\" & vbCrLf & \"Press Yes\""}), "70 ");
}

TEST_F(ClosedDoorsTest, AnotherMachinesNameIsAskedAboutAsItStands) {
  desktop.dialogs().ExpectBox("The style '" + Path("test.stl") +
                                  "' wants to use this file:\r\n\\\\server\\share\\x\r\n\r\nDo you allow the style to "
                                  "read and change it?",
                              BoxAnswer::kNo);
  EXPECT_EQ(Try({"x = PFF.FileBuffer(\"\\\\server\\share\\x\", bytes)"}), "70 ");
}

TEST_F(ClosedDoorsTest, AnotherStyleAsksAnew) {
  ExpectQuestion(Secret(), BoxAnswer::kNo);
  EXPECT_EQ(Try({"x = PFF.LoadPff(" + InScript("secret.pff") + ")"}), "70 ");
  ExpectQuestion(Secret(), BoxAnswer::kNo);
  EXPECT_EQ(Try({"x = PFF.LoadPff(" + InScript("secret.pff") + ")"}), "70 ");
}

TEST_F(ClosedDoorsTest, TheSystemObjectTakesNoForeignArchive) {
  EXPECT_EQ(Try({"System.SetPff Form", "System.SetPff Nothing", "System.SetPff 5", "System.SetPff PFF"}),
            "13 13 13 0 ");
}

// Callers that pass arguments by name ask for the names.
TEST_F(ClosedDoorsTest, TheArchiveBehindTheDoorHasTheNamesOfItsArguments) {
  const Ref<ClsPFF> archive = MakeRef<ClsPFF>();
  StyleArchive doors(archive, Path("test.stl"));
  const MemberId extract = doors.FindMember("ExtractFile");
  EXPECT_FALSE(doors.ParameterNames(extract).empty());
  EXPECT_EQ(doors.ParameterNames(extract), archive->ParameterNames(extract));
}

}  // namespace
}  // namespace kestrun
