#include "script/runtime_fixture.h"

#include "base/convert.h"
#include "base/text.h"
#include "script/vbscript/runtime/errors.h"
#include "script/vbscript/runtime/operators.h"

namespace kestrun::vbs {
namespace {

std::string ShowArray(const ArrayBody& array) {
  std::string text = "Array(";
  for (size_t at = 0; at < array.elements.size(); ++at) text += (at == 0 ? "" : ", ") + Show(array.elements[at]);
  return text + ")";
}

// Reads one expression from left to right.
class Reader {
 public:
  Reader(RuntimeContext& context, std::string_view text) : context_(context), text_(text) {}

  Variant ReadWhole() {
    const Variant value = ReadValue();
    SkipBlanks();
    if (at_ != text_.size()) throw std::logic_error("cannot read: " + std::string(text_.substr(at_)));
    return value;
  }

 private:
  void SkipBlanks() {
    while (at_ < text_.size() && text_[at_] == ' ') ++at_;
  }

  bool Take(char wanted) {
    SkipBlanks();
    if (at_ == text_.size() || text_[at_] != wanted) return false;
    ++at_;
    return true;
  }

  Variant ReadValue() {
    SkipBlanks();
    if (at_ == text_.size()) throw std::logic_error("expression ends too early");
    const char first = text_[at_];
    if (first == '"') return ReadText();
    if (first == '#') return ReadDate();
    if (first == '-') return ++at_, Negate(ReadValue());
    return first >= '0' && first <= '9' ? ReadNumber() : ReadName();
  }

  Variant ReadText() {
    std::string text;
    for (++at_; at_ < text_.size(); ++at_) {
      if (text_[at_] == '"' && (at_ + 1 == text_.size() || text_[at_ + 1] != '"')) break;
      if (text_[at_] == '"') ++at_;
      text.push_back(text_[at_]);
    }
    ++at_;
    return text;
  }

  Variant ReadDate() {
    const size_t end = text_.find('#', at_ + 1);
    const Variant date = Variant::Date(ToDate(Variant(text_.substr(at_ + 1, end - at_ - 1))));
    at_ = end + 1;
    return date;
  }

  // An Integer, a Long or a Double, as the language types its literals.
  Variant ReadNumber() {
    const size_t from = at_;
    while (at_ < text_.size() && std::string_view("0123456789.eE+-").find(text_[at_]) != std::string_view::npos) {
      const bool sign = text_[at_] == '+' || text_[at_] == '-';
      if (sign && (text_[at_ - 1] | 0x20) != 'e') break;
      ++at_;
    }
    const std::string_view digits = text_.substr(from, at_ - from);
    const double value = TextToDouble(digits);
    if (digits.find_first_of(".eE") != std::string_view::npos || value > 2147483647) return value;
    const auto whole = static_cast<int32_t>(value);
    return whole <= 32767 ? Variant(static_cast<int16_t>(whole)) : Variant(whole);
  }

  std::string_view ReadWord() {
    const size_t from = at_;
    while (at_ < text_.size() && (std::isalnum(static_cast<unsigned char>(text_[at_])) || text_[at_] == '_')) ++at_;
    return text_.substr(from, at_ - from);
  }

  Variant ReadName() {
    const std::string_view name = ReadWord();
    if (EqualsNoCase(name, "Null")) return Variant::Null();
    if (EqualsNoCase(name, "Empty")) return {};
    if (EqualsNoCase(name, "Nothing")) return Variant::Nothing();
    if (EqualsNoCase(name, "True")) return true;
    if (EqualsNoCase(name, "False")) return false;
    for (const Constant& constant : Constants()) {
      if (EqualsNoCase(constant.name, name)) return constant.value;
    }
    return ReadCall(name);
  }

  Variant ReadCall(std::string_view name) {
    const Builtin* builtin = FindBuiltin(name);
    if (!builtin) throw std::logic_error("no such function: " + std::string(name));
    std::vector<Variant> arguments = ReadArguments();
    const auto count = static_cast<int>(arguments.size());
    if (count < builtin->least_arguments || count > builtin->most_arguments) RaiseScript(error::kWrongArgumentCount);
    return builtin->call(context_, arguments);
  }

  std::vector<Variant> ReadArguments() {
    std::vector<Variant> arguments;
    if (!Take('(') || Take(')')) return arguments;
    do {
      SkipBlanks();
      const bool left_out = text_[at_] == ',' || text_[at_] == ')';
      arguments.push_back(left_out ? Variant::Missing() : ReadValue());
    } while (Take(','));
    if (!Take(')')) throw std::logic_error("missing parenthesis");
    return arguments;
  }

  RuntimeContext& context_;
  std::string_view text_;
  size_t at_ = 0;
};

std::string_view NextLine(std::string_view& rest) {
  const size_t end = std::min(rest.find('\n'), rest.size());
  const std::string_view line = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return line;
}

}  // namespace

std::string Show(const Variant& value) {
  switch (value.type()) {
    case VarType::kNull: return "Null";
    case VarType::kEmpty: return "Empty";
    case VarType::kArray: return ShowArray(value.array());
    case VarType::kObject: return value.object() ? "Object " + value.object()->TypeName() : "Nothing";
    default: return std::string(VarTypeName(value.type())) + " " + ToText(value);
  }
}

Variant Evaluate(RuntimeContext& context, std::string_view expression) {
  return Reader(context, expression).ReadWhole();
}

std::string Outcome(RuntimeContext& context, std::string_view expression) {
  try {
    return "=> " + Show(Evaluate(context, expression));
  } catch (const RuntimeError& failure) {
    return "!! " + std::to_string(failure.number());
  }
}

void CheckTable(RuntimeContext& context, std::string_view table) {
  while (!table.empty()) {
    const std::string_view line = NextLine(table);
    const size_t mark = std::min(line.find(" => "), line.find(" !! "));
    if (mark == std::string_view::npos) continue;
    EXPECT_EQ(Outcome(context, line.substr(0, mark)), line.substr(mark + 1)) << line;
  }
}

}  // namespace kestrun::vbs
