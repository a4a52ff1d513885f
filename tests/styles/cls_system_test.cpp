// The object System, as scripts call it.
#include "styles/cls_system.h"

#include "base/convert.h"
#include "styles/style_fixture.h"
#include "support/error_number.h"
#include "support/recorded_effects.h"

namespace kestrun {
namespace {

// A 24-bit bitmap file of so many pixels, all of one colour.
std::string BitmapFile(int32_t width, int32_t height, size_t rows) {
  Bytes file(54 + rows * BitmapStride(2), 0x40);
  const std::string_view mark = "BM";
  std::copy(mark.begin(), mark.end(), file.begin());
  StoreU32(file, 10, 54);
  StoreU32(file, 14, 40);
  StoreU32(file, 18, static_cast<uint32_t>(width));
  StoreU32(file, 22, static_cast<uint32_t>(height));
  StoreU16(file, 26, 1);
  StoreU16(file, 28, 24);
  StoreU32(file, 30, 0);
  StoreU32(file, 46, 0);
  return std::string(AsChars(file));
}

// 8-bit sound at 8000 bytes a second.
std::string WaveFile(uint32_t claimed_bytes, size_t bytes) {
  Bytes file(44 + bytes, 0x80);
  const auto put = [&file](size_t at, std::string_view text) {
    std::copy(text.begin(), text.end(), file.begin() + static_cast<ptrdiff_t>(at));
  };
  put(0, "RIFF");
  StoreU32(file, 4, static_cast<uint32_t>(36 + bytes));
  put(8, "WAVEfmt ");
  StoreU32(file, 16, 16);
  StoreU16(file, 20, 1);
  StoreU16(file, 22, 1);
  StoreU32(file, 24, 8000);
  StoreU32(file, 28, 8000);
  StoreU16(file, 32, 1);
  StoreU16(file, 34, 8);
  put(36, "data");
  StoreU32(file, 40, claimed_bytes);
  return std::string(AsChars(file));
}

class SystemTest : public StyleTest {
 protected:
  void Wear(const std::string& form_load, const StyleEntries& more = {}) {
    StyleEntries entries{{"assembly.txt", "language VBScript\r\ninclude main.vbs"},
                         {"main.vbs", "Sub Form_Load(Form)\r\n" + form_load +
                                          "\r\nEnd Sub\r\nSub Control_Load(Control, Form)\r\nEnd Sub"}};
    entries.insert(entries.end(), more.begin(), more.end());
    ModStyle::LoadStyleFile(MakeStyle(entries));
  }

  RecordedEffects effects;
};

TEST_F(SystemTest, ItsOperationsStandInTheOrderOfItsSlots) {
  std::vector<std::string> names;
  for (const MemberInfo& member : MakeRef<ClsSystem>([] {})->ListMembers()) names.push_back(member.name);
  EXPECT_EQ(names, (std::vector<std::string>{"CreateTransFormA", "DrawGradientBackground", "SetPff", "LoadPFFPicture",
                                             "TransControl", "PlaySoundFile", "DrawIt", "Pause"}));
}

TEST_F(SystemTest, AWindowIsMadeSeeThrough) {
  Wear("Form.Caption = System.CreateTransFormA(Form.hWnd, 200)");
  EXPECT_EQ(CaptionAfterStyle(), "True");
  EXPECT_EQ(effects.calls, std::vector<std::string>{"opacity " + std::to_string(form->WindowNumber()) + " 200"});
}

TEST_F(SystemTest, AnAlphaThatIsNoByteIsToldAndGivesFalse) {
  Wear("Form.Caption = System.CreateTransFormA(Form.hWnd, 256)");
  desktop.dialogs().ExpectBox("Special function Error: 'CreateTransFormA' 6 Overflow");
  EXPECT_EQ(CaptionAfterStyle(), "False");
}

TEST_F(SystemTest, AWindowThatIsNoNumberIsToldAndGivesFalse) {
  Wear("Form.Caption = System.CreateTransFormA(\"window\", 100)");
  desktop.dialogs().ExpectBox("Special function Error: 'CreateTransFormA' 13 Type mismatch");
  EXPECT_EQ(CaptionAfterStyle(), "False");
}

TEST_F(SystemTest, AGradientRunsFromTheTopToTheBottomWithSixteenBitsAChannel) {
  Wear("System.DrawGradientBackground 5, 300, 200, RGB(1, 2, 255), RGB(128, 0, 16)");
  ModStyle::FormLoadStyle(*form);
  EXPECT_EQ(effects.calls, std::vector<std::string>{"gradient 5"});
  EXPECT_EQ(effects.gradient[0], (GradientVertex{0, 0, 0x0100, 0x0200, 0xFF00, 0}));
  EXPECT_EQ(effects.gradient[1], (GradientVertex{300, 200, 0x8000, 0, 0x1000, 0}));
}

TEST_F(SystemTest, APictureComesOutOfTheStyleFile) {
  Wear("Set Form.Picture = System.LoadPFFPicture(\"BACK.bmp\")", {{"back.bmp", BitmapFile(2, 1, 1)}});
  ModStyle::FormLoadStyle(*form);
  ASSERT_TRUE(form->Picture.get());
  EXPECT_EQ(form->Picture.get()->width_pixels(), 2);
}

TEST_F(SystemTest, AMissingPictureShowsTwoBoxesAndGivesNothing) {
  Wear("Form.Caption = (System.LoadPFFPicture(\"none.bmp\") Is Nothing)");
  desktop.dialogs().ExpectBox("Style Error: picture 'none.bmp' not found in style file.");
  desktop.dialogs().ExpectBox("Error: Load picture none.bmp0\r\n");
  EXPECT_EQ(CaptionAfterStyle(), "True");
}

TEST_F(SystemTest, AnEmptyPictureIsAFailureOfItsExtraction) {
  Wear("Form.Caption = (System.LoadPFFPicture(\"empty.bmp\") Is Nothing)", {{"empty.bmp", ""}});
  desktop.dialogs().ExpectBox("Error: Load picture empty.bmp9\r\nSubscript out of range");
  EXPECT_EQ(CaptionAfterStyle(), "True");
}

TEST_F(SystemTest, HostilePicturesAreNoPictureWithoutAWord) {
  Wear(
      "For Each name In Array(\"huge.bmp\", \"cut.bmp\", \"text.jpg\")\r\n"
      "Form.Caption = Form.Caption & (System.LoadPFFPicture(name) Is Nothing) & \" \"\r\nNext",
      {{"huge.bmp", BitmapFile(65535, 65535, 1)}, {"cut.bmp", BitmapFile(2, 100, 1)}, {"text.jpg", "no picture"}});
  EXPECT_EQ(CaptionAfterStyle(), "True True True ");
}

TEST_F(SystemTest, ASoundIsPlayedFromTheStyleFile) {
  Wear("System.PlaySoundFile \"click.wav\"", {{"click.wav", WaveFile(800, 800)}});
  ModStyle::FormLoadStyle(*form);
  ASSERT_EQ(effects.sounds.size(), 1U);
  EXPECT_EQ(AsChars(effects.sounds[0]), WaveFile(800, 800));
}

TEST_F(SystemTest, AMissingSoundShowsTwoBoxes) {
  Wear("System.PlaySoundFile \"none.wav\"");
  desktop.dialogs().ExpectBox("Sound file none.wav not found!");
  desktop.dialogs().ExpectBox("Error: Playing sound file none.wav0\r\n");
  ModStyle::FormLoadStyle(*form);
}

TEST_F(SystemTest, ASoundThatEndsTooEarlyIsAnErrorAndNothingIsPlayed) {
  Wear("System.PlaySoundFile \"lie.wav\"", {{"lie.wav", WaveFile(900, 800)}});
  desktop.dialogs().ExpectBox(
      "Error: Playing sound file lie.wav321\r\nThe sound file ends before what it claims to hold.");
  ModStyle::FormLoadStyle(*form);
  EXPECT_TRUE(effects.sounds.empty());
}

TEST_F(SystemTest, BytesThatAreNoSoundAreAnError) {
  Wear("System.PlaySoundFile \"text.wav\"", {{"text.wav", "RIFF but no wave"}});
  desktop.dialogs().ExpectBox("Error: Playing sound file text.wav321\r\nThe sound file is no WAVE file.");
  ModStyle::FormLoadStyle(*form);
}

TEST_F(SystemTest, ALongSoundIsPlayedForTenSeconds) {
  Wear("System.PlaySoundFile \"long.wav\"", {{"long.wav", WaveFile(200000, 200000)}});
  ModStyle::FormLoadStyle(*form);
  ASSERT_EQ(effects.sounds.size(), 1U);
  EXPECT_EQ(AsChars(effects.sounds[0]), WaveFile(80000, 80000));
}

TEST_F(SystemTest, PauseSleepsForANumberAndForTheTextOfOneAndPassesTextOver) {
  Wear("System.Pause 300\r\nSystem.Pause \"40\"\r\nSystem.Pause \"a while\"");
  const uint64_t before = desktop.clock().NowMs();
  ModStyle::FormLoadStyle(*form);
  EXPECT_EQ(desktop.clock().NowMs() - before, 340U);
}

TEST_F(SystemTest, PauseIsNoLongerThanAScriptMayRunAndNeverEndless) {
  Wear("System.Pause 1000000000\r\nSystem.Pause -1");
  const uint64_t before = desktop.clock().NowMs();
  ModStyle::FormLoadStyle(*form);
  EXPECT_EQ(desktop.clock().NowMs() - before, kScriptTimeoutMs);
}

TEST_F(SystemTest, DrawItLetsTheMessageLoopRunOnce) {
  Wear("System.DrawIt");
  int turns = 0;
  desktop.clock().Post([&] { ++turns; });
  ModStyle::FormLoadStyle(*form);
  EXPECT_EQ(turns, 1);
}

TEST_F(SystemTest, AControlIsCutThroughTheObjectOfTheScript) {
  Wear("System.TransControl Form, 0");
  effects.bitmaps[RecordedEffects::kWindowBitmap] = {1, 1, {9, 9, 9, 0}};
  ModStyle::FormLoadStyle(*form);
  EXPECT_EQ(effects.calls.back(), "cut " + std::to_string(form->WindowNumber()) + " 1");
}

TEST_F(SystemTest, WhatIsNoControlIsTheScriptsError) {
  Wear("System.TransControl 5, 0");
  ExpectScriptError(ScriptErrorText("", 2, 1, 424, "Object required", "System.TransControl 5, 0"));
  ModStyle::FormLoadStyle(*form);
}

TEST_F(SystemTest, WithoutADesktopAnEffectIsTheScriptsError) {
  Wear("System.DrawGradientBackground 5, 1, 1, 0, 0");
  InstallWindowEffects(nullptr);
  ExpectScriptError(ScriptErrorText("", 2, 1, 445, "Object doesn't support this action",
                                    "System.DrawGradientBackground 5, 1, 1, 0, 0"));
  ModStyle::FormLoadStyle(*form);
}

}  // namespace
}  // namespace kestrun
