#include "forms/script_globals.h"
#include "base/convert.h"

#include <gtest/gtest.h>

#include "base/convert.h"
#include "forms/picture.h"
#include "forms/text_box.h"
#include "forms/window_registry.h"
#include "support/error_number.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

class frmglobals final : public Form {
 public:
  static constexpr const char* kName = "frmglobals";
  frmglobals() : Form(kName) {}
  TextBox& Text1 = Add<TextBox>("Text1");
};

const WindowRegistration registration(frmglobals::kName, [] { return MakeRef<frmglobals>(); });

class ScriptGlobalsTest : public HeadlessTest {
 protected:
  const Ref<ScreenObject> screen = MakeRef<ScreenObject>();
  const Ref<AppObject> app = MakeRef<AppObject>();
  const Ref<ClipboardObject> clipboard = MakeRef<ClipboardObject>();
};

TEST_F(ScriptGlobalsTest, TheScreenTellsItsSizeAndItsFonts) {
  EXPECT_EQ(ToLong(GetMember(*screen, "Width")), 1024 * 15);
  EXPECT_EQ(ToLong(GetMember(*screen, "Height")), 768 * 15);
  EXPECT_EQ(ToLong(GetMember(*screen, "TwipsPerPixelX")), 15);
  EXPECT_EQ(ToLong(GetMember(*screen, "FontCount")), 3);
  EXPECT_EQ(ToText(GetMember(*screen, "Fonts", {0})), "Arial");
  EXPECT_EQ(ErrorNumberOf([&] { return GetMember(*screen, "Fonts", {3}); }), error::kSubscriptOutOfRange);
}

TEST_F(ScriptGlobalsTest, LoadedFormsAreCountedFoundAndWalked) {
  frmglobals& form = Window<frmglobals>();
  const Variant forms = GetMember(*screen, "Forms");
  EXPECT_EQ(ToLong(GetMember(*forms.object(), "Count")), 1);
  EXPECT_EQ(GetMember(*screen, "Forms", {0}).object(), &form);
  EXPECT_EQ(GetMember(*screen, "Forms", {"FRMGLOBALS"}).object(), &form);
  EXPECT_EQ(ErrorNumberOf([&] { return GetMember(*screen, "Forms", {1}); }), error::kSubscriptOutOfRange);
  Variant item;
  const auto walk = forms.object()->Enumerate();
  EXPECT_TRUE(walk->Next(item));
  EXPECT_FALSE(walk->Next(item));
}

TEST_F(ScriptGlobalsTest, TheActiveFormIsTheOneShownLastUntilItGoes) {
  EXPECT_EQ(GetMember(*screen, "ActiveForm").object(), nullptr);
  Window<frmglobals>().Show();
  EXPECT_EQ(GetMember(*screen, "ActiveForm").object(), &Window<frmglobals>());
  EXPECT_EQ(GetMember(*screen, "ActiveControl").object(), &Window<frmglobals>().Text1);
  Window<frmglobals>().Hide();
  EXPECT_EQ(GetMember(*screen, "ActiveForm").object(), nullptr);
}

TEST_F(ScriptGlobalsTest, TheAppTellsItsPlaceAndVersion) {
  EXPECT_EQ(ToText(GetMember(*app, "Path")), Path("program"));
  EXPECT_EQ(ToText(GetMember(*app, "Title")), ToText(GetMember(*app, "EXEName")));
  EXPECT_EQ(ToLong(GetMember(*app, "Major")), desktop.program().ProgramVersion().major);
  PutMember(*app, "Title", "Mine");
  EXPECT_EQ(ToText(GetMember(*app, "Title")), "Mine");
  EXPECT_EQ(ErrorOf([&] { PutMember(*app, "Path", "x"); }), "383: Property is read-only");
}

TEST_F(ScriptGlobalsTest, TheAppTellsItsNumberAndWhetherItWasRunningAlready) {
  EXPECT_NE(ToLong(GetMember(*app, "hInstance")), 0);
  desktop.processes().names = {"explorer.exe", "kestrun.exe"};
  EXPECT_FALSE(ToBoolean(GetMember(*app, "PrevInstance")));
  desktop.processes().names.emplace_back("KESTRUN.EXE");
  EXPECT_FALSE(ToBoolean(GetMember(*app, "PrevInstance")));  // that one came later
  EXPECT_TRUE(ToBoolean(GetMember(*MakeRef<AppObject>(), "PrevInstance")));
}

TEST_F(ScriptGlobalsTest, APictureGoesThroughTheClipboard) {
  constexpr uint32_t kRed = 0xFFFF0000;
  const Ref<Picture> picture = MakeRef<Picture>(2, 1, std::vector<uint32_t>{kRed, 0});
  EXPECT_EQ(CallMember(*clipboard, "GetData").object(), nullptr);
  CallMember(*clipboard, "SetText", {"text"});
  CallMember(*clipboard, "SetData", {picture});
  EXPECT_EQ(ToText(CallMember(*clipboard, "GetText")), "");
  for (const int format : {2, 8}) EXPECT_TRUE(ToBoolean(CallMember(*clipboard, "GetFormat", {format})));
  EXPECT_FALSE(ToBoolean(CallMember(*clipboard, "GetFormat", {1})));
  const Variant back = CallMember(*clipboard, "GetData", {2});
  ASSERT_NE(dynamic_cast<Picture*>(back.object()), nullptr);
  EXPECT_EQ(dynamic_cast<Picture*>(back.object())->pixels(), picture->pixels());
  CallMember(*clipboard, "Clear");
  EXPECT_FALSE(ToBoolean(CallMember(*clipboard, "GetFormat", {2})));
}

TEST_F(ScriptGlobalsTest, WhatIsNoPictureAndFormatsThatAreNoneAreRefused) {
  const Ref<Picture> picture = MakeRef<Picture>(1, 1, std::vector<uint32_t>{0});
  EXPECT_EQ(ErrorOf([&] { CallMember(*clipboard, "SetData", {"text"}); }), "13: Type mismatch");
  EXPECT_EQ(ErrorOf([&] { CallMember(*clipboard, "SetData", {picture, 99}); }), "460: Invalid Clipboard format");
  EXPECT_EQ(ErrorOf([&] { CallMember(*clipboard, "GetData", {1}); }), "460: Invalid Clipboard format");
}

TEST_F(ScriptGlobalsTest, TextGoesThroughTheClipboard) {
  CallMember(*clipboard, "SetText", {"Карта"});
  EXPECT_EQ(ToText(CallMember(*clipboard, "GetText")), "Карта");
  EXPECT_TRUE(ToBoolean(CallMember(*clipboard, "GetFormat", {1})));
  EXPECT_FALSE(ToBoolean(CallMember(*clipboard, "GetFormat", {2})));
  CallMember(*clipboard, "Clear");
  EXPECT_FALSE(ToBoolean(CallMember(*clipboard, "GetFormat", {1})));
}

}  // namespace
}  // namespace kestrun
