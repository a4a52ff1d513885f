#include "controls/progress_bar/progress_bar.h"

#include "forms/form.h"
#include "script/script_engine.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

class frmbar final : public Form {
 public:
  frmbar() : Form("frmbar") {}

  ProgressBar& ProgressBar1 = Add<ProgressBar>("ProgressBar1");
};

class ProgressBarTest : public HeadlessTest {
 protected:
  ProgressBarTest() {
    bar.Move(0, 0, 3000, 300);
    bar.PropertyChangedMark = [this](std::string_view name) { marks.emplace_back(name); };
  }

  Ref<frmbar> form = MakeRef<frmbar>();
  ProgressBar& bar = form->ProgressBar1;
  std::vector<std::string> marks;
};

TEST_F(ProgressBarTest, ANewBarHasTheDefaultsOfAnEmptyBag) {
  EXPECT_EQ(bar.Value, 0);
  EXPECT_EQ(bar.Progresscolor, 0xFF0000U);
  EXPECT_EQ(bar.BackColor, 0x8000000FU);
  EXPECT_EQ(bar.ForeColor, 0U);
  EXPECT_EQ(bar.Font.get(), form->Font.get());
  EXPECT_EQ(bar.Alignment, 2);
  EXPECT_EQ(bar.Max, 100);
  EXPECT_TRUE(bar.ShowPercent);
  EXPECT_EQ(bar.BroderStyle, 0);
  EXPECT_EQ(bar.BackStyle, 1);
  PropertyBag bag;
  bar.ForeColor = color::kWhite;
  bar.WriteProperties(bag);
  EXPECT_EQ(bag.Count(), 0U);
}

TEST_F(ProgressBarTest, AMaximumOfZeroShowsProgressAgainstAHundred) {
  bar.Max = 0;
  bar.Value = 50;
  EXPECT_EQ(bar.Max, 100);
  EXPECT_EQ(bar.lbl.Width, 1500);
  EXPECT_EQ(bar.LblPercent.Caption.get(), " 50% ");
}

TEST_F(ProgressBarTest, AValueEqualToTheMaximumFillsTheBar) {
  bar.Max = 7;
  bar.Value = 7;
  EXPECT_EQ(bar.lbl.Width, 3000);
  EXPECT_TRUE(bar.lbl.Visible);
  EXPECT_EQ(bar.LblPercent.Caption.get(), " 100% ");
}

TEST_F(ProgressBarTest, AValueOfZeroHidesTheFilledPartAndKeepsTheText) {
  bar.Value = 40;
  bar.Value = 0;
  EXPECT_FALSE(bar.lbl.Visible);
  EXPECT_TRUE(bar.LblPercent.Visible);
  EXPECT_EQ(bar.LblPercent.Caption.get(), " 0% ");
}

TEST_F(ProgressBarTest, AValueAboveTheMaximumLeavesThePreviousPicture) {
  bar.Value = 40;
  bar.Value = 101;
  EXPECT_EQ(bar.lbl.Width, 1200);
  EXPECT_TRUE(bar.lbl.Visible);
  EXPECT_EQ(bar.LblPercent.Caption.get(), " 40% ");
  EXPECT_EQ(bar.Value, 101);
}

TEST_F(ProgressBarTest, PercentIsRoundedToTheNearestWholeNumber) {
  bar.Max = 3;
  bar.Value = 2;
  EXPECT_EQ(bar.LblPercent.Caption.get(), " 67% ");
  bar.Value = 1;
  EXPECT_EQ(bar.LblPercent.Caption.get(), " 33% ");
}

TEST_F(ProgressBarTest, AnyNumbersAreShownWithoutAFault) {
  bar.Max = 1;
  bar.Value = std::numeric_limits<int>::min();
  EXPECT_EQ(bar.lbl.Width, 0);
  EXPECT_EQ(bar.LblPercent.Caption.get(), " -214748364800% ");
  bar.Max = 1000;
  bar.Value = -1;
  EXPECT_EQ(bar.LblPercent.Caption.get(), " 0% ");
  bar.Max = -1;
  bar.Value = std::numeric_limits<int>::min();
  EXPECT_EQ(bar.lbl.Width, std::numeric_limits<int>::max());
}

TEST_F(ProgressBarTest, AssigningTheSameValueAgainDrawsAgainstTheNewMaximum) {
  bar.Value = 50;
  bar.Max = 200;
  EXPECT_EQ(bar.LblPercent.Caption.get(), " 50% ");
  bar.Value = 50;
  EXPECT_EQ(bar.LblPercent.Caption.get(), " 25% ");
  EXPECT_EQ(bar.lbl.Width, 750);
}

TEST_F(ProgressBarTest, ResizingLaysTheLabelsOutAndDraws) {
  bar.Value = 25;
  FontDescription font;
  font.size_points = 10;
  bar.Font = font;
  bar.Move(100, 200, 6000, 900);
  EXPECT_EQ(bar.lbl.Left, 0);
  EXPECT_EQ(bar.lbl.Top, 0);
  EXPECT_EQ(bar.lbl.Height, 900);
  EXPECT_EQ(bar.lbl.Width, 1500);
  EXPECT_EQ(bar.LblPercent.Left, 0);
  EXPECT_EQ(bar.LblPercent.Width, 6000);
  EXPECT_EQ(bar.LblPercent.Height, 300);  // 10 points, twice, at 15 twips a pixel
  EXPECT_EQ(bar.LblPercent.Top, 300);
}

TEST_F(ProgressBarTest, ResizingCountsTheTwipsOfTheScreensPixels) {
  desktop.windowing().screen.twips_per_pixel = 12;
  FontDescription font;
  font.size_points = 10;
  bar.Font = font;
  EXPECT_EQ(bar.LblPercent.Height, 240);
}

TEST_F(ProgressBarTest, TheTextIsNotCutOnAFineScreen) {
  desktop.windowing().screen.twips_per_pixel = 6;
  FontDescription font;
  font.size_points = 10;
  bar.Font = font;
  EXPECT_EQ(bar.LblPercent.Height, 240);
}

TEST_F(ProgressBarTest, WithoutPercentTheTextIsHiddenAndComesBackUpToDate) {
  bar.Value = 10;
  bar.ShowPercent = false;
  EXPECT_FALSE(bar.LblPercent.Visible);
  bar.Value = 20;
  EXPECT_EQ(bar.LblPercent.Caption.get(), " 10% ");
  bar.ShowPercent = true;
  EXPECT_TRUE(bar.LblPercent.Visible);
  EXPECT_EQ(bar.LblPercent.Caption.get(), " 20% ");
}

TEST_F(ProgressBarTest, TheLabelsShowTheBarsOwnColoursAndAlignment) {
  bar.Progresscolor = 0x00FF00;
  bar.ForeColor = 0x123456;
  bar.Alignment = 1;
  EXPECT_EQ(bar.lbl.BackColor, 0x00FF00U);
  EXPECT_EQ(bar.LblPercent.ForeColor, 0x123456U);
  EXPECT_EQ(bar.LblPercent.Alignment, 1);
  EXPECT_EQ(bar.LblPercent.BackStyle, 0);
}

TEST_F(ProgressBarTest, EachLetMarksThePropertyUnderItsOwnName) {
  FontDescription font;
  font.bold = true;
  bar.Value = 1;
  bar.Progresscolor = 0x0000FF;
  bar.BackColor = color::kBlack;
  bar.ForeColor = color::kWhite;
  bar.Font = font;
  bar.Alignment = 0;
  bar.Max = 10;
  bar.ShowPercent = false;
  bar.BroderStyle = 1;
  bar.BackStyle = 0;
  const std::vector<std::string> expected{"ProgressColor", "BackColor",   "ForeColor",   "Font",     "Alignment",
                                          "Max",           "ShowPercent", "BorderStyle", "BackStyle"};
  EXPECT_EQ(marks, expected);
}

TEST_F(ProgressBarTest, StoredPropertiesComeBackWithoutMarks) {
  FontDescription font{"Verdana", 12, true, false, true, false};
  bar.Max = 50;
  bar.Value = 30;
  bar.Progresscolor = 0x0000FF;
  bar.BackColor = 0x445566;
  bar.ForeColor = 0x112233;
  bar.Font = font;
  bar.Alignment = 1;
  bar.ShowPercent = false;
  bar.BroderStyle = 1;
  bar.BackStyle = 0;
  PropertyBag bag;
  bar.WriteProperties(bag);
  for (const char* name : {"VAL", "PROGRESSCOLOR", "BACKCOLOR", "FORECOLOR", "FONT", "ALIGNMENT", "MAX", "SHOWPERCENT",
                           "BORDERSTYLE", "BACKSTYLE"}) {
    EXPECT_TRUE(bag.Holds(name)) << name;
  }

  ProgressBar& copy = form->Add<ProgressBar>("ProgressBar2");
  copy.PropertyChangedMark = [](std::string_view name) { ADD_FAILURE() << name; };
  copy.ReadProperties(bag);
  EXPECT_EQ(copy.Value, 30);
  EXPECT_EQ(copy.Max, 50);
  EXPECT_EQ(copy.Progresscolor, 0x0000FFU);
  EXPECT_EQ(copy.BackColor, 0x445566U);
  EXPECT_EQ(copy.ForeColor, 0x112233U);
  EXPECT_EQ(copy.Font.get(), font);
  EXPECT_EQ(copy.Alignment, 1);
  EXPECT_FALSE(copy.ShowPercent);
  EXPECT_EQ(copy.BroderStyle, 1);
  EXPECT_EQ(copy.BackStyle, 0);
  EXPECT_EQ(copy.lbl.Width, 1800);
}

TEST_F(ProgressBarTest, AWhiteTextColourComesBackAsBlack) {
  bar.ForeColor = color::kWhite;
  PropertyBag bag;
  bar.WriteProperties(bag);
  EXPECT_FALSE(bag.Holds("FORECOLOR"));
  bar.ReadProperties(bag);
  EXPECT_EQ(bar.ForeColor, color::kBlack);
}

TEST_F(ProgressBarTest, ABlackTextColourIsStored) {
  bar.ForeColor = color::kBlack;
  PropertyBag bag;
  bar.WriteProperties(bag);
  EXPECT_TRUE(bag.Holds("FORECOLOR"));
}

TEST_F(ProgressBarTest, AScreenReaderHearsThePercentAlsoWhereTheyAreNotShown) {
  EXPECT_EQ(bar.AccessibleRole(), Accessible::Role::kProgressBar);
  bar.ToolTipText = "Download";
  EXPECT_EQ(bar.AccessibleName(), "Download");
  bar.ShowPercent = false;
  bar.Max = 200;
  bar.Value = 50;
  EXPECT_EQ(bar.AccessibleValue(), "25%");
  bar.Max = 0;
  EXPECT_EQ(bar.AccessibleValue(), "50%");
}

TEST_F(ProgressBarTest, MembersStandInTheOrderOfTheirSlots) {
  std::vector<std::string> names;
  for (const Member& row : bar.Members().own) names.emplace_back(row.name);
  const std::vector<std::string> expected{"Value",     "Progresscolor", "BackColor",   "ForeColor",   "Font",
                                          "Alignment", "Max",           "ShowPercent", "BroderStyle", "BackStyle"};
  EXPECT_EQ(names, expected);
}

TEST_F(ProgressBarTest, TheLabelsAreTheBarsOwnAndNotTheForms) {
  EXPECT_EQ(form->controls().size(), 1U);
  EXPECT_EQ(form->FindControl("lbl"), nullptr);
  EXPECT_EQ(form->FindMember("LblPercent"), kNoMember);
  const std::vector<Control*> order{&bar, &bar.lbl, &bar.LblPercent};
  EXPECT_EQ(form->StackingOrder(), order);
  EXPECT_EQ(bar.lbl.Container(), &bar);
}

TEST_F(ProgressBarTest, ALabelKeepsItsPlaceInTheBar) {
  bar.LblPercent.ZOrder(1);
  const std::vector<Control*> order{&bar, &bar.lbl, &bar.LblPercent};
  EXPECT_EQ(form->StackingOrder(), order);
}

TEST_F(ProgressBarTest, TheLabelsGoWithTheirBar) {
  const Ref<Control> label(&bar.lbl);
  form->Remove(bar);
  EXPECT_EQ(label->form(), nullptr);
  EXPECT_TRUE(form->StackingOrder().empty());
}

TEST_F(ProgressBarTest, AScriptDrivesTheBarByName) {
  const auto engine = MakeScriptEngine();
  engine->SetLanguage("VBScript");
  engine->AddObject("Window", form);
  ASSERT_TRUE(
      engine->AddCode("With Window.ProgressBar1\n"
                      "  .Max = 4\n  .value = 3\n  .PROGRESSCOLOR = &HFF\n  .BroderStyle = 1\n"
                      "  .Font.Bold = True\nEnd With\n"
                      "Function Read()\n  Read = Window.ProgressBar1\nEnd Function"))
      << engine->Error().Description;
  EXPECT_EQ(bar.LblPercent.Caption.get(), " 75% ");
  EXPECT_EQ(bar.lbl.BackColor, 0xFFU);
  EXPECT_EQ(bar.BorderStyle, 1);
  EXPECT_TRUE(bar.LblPercent.Font->bold);
  EXPECT_EQ(ToLong(engine->Run("Read", {})), 3);
}

}  // namespace
}  // namespace kestrun
