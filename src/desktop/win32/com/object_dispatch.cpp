#include "desktop/win32/com/object_dispatch.h"

#include <algorithm>
#include <map>

#include "base/runtime_error.h"
#include "base/text.h"
#include "desktop/win32/com/automation_value.h"
#include "desktop/win32/com/bridge_failures.h"
#include "desktop/win32/com/call_arguments.h"
#include "desktop/win32/com/enumeration_unknown.h"
#include "desktop/win32/com/foreign_object.h"
#include "desktop/win32/com/member_numbers.h"
#include "desktop/win32/com/object_bridge.h"
#include "desktop/win32/system/wide_text.h"

namespace kestrun {
namespace {

// Only our own objects answer to it, in this process.
constexpr GUID kOwnObject{0x3a5c0bb2, 0x5f1e, 0x4c58, {0x9b, 0x1d, 0x6e, 0x0f, 0x8d, 0x52, 0xa7, 0x14}};

constexpr std::string_view kEnumerationName = "_NewEnum";
constexpr WORD kPuts = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;

// By the object; each takes itself out.
std::map<const Object*, ObjectDispatch*>& Existing() {
  static std::map<const Object*, ObjectDispatch*> dispatches;
  return dispatches;
}

MemberId MemberOf(const Object& object, DISPID number) {
  if (number == DISPID_VALUE) return object.DefaultMember();
  const std::string* name = MemberOfNumber(number);
  return name ? object.FindMember(*name) : kNoMember;
}

void StoreEnumeration(const Ref<Object>& object, VARIANT& result) {
  std::unique_ptr<Enumeration> items = object->Enumerate();
  if (!items) Raise(error::kNoCollection);
  result = {};
  result.punkVal = EnumerationUnknown::For(object, std::move(items)).Detach();
  result.vt = VT_UNKNOWN;
}

void Put(Object& object, MemberId member, WORD kind, DISPPARAMS& given) {
  CallArguments arguments(given, true);
  if (kind & DISPATCH_PROPERTYPUTREF) {
    object.PutReference(member, arguments.values(), arguments.put_value());
  } else {
    object.Put(member, arguments.values(), arguments.put_value());
  }
  arguments.GiveBack();
}

Variant GetOrCall(Object& object, MemberId member, WORD kind, DISPPARAMS& given) {
  CallArguments arguments(given, false);
  Variant value =
      kind & DISPATCH_METHOD ? object.Call(member, arguments.values()) : object.Get(member, arguments.values());
  arguments.GiveBack();
  return value;
}

// The number of a member by its name, DISPID_UNKNOWN when there is none.
DISPID NumberIn(Object& object, std::string_view name) {
  if (object.FindMember(name) != kNoMember) return NumberOfMember(name);
  if (EqualsNoCase(name, kEnumerationName) && object.Enumerate()) return DISPID_NEWENUM;
  return DISPID_UNKNOWN;
}

}  // namespace

ComOwner<IDispatch> ObjectDispatch::For(Object& object) {
  DestroyAbandoned();
  const auto found = Existing().find(&object);
  if (found != Existing().end()) return ComOwner<IDispatch>::Share(found->second);
  return MakeUnknown<IDispatch, ObjectDispatch>(object);
}

Ref<Object> ObjectDispatch::Behind(IUnknown& reference) {
  ComOwner<IDispatch> own;
  if (FAILED(reference.QueryInterface(kOwnObject, own.ReceiveAny()))) return {};
  return static_cast<ObjectDispatch*>(own.get())->Target();
}

void ObjectDispatch::DisconnectAll() {
  DestroyAbandoned();
  while (!Existing().empty()) {
    const auto first = Existing().begin();
    const Ref<Object> last = std::exchange(first->second->object_, nullptr);
    Existing().erase(first);
  }
}

ObjectDispatch::ObjectDispatch(Object& object) : object_(&object) { Existing().emplace(&object, this); }

ObjectDispatch::~ObjectDispatch() {
  if (object_) Existing().erase(object_.get());
}

Ref<Object> ObjectDispatch::Target() const {
  if (!object_) Raise(error::kObjectRequired);
  return object_;
}

HRESULT ObjectDispatch::QueryInterface(REFIID id, void** found) {
  if (!found) return E_POINTER;
  *found = nullptr;
  if (id != __uuidof(IUnknown) && id != __uuidof(IDispatch) && id != kOwnObject) return E_NOINTERFACE;
  *found = static_cast<IDispatch*>(this);
  Retain();
  return S_OK;
}

HRESULT ObjectDispatch::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT ObjectDispatch::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* numbers) {
  if (!names || !numbers || count == 0) return E_INVALIDARG;
  if (!IsOwnThread()) return RPC_E_WRONG_THREAD;
  std::fill_n(numbers, count, DISPID_UNKNOWN);
  return AnswerCall(nullptr, [&] {
    const Ref<Object> object = Target();
    const std::string name = FromWide(names[0]);
    numbers[0] = NumberIn(*object, name);
    bool are_known = numbers[0] != DISPID_UNKNOWN;
    for (UINT at = 1; at < count; ++at) {
      const MemberId member = object->FindMember(name);
      if (member != kNoMember) numbers[at] = PlaceOfParameter(object->ParameterNames(member), FromWide(names[at]));
      are_known = are_known && numbers[at] != DISPID_UNKNOWN;
    }
    return are_known ? S_OK : DISP_E_UNKNOWNNAME;
  });
}

HRESULT ObjectDispatch::Invoke(DISPID number, REFIID, LCID, WORD kind, DISPPARAMS* given, VARIANT* result,
                               EXCEPINFO* failure, UINT*) {
  if (!given) return E_INVALIDARG;
  if (!IsOwnThread()) return RPC_E_WRONG_THREAD;
  // The call may let go of the last reference.
  const ComOwner<IDispatch> keep = ComOwner<IDispatch>::Share(this);
  DestroyAbandoned();
  return AnswerCall(failure, [&] { return Access(number, kind, *given, result); });
}

HRESULT ObjectDispatch::Access(DISPID number, WORD kind, DISPPARAMS& given, VARIANT* result) {
  const Ref<Object> object = Target();
  if (number == DISPID_NEWENUM) {
    if (result) StoreEnumeration(object, *result);
    return S_OK;
  }
  const MemberId member = MemberOf(*object, number);
  if (member == kNoMember) return DISP_E_MEMBERNOTFOUND;
  if (kind & kPuts) {
    Put(*object, member, kind, given);
    return S_OK;
  }
  const Variant value = GetOrCall(*object, member, kind, given);
  if (result) StoreAutomation(value, *result);
  return S_OK;
}

ComOwner<IDispatch> DispatchOf(Object& object) {
  const auto* foreign = dynamic_cast<const ForeignObject*>(&object);
  return foreign ? ComOwner<IDispatch>::Share(foreign->target()) : ObjectDispatch::For(object);
}

void CloseObjectBridge() { ObjectDispatch::DisconnectAll(); }

}  // namespace kestrun
