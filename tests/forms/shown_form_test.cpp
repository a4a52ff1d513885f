// What happens to a form and its controls when their properties change while the form is shown.
#include <gtest/gtest.h>

#include "base/convert.h"
#include "forms/command_button.h"
#include "forms/file_list_box.h"
#include "forms/form.h"
#include "forms/frame.h"
#include "forms/image.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/picture_box.h"
#include "forms/text_box.h"
#include "support/error_number.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

class frmshown final : public Form {
 public:
  frmshown() : Form("frmshown") { SetClientSize(6000, 3000); }
  Label& Label1 = Add<Label>("Label1");
  TextBox& Text1 = Add<TextBox>("Text1");
  Frame& Frame1 = Add<Frame>("Frame1");
  PictureBox& Picture1 = Add<PictureBox>("Picture1");
  Image& Image1 = Add<Image>("Image1");
  ListBox& List1 = Add<ListBox>("List1");
  FileListBox& File1 = Add<FileListBox>("File1");
};

class ShownFormTest : public HeadlessTest {
 protected:
  ~ShownFormTest() override { form->Unload(); }
  static Ref<Picture> SmallPicture(int width, int height) {
    return MakeRef<Picture>(width, height, std::vector<uint32_t>(static_cast<size_t>(width * height), 0xFF00FF00));
  }
  Ref<frmshown> form = MakeRef<frmshown>();
};

TEST_F(ShownFormTest, VisibleFalseHidesAFormAndVisibleTrueShowsItAgain) {
  form->Show();
  form->Visible = false;
  EXPECT_FALSE(form->IsShown());
  form->Visible = true;
  EXPECT_TRUE(form->IsShown());
  EXPECT_EQ(desktop.windowing().shown_forms, (std::vector<std::string>{"frmshown", "frmshown"}));
}

// A window that the load handler makes has its owner by that.
TEST_F(ShownFormTest, AModalFormIsOneFromItsLoadHandlerToItsEnd) {
  struct Asked final : Form {
    Asked() : Form("frmasked") {}
    void Load() override { was_modal = IsModal(); }
    bool was_modal = false;
  };
  const Ref<Asked> asked = MakeRef<Asked>();
  desktop.windowing().ExpectModal("frmasked", [](Form& shown) { shown.Unload(); });
  asked->ShowModal();
  EXPECT_TRUE(asked->was_modal);
  EXPECT_FALSE(asked->IsModal());
}

TEST_F(ShownFormTest, AFormWithoutAFrameIsAllClientArea) {
  form->BorderStyle = static_cast<int>(FormBorder::kNone);
  form->Width = 4000;
  form->Height = 2000;
  EXPECT_EQ(form->ScaleWidth(), 4000);
  EXPECT_EQ(form->ScaleHeight(), 2000);
  form->SetClientSize(4500, 2500);
  EXPECT_EQ(form->Width, 4500);
  EXPECT_EQ(form->Height, 2500);
}

TEST_F(ShownFormTest, AnotherBorderKeepsWidthAndHeight) {
  form->Show();
  const int width = form->Width;
  const int height = form->Height;
  for (const FormBorder border : {FormBorder::kNone, FormBorder::kFixedDialog, FormBorder::kSizable}) {
    form->BorderStyle = static_cast<int>(border);
    EXPECT_EQ(form->Width, width);
    EXPECT_EQ(form->Height, height);
  }
}

TEST_F(ShownFormTest, OnlyAnAssignedPlaceOverridesTheStartUpPosition) {
  EXPECT_FALSE(form->IsPlaced());
  form->Left = 300;
  EXPECT_TRUE(form->IsPlaced());
}

TEST_F(ShownFormTest, TextBoxesAndListsStartWithTheColoursOfWindows) {
  for (const Control* control : std::initializer_list<const Control*>{&form->Text1, &form->List1, &form->File1}) {
    EXPECT_EQ(control->BackColor, color::kWindowBackground) << control->Name();
    EXPECT_EQ(control->ForeColor, color::kWindowText) << control->Name();
  }
  EXPECT_EQ(form->Label1.BackColor, color::kButtonFace);
}

TEST_F(ShownFormTest, AnAutoSizedLabelTakesTheSizeOfItsText) {
  Label& label = form->Label1;
  label.AutoSize = true;
  label.Caption = "Short";
  const int short_width = label.Width;
  label.Caption = "A caption of some length";
  EXPECT_GT(label.Width, short_width);
  const int line_height = label.Height;
  label.Caption = "Two\r\nlines";
  EXPECT_GT(label.Height, line_height);
  FontDescription large = label.Font;
  large.size_points = 24;
  const int height = label.Height;
  label.Font = large;
  EXPECT_GT(label.Height, height);
}

TEST_F(ShownFormTest, AnAutoSizedLabelThatWrapsKeepsItsWidthAndGrowsDownwards) {
  Label& label = form->Label1;
  label.Move(0, 0, 1200, 240);
  label.WordWrap = true;
  label.AutoSize = true;
  label.Caption = "A caption that is far too long for one line of this label";
  EXPECT_EQ(label.Width, 1200);
  EXPECT_GT(label.Height, 600);
}

TEST_F(ShownFormTest, AnAccessKeysMarkTakesNoRoomInAnAutoSizedLabel) {
  Label& label = form->Label1;
  label.AutoSize = true;
  label.Caption = "Name";
  const int width = label.Width;
  label.Caption = "&Name";
  EXPECT_EQ(label.Width, width);
}

TEST_F(ShownFormTest, AnImageWithoutStretchTakesItsPicturesSize) {
  form->Image1.Move(0, 0, 900, 900);
  form->Image1.Picture = SmallPicture(20, 10);
  EXPECT_EQ(form->Image1.Width, 300);
  EXPECT_EQ(form->Image1.Height, 150);
  form->Image1.BorderStyle = 1;
  EXPECT_EQ(form->Image1.Width, 360);
  form->Image1.Stretch = true;
  form->Image1.Width = 900;
  form->Image1.Picture = SmallPicture(8, 8);
  EXPECT_EQ(form->Image1.Width, 900);
}

TEST_F(ShownFormTest, AnAutoSizedPictureBoxTakesItsPicturesSizeAndTheBorders) {
  form->Picture1.AutoSize = true;
  form->Picture1.Picture = SmallPicture(20, 10);
  EXPECT_EQ(form->Picture1.Width, 360);
  EXPECT_EQ(form->Picture1.ScaleWidth(), 300);
  form->Picture1.BorderStyle = 0;
  EXPECT_EQ(form->Picture1.Width, 300);
  EXPECT_EQ(form->Picture1.Height, 150);
}

TEST_F(ShownFormTest, AContainerIsAssignedByScripts) {
  PutMember(form->Label1, "Container", Variant(&form->Frame1));
  EXPECT_EQ(form->Label1.Container(), &form->Frame1);
  EXPECT_EQ(ErrorNumberOf([&] { PutMember(form->Label1, "Container", Variant(&form->Text1)); }), 380);
  PutMember(form->Picture1, "Container", Variant(&form->Frame1));
  EXPECT_EQ(ErrorNumberOf([&] { PutMember(form->Frame1, "Container", Variant(&form->Picture1)); }), 380);
  EXPECT_EQ(form->Frame1.Container(), form.get());
}

TEST_F(ShownFormTest, AnotherControlsFontIsTakenOverWhole) {
  FontDescription font = form->Text1.Font;
  font.name = "Arial";
  font.bold = true;
  font.size_points = 14;
  form->Text1.Font = font;
  PutMember(form->Label1, "Font", GetMember(form->Text1, "Font"));
  EXPECT_EQ(form->Label1.Font.get(), font);
  const Variant label_font = GetMember(form->Label1, "Font");
  EXPECT_EQ(ToLong(GetMember(*label_font.object(), "Weight")), 700);
  PutMember(*label_font.object(), "Weight", 400);
  PutMember(*label_font.object(), "Charset", 204);
  EXPECT_FALSE(form->Label1.Font->bold);
  EXPECT_EQ(form->Label1.Font->charset, 204);
  EXPECT_EQ(ErrorNumberOf([&] { PutMember(*label_font.object(), "Charset", 300); }), 380);
}

}  // namespace
}  // namespace kestrun
