// Automation as a program outside of this project uses it: members by name, values in variants. Needs nothing of the
// project, so that the add-ins of the tests can use it as well.
#pragma once

#include <windows.h>
// The headers below need the one above.
#include <ole2.h>
#include <oleauto.h>

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace late_bound {

// A call that failed: the result code, and what the object said about it.
struct Failure {
  HRESULT result = S_OK;
  int number = 0;  // of a run-time error; 0 for none
  std::wstring text;
  std::wstring source;
};

inline std::wstring TakeText(BSTR text) {
  const std::wstring taken = text ? text : L"";
  SysFreeString(text);
  return taken;
}

inline Failure FailureOf(HRESULT result, const EXCEPINFO& told) {
  const bool is_numbered = (static_cast<DWORD>(told.scode) & 0xFFFF0000) == 0x800A0000;
  Failure failure{result, is_numbered ? told.scode & 0xFFFF : 0, TakeText(told.bstrDescription),
                  TakeText(told.bstrSource)};
  SysFreeString(told.bstrHelpFile);
  return failure;
}

class Value {
 public:
  Value() = default;
  Value(int number) {
    held_.vt = VT_I4;
    held_.lVal = number;
  }
  Value(bool truth) {
    held_.vt = VT_BOOL;
    held_.boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
  }
  Value(const wchar_t* text) {
    held_.vt = VT_BSTR;
    held_.bstrVal = SysAllocString(text);
  }
  Value(const std::wstring& text) : Value(text.c_str()) {}
  Value(IDispatch* object) {
    held_.vt = VT_DISPATCH;
    held_.pdispVal = object;
    if (object) object->AddRef();
  }
  Value(const Value& other) { VariantCopy(&held_, const_cast<VARIANT*>(&other.held_)); }
  Value(Value&& other) noexcept : held_(std::exchange(other.held_, VARIANT{})) {}
  Value& operator=(Value other) noexcept {
    std::swap(held_, other.held_);
    return *this;
  }
  ~Value() { VariantClear(&held_); }

  // An argument that is left out.
  static Value Missing() {
    Value value;
    value.held_.vt = VT_ERROR;
    value.held_.scode = DISP_E_PARAMNOTFOUND;
    return value;
  }

  [[nodiscard]] VARIANT* get() { return &held_; }
  [[nodiscard]] const VARIANT* get() const { return &held_; }
  [[nodiscard]] int Number() const { return As(VT_I4).held_.lVal; }
  [[nodiscard]] std::wstring Text() const {
    const Value text = As(VT_BSTR);
    return text.held_.vt == VT_BSTR && text.held_.bstrVal ? text.held_.bstrVal : L"";
  }
  // Null when it is no object.
  [[nodiscard]] IDispatch* Object() const { return held_.vt == VT_DISPATCH ? held_.pdispVal : nullptr; }

 private:
  [[nodiscard]] Value As(VARTYPE type) const {
    Value changed;
    VariantChangeType(&changed.held_, const_cast<VARIANT*>(&held_), VARIANT_ALPHABOOL, type);
    return changed;
  }

  VARIANT held_{};
};

class Reference {
 public:
  Reference() = default;
  explicit Reference(IDispatch* object) : object_(object) {
    if (object_) object_->AddRef();
  }
  explicit Reference(const Value& value) : Reference(value.Object()) {}
  Reference(const Reference& other) : Reference(other.object_) {}
  Reference& operator=(Reference other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Reference() {
    if (object_) object_->Release();
  }

  [[nodiscard]] IDispatch* get() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

  // DISPID_UNKNOWN when there is no such member.
  [[nodiscard]] DISPID Find(const wchar_t* name) const {
    std::wstring copy(name);
    LPOLESTR names = copy.data();
    DISPID number = DISPID_UNKNOWN;
    object_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &number);
    return number;
  }
  // These throw a Failure.
  Value Get(const wchar_t* name, std::vector<Value> arguments = {}) const {
    return Invoke(Find(name), DISPATCH_PROPERTYGET, std::move(arguments));
  }
  Value Call(const wchar_t* name, std::vector<Value> arguments = {}) const {
    return Invoke(Find(name), DISPATCH_METHOD, std::move(arguments));
  }
  void Put(const wchar_t* name, const Value& value) const { Invoke(Find(name), DISPATCH_PROPERTYPUT, {value}); }
  void PutReference(const wchar_t* name, IDispatch* object) const {
    Invoke(Find(name), DISPATCH_PROPERTYPUTREF, {Value(object)});
  }
  // Arguments in the order of the call; of a put the value last. The names of named arguments count from the last one.
  Value Invoke(DISPID member, WORD kind, std::vector<Value> arguments, std::vector<DISPID> named = {}) const {
    std::vector<VARIANT> reversed;
    for (size_t at = arguments.size(); at > 0; --at) reversed.push_back(*arguments[at - 1].get());
    if (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) named.insert(named.begin(), DISPID_PROPERTYPUT);
    DISPPARAMS given{reversed.data(), named.data(), static_cast<UINT>(reversed.size()),
                     static_cast<UINT>(named.size())};
    Value result;
    EXCEPINFO told{};
    const HRESULT done =
        object_->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, kind, &given, result.get(), &told, nullptr);
    if (FAILED(done)) throw FailureOf(done, told);
    return result;
  }

  // The items of a collection, as For Each gets them.
  [[nodiscard]] std::vector<Value> Items() const {
    const Value enumeration = Invoke(DISPID_NEWENUM, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {});
    std::vector<Value> items;
    IEnumVARIANT* walk = nullptr;
    if (enumeration.get()->vt != VT_UNKNOWN) return items;
    enumeration.get()->punkVal->QueryInterface(__uuidof(IEnumVARIANT), reinterpret_cast<void**>(&walk));
    if (!walk) return items;
    for (Value next; walk->Next(1, next.get(), nullptr) == S_OK; next = Value()) items.push_back(next);
    walk->Release();
    return items;
  }

 private:
  IDispatch* object_ = nullptr;
};

}  // namespace late_bound
