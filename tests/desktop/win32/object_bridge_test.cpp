// The program's objects as automation sees them, and the other way round.
#include "desktop/win32/com/object_bridge.h"

#include <gmock/gmock.h>

#include <thread>

#include "base/convert.h"
#include "base/member_rows.h"
#include "desktop/win32/com/object_dispatch.h"
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window_fixture.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/option_button.h"
#include "support/late_bound.h"
// This needs the Windows headers above.
#include <olectl.h>

namespace kestrun {
namespace {

using late_bound::Failure;
using late_bound::Reference;
using late_bound::Value;
using testing::ElementsAre;

class frmbridged final : public Form {
 public:
  frmbridged() : Form("frmbridged") {}
  Label& Label1 = Add<Label>("Label1");
  ListBox& List1 = Add<ListBox>("List1");
  OptionButton& first = Add<OptionButton>("options", 0);
  OptionButton& second = Add<OptionButton>("options", 3);
};
const WindowRegistration registration("frmbridged", [] { return MakeRef<frmbridged>(); });

Reference OutsideOf(Object& object) { return Reference(DispatchOf(object).get()); }

// What the statement throws; a failure with no number when it runs through.
template <class Statement>
Failure FailureOf(Statement&& statement) {
  try {
    statement();
  } catch (const Failure& failure) {
    return failure;
  }
  return {};
}

class ObjectBridgeTest : public RealWindowTest {
 protected:
  ObjectBridgeTest() : form(static_cast<frmbridged&>(WindowByName("frmbridged"))), outside(OutsideOf(form)) {}
  ~ObjectBridgeTest() override { CloseObjectBridge(); }

  frmbridged& form;
  Reference outside;
};

// ---- members -------------------------------------------------------------------------------------------------------

TEST_F(ObjectBridgeTest, PropertiesOfAWindowAreReadAndWrittenByNameInAnyCase) {
  outside.Put(L"CAPTION", L"Oasis \x00e9");
  EXPECT_EQ(form.Caption.get(), "Oasis \xC3\xA9");
  EXPECT_EQ(outside.Get(L"caption").Text(), L"Oasis \x00e9");
  outside.Put(L"Width", 4800);
  EXPECT_EQ(outside.Get(L"Width").Number(), 4800);
  EXPECT_EQ(outside.Get(L"Visible").get()->vt, VT_BOOL);
}

TEST_F(ObjectBridgeTest, AControlIsAMemberOfItsWindowAndItsDefaultMemberIsMeantByItAlone) {
  outside.Put(L"Label1", L"by default");
  EXPECT_EQ(form.Label1.Caption.get(), "by default");
  const Reference label(outside.Get(L"Label1"));
  EXPECT_EQ(label.Invoke(DISPID_VALUE, DISPATCH_PROPERTYGET, {}).Text(), L"by default");
  label.Invoke(DISPID_VALUE, DISPATCH_PROPERTYPUT, {L"again"});
  EXPECT_EQ(form.Label1.Caption.get(), "again");
}

TEST_F(ObjectBridgeTest, AnElementOfAControlArrayTakesItsIndex) {
  const Reference element(outside.Get(L"options", {3}));
  element.Put(L"Caption", L"third");
  EXPECT_EQ(form.second.Caption.get(), "third");
  EXPECT_EQ(Reference(outside.Get(L"options")).Get(L"Count").Number(), 2);
  EXPECT_EQ(FailureOf([&] { outside.Get(L"options", {7}); }).number, 9);
}

TEST_F(ObjectBridgeTest, AMemberThatIsNotThereHasNoNumber) {
  std::wstring name = L"Nowhere";
  LPOLESTR names = name.data();
  DISPID number = 5;
  EXPECT_EQ(outside.get()->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &number), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(number, DISPID_UNKNOWN);
  EXPECT_EQ(FailureOf([&] { outside.Invoke(987'654, DISPATCH_PROPERTYGET, {}); }).result, DISP_E_MEMBERNOTFOUND);
}

TEST_F(ObjectBridgeTest, ArgumentsThatAreLeftOutKeepTheirDefaults) {
  form.Label1.Move(10, 20, 300, 400);
  const Reference label(outside.Get(L"Label1"));
  label.Call(L"Move", {100, Value::Missing(), 900});
  EXPECT_EQ(form.Label1.Left, 100);
  EXPECT_EQ(form.Label1.Top, 20);
  EXPECT_EQ(form.Label1.Width, 900);
  label.Call(L"Move", {50, Value::Missing(), Value::Missing()});
  EXPECT_EQ(form.Label1.Left, 50);
}

TEST_F(ObjectBridgeTest, ArgumentsMayBeGivenByName) {
  form.Label1.Move(10, 20, 300, 400);
  const Reference label(outside.Get(L"Label1"));
  std::wstring method = L"Move";
  std::wstring height = L"HEIGHT";
  std::wstring left = L"left";
  LPOLESTR names[]{method.data(), height.data(), left.data()};
  DISPID numbers[3]{};
  ASSERT_EQ(label.get()->GetIDsOfNames(IID_NULL, names, 3, LOCALE_USER_DEFAULT, numbers), S_OK);
  EXPECT_EQ(numbers[1], 3);
  EXPECT_EQ(numbers[2], 0);
  // Values in the order of the call: the last ones belong to the names, last name first.
  label.Invoke(numbers[0], DISPATCH_METHOD, {70, 900}, {numbers[1], numbers[2]});
  EXPECT_EQ(form.Label1.Left, 70);
  EXPECT_EQ(form.Label1.Top, 20);
  EXPECT_EQ(form.Label1.Height, 900);
  std::wstring wrong = L"Depth";
  names[1] = wrong.data();
  EXPECT_EQ(label.get()->GetIDsOfNames(IID_NULL, names, 2, LOCALE_USER_DEFAULT, numbers), DISP_E_UNKNOWNNAME);
}

TEST_F(ObjectBridgeTest, TheIndexOfAPropertyMayBeGivenByNameWhenItIsReadAndWhenItIsPut) {
  form.List1.AddItem("Alpha");
  form.List1.AddItem("Bravo");
  const Reference list(outside.Get(L"List1"));
  std::wstring member = L"List";
  std::wstring index = L"index";
  LPOLESTR names[]{member.data(), index.data()};
  DISPID numbers[2]{};
  ASSERT_EQ(list.get()->GetIDsOfNames(IID_NULL, names, 2, LOCALE_USER_DEFAULT, numbers), S_OK);
  EXPECT_EQ(list.Invoke(numbers[0], DISPATCH_PROPERTYGET, {1}, {numbers[1]}).Text(), L"Bravo");
  list.Invoke(numbers[0], DISPATCH_PROPERTYPUT, {0, L"Charlie"}, {numbers[1]});
  EXPECT_EQ(form.List1.List(0), "Charlie");
  member = L"options";
  ASSERT_EQ(outside.get()->GetIDsOfNames(IID_NULL, names, 2, LOCALE_USER_DEFAULT, numbers), S_OK);
  const Reference second(outside.Invoke(numbers[0], DISPATCH_PROPERTYGET, {3}, {numbers[1]}));
  EXPECT_EQ(ObjectOf(second.get()).get(), &form.second);
}

// ---- pictures and fonts of others ----------------------------------------------------------------------------------

// Takes over what OLE has made.
Reference Owned(IDispatch* object) {
  const Reference held(object);
  if (object) object->Release();
  return held;
}

Reference StandardFont(const wchar_t* name, int points, bool is_bold) {
  FONTDESC wanted{};
  wanted.cbSizeofstruct = sizeof wanted;
  wanted.lpstrName = const_cast<LPOLESTR>(name);
  wanted.cySize.int64 = points * 10'000;
  wanted.sWeight = is_bold ? FW_BOLD : FW_NORMAL;
  wanted.sCharset = DEFAULT_CHARSET;
  IDispatch* font = nullptr;
  EXPECT_EQ(OleCreateFontIndirect(&wanted, __uuidof(IDispatch), reinterpret_cast<void**>(&font)), S_OK);
  return Owned(font);
}

// A row of pixels 0xRRGGBB; none for an empty picture.
Reference StandardPicture(std::vector<uint32_t> pixels) {
  PICTDESC wanted{};
  wanted.cbSizeofstruct = sizeof wanted;
  wanted.picType = pixels.empty() ? PICTYPE_NONE : PICTYPE_BITMAP;
  if (!pixels.empty()) {
    wanted.bmp.hbitmap = CreateBitmap(static_cast<int>(pixels.size()), 1, 1, 32, pixels.data());
  }
  IDispatch* picture = nullptr;
  EXPECT_EQ(OleCreatePictureIndirect(&wanted, __uuidof(IDispatch), TRUE, reinterpret_cast<void**>(&picture)), S_OK);
  return Owned(picture);
}

TEST_F(ObjectBridgeTest, AFontThatAnAddInMadeIsTakenOver) {
  const Reference label(outside.Get(L"Label1"));
  // The system gives it the name of the font that it found.
  const Reference font = StandardFont(L"Tahoma", 12, true);
  label.PutReference(L"Font", font.get());
  EXPECT_EQ(ToWide(form.Label1.Font->name), font.Get(L"Name").Text());
  EXPECT_EQ(form.Label1.Font->size_points, 12);
  EXPECT_TRUE(form.Label1.Font->bold);
  EXPECT_FALSE(form.Label1.Font->italic);
}

TEST_F(ObjectBridgeTest, APictureThatAnAddInMadeIsCopiedWithAllItsPixels) {
  outside.PutReference(L"Picture", StandardPicture({0xFF0000, 0x00FF00, 0x0000FF}).get());
  ASSERT_TRUE(form.Picture.get());
  EXPECT_EQ(form.Picture.get()->width_pixels(), 3);
  EXPECT_EQ(form.Picture.get()->height_pixels(), 1);
  EXPECT_THAT(form.Picture.get()->pixels(), ElementsAre(0xFFFF0000, 0xFF00FF00, 0xFF0000FF));
}

TEST_F(ObjectBridgeTest, AnEmptyPictureOfAnAddInTakesThePresentOneAway) {
  outside.PutReference(L"Picture", StandardPicture({0xFF0000}).get());
  outside.PutReference(L"Picture", StandardPicture({}).get());
  EXPECT_FALSE(form.Picture.get());
}

TEST_F(ObjectBridgeTest, AFontIsNoPictureAndAPictureIsNoFont) {
  const Reference label(outside.Get(L"Label1"));
  EXPECT_EQ(FailureOf([&] { label.PutReference(L"Font", StandardPicture({1}).get()); }).number, 13);
  EXPECT_EQ(FailureOf([&] { outside.PutReference(L"Picture", StandardFont(L"Tahoma", 9, false).get()); }).number, 13);
}

TEST_F(ObjectBridgeTest, ForEachWalksTheControlsOfAWindow) {
  const Reference controls(outside.Get(L"Controls"));
  EXPECT_EQ(controls.Find(L"_newenum"), DISPID_NEWENUM);
  EXPECT_EQ(outside.Find(L"_NewEnum"), DISPID_UNKNOWN);
  std::vector<std::wstring> names;
  for (const Value& control : controls.Items()) names.push_back(Reference(control).Get(L"Name").Text());
  EXPECT_THAT(names, ElementsAre(L"Label1", L"List1", L"options", L"options"));
  EXPECT_EQ(FailureOf([&] { static_cast<void>(outside.Items()); }).number, 451);
}

TEST_F(ObjectBridgeTest, AnEnumerationIsSkippedResetAndCopied) {
  const Value walk = Reference(outside.Get(L"Controls")).Invoke(DISPID_NEWENUM, DISPATCH_PROPERTYGET, {});
  auto* items = static_cast<IEnumVARIANT*>(nullptr);
  walk.get()->punkVal->QueryInterface(__uuidof(IEnumVARIANT), reinterpret_cast<void**>(&items));
  ASSERT_NE(items, nullptr);
  EXPECT_EQ(items->Skip(3), S_OK);
  IEnumVARIANT* copy = nullptr;
  ASSERT_EQ(items->Clone(&copy), S_OK);
  for (IEnumVARIANT* one : {items, copy}) {
    VARIANT two[2]{};
    ULONG fetched = 9;
    EXPECT_EQ(one->Next(2, two, &fetched), S_FALSE);
    EXPECT_EQ(fetched, 1U);
    VariantClear(&two[0]);
  }
  EXPECT_EQ(items->Reset(), S_OK);
  EXPECT_EQ(items->Skip(5), S_FALSE);
  copy->Release();
  items->Release();
}

// ---- values --------------------------------------------------------------------------------------------------------

// Gives back what it is given, and doubles its second argument in place.
class EchoObject final : public TableObject {
 public:
  static Variant CallEcho(Object&, Arguments given) {
    if (given.size() > 1) given[1] = Variant(ToDouble(given[1]) * 2);
    return given[0];
  }
  static constexpr Member kRows[]{RawMethodRow("Echo", 1, 2, &CallEcho)};
  static const MemberTable kTable;
  [[nodiscard]] const MemberTable& Members() const override { return kTable; }
  [[nodiscard]] std::string TypeName() const override { return "Echo"; }
};
const MemberTable EchoObject::kTable{nullptr, EchoObject::kRows};

class ValueBridgeTest : public testing::Test {
 protected:
  ~ValueBridgeTest() override { CloseObjectBridge(); }
  Value Echo(const Value& value) { return outside.Call(L"Echo", {value}); }
  // A value of that type from a number or a text.
  static Value Of(VARTYPE type, Value value) {
    EXPECT_EQ(VariantChangeType(value.get(), value.get(), 0, type), S_OK) << type;
    return value;
  }

  Ref<EchoObject> echo = MakeRef<EchoObject>();
  Reference outside = OutsideOf(*echo);
};

TEST_F(ValueBridgeTest, EachTypeThatTheProgramHasComesBackAsItWas) {
  for (const VARTYPE type : {VT_I2, VT_I4, VT_R4, VT_R8, VT_CY, VT_DATE, VT_BSTR, VT_UI1}) {
    const Value back = Echo(Of(type, 37));
    EXPECT_EQ(back.get()->vt, type);
    EXPECT_EQ(Value(back).Number(), 37) << type;
  }
  EXPECT_EQ(Echo(true).get()->boolVal, VARIANT_TRUE);
  EXPECT_EQ(Echo(Value()).get()->vt, VT_EMPTY);
  Value null;
  null.get()->vt = VT_NULL;
  EXPECT_EQ(Echo(null).get()->vt, VT_NULL);
  Value nothing;
  nothing.get()->vt = VT_DISPATCH;
  EXPECT_EQ(Echo(nothing).get()->vt, VT_DISPATCH);
  EXPECT_EQ(Echo(nothing).Object(), nullptr);
}

TEST_F(ValueBridgeTest, AWholeNumberOfAnotherTypeBecomesALongOrADouble) {
  EXPECT_EQ(Echo(Of(VT_I1, L"-5")).get()->vt, VT_I2);
  EXPECT_EQ(Echo(Of(VT_UI2, L"65535")).Number(), 65'535);
  EXPECT_EQ(Echo(Of(VT_UI4, L"4294967295")).get()->dblVal, 4'294'967'295.0);
  EXPECT_EQ(Echo(Of(VT_I8, L"-9")).get()->vt, VT_I4);
  EXPECT_EQ(Echo(Of(VT_UI8, L"10000000000")).get()->dblVal, 1e10);
  EXPECT_EQ(Echo(Of(VT_DECIMAL, L"12.5")).get()->dblVal, 12.5);
}

TEST_F(ValueBridgeTest, ATextKeepsZerosLoneSurrogatesAndAnOddNumberOfBytes) {
  const std::wstring odd(L"a\0\xD800z", 4);
  Value text;
  text.get()->vt = VT_BSTR;
  text.get()->bstrVal = SysAllocStringLen(odd.data(), 4);
  const Value back = Echo(text);
  EXPECT_EQ(std::wstring(back.get()->bstrVal, SysStringLen(back.get()->bstrVal)), odd);
  Value bytes;
  bytes.get()->vt = VT_BSTR;
  bytes.get()->bstrVal = SysAllocStringByteLen("abcde", 5);
  EXPECT_EQ(SysStringByteLen(Echo(bytes).get()->bstrVal), 5U);
}

TEST_F(ValueBridgeTest, AnArrayOfTwoDimensionsKeepsItsElementsInTheirPlaces) {
  SAFEARRAYBOUND bounds[]{{2, 5}, {3, -1}};
  SAFEARRAY* array = SafeArrayCreate(VT_I4, 2, bounds);
  for (LONG row = 0; row < 2; ++row) {
    for (LONG column = 0; column < 3; ++column) {
      LONG place[]{5 + row, -1 + column};
      LONG number = row * 10 + column;
      SafeArrayPutElement(array, place, &number);
    }
  }
  Value value;
  value.get()->vt = VT_ARRAY | VT_I4;
  value.get()->parray = array;
  const Value back = Echo(value);
  ASSERT_EQ(back.get()->vt, VT_ARRAY | VT_VARIANT);
  ASSERT_EQ(SafeArrayGetDim(back.get()->parray), 2U);
  LONG place[]{1, 2};
  Value element;
  ASSERT_EQ(SafeArrayGetElement(back.get()->parray, place, element.get()), S_OK);
  EXPECT_EQ(element.Number(), 12);
  LONG upper = 0;
  SafeArrayGetUBound(back.get()->parray, 2, &upper);
  EXPECT_EQ(upper, 2);
}

TEST_F(ValueBridgeTest, WhatTheCalleeChangesGoesIntoTheCallersVariable) {
  LONG number = 21;
  Value by_reference;
  by_reference.get()->vt = VT_BYREF | VT_I4;
  by_reference.get()->plVal = &number;
  outside.Call(L"Echo", {0, by_reference});
  EXPECT_EQ(number, 42);

  Value variant(L"4");
  by_reference.get()->vt = VT_BYREF | VT_VARIANT;
  by_reference.get()->pvarVal = variant.get();
  outside.Call(L"Echo", {0, by_reference});
  EXPECT_EQ(variant.get()->vt, VT_R8);
  EXPECT_EQ(variant.Number(), 8);

  BSTR text = SysAllocString(L"7");
  by_reference.get()->vt = VT_BYREF | VT_BSTR;
  by_reference.get()->pbstrVal = &text;
  outside.Call(L"Echo", {0, by_reference});
  EXPECT_STREQ(text, L"14");
  SysFreeString(text);
}

TEST_F(ValueBridgeTest, AValueThatTheCalleeLeavesAloneIsNotTouched) {
  int64_t large = 7;
  Value by_reference;
  by_reference.get()->vt = VT_BYREF | VT_I8;
  by_reference.get()->pllVal = reinterpret_cast<LONGLONG*>(&large);
  EXPECT_EQ(outside.Call(L"Echo", {by_reference}).Number(), 7);
  EXPECT_EQ(large, 7);
}

TEST_F(ValueBridgeTest, ATypeThatTheProgramDoesNotKnowIsRefused) {
  Value value;
  value.get()->vt = VT_RECORD;
  const Failure failure = FailureOf([&] { Echo(value); });
  value.get()->vt = VT_EMPTY;
  EXPECT_EQ(failure.number, 458);
}

// ---- failures ------------------------------------------------------------------------------------------------------

TEST_F(ObjectBridgeTest, AFailureTellsNumberTextAndProgram) {
  const Failure failure = FailureOf([&] { Reference(outside.Get(L"List1")).Call(L"RemoveItem", {5}); });
  EXPECT_EQ(failure.result, DISP_E_EXCEPTION);
  EXPECT_EQ(failure.number, 5);
  EXPECT_EQ(failure.text, L"Invalid procedure call or argument");
  EXPECT_EQ(failure.source, L"Kestrun");
  EXPECT_EQ(FailureOf([&] { outside.Put(L"hWnd", 1); }).number, 383);
  EXPECT_EQ(FailureOf([&] { outside.Call(L"Hide", {1}); }).number, 450);
  EXPECT_EQ(FailureOf([&] { outside.Put(L"Width", L"wide"); }).text, L"Type mismatch");
}

TEST_F(ObjectBridgeTest, WithoutAPlaceForTheTextTheResultCarriesTheNumber) {
  DISPPARAMS none{};
  EXPECT_EQ(outside.get()->Invoke(outside.Find(L"Move"), IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr,
                                  nullptr, nullptr),
            static_cast<HRESULT>(0x800A0000 | 450));
}

// ---- lifetime ------------------------------------------------------------------------------------------------------

TEST_F(ObjectBridgeTest, WhatIsKeptAfterItsWindowWasClosedAnswersWithError424) {
  const Reference label(outside.Get(L"Label1"));
  const Reference font(label.Get(L"Font"));
  const Reference controls(outside.Get(L"Controls"));
  const Reference array(outside.Get(L"options"));
  const Value walk = controls.Invoke(DISPID_NEWENUM, DISPATCH_PROPERTYGET, {});
  EXPECT_TRUE(form.Unload());
  Pump();
  for (const Reference& kept : {outside, label, font, controls, array}) {
    const wchar_t* const member = kept.Find(L"Name") != DISPID_UNKNOWN ? L"Name" : L"Count";
    const Failure failure = FailureOf([&] { kept.Get(member); });
    EXPECT_EQ(failure.number, 424);
    EXPECT_EQ(failure.text, L"Object required");
  }
  EXPECT_EQ(FailureOf([&] { outside.Put(L"Caption", L"x"); }).number, 424);
  EXPECT_EQ(FailureOf([&] { label.Call(L"Move", {1}); }).number, 424);
  EXPECT_EQ(FailureOf([&] { outside.Get(L"Label1"); }).number, 424);
}

TEST_F(ObjectBridgeTest, TheSameObjectIsTheSameReferenceAndComesBackAsItself) {
  EXPECT_EQ(Reference(outside.Get(L"Label1")).get(), OutsideOf(form.Label1).get());
  EXPECT_EQ(ObjectOf(outside.get()).get(), &form);
  EXPECT_EQ(ObjectOf(nullptr).get(), nullptr);
}

TEST(ObjectBridgeLifeTest, AReferenceHoldsItsObjectUntilItIsLetGo) {
  auto object = MakeRef<EchoObject>();
  EXPECT_EQ(object->references(), 1U);
  {
    const Reference one = OutsideOf(*object);
    const Reference other = OutsideOf(*object);
    EXPECT_EQ(object->references(), 2U);
  }
  EXPECT_EQ(object->references(), 1U);
}

TEST(ObjectBridgeLifeTest, OnAnotherThreadNothingIsCalledAndALastReferenceIsLetGoOfLater) {
  auto object = MakeRef<EchoObject>();
  IDispatch* dispatch = DispatchOf(*object).Detach();
  HRESULT result = S_OK;
  std::thread([&] {
    DISPPARAMS none{};
    result = dispatch->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr, nullptr,
                              nullptr);
    dispatch->Release();
  }).join();
  EXPECT_EQ(result, RPC_E_WRONG_THREAD);
  EXPECT_EQ(object->references(), 2U);
  // The next use of the bridge on its own thread lets go of it.
  const Ref<EchoObject> other = MakeRef<EchoObject>();
  static_cast<void>(DispatchOf(*other));
  EXPECT_EQ(object->references(), 1U);
}

TEST(ObjectBridgeLifeTest, OnceTheBridgeIsClosedAReferenceIsAShellThatMayStillBeLetGoOf) {
  auto object = MakeRef<EchoObject>();
  const Reference kept = OutsideOf(*object);
  CloseObjectBridge();
  EXPECT_EQ(object->references(), 1U);
  EXPECT_EQ(FailureOf([&] { kept.Invoke(1, DISPATCH_METHOD, {}); }).number, 424);
  EXPECT_NE(OutsideOf(*object).get(), kept.get());
}

// ---- other people's objects ----------------------------------------------------------------------------------------

// An object of automation that is told what to answer, and notes how it is called. Member 7 is "Thing".
class ForeignThing final : public IDispatch {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) override {
    if (id != __uuidof(IUnknown) && id != __uuidof(IDispatch)) {
      *found = nullptr;
      return E_NOINTERFACE;
    }
    *found = this;
    ++references;
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* numbers) override {
    *numbers = std::wstring(names[0]) == L"Thing" ? 7 : DISPID_UNKNOWN;
    return *numbers == 7 ? S_OK : DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD kind, DISPPARAMS* given, VARIANT* result,
                                   EXCEPINFO* told, UINT*) override {
    calls += std::to_string(member) + " by " + std::to_string(kind) + " with " + std::to_string(given->cArgs) + "|";
    if (given->cArgs) VariantCopy(last.get(), &given->rgvarg[0]);
    if (kind == refused_kind) return DISP_E_MEMBERNOTFOUND;
    if (answer == DISP_E_EXCEPTION) *told = exception;
    if (result && SUCCEEDED(answer)) VariantCopy(result, value.get());
    return answer;
  }

  int references = 1;
  std::string calls;
  Value last;
  Value value;
  WORD refused_kind = 0;
  HRESULT answer = S_OK;
  EXCEPINFO exception{};
};

class ForeignObjectTest : public testing::Test {
 protected:
  [[nodiscard]] static std::string ErrorOf(const std::function<void()>& action) {
    try {
      action();
    } catch (const RuntimeError& failure) {
      return std::to_string(failure.number()) + " " + failure.description();
    }
    return "none";
  }

  ForeignThing thing;
  Ref<Object> object = ObjectOf(&thing);
};

TEST_F(ForeignObjectTest, ItsMembersAreUsedByNameEachInItsOwnWay) {
  EXPECT_EQ(object->TypeName(), "Object");
  EXPECT_EQ(object->FindMember("Nowhere"), kNoMember);
  thing.value = Value(5);
  EXPECT_EQ(ToLong(GetMember(*object, "Thing")), 5);
  PutMember(*object, "Thing", "text");
  EXPECT_EQ(thing.last.Text(), L"text");
  CallMember(*object, "Thing", {int32_t{1}, int32_t{2}});
  EXPECT_EQ(thing.last.Number(), 2) << "the last argument comes first";
  object->PutReference(7, {}, Variant::Nothing());
  EXPECT_EQ(thing.calls, "7 by 3 with 0|7 by 4 with 1|7 by 1 with 2|7 by 8 with 1|");
}

TEST_F(ForeignObjectTest, APropertyThatTakesNoReferencesIsPutAndOneThatIsNoMethodIsRead) {
  thing.refused_kind = DISPATCH_PROPERTYPUTREF;
  object->PutReference(7, {}, Variant::Nothing());
  thing.refused_kind = DISPATCH_METHOD;
  CallMember(*object, "Thing");
  EXPECT_EQ(thing.calls, "7 by 8 with 1|7 by 4 with 1|7 by 1 with 0|7 by 2 with 0|");
}

TEST_F(ForeignObjectTest, ItsFailuresAreRunTimeErrors) {
  const auto use = [this] { static_cast<void>(GetMember(*object, "Thing")); };
  thing.answer = DISP_E_TYPEMISMATCH;
  EXPECT_EQ(ErrorOf(use), "13 Type mismatch");
  thing.answer = DISP_E_MEMBERNOTFOUND;
  EXPECT_EQ(ErrorOf(use), "438 Object doesn't support this property or method");
  thing.answer = HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE);
  EXPECT_EQ(ErrorOf(use), "462 The remote server machine does not exist or is unavailable");
  thing.answer = DISP_E_EXCEPTION;
  thing.exception.scode = static_cast<SCODE>(0x800A0035);
  EXPECT_EQ(ErrorOf(use), "53 File not found");
  thing.exception.scode = 0;
  thing.exception.wCode = 1234;
  thing.exception.bstrDescription = SysAllocString(L"the server is tired");
  EXPECT_EQ(ErrorOf(use), "1234 the server is tired");
}

HRESULT STDAPICALLTYPE FillInLater(EXCEPINFO* told) {
  told->scode = static_cast<SCODE>(0x800A0046);
  told->bstrDescription = SysAllocString(L"locked");
  return S_OK;
}

TEST_F(ForeignObjectTest, ADescriptionThatIsFilledInLaterIsAskedFor) {
  thing.answer = DISP_E_EXCEPTION;
  thing.exception.pfnDeferredFillIn = &FillInLater;
  EXPECT_EQ(ErrorOf([this] { CallMember(*object, "Thing"); }), "70 locked");
}

TEST_F(ForeignObjectTest, ItIsHeldOnceAndLetGoAndComesBackAsItself) {
  const Ref<Object> again = ObjectOf(&thing);
  EXPECT_EQ(again.get(), object.get());
  EXPECT_EQ(thing.references, 2);
  EXPECT_EQ(DispatchOf(*object).get(), &thing);
  { const Ref<Object> last = std::move(object); }
  EXPECT_EQ(thing.references, 2);
  const_cast<Ref<Object>&>(again).Reset();
  EXPECT_EQ(thing.references, 1);
}

TEST_F(ForeignObjectTest, ForEachWalksACollectionOfItsOwn) {
  EXPECT_EQ(ErrorOf([this] { static_cast<void>(object->Enumerate()); }), "none");
  thing.answer = DISP_E_MEMBERNOTFOUND;
  EXPECT_EQ(object->Enumerate(), nullptr);
  // One of the program's own stands in for somebody's collection.
  thing.answer = S_OK;
  const Ref<Form> form = MakeRef<frmbridged>();
  const Reference controls(OutsideOf(*form).Get(L"Controls"));
  thing.value = controls.Invoke(DISPID_NEWENUM, DISPATCH_PROPERTYGET, {});
  const std::unique_ptr<Enumeration> items = object->Enumerate();
  ASSERT_NE(items, nullptr);
  Variant item;
  int count = 0;
  while (items->Next(item)) ++count;
  EXPECT_EQ(count, 4);
  CloseObjectBridge();
}

}  // namespace
}  // namespace kestrun
