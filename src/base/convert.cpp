#include "base/convert.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

#include "base/calendar.h"
#include "base/local_forms.h"
#include "base/number.h"
#include "base/object.h"
#include "base/runtime_error.h"
#include "base/text.h"

namespace kestrun {
namespace {

constexpr std::string_view kWhiteSpace = " \t\r\n\v\f";

bool IsWhite(char character) { return kWhiteSpace.find(character) != std::string_view::npos; }

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

std::string_view TrimWhite(std::string_view text) {
  const size_t first = text.find_first_not_of(kWhiteSpace);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kWhiteSpace) - first + 1);
}

// "&H1F" and "&O17": 32 bits, the highest being the sign.
bool ParseRadix(std::string_view text, double& value) {
  if (text.size() < 3 || text[0] != '&') return false;
  const char kind = static_cast<char>(text[1] | 0x20);
  const int base = kind == 'h' ? 16 : kind == 'o' ? 8 : 0;
  if (base == 0) return false;
  uint32_t bits = 0;
  const char* end = text.data() + text.size();
  const auto [stopped, failure] = std::from_chars(text.data() + 2, end, bits, base);
  if (stopped != end || failure == std::errc::invalid_argument) return false;
  if (failure != std::errc{}) Raise(error::kOverflow);
  value = static_cast<int32_t>(bits);
  return true;
}

// Turns a number with its sign, currency sign, parentheses and grouping commas into one that from_chars reads.
class NumberReader {
 public:
  explicit NumberReader(std::string_view text) : text_(text) {}

  // False when a character does not belong.
  bool Read() {
    while (at_ < text_.size() && ReadFront(text_[at_])) ++at_;
    if (!ReadDigits() || !ReadExponent()) return false;
    while (at_ < text_.size() && ReadBehind(text_[at_])) ++at_;
    if (at_ < text_.size() || parenthesis_) return false;
    if (negative_) plain_.insert(plain_.begin(), '-');
    return true;
  }

  [[nodiscard]] const std::string& plain() const { return plain_; }

 private:
  bool ReadFront(char character) {
    if (IsWhite(character)) return true;
    if (character == '$') return !std::exchange(currency_, true);
    if (character == '(') {
      negative_ = true;
      return !signed_ && !std::exchange(parenthesis_, true) && (signed_ = true);
    }
    return ReadSign(character);
  }

  bool ReadBehind(char character) {
    if (IsWhite(character)) return true;
    if (character == ')') return std::exchange(parenthesis_, false);
    if (character == '$') return !std::exchange(currency_, true);
    return ReadSign(character);
  }

  bool ReadSign(char character) {
    if ((character != '+' && character != '-') || signed_) return false;
    negative_ = character == '-';
    return signed_ = true;
  }

  bool ReadDigits() {
    const size_t first = at_;
    at_ = std::min(text_.find_first_not_of('0', at_), text_.size());  // zeros in front add nothing but a digit
    bool digits = at_ != first;
    if (digits) plain_.push_back('0');
    bool point = false;
    for (; at_ < text_.size(); ++at_) {
      const char character = text_[at_];
      if (IsDigit(character)) {
        digits = true;
        plain_.push_back(character);
      } else if (character == '.' && !point) {
        point = true;
        plain_.push_back(character);
      } else if (character != ',' || !digits || point) {
        break;
      }
    }
    return digits;
  }

  bool ReadExponent() {
    if (at_ == text_.size() || ((text_[at_] | 0x20) != 'e' && (text_[at_] | 0x20) != 'd')) return true;
    plain_.push_back('e');
    if (++at_ < text_.size() && (text_[at_] == '+' || text_[at_] == '-')) {
      if (text_[at_] == '-') plain_.push_back('-');
      ++at_;
    }
    const size_t first = at_;
    for (; at_ < text_.size() && IsDigit(text_[at_]); ++at_) plain_.push_back(text_[at_]);
    return at_ != first;
  }

  std::string_view text_;
  size_t at_ = 0;
  std::string plain_;
  bool signed_ = false;
  bool negative_ = false;
  bool currency_ = false;
  bool parenthesis_ = false;
};

bool PlainToDouble(const std::string& plain, double& value) {
  const auto [stopped, failure] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
  if (failure == std::errc::result_out_of_range) {
    if (plain.find("e-") == std::string::npos && plain.find("0.") != 0) Raise(error::kOverflow);
    value = 0;
    return true;
  }
  return failure == std::errc{} && stopped == plain.data() + plain.size();
}

bool ParseNumber(std::string_view text, double& value) {
  text = TrimWhite(text);
  if (ParseRadix(text, value)) return true;
  NumberReader reader(text);
  return reader.Read() && PlainToDouble(reader.plain(), value);
}

// Numbers are written in ASCII; false when the text holds anything else.
bool Narrow(std::u16string_view text, std::string& narrow) {
  if (std::any_of(text.begin(), text.end(), [](char16_t unit) { return unit > 0x7E; })) return false;
  narrow.resize(text.size());
  std::transform(text.begin(), text.end(), narrow.begin(), [](char16_t unit) { return static_cast<char>(unit); });
  return true;
}

double NumberFromText(const std::u16string& text) {
  double value = 0;
  if (!ReadNumber(text, value)) Raise(error::kTypeMismatch);
  return value;
}

// Scientific notation from 10^digits on and below 0.0001, plain otherwise; no trailing zeros (the %G rule).
std::string FormatReal(double value, int digits) {
  if (value == 0) return "0";
  if (std::isnan(value)) return std::signbit(value) ? "-1.#IND" : "1.#QNAN";
  if (std::isinf(value)) return value < 0 ? "-1.#INF" : "1.#INF";
  char text[48];
  const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::general, digits).ptr;
  std::string shown(text, end);
  const size_t exponent = shown.find('e');
  if (exponent != std::string::npos) shown[exponent] = 'E';
  return shown;
}

std::optional<double> DateFromText(const std::u16string& text) {
  const LocalForms* const forms = FormsInUse();
  std::string narrow;
  const bool ascii = forms ? Narrow(forms->date_in(text), narrow) : Narrow(text, narrow);
  return ascii ? ParseDate(narrow) : std::nullopt;
}

bool IsExactCurrency(const std::string& plain) {
  if (plain.find('e') != std::string::npos) return false;
  const size_t point = plain.find('.');
  return point == std::string::npos || plain.size() - point - 1 <= 4;
}

// Digit by digit, because a Double does not hold 19 digits.
int64_t PlainToCurrency(const std::string& plain) {
  const bool negative = plain[0] == '-';
  int64_t scaled = 0;
  int missing = 4;
  bool fraction = false;
  const auto append = [&](int digit) {
    const bool overflow =
        __builtin_mul_overflow(scaled, int64_t{10}, &scaled) || __builtin_sub_overflow(scaled, int64_t{digit}, &scaled);
    if (overflow) Raise(error::kOverflow);
  };
  for (const char character : plain) {
    if (character == '.') fraction = true;
    if (!IsDigit(character)) continue;
    append(character - '0');
    if (fraction) --missing;
  }
  for (; missing > 0; --missing) append(0);
  if (negative) return scaled;
  if (scaled == std::numeric_limits<int64_t>::min()) Raise(error::kOverflow);
  return -scaled;
}

int64_t CurrencyFromText(const std::u16string& text) {
  if (const LocalForms* forms = FormsInUse()) {
    const LocalFormsScope english(nullptr);
    return CurrencyFromText(forms->number_in(text));
  }
  std::string narrow;
  NumberReader reader(Narrow(text, narrow) ? TrimWhite(narrow) : std::string_view());
  if (reader.Read() && IsExactCurrency(reader.plain())) return PlainToCurrency(reader.plain());
  return DoubleToCurrency(NumberFromText(text));
}

std::string LocalNumber(std::string text) {
  const LocalForms* const forms = FormsInUse();
  return forms ? forms->number_out(text) : text;
}

std::string CurrencyToText(int64_t scaled) {
  const bool negative = scaled < 0;
  const uint64_t magnitude = negative ? 0 - static_cast<uint64_t>(scaled) : static_cast<uint64_t>(scaled);
  std::string text = (negative ? "-" : "") + std::to_string(magnitude / 10000);
  std::string fraction = std::to_string(10000 + magnitude % 10000).substr(1);
  fraction.erase(fraction.find_last_not_of('0') + 1);
  return fraction.empty() ? text : LocalNumber(text + "." + fraction);
}

// A default member may answer with an object that has one as well; a ring of them must end.
constexpr int kDefaultMemberDepth = 16;

Variant DefaultValue(const Variant& value) {
  Variant plain = value;
  for (int depth = 0; plain.Is(VarType::kObject); ++depth) {
    Object* object = plain.object();
    if (!object) Raise(error::kObjectNotSet);
    const MemberId member = object->DefaultMember();
    if (member == kNoMember || depth == kDefaultMemberDepth) Raise(error::kMemberNotFound);
    plain = object->Get(member, {});
  }
  return plain;
}

}  // namespace

bool ReadNumber(std::u16string_view text, double& value) {
  if (const LocalForms* forms = FormsInUse()) {
    const LocalFormsScope english(nullptr);
    return ReadNumber(forms->number_in(text), value);
  }
  std::string narrow;
  return Narrow(text, narrow) && ParseNumber(narrow, value);
}

double TextToDouble(std::string_view text) {
  double value = 0;
  if (!ParseNumber(text, value)) Raise(error::kTypeMismatch);
  return value;
}

bool TextToBoolean(std::string_view text) {
  const std::string_view word = text;
  if (const LocalForms* forms = FormsInUse()) {
    if (EqualsNoCase(word, forms->true_word)) return true;
    if (EqualsNoCase(word, forms->false_word)) return false;
  }
  if (EqualsNoCase(word, "True") || EqualsNoCase(word, "#TRUE#")) return true;
  if (EqualsNoCase(word, "False") || EqualsNoCase(word, "#FALSE#")) return false;
  double value = 0;
  if (!ReadNumber(ToUtf16(text), value)) Raise(error::kTypeMismatch);
  return value != 0;
}

int32_t TextToLong(std::string_view text) { return RoundToInt(TextToDouble(text)); }

std::string BooleanToText(bool value) {
  if (const LocalForms* forms = FormsInUse()) return std::string(value ? forms->true_word : forms->false_word);
  return value ? "True" : "False";
}

std::string DoubleToText(double value) { return LocalNumber(FormatReal(value, 15)); }

std::string SingleToText(float value) { return LocalNumber(FormatReal(static_cast<double>(value), 7)); }

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
    case VarType::kString: return NumberFromText(value.text());
    case VarType::kObject: return ToDouble(DefaultValue(value));
    case VarType::kError:
    case VarType::kArray: break;
  }
  Raise(error::kTypeMismatch);
}

int64_t DoubleToCurrency(double value) {
  constexpr double kLimit = 9223372036854775808.0;
  const double scaled = RoundToEven(value * 10000);
  if (!(scaled >= -kLimit && scaled < kLimit)) Raise(error::kOverflow);
  return static_cast<int64_t>(scaled);
}

int64_t ToCurrency(const Variant& value) {
  if (value.Is(VarType::kCurrency)) return value.scaled();
  if (value.Is(VarType::kObject)) return ToCurrency(DefaultValue(value));
  if (value.Is(VarType::kString)) return CurrencyFromText(value.text());
  return DoubleToCurrency(ToDouble(value));
}

float ToSingle(const Variant& value) {
  const double wide = ToDouble(value);
  if (std::isfinite(wide) && !std::isfinite(static_cast<float>(wide))) Raise(error::kOverflow);
  return static_cast<float>(wide);
}

uint8_t ToByte(const Variant& value) {
  const int16_t whole = ToInteger(value);
  if (whole < 0 || whole > 255) Raise(error::kOverflow);
  return static_cast<uint8_t>(whole);
}

double ToDate(const Variant& value) {
  if (value.Is(VarType::kDate)) return value.real();
  if (value.Is(VarType::kObject)) return ToDate(DefaultValue(value));
  if (value.Is(VarType::kString)) {
    if (const std::optional<double> date = DateFromText(value.text())) return *date;
  }
  const double number = ToDouble(value);
  if (!IsDateNumber(number)) Raise(error::kOverflow);
  return number;
}

bool IsDate(const Variant& value) {
  if (!value.Is(VarType::kString)) return value.Is(VarType::kDate);
  return DateFromText(value.text()).has_value();
}

int32_t ToLong(const Variant& value) {
  if (value.Is(VarType::kLong) || value.Is(VarType::kInteger) || value.Is(VarType::kByte)) return value.whole();
  return RoundToInt(ToDouble(value));
}

int16_t ToInteger(const Variant& value) {
  const double wide = ToDouble(value);
  // A text in another radix is 16 bits here, the highest being the sign.
  const bool radix = value.Is(VarType::kString) && value.text().find(u'&') != std::u16string::npos;
  if (radix && wide > 0x7FFF && wide <= 0xFFFF) return static_cast<int16_t>(static_cast<int32_t>(wide));
  return RoundToShort(wide);
}

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
    case VarType::kDate:
      if (const LocalForms* forms = FormsInUse()) return forms->date_out(value.real());
      return DateToText(value.real());
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
      Attempt([&] { numeric = ReadNumber(value.text(), number); });
      return numeric;
    }
    default: return true;
  }
}

}  // namespace kestrun
