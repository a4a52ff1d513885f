// What a screen reader gets from a control that paints itself.
#include "desktop/win32/window/accessible_control.h"

#include "desktop/win32/system/com_owner.h"
#include "desktop/win32/system/late_call.h"
#include "desktop/win32/user_control_fixture.h"

namespace kestrun {
namespace {

using testing::ElementsAre;

VARIANT ChildNumber(long number) {
  VARIANT child{};
  child.vt = VT_I4;
  child.lVal = number;
  return child;
}

std::wstring NameOf(IAccessible& object, long child) {
  BSTR name = nullptr;
  object.get_accName(ChildNumber(child), &name);
  const std::wstring text = name ? name : L"";
  SysFreeString(name);
  return text;
}

class AccessibleControlTest : public UserControlWindowTest {
 protected:
  void SetUp() override {
    UserControlWindowTest::SetUp();
    CoInitialize(nullptr);
    sample().rows = {"first", "zweite Ж", "third"};
    sample().selected = 1;
    const HRESULT found = KESTRUN_LATE(L"oleacc.dll", AccessibleObjectFromWindow)(
        Handle(), static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible), reinterpret_cast<void**>(&object));
    ASSERT_EQ(found, S_OK);
  }
  void TearDown() override {
    if (object) object->Release();
    UserControlWindowTest::TearDown();
    CoUninitialize();
  }
  long StateOf(long child) {
    VARIANT state{};
    EXPECT_EQ(object->get_accState(ChildNumber(child), &state), S_OK);
    return state.lVal;
  }

  IAccessible* object = nullptr;
};

TEST_F(AccessibleControlTest, AReaderGetsNameRoleAndRows) {
  EXPECT_EQ(NameOf(*object, CHILDID_SELF), L"Sample");
  VARIANT role{};
  EXPECT_EQ(object->get_accRole(ChildNumber(CHILDID_SELF), &role), S_OK);
  EXPECT_EQ(role.lVal, ROLE_SYSTEM_LIST);
  EXPECT_EQ(object->get_accRole(ChildNumber(1), &role), S_OK);
  EXPECT_EQ(role.lVal, ROLE_SYSTEM_LISTITEM);
  long count = 0;
  EXPECT_EQ(object->get_accChildCount(&count), S_OK);
  EXPECT_EQ(count, 3);
  EXPECT_EQ(NameOf(*object, 2), L"zweite Ж");
  BSTR none = nullptr;
  EXPECT_EQ(object->get_accName(ChildNumber(4), &none), E_INVALIDARG);
  EXPECT_EQ(object->get_accName(ChildNumber(-1), &none), E_INVALIDARG);
}

TEST_F(AccessibleControlTest, AReaderHearsWhichRowIsSelectedAndHasTheFocus) {
  SetFocus(Handle());
  constexpr long kBoth = STATE_SYSTEM_SELECTED | STATE_SYSTEM_FOCUSED;
  EXPECT_EQ(StateOf(2) & kBoth, kBoth);
  EXPECT_EQ(StateOf(1) & kBoth, 0);
  EXPECT_EQ(StateOf(1) & STATE_SYSTEM_OFFSCREEN, 0);
  EXPECT_NE(StateOf(3) & STATE_SYSTEM_OFFSCREEN, 0);
  EXPECT_NE(StateOf(CHILDID_SELF) & STATE_SYSTEM_FOCUSED, 0);
  VARIANT child{};
  EXPECT_EQ(object->get_accFocus(&child), S_OK);
  EXPECT_EQ(child.lVal, 2);
  EXPECT_EQ(object->get_accSelection(&child), S_OK);
  EXPECT_EQ(child.lVal, 2);
  SetFocus(HandleOf(form().txtName));
  EXPECT_EQ(StateOf(2) & kBoth, STATE_SYSTEM_SELECTED);
}

TEST_F(AccessibleControlTest, OfSeveralSelectedRowsAReaderGetsThemAll) {
  VARIANT selection{};
  sample().selected = -1;
  EXPECT_EQ(object->get_accSelection(&selection), S_FALSE);
  EXPECT_EQ(selection.vt, VT_EMPTY);
  sample().selected = 0;
  sample().also_selected = 2;
  ASSERT_EQ(object->get_accSelection(&selection), S_OK);
  ASSERT_EQ(selection.vt, VT_UNKNOWN);
  ComOwner<IEnumVARIANT> rows;
  ASSERT_EQ(selection.punkVal->QueryInterface(__uuidof(IEnumVARIANT), rows.ReceiveAny()), S_OK);
  selection.punkVal->Release();
  VARIANT numbers[3]{};
  ULONG fetched = 0;
  EXPECT_EQ(rows->Next(3, numbers, &fetched), S_FALSE);
  EXPECT_EQ(fetched, 2U);
  EXPECT_EQ(numbers[0].lVal, 1);
  EXPECT_EQ(numbers[1].lVal, 3);
  EXPECT_EQ(rows->Reset(), S_OK);
  EXPECT_EQ(rows->Skip(1), S_OK);
  ComOwner<IEnumVARIANT> copy;
  ASSERT_EQ(rows->Clone(copy.Receive()), S_OK);
  EXPECT_EQ(copy->Next(1, numbers, nullptr), S_OK);
  EXPECT_EQ(numbers[0].lVal, 3);
  EXPECT_EQ(copy->Skip(1), S_FALSE);
  EXPECT_EQ(rows->Next(2, numbers, nullptr), E_INVALIDARG);
}

TEST_F(AccessibleControlTest, RowsHaveTheirPlaceOnTheScreen) {
  POINT corner{};
  ClientToScreen(Handle(), &corner);
  long left = 0;
  long top = 0;
  long width = 0;
  long height = 0;
  EXPECT_EQ(object->accLocation(&left, &top, &width, &height, ChildNumber(2)), S_OK);
  EXPECT_EQ(left, corner.x);
  EXPECT_EQ(top, corner.y + 10);
  EXPECT_EQ(width, 50);
  EXPECT_EQ(height, 10);
  VARIANT child{};
  EXPECT_EQ(object->accHitTest(left + 5, top + 5, &child), S_OK);
  EXPECT_EQ(child.lVal, 2);
  EXPECT_EQ(object->accHitTest(left + 100, top + 5, &child), S_OK);
  EXPECT_EQ(child.lVal, CHILDID_SELF);
}

TEST_F(AccessibleControlTest, AReaderThatHoldsOnAfterTheFormHasGoneGetsAnError) {
  CloseAllWindows();
  Pump();
  long count = 0;
  EXPECT_EQ(object->get_accChildCount(&count), CO_E_OBJNOTCONNECTED);
}

std::vector<std::pair<DWORD, LONG>> heard;
void CALLBACK Hear(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child, DWORD, DWORD) {
  if (object == OBJID_CLIENT && GetClassNameW(window, nullptr, 0) >= 0) heard.emplace_back(event, child);
}

TEST_F(AccessibleControlTest, ReadersAreToldOfAnotherRow) {
  heard.clear();
  const HWINEVENTHOOK hook = SetWinEventHook(EVENT_OBJECT_REORDER, EVENT_OBJECT_NAMECHANGE, nullptr, &Hear,
                                             GetCurrentProcessId(), 0, WINEVENT_OUTOFCONTEXT);
  ASSERT_NE(hook, nullptr);
  sample().TellAccessibility(AccessibleEvent::kFocus, 2);
  sample().TellAccessibility(AccessibleEvent::kSelection, 0);
  sample().TellAccessibility(AccessibleEvent::kName);
  Pump();
  UnhookWinEvent(hook);
  EXPECT_THAT(heard, ElementsAre(std::pair<DWORD, LONG>(EVENT_OBJECT_FOCUS, 3), std::pair(EVENT_OBJECT_SELECTION, 1),
                                 std::pair(EVENT_OBJECT_NAMECHANGE, CHILDID_SELF)));
}

}  // namespace
}  // namespace kestrun
