#include <gtest/gtest.h>

#include "base/convert.h"
#include "forms/command_button.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/member_rows.h"
#include "forms/menu_item.h"
#include "forms/option_button.h"
#include "forms/text_box.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

class frmscripted final : public Form {
 public:
  frmscripted() : Form("frmscripted") {}

  Label& Label1 = Add<Label>("Label1");
  TextBox& Text1 = Add<TextBox>("Text1");
  OptionButton& capture = Add<OptionButton>("options", 0);
  OptionButton& deathmatch = Add<OptionButton>("options", 3);

  bool LoadList(const std::string& path) {
    loaded = path;
    return true;
  }
  std::string loaded;

  [[nodiscard]] const MemberTable& Members() const override;
};

constexpr Member kRows[]{MethodRow<&frmscripted::LoadList>("LoadList")};
const MemberTable kTable{&Form::kFormMembers, kRows};

const MemberTable& frmscripted::Members() const { return kTable; }

class LateBindingTest : public HeadlessTest {
 protected:
  int ErrorOf(const std::function<void()>& action) {
    try {
      action();
    } catch (const RuntimeError& failure) {
      return failure.number();
    }
    return 0;
  }

  Ref<frmscripted> form = MakeRef<frmscripted>();
};

TEST_F(LateBindingTest, ControlsAreReachedByNameInAnyCase) {
  Object& label = *GetMember(*form, "LABEL1").object();
  PutMember(label, "caption", "Oasis");
  EXPECT_EQ(form->Label1.Caption.get(), "Oasis");
  EXPECT_EQ(ToText(GetMember(label, "Caption")), "Oasis");
  EXPECT_EQ(label.TypeName(), "Label");
}

TEST_F(LateBindingTest, ElementsOfAControlArrayAreReachedByIndex) {
  EXPECT_EQ(GetMember(*form, "options", {3}).object(), &form->deathmatch);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(GetMember(*form, "options", {1})); }), error::kSubscriptOutOfRange);
}

TEST_F(LateBindingTest, AssigningToAControlMeansItsDefaultProperty) {
  PutMember(*form, "Text1", "typed");
  EXPECT_EQ(form->Text1.Text.get(), "typed");
}

TEST_F(LateBindingTest, PublicProceduresAreCalledByName) {
  EXPECT_TRUE(ToBoolean(CallMember(*form, "loadlist", {"a.lst"})));
  EXPECT_EQ(form->loaded, "a.lst");
}

TEST_F(LateBindingTest, FontsAreObjectsOfTheirOwnThatChangeTheControl) {
  Object& label = *GetMember(*form, "Label1").object();
  const Variant font = GetMember(label, "Font");
  PutMember(*font.object(), "Bold", true);
  PutMember(*font.object(), "Size", 12);
  EXPECT_TRUE(form->Label1.Font->bold);
  EXPECT_EQ(form->Label1.Font->size_points, 12);
}

// A font that is no control's, as an add-in makes one: its size is a Currency.
class ForeignFont final : public TableObject {
 public:
  template <int kSize>
  static Variant GetSize(Object&, Arguments) {
    return Variant::Currency(int64_t{kSize} * 10'000);
  }
  static constexpr Member kRows[]{
      {"Name", MemberKind::kReadOnly, 0, 0, [](Object&, Arguments) -> Variant { return "Verdana"; }},
      {"Size", MemberKind::kReadOnly, 0, 0, &GetSize<14>},
      {"Bold", MemberKind::kReadOnly, 0, 0, [](Object&, Arguments) -> Variant { return false; }},
      {"Italic", MemberKind::kReadOnly, 0, 0, [](Object&, Arguments) -> Variant { return true; }},
      {"Charset", MemberKind::kReadOnly, 0, 0, [](Object&, Arguments) -> Variant { return int16_t{204}; }},
  };
  static constexpr MemberTable kTable{nullptr, kRows};
  [[nodiscard]] const MemberTable& Members() const override { return kTable; }
  [[nodiscard]] std::string TypeName() const override { return "StdFont"; }
};

TEST_F(LateBindingTest, AFontOfSomebodyElseIsTakenOverByItsMembers) {
  form->Label1.Font = FontDescription{.bold = true};
  PutMember(form->Label1, "Font", Ref<Object>(MakeRef<ForeignFont>()));
  EXPECT_EQ(form->Label1.Font.get(),
            (FontDescription{.name = "Verdana", .size_points = 14, .italic = true, .charset = 204}));
}

TEST_F(LateBindingTest, AnObjectThatIsNoFontOrNoPictureIsATypeMismatch) {
  const Variant no_font = Ref<Object>(&form->Text1);
  EXPECT_EQ(ErrorOf([&] { PutMember(form->Label1, "Font", no_font); }), error::kTypeMismatch);
  EXPECT_EQ(ErrorOf([&] { PutMember(form->Label1, "Font", Variant::Nothing()); }), error::kTypeMismatch);
  EXPECT_EQ(ErrorOf([&] { PutMember(*form, "Picture", no_font); }), error::kTypeMismatch);
}

TEST_F(LateBindingTest, MoveTakesWhatIsGivenAndKeepsTheRest) {
  form->Label1.Move(10, 20, 300, 400);
  CallMember(form->Label1, "Move", {50, Variant::Missing(), 600});
  EXPECT_EQ(form->Label1.Left, 50);
  EXPECT_EQ(form->Label1.Top, 20);
  EXPECT_EQ(form->Label1.Width, 600);
  EXPECT_EQ(form->Label1.Height, 400);
}

TEST_F(LateBindingTest, FaultsHaveTheirNumbers) {
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(GetMember(*form, "Label2")); }), error::kMemberNotFound);
  EXPECT_EQ(ErrorOf([&] { PutMember(form->Label1, "Name", "x"); }), error::kPropertyReadOnly);
  EXPECT_EQ(ErrorOf([&] { PutMember(form->Label1, "Left", "wide"); }), error::kTypeMismatch);
  EXPECT_EQ(ErrorOf([&] { CallMember(form->Label1, "ZOrder", {1, 2}); }), error::kWrongArgumentCount);
}

TEST_F(LateBindingTest, AReferenceThatOutlivesItsFormGivesObjectRequired) {
  const Variant label = GetMember(*form, "Label1");
  const Variant window(form.get());
  form->Show();
  form->Unload();
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(GetMember(*label.object(), "Caption")); }), error::kObjectRequired);
  EXPECT_EQ(ErrorOf([&] { PutMember(*label.object(), "Caption", "x"); }), error::kObjectRequired);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(GetMember(*window.object(), "Label1")); }), error::kObjectRequired);
}

TEST_F(LateBindingTest, MenuItemsFormATree) {
  MenuItem& file = form->Add<MenuItem>("mnu_file");
  MenuItem& exit = form->Add<MenuItem>("mnu_exit");
  exit.SetParent(file);
  int chosen = 0;
  exit.Click = [&] { ++chosen; };
  form->Show();
  EXPECT_EQ(form->TopMenus(), std::vector<MenuItem*>{&file});
  EXPECT_EQ(file.Items(), std::vector<MenuItem*>{&exit});
  EXPECT_TRUE(exit.Choose());
  file.Enabled = false;
  EXPECT_FALSE(exit.Choose());
  EXPECT_EQ(chosen, 1);
}

}  // namespace
}  // namespace kestrun
