#include "base/convert.h"

#include <charconv>
#include <cmath>
#include <cstdio>

#include "base/number.h"
#include "base/object.h"
#include "base/runtime_error.h"
#include "base/text.h"

namespace kestrun {
namespace {

constexpr std::string_view kWhiteSpace = " \t\r\n";

std::string_view TrimWhite(std::string_view text) {
  const size_t first = text.find_first_not_of(kWhiteSpace);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kWhiteSpace) - first + 1);
}

// "&H1F" and "&O17": 16-bit values are sign-extended, as the language reads its own literals.
bool ParseRadix(std::string_view text, double& value) {
  if (text.size() < 3 || text[0] != '&') return false;
  const char kind = static_cast<char>(text[1] | 0x20);
  const int base = kind == 'h' ? 16 : kind == 'o' ? 8 : 0;
  if (base == 0) return false;
  uint32_t bits = 0;
  const char* end = text.data() + text.size();
  const auto [stopped, failure] = std::from_chars(text.data() + 2, end, bits, base);
  if (failure != std::errc{} || stopped != end) return false;
  value = bits <= 0xFFFF ? static_cast<int16_t>(bits) : static_cast<int32_t>(bits);
  return true;
}

// Copies a decimal number without its grouping commas; false when a character does not belong.
bool NormalizeDecimal(std::string_view text, std::string& plain) {
  bool digits = false;
  bool point = false;
  size_t at = 0;
  if (at < text.size() && (text[at] == '+' || text[at] == '-')) {
    if (text[at] == '-') plain.push_back('-');
    ++at;
  }
  for (; at < text.size(); ++at) {
    const char character = text[at];
    if (character >= '0' && character <= '9') {
      digits = true;
      plain.push_back(character);
    } else if (character == '.' && !point) {
      point = true;
      plain.push_back(character);
    } else if (character != ',' || !digits || point) {
      break;
    }
  }
  if (!digits) return false;
  if (at == text.size()) return true;
  if ((text[at] | 0x20) != 'e' && (text[at] | 0x20) != 'd') return false;
  plain.push_back('e');
  if (++at < text.size() && (text[at] == '+' || text[at] == '-')) {
    if (text[at] == '-') plain.push_back('-');
    ++at;
  }
  if (at == text.size()) return false;
  for (; at < text.size(); ++at) {
    if (text[at] < '0' || text[at] > '9') return false;
    plain.push_back(text[at]);
  }
  return true;
}

bool ParseNumber(std::string_view text, double& value) {
  text = TrimWhite(text);
  if (ParseRadix(text, value)) return true;
  std::string plain;
  if (!NormalizeDecimal(text, plain)) return false;
  const auto [stopped, failure] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
  if (failure == std::errc::result_out_of_range) {
    if (plain.find("e-") == std::string::npos) Raise(error::kOverflow);
    value = 0;
    return true;
  }
  return failure == std::errc{} && stopped == plain.data() + plain.size();
}

std::string FormatReal(double value, int digits) {
  if (value == 0) return "0";
  if (std::isnan(value)) return std::signbit(value) ? "-1.#IND" : "1.#QNAN";
  if (std::isinf(value)) return value < 0 ? "-1.#INF" : "1.#INF";
  char scientific[40];
  std::snprintf(scientific, sizeof scientific, "%.*e", digits - 1, value);
  const std::string_view shown(scientific);
  const size_t mark = shown.find('e');
  const int exponent = std::atoi(scientific + mark + 1);
  std::string sign = value < 0 ? "-" : "";
  std::string figures;
  for (const char character : shown.substr(0, mark)) {
    if (character >= '0' && character <= '9') figures.push_back(character);
  }
  figures.erase(figures.find_last_not_of('0') + 1);
  const int count = static_cast<int>(figures.size());
  // Plain notation up to `digits` places in front of the point, and behind it as long as no digit is lost.
  if (exponent >= 0 && exponent < digits) {
    if (count <= exponent + 1) return sign + figures.append(static_cast<size_t>(exponent + 1 - count), '0');
    return sign + figures.substr(0, static_cast<size_t>(exponent) + 1) + "." +
           figures.substr(static_cast<size_t>(exponent) + 1);
  }
  if (exponent < 0 && count - exponent - 1 <= digits) {
    return sign + "0." + std::string(static_cast<size_t>(-exponent - 1), '0') + figures;
  }
  std::string mantissa = figures.substr(0, 1);
  if (count > 1) mantissa += "." + figures.substr(1);
  const std::string power = std::to_string(std::abs(exponent));
  return sign + mantissa + (exponent < 0 ? "E-" : "E+") + (power.size() < 2 ? "0" + power : power);
}

std::string CurrencyToText(int64_t scaled) {
  const bool negative = scaled < 0;
  const uint64_t magnitude = negative ? 0 - static_cast<uint64_t>(scaled) : static_cast<uint64_t>(scaled);
  std::string text = (negative ? "-" : "") + std::to_string(magnitude / 10000);
  std::string fraction = std::to_string(10000 + magnitude % 10000).substr(1);
  fraction.erase(fraction.find_last_not_of('0') + 1);
  return fraction.empty() ? text : text + "." + fraction;
}

Variant DefaultValue(const Variant& value) {
  Object* object = value.object();
  if (!object) Raise(error::kObjectNotSet);
  const MemberId member = object->DefaultMember();
  if (member == kNoMember) Raise(error::kMemberNotFound);
  return object->Get(member, {});
}

}  // namespace

double TextToDouble(std::string_view text) {
  double value = 0;
  if (!ParseNumber(text, value)) Raise(error::kTypeMismatch);
  return value;
}

bool TextToBoolean(std::string_view text) {
  const std::string_view word = TrimWhite(text);
  if (EqualsNoCase(word, "True") || EqualsNoCase(word, "#TRUE#")) return true;
  if (EqualsNoCase(word, "False") || EqualsNoCase(word, "#FALSE#")) return false;
  return TextToDouble(text) != 0;
}

int32_t TextToLong(std::string_view text) { return RoundToInt(TextToDouble(text)); }

std::string BooleanToText(bool value) { return value ? "True" : "False"; }

std::string DoubleToText(double value) { return FormatReal(value, 15); }

std::string SingleToText(float value) { return FormatReal(static_cast<double>(value), 7); }

double LeadingNumber(std::string_view text) {
  std::string compact;
  for (const char character : text) {
    if (kWhiteSpace.find(character) == std::string_view::npos) compact.push_back(character);
  }
  const char* first = compact.data() + (!compact.empty() && compact[0] == '+' ? 1 : 0);
  double value = 0;
  if (first == compact.data() + compact.size()) return 0;
  const char lead = *first == '-' && first + 1 != compact.data() + compact.size() ? first[1] : *first;
  if (lead != '.' && (lead < '0' || lead > '9')) return 0;
  const auto [stopped, failure] = std::from_chars(first, compact.data() + compact.size(), value);
  static_cast<void>(stopped);
  return failure == std::errc{} ? value : 0;
}

double ToDouble(const Variant& value) {
  switch (value.type()) {
    case VarType::kEmpty: return 0;
    case VarType::kNull: Raise(error::kInvalidUseOfNull);
    case VarType::kInteger:
    case VarType::kLong:
    case VarType::kByte: return value.whole();
    case VarType::kSingle:
    case VarType::kDouble:
    case VarType::kDate: return value.real();
    case VarType::kCurrency: return static_cast<double>(value.scaled()) / 10000;
    case VarType::kBoolean: return value.boolean() ? -1 : 0;
    case VarType::kString: return TextToDouble(ToUtf8(value.text()));
    case VarType::kObject: return ToDouble(DefaultValue(value));
    case VarType::kError:
    case VarType::kArray: break;
  }
  Raise(error::kTypeMismatch);
}

int32_t ToLong(const Variant& value) {
  if (value.Is(VarType::kLong) || value.Is(VarType::kInteger) || value.Is(VarType::kByte)) return value.whole();
  return RoundToInt(ToDouble(value));
}

int16_t ToInteger(const Variant& value) { return RoundToShort(ToDouble(value)); }

bool ToBoolean(const Variant& value) {
  if (value.Is(VarType::kBoolean)) return value.boolean();
  if (value.Is(VarType::kString)) return TextToBoolean(ToUtf8(value.text()));
  if (value.Is(VarType::kObject)) return ToBoolean(DefaultValue(value));
  return ToDouble(value) != 0;
}

std::string ToText(const Variant& value) {
  switch (value.type()) {
    case VarType::kEmpty: return {};
    case VarType::kNull: Raise(error::kInvalidUseOfNull);
    case VarType::kInteger:
    case VarType::kLong:
    case VarType::kByte: return std::to_string(value.whole());
    case VarType::kSingle: return SingleToText(static_cast<float>(value.real()));
    case VarType::kDouble: return DoubleToText(value.real());
    case VarType::kDate: return DoubleToText(value.real());
    case VarType::kCurrency: return CurrencyToText(value.scaled());
    case VarType::kBoolean: return BooleanToText(value.boolean());
    case VarType::kString: return ToUtf8(value.text());
    case VarType::kObject: return ToText(DefaultValue(value));
    case VarType::kError: return "Error " + std::to_string(value.whole());
    case VarType::kArray: break;
  }
  Raise(error::kTypeMismatch);
}

bool IsNumeric(const Variant& value) {
  switch (value.type()) {
    case VarType::kNull:
    case VarType::kDate:
    case VarType::kError:
    case VarType::kArray:
    case VarType::kObject: return false;
    case VarType::kString: {
      double number = 0;
      bool numeric = false;
      Attempt([&] { numeric = ParseNumber(ToUtf8(value.text()), number); });
      return numeric;
    }
    default: return true;
  }
}

}  // namespace kestrun
