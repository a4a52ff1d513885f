#include "desktop/win32/com/automation_value.h"

#include <cstring>
#include <limits>

#include "base/text.h"
#include "desktop/win32/com/automation_array.h"
#include "desktop/win32/com/automation_calls.h"
#include "desktop/win32/com/automation_element.h"
#include "desktop/win32/com/object_bridge.h"
#include "desktop/win32/system/wide_text.h"

namespace kestrun {
namespace {

template <class T>
T At(const void* place) {
  T value;
  std::memcpy(&value, place, sizeof value);
  return value;
}

// A whole number that may be too large for a Long.
template <class Whole>
Variant FromWhole(Whole value) {
  const auto real = static_cast<double>(value);
  const bool is_long = real >= std::numeric_limits<int32_t>::min() && real <= std::numeric_limits<int32_t>::max();
  return is_long ? Variant(static_cast<int32_t>(value)) : Variant(real);
}

// Half a unit at the end: texts also carry any number of bytes.
Variant FromText(BSTR text) {
  const size_t bytes = text ? AUTOMATION_CALL(SysStringByteLen)(text) : 0;
  Ref<TextBody> body = MakeRef<TextBody>(std::u16string((bytes + 1) / 2, u'\0'));
  if (bytes) std::memcpy(body->text.data(), text, bytes);
  body->half_unit = bytes % 2 != 0;
  return Variant(std::move(body));
}

Variant FromDecimal(const VARIANT& value) {
  AutomationValue real;
  VARIANT decimal = value;
  if (value.vt & VT_BYREF) decimal.decVal = *value.pdecVal;
  decimal.vt = VT_DECIMAL;  // it stands in the same place as the decimal's own first field
  CheckConversion(AUTOMATION_CALL(VariantChangeType)(&real.get(), &decimal, 0, VT_R8));
  return real.get().dblVal;
}

BSTR NewText(const TextBody& body) {
  const size_t bytes = body.text.size() * sizeof(char16_t) - (body.half_unit ? 1 : 0);
  BSTR text = AUTOMATION_CALL(SysAllocStringByteLen)(nullptr, static_cast<UINT>(bytes));
  if (!text) Raise(error::kOutOfMemory);
  std::memcpy(text, body.text.data(), bytes);
  return text;
}

}  // namespace

Variant FromAutomationElement(VARTYPE type, const void* place) {
  switch (type) {
    case VT_EMPTY: return {};
    case VT_NULL: return Variant::Null();
    case VT_I1: return int16_t{At<int8_t>(place)};
    case VT_UI1: return At<uint8_t>(place);
    case VT_I2: return At<int16_t>(place);
    case VT_UI2: return int32_t{At<uint16_t>(place)};
    case VT_I4:
    case VT_INT: return At<int32_t>(place);
    case VT_UI4:
    case VT_UINT: return FromWhole(At<uint32_t>(place));
    case VT_I8: return FromWhole(At<int64_t>(place));
    case VT_UI8: return FromWhole(At<uint64_t>(place));
    case VT_R4: return At<float>(place);
    case VT_R8: return At<double>(place);
    case VT_CY: return Variant::Currency(At<int64_t>(place));
    case VT_DATE: return Variant::Date(At<double>(place));
    case VT_BOOL: return At<VARIANT_BOOL>(place) != VARIANT_FALSE;
    case VT_ERROR: return Variant::Error(At<int32_t>(place));
    case VT_BSTR: return FromText(At<BSTR>(place));
    case VT_DISPATCH:
    case VT_UNKNOWN: return ObjectOf(At<IUnknown*>(place));
    case VT_VARIANT: return FromAutomation(*static_cast<const VARIANT*>(place));
    default: Raise(error::kUnsupportedType);
  }
}

Variant FromAutomation(const VARIANT& value) {
  const bool is_reference = (value.vt & VT_BYREF) != 0;
  if (is_reference && !value.byref) Raise(error::kTypeMismatch);
  if (value.vt & VT_ARRAY) {
    return FromAutomationArray(is_reference ? *value.pparray : value.parray, value.vt & VT_TYPEMASK);
  }
  const auto type = static_cast<VARTYPE>(value.vt & VT_TYPEMASK);
  if (type == VT_DECIMAL) return FromDecimal(value);
  return FromAutomationElement(type, is_reference ? value.byref : static_cast<const void*>(&value.llVal));
}

void StoreAutomation(const Variant& value, VARIANT& target) {
  if (value.IsReference()) return StoreAutomation(*value.target(), target);
  target = {};
  switch (value.type()) {
    case VarType::kEmpty:
    case VarType::kNull: break;
    case VarType::kInteger: target.iVal = static_cast<int16_t>(value.whole()); break;
    case VarType::kByte: target.bVal = static_cast<uint8_t>(value.whole()); break;
    case VarType::kLong: target.lVal = value.whole(); break;
    case VarType::kError: target.scode = value.whole(); break;
    case VarType::kSingle: target.fltVal = static_cast<float>(value.real()); break;
    case VarType::kDouble: target.dblVal = value.real(); break;
    case VarType::kDate: target.date = value.real(); break;
    case VarType::kCurrency: target.cyVal.int64 = value.scaled(); break;
    case VarType::kBoolean: target.boolVal = value.boolean() ? VARIANT_TRUE : VARIANT_FALSE; break;
    case VarType::kString: target.bstrVal = NewText(*value.text_body()); break;
    case VarType::kObject: target.pdispVal = value.object() ? DispatchOf(*value.object()).Detach() : nullptr; break;
    case VarType::kArray: target.parray = NewAutomationArray(value.array()); break;
  }
  // The numbers of the types are automation's own.
  target.vt = static_cast<VARTYPE>(value.type());
}

void StoreThroughReference(const Variant& value, const VARIANT& reference) {
  const auto type = static_cast<VARTYPE>(reference.vt & ~VT_BYREF);
  AutomationValue stored(value);
  if (type == VT_VARIANT) {
    VARIANT& target = *reference.pvarVal;
    AUTOMATION_CALL(VariantClear)(&target);
    target = std::exchange(stored.get(), VARIANT{});
    return;
  }
  CheckConversion(AUTOMATION_CALL(VariantChangeType)(&stored.get(), &stored.get(), 0, type));
  AutomationValue old;
  old.get().vt = type;
  if (type == VT_DECIMAL) {
    *reference.pdecVal = stored.get().decVal;
    return;
  }
  const size_t size = SizeOfElement(type);
  std::memcpy(&old.get().llVal, reference.byref, size);
  std::memcpy(reference.byref, &stored.get().llVal, size);
  stored.get() = {};
}

void CheckConversion(HRESULT result) {
  if (SUCCEEDED(result)) return;
  Raise(result == DISP_E_OVERFLOW ? error::kOverflow : error::kTypeMismatch);
}

size_t SizeOfElement(VARTYPE type) {
  switch (type) {
    case VT_I1:
    case VT_UI1: return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL: return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_ERROR:
    case VT_R4: return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_DATE:
    case VT_CY: return 8;
    case VT_VARIANT: return sizeof(VARIANT);
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_UNKNOWN: return sizeof(void*);
    default: Raise(error::kUnsupportedType);
  }
}

BSTR NewAutomationText(std::string_view utf8) {
  const std::wstring wide = ToWide(utf8);
  BSTR text = AUTOMATION_CALL(SysAllocStringLen)(wide.data(), static_cast<UINT>(wide.size()));
  if (!text) Raise(error::kOutOfMemory);
  return text;
}

std::string TakeAutomationText(BSTR text) {
  if (!text) return {};
  std::string taken = FromWide({text, AUTOMATION_CALL(SysStringLen)(text)});
  AUTOMATION_CALL(SysFreeString)(text);
  return taken;
}

AutomationValue::~AutomationValue() { AUTOMATION_CALL(VariantClear)(&held_); }

}  // namespace kestrun
