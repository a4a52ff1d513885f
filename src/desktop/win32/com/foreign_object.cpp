#include "desktop/win32/com/foreign_object.h"

#include <map>
#include <utility>

#include "desktop/win32/com/automation_value.h"
#include "desktop/win32/com/bridge_failures.h"
#include "desktop/win32/com/object_bridge.h"
#include "desktop/win32/com/object_dispatch.h"
#include "desktop/win32/com/outgoing_arguments.h"
#include "desktop/win32/system/wide_text.h"

namespace kestrun {
namespace {

constexpr WORD kGetOrCall = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

// By the reference; each takes itself out.
std::map<const IDispatch*, ForeignObject*>& Existing() {
  static std::map<const IDispatch*, ForeignObject*> objects;
  return objects;
}

HRESULT Invoke(IDispatch& target, DISPID member, WORD kind, OutgoingArguments& arguments, AutomationValue* result,
               EXCEPINFO& told) {
  return target.Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, kind, arguments.get(), result ? &result->get() : nullptr,
                       &told, nullptr);
}

Variant Read(IDispatch& target, DISPID member, WORD kind, WORD other_kind, Arguments given) {
  OutgoingArguments arguments(given, nullptr);
  AutomationValue result;
  EXCEPINFO told{};
  HRESULT done = Invoke(target, member, kind, arguments, &result, told);
  if (done == DISP_E_MEMBERNOTFOUND && other_kind) done = Invoke(target, member, other_kind, arguments, &result, told);
  if (FAILED(done)) RaiseResult(done, &told);
  return FromAutomation(result.get());
}

class ForeignEnumeration final : public Enumeration {
 public:
  explicit ForeignEnumeration(ComOwner<IEnumVARIANT> items) : items_(std::move(items)) {}
  bool Next(Variant& item) override {
    AutomationValue next;
    const HRESULT result = items_->Next(1, &next.get(), nullptr);
    if (FAILED(result)) RaiseResult(result);
    if (result != S_OK) return false;
    item = FromAutomation(next.get());
    return true;
  }

 private:
  ComOwner<IEnumVARIANT> items_;
};

}  // namespace

Ref<Object> ForeignObject::For(ComOwner<IDispatch> target) {
  const auto found = Existing().find(target.get());
  if (found != Existing().end()) return Ref<Object>(found->second);
  return MakeRef<ForeignObject>(std::move(target));
}

ForeignObject::ForeignObject(ComOwner<IDispatch> target) : target_(std::move(target)) {
  Existing().emplace(target_.get(), this);
}

ForeignObject::~ForeignObject() { Existing().erase(target_.get()); }

std::string ForeignObject::TypeName() const {
  ComOwner<ITypeInfo> type;
  BSTR name = nullptr;
  const bool is_named = SUCCEEDED(target_->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.Receive())) && type &&
                        SUCCEEDED(type->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr));
  return is_named && name ? TakeAutomationText(name) : "Object";
}

MemberId ForeignObject::FindMember(std::string_view name) const {
  std::wstring wide = ToWide(name);
  LPOLESTR names = wide.data();
  DISPID number = DISPID_UNKNOWN;
  const HRESULT found = target_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &number);
  if (found == DISP_E_UNKNOWNNAME) return kNoMember;
  if (FAILED(found)) RaiseResult(found);
  return number;
}

Variant ForeignObject::Get(MemberId member, Arguments arguments) {
  return Read(*target_.get(), member, kGetOrCall, 0, arguments);
}

Variant ForeignObject::Call(MemberId member, Arguments arguments) {
  return Read(*target_.get(), member, DISPATCH_METHOD, DISPATCH_PROPERTYGET, arguments);
}

void ForeignObject::Put(MemberId member, Arguments given, const Variant& value) {
  OutgoingArguments arguments(given, &value);
  EXCEPINFO told{};
  const HRESULT done = Invoke(*target_.get(), member, DISPATCH_PROPERTYPUT, arguments, nullptr, told);
  if (FAILED(done)) RaiseResult(done, &told);
}

void ForeignObject::PutReference(MemberId member, Arguments given, const Variant& value) {
  OutgoingArguments arguments(given, &value);
  EXCEPINFO told{};
  HRESULT done = Invoke(*target_.get(), member, DISPATCH_PROPERTYPUTREF, arguments, nullptr, told);
  if (done == DISP_E_MEMBERNOTFOUND) {
    done = Invoke(*target_.get(), member, DISPATCH_PROPERTYPUT, arguments, nullptr, told);
  }
  if (FAILED(done)) RaiseResult(done, &told);
}

std::unique_ptr<Enumeration> ForeignObject::Enumerate() {
  OutgoingArguments none({}, nullptr);
  AutomationValue result;
  EXCEPINFO told{};
  const HRESULT done = Invoke(*target_.get(), DISPID_NEWENUM, kGetOrCall, none, &result, told);
  if (done == DISP_E_MEMBERNOTFOUND) return nullptr;
  if (FAILED(done)) RaiseResult(done, &told);
  const VARIANT& given = result.get();
  ComOwner<IEnumVARIANT> items;
  const bool is_object = (given.vt == VT_UNKNOWN || given.vt == VT_DISPATCH) && given.punkVal;
  if (!is_object || FAILED(given.punkVal->QueryInterface(__uuidof(IEnumVARIANT), items.ReceiveAny()))) return nullptr;
  return std::make_unique<ForeignEnumeration>(std::move(items));
}

Ref<Object> ObjectOf(IUnknown* foreign) {
  if (!foreign) return {};
  if (Ref<Object> own = ObjectDispatch::Behind(*foreign)) return own;
  ComOwner<IDispatch> target;
  if (FAILED(foreign->QueryInterface(__uuidof(IDispatch), target.ReceiveAny()))) Raise(error::kNoSuchInterface);
  return ForeignObject::For(std::move(target));
}

}  // namespace kestrun
