// The menu of add-ins, their manager, and what an add-in is handed.
#include "game/add_ins/add_ins.h"
#include "base/convert.h"
#include "windows/auto_host/auto_host_fixture.h"

namespace kestrun {
namespace {

// An add-in as the program sees it; what happens to it is noted.
class FakeAddIn final : public TableObject {
 public:
  explicit FakeAddIn(std::string* log) : log_(log) {}
  ~FakeAddIn() override { *log_ += "released|"; }
  Ref<Object> form;
  static void PutForm(Object& object, Arguments, const Variant& value) {
    auto& self = static_cast<FakeAddIn&>(object);
    self.form = Ref<Object>(value.object());
    *self.log_ += "AHForm " + self.form->TypeName() + "|";
  }
  static Variant CallSetInfo(Object& object, Arguments) {
    auto& self = static_cast<FakeAddIn&>(object);
    *self.log_ += "SetInfo|";
    CallMember(*self.form, "StartList");
    return {};
  }
  static constexpr Member kRows[]{{"AHForm", MemberKind::kWriteOnly, 0, 0, nullptr, &PutForm},
                                  {"SetInfo", MemberKind::kMethod, 0, 0, &CallSetInfo, nullptr}};
  static const MemberTable kTable;
  [[nodiscard]] const MemberTable& Members() const override { return kTable; }
  [[nodiscard]] std::string TypeName() const override { return "FakeAddIn"; }

 private:
  std::string* log_;
};
const MemberTable FakeAddIn::kTable{nullptr, FakeAddIn::kRows};

class AddInTest : public AutoHostTest {
 protected:
  AddInTest() {
    WriteIni("[launcher]\r\nGAMETIMER=0\r\nPATHLIST=" + Path("maps") +
             "\r\n[AUTO HOST ADDINS]\r\nTOT=3\r\nNAME1=First\r\nCLSID1=Test.First\r\nNAME2=Second\r\nCLSID2=Test.Second"
             "\r\nNAME3=Third\r\n");
    InstallAddInServices({[this](const std::string& id) -> Ref<Object> {
                            if (id == "UNKNOWN" || id == "Test.Missing") Raise(error::kCannotCreateObject);
                            return MakeRef<FakeAddIn>(&log);
                          },
                          [this](const std::string& file, bool unregister) {
                            log += (unregister ? "unregister " : "register ") + file + "|";
                            return registers;
                          }});
  }
  ~AddInTest() override {
    if (LoadedWindow("frmputlist")) Host().Edited = false;
    CloseAllWindows();
    InstallAddInServices({});
  }
  [[nodiscard]] std::string MenuText() {
    std::string text;
    for (const MenuItem* item : Host().mnu_addins.Items()) text += item->Caption.get() + (item->Checked ? "*|" : "|");
    return text;
  }
  MenuItem& Item(int number) { return static_cast<MenuItem&>(*Host().FindControl("mnu_addin", number)); }
  void InManager(std::function<void(Form&)> action) {
    desktop.windowing().ExpectModal("FrmAddinMngr", std::move(action));
    Host().mnu_addin.Choose();
  }
  static void Click(Form& form, const char* button) { form.FindControl(button)->Click(); }

  std::string log;
  bool registers = true;
};

TEST_F(AddInTest, WithoutAddInsTheMenuHoldsOnlyTheManager) {
  WriteIni("[launcher]\r\nGAMETIMER=0\r\n[AUTO HOST ADDINS]\r\nTOT=0\r\nNAME1=Old\r\n");
  EXPECT_EQ(MenuText(), "Add-&In Manager|");
}

TEST_F(AddInTest, AnAddInIsHandedTheWindowAndToldToBeginAndReleasedWhenItIsUnticked) {
  Host().cmdaddall.Press();
  EXPECT_EQ(MenuText(), "Add-&In Manager|First|Second|Third|");
  Item(1).Choose();
  EXPECT_EQ(log, "AHForm frmputlist|SetInfo|");
  EXPECT_TRUE(Host().TmrInsert.Enabled);
  EXPECT_EQ(MenuText(), "Add-&In Manager|First*|Second|Third|");
  EXPECT_EQ(CallMember(Host(), "GetAddin", {int32_t{1}}).object()->TypeName(), "FakeAddIn");
  log.clear();
  Item(1).Choose();
  EXPECT_EQ(log, "released|");
  EXPECT_EQ(MenuText(), "Add-&In Manager|First|Second|Third|");
  EXPECT_EQ(CallMember(Host(), "GetAddin", {int32_t{1}}).object(), nullptr);
}

TEST_F(AddInTest, AMissingIdentifierShowsTheErrorBoxAndLeavesTheEntryUnchecked) {
  Host();
  desktop.dialogs().ExpectBox("Error: 429\r\n" + std::string(StandardErrorText(429)));
  Item(3).Choose();
  EXPECT_EQ(MenuText(), "Add-&In Manager|First|Second|Third|");
}

TEST_F(AddInTest, RemovingTheFirstOfThreeAndSavingMovesTheOthersForward) {
  Host();
  InManager([&](Form& form) {
    EXPECT_EQ(form.Caption.get(), "Add-In Manager");
    PutMember(*form.FindControl("LstAddins"), "ListIndex", int32_t{0});
    ExpectQuestion("Are you sure you want to remove addin?", BoxAnswer::kYes);
    Click(form, "Command2");
    Click(form, "Command3");
  });
  EXPECT_EQ(MenuText(), "Add-&In Manager|Second|Third|");
  EXPECT_EQ(Ini("AUTO HOST ADDINS", "TOT"), "2");
  EXPECT_EQ(Ini("AUTO HOST ADDINS", "NAME1"), "Second");
  EXPECT_EQ(Ini("AUTO HOST ADDINS", "CLSID1"), "Test.Second");
  EXPECT_EQ(Ini("AUTO HOST ADDINS", "NAME2"), "Third");
  EXPECT_EQ(Ini("AUTO HOST ADDINS", "NAME3"), "Third");
}

TEST_F(AddInTest, SavingInTheManagerSwitchesOffAllLiveAddIns) {
  Host();
  desktop.dialogs().ExpectBox("No maps?");
  Item(2).Choose();
  log.clear();
  InManager([](Form& form) { Click(form, "Command3"); });
  EXPECT_EQ(log, "released|");
  EXPECT_EQ(MenuText(), "Add-&In Manager|First|Second|Third|");
}

TEST_F(AddInTest, WhatIsAddedIsTakenWithoutATestAndACancelGivesAnEmptyText) {
  Host();
  InManager([&](Form& form) {
    desktop.dialogs().ExpectInput("Please enter a name for the addin.", "Mine");
    desktop.dialogs().ExpectInput("Please enter CLASSID or PROGID HERE!", std::nullopt);
    Click(form, "Command1");
    PutMember(*form.FindControl("LstAddins"), "ListIndex", int32_t{3});
    desktop.dialogs().ExpectBox("Name: Mine\r\nClsID:\r\n");
    Click(form, "Command6");
    Click(form, "Command5");
  });
  EXPECT_EQ(Ini("AUTO HOST ADDINS", "TOT"), "3");
}

TEST_F(AddInTest, AFileIsRegisteredAndTheResultTold) {
  WriteFile(Path("addin.dll"), "x");
  Host();
  InManager([&](Form& form) {
    desktop.dialogs()
        .ExpectFile(Path("addin.dll"))
        .WithTitle("Select file")
        .WithFilter("Add-in files (*.exe;*.dll)|*.exe;*.dll|All files (*.*)|*.*");
    desktop.dialogs().ExpectBox("OK");
    Click(form, "Command4");
    registers = false;
    desktop.dialogs().ExpectFile(Path("addin.dll"));
    desktop.dialogs().ExpectBox("Can't register");
    Click(form, "Command4");
    desktop.dialogs().ExpectFile(Path("missing.dll"));
    Click(form, "Command4");
    desktop.dialogs().ExpectFile(std::nullopt);
    Click(form, "Command4");
    Click(form, "Command5");
  });
  EXPECT_EQ(log, "register " + Path("addin.dll") + "|register " + Path("addin.dll") + "|");
}

TEST_F(AddInTest, TheIndexOfAWindowIsFoundByItsNameInAnyCase) {
  const int32_t index = ToLong(CallMember(Host(), "GetFormIndex", {"FRMPUTLIST"}));
  ASSERT_GE(index, 0);
  EXPECT_EQ(CallMember(Host(), "GetForm", {index}).object(), &Host());
  EXPECT_EQ(ToLong(CallMember(Host(), "GetFormIndex", {"frmnowhere"})), -1);
  EXPECT_THROW(CallMember(Host(), "GetForm", {int32_t{99}}), RuntimeError);
  EXPECT_THROW(CallMember(Host(), "GetAddin", {int32_t{0}}), RuntimeError);
}

TEST_F(AddInTest, ClosingTheWindowReleasesAllAddInsEvenWhenTheUserCancels) {
  Host();
  desktop.dialogs().ExpectBox("No maps?");
  Item(1).Choose();
  log.clear();
  Host().Edited = true;
  desktop.dialogs().ExpectBox("Do you want to save the changes to the map list?", BoxAnswer::kCancel);
  Host().mnu_close.Choose();
  EXPECT_EQ(log, "released|");
  EXPECT_EQ(MenuText(), "Add-&In Manager|First*|Second|Third|");
  Item(1).Choose();
  EXPECT_EQ(MenuText(), "Add-&In Manager|First|Second|Third|");
}

TEST_F(AddInTest, AnAddInThatKeepsTheWindowGetsError424OnceThatIsClosed) {
  const Ref<Object> kept(&Host());
  const Ref<Object> list(&Host().lstmaps);
  Host().mnu_close.Choose();
  for (const Ref<Object>& one : {kept, list}) {
    try {
      static_cast<void>(GetMember(*one, "Name"));
      ADD_FAILURE() << "no failure";
    } catch (const RuntimeError& failure) {
      EXPECT_EQ(failure.number(), 424);
    }
  }
}

}  // namespace
}  // namespace kestrun
