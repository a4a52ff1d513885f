#include "desktop/headless/headless_windowing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "forms/command_button.h"
#include "forms/menu_item.h"
#include "forms/text_box.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Question final : public Form {
 public:
  Question() : Form("FrmQuestion") { mnu_file.SetParent(mnu_top); }
  TextBox& TxtName = Add<TextBox>("TxtName");
  CommandButton& CmdYes = Add<CommandButton>("CmdYes");
  MenuItem& mnu_top = Add<MenuItem>("mnu_top");
  MenuItem& mnu_file = Add<MenuItem>("mnu_file");
};

class HeadlessWindowingTest : public HeadlessTest {
 protected:
  ~HeadlessWindowingTest() override { form.Reset(); }

  // From now on what nobody expected is collected instead of failing the test.
  void CollectUnexpected() {
    desktop.OnUnexpected([this](const UnexpectedQuestion& question) {
      unexpected.push_back(question.text);
      details.push_back(question.detail);
    });
  }
  HeadlessWindowing& windowing() { return desktop.windowing(); }

  Ref<Question> form = MakeRef<Question>();
  std::vector<std::string> unexpected;
  std::vector<std::string> details;
};

TEST_F(HeadlessWindowingTest, ModalWindowIsHandledByItsAction) {
  std::string order;
  form->CmdYes.Click = [&] {
    order += "yes,";
    form->Hide();
  };
  windowing().ExpectModal("frmquestion", [&](Form& shown) {
    EXPECT_EQ(&shown, form.get());
    EXPECT_TRUE(shown.IsShown());
    EXPECT_TRUE(shown.IsModal());
    form->CmdYes.Press();
  });
  form->ShowModal();
  order += "back";
  EXPECT_EQ(order, "yes,back");
  EXPECT_THAT(windowing().Unused(), IsEmpty());
}

TEST_F(HeadlessWindowingTest, ModalWindowNobodyExpectedIsToldAndClosed) {
  CollectUnexpected();
  form->ShowModal();
  EXPECT_THAT(unexpected, ElementsAre("FrmQuestion"));
  EXPECT_FALSE(form->IsShown());
  EXPECT_FALSE(form->IsLoaded());
}

TEST_F(HeadlessWindowingTest, ModalWindowOfAnotherNameIsToldAndTheExpectedOneStays) {
  CollectUnexpected();
  windowing().ExpectModal("FrmOverWrite", [](Form&) {});
  form->ShowModal();
  EXPECT_THAT(details, ElementsAre("expected next: modal window \"FrmOverWrite\""));
  EXPECT_THAT(windowing().Unused(), ElementsAre("modal window \"FrmOverWrite\""));
  windowing().ForgetExpectations();
  EXPECT_THAT(windowing().Unused(), IsEmpty());
}

TEST_F(HeadlessWindowingTest, ModalWindowThatStaysAfterItsActionIsToldAndClosed) {
  CollectUnexpected();
  windowing().ExpectModal("FrmQuestion", [](Form&) {});
  form->ShowModal();
  EXPECT_THAT(details, ElementsAre("the window is still there after its action"));
  EXPECT_FALSE(form->IsShown());
}

TEST_F(HeadlessWindowingTest, ModalWindowMayCloseInAPostedTask) {
  windowing().ExpectModal("FrmQuestion", [&](Form& shown) { desktop.clock().Post([&] { shown.Hide(); }); });
  form->ShowModal();
  EXPECT_FALSE(form->IsShown());
}

TEST_F(HeadlessWindowingTest, ModalWindowThatRefusesToCloseIsTakenAwayAllTheSame) {
  CollectUnexpected();
  form->QueryUnload = [](bool& cancel) { cancel = true; };
  form->ShowModal();
  EXPECT_FALSE(form->IsShown());
  EXPECT_EQ(unexpected.size(), 1U);
}

TEST_F(HeadlessWindowingTest, FailureInsideAModalActionIsReportedInABox) {
  windowing().ExpectModal("FrmQuestion", [](Form& shown) {
    shown.Hide();
    Raise(error::kTypeMismatch);
  });
  desktop.dialogs().ExpectBox("Error: 13\r\nType mismatch").WithIcon(BoxIcon::kCritical);
  form->ShowModal();
}

TEST_F(HeadlessWindowingTest, ModalWindowInsideAModalWindowIsHandledInTurn) {
  const Ref<Question> inner = MakeRef<Question>();
  std::string order;
  windowing().ExpectModal("FrmQuestion", [&](Form& shown) {
    order += "outer,";
    inner->ShowModal();
    shown.Hide();
  });
  windowing().ExpectModal("FrmQuestion", [&](Form& shown) {
    order += "inner,";
    shown.Hide();
  });
  form->ShowModal();
  EXPECT_EQ(order, "outer,inner,");
}

TEST_F(HeadlessWindowingTest, FirstControlInTabOrderGetsTheFocus) {
  std::string order;
  form->TxtName.GotFocus = [&] { order += "text,"; };
  form->Show();
  EXPECT_EQ(form->ActiveControl(), &form->TxtName);
  EXPECT_EQ(order, "text,");
}

TEST_F(HeadlessWindowingTest, FocusMovesWithItsEvents) {
  std::string order;
  form->TxtName.LostFocus = [&] { order += "lost,"; };
  form->CmdYes.GotFocus = [&] { order += "got,"; };
  form->Show();
  form->CmdYes.SetFocus();
  form->CmdYes.SetFocus();
  EXPECT_EQ(order, "lost,got,");
  EXPECT_EQ(form->ActiveControl(), &form->CmdYes);
}

TEST_F(HeadlessWindowingTest, PeerKeepsWhatItWasTold) {
  windowing().record_calls = true;
  form->Show();
  form->TxtName.Text = "x";
  form->Refresh();
  form->Hide();
  EXPECT_THAT(windowing().calls, ElementsAre(PeerCall{PeerCall::Kind::kUpdate, "TxtName", PropertyId::kText},
                                             PeerCall{PeerCall::Kind::kRepaint, "FrmQuestion", PropertyId::kNone},
                                             PeerCall{PeerCall::Kind::kClose, "FrmQuestion", PropertyId::kNone}));
  EXPECT_THAT(windowing().shown_forms, ElementsAre("FrmQuestion"));
}

TEST_F(HeadlessWindowingTest, PopUpMenuRunsTheChosenItem) {
  bool chosen = false;
  form->mnu_file.Click = [&] { chosen = true; };
  windowing().ExpectPopUp("mnu_top", [](MenuItem& menu) { menu.Items().front()->Choose(); });
  form->Show();
  form->PopupMenu(form->mnu_top);
  EXPECT_TRUE(chosen);
}

TEST_F(HeadlessWindowingTest, PopUpMenuNobodyExpectedClosesAgain) {
  form->mnu_file.Click = [] { ADD_FAILURE() << "nobody chose this"; };
  form->Show();
  form->PopupMenu(form->mnu_top);
}

TEST_F(HeadlessWindowingTest, LoopRunsTimersUntilQuit) {
  int ticks = 0;
  static_cast<void>(desktop.clock().StartTimer(1000, [&] {
    if (++ticks == 943) platform().windowing().Quit();
  }));
  platform().windowing().RunUntilQuit();
  EXPECT_EQ(ticks, 943);
  EXPECT_EQ(desktop.clock().NowMs(), 943'000U);
}

TEST_F(HeadlessWindowingTest, LoopEndsWhenNothingCanEndIt) {
  bool ran = false;
  desktop.clock().Post([&] { ran = true; });
  platform().windowing().RunUntilQuit();
  EXPECT_TRUE(ran);
}

TEST_F(HeadlessWindowingTest, LoopWithATimerThatNeverQuitsEnds) {
  int ticks = 0;
  static_cast<void>(desktop.clock().StartTimer(1000, [&] { ++ticks; }));
  windowing().longest_run_ms = 10'000;
  platform().windowing().RunUntilQuit();
  EXPECT_EQ(ticks, 10);
}

TEST_F(HeadlessWindowingTest, ScreenIsSettable) {
  windowing().screen = {800 * 10, 600 * 10, 10};
  EXPECT_EQ(platform().windowing().Screen().width_twips, 8000);
  EXPECT_EQ(platform().windowing().Screen().twips_per_pixel, 10);
}

TEST_F(HeadlessWindowingTest, TextWidthCountsCharactersAndFontSize) {
  FontDescription font;
  font.size_points = 10;
  EXPECT_EQ(platform().windowing().TextWidth("Карта", font), 5 * 10 * 20 / 2);
  EXPECT_EQ(platform().windowing().TextWidth("", font), 0);
}

}  // namespace
}  // namespace kestrun
