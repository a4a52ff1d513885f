#include "script/vbscript/runtime/regexp.h"

#include <algorithm>
#include <array>

#include "script/vbscript/runtime/builders.h"
#include "script/vbscript/runtime/conversions.h"
#include "script/vbscript/runtime/errors.h"
#include "script/vbscript/runtime/regexp_match.h"
#include "script/vbscript/runtime/regexp_matcher.h"

namespace kestrun::vbs {
namespace {

// What a pattern's tree and program take at most for each of its units.
constexpr size_t kBytesPerPatternUnit = 256;

RegExp& Self(Object& object) { return static_cast<RegExp&>(object); }

constexpr std::array kRows{
    Member{"Pattern", MemberKind::kReadWrite, 0, 0, [](Object& self, Arguments) { return Self(self).pattern(); },
           [](Object& self, Arguments, const Variant& value) { Self(self).set_pattern(value); }},
    Member{"IgnoreCase", MemberKind::kReadWrite, 0, 0,
           [](Object& self, Arguments) { return Variant(Self(self).ignore_case()); },
           [](Object& self, Arguments, const Variant& value) { Self(self).set_ignore_case(ToBoolean(value)); }},
    Member{"Global", MemberKind::kReadWrite, 0, 0, [](Object& self, Arguments) { return Variant(Self(self).global()); },
           [](Object& self, Arguments, const Variant& value) { Self(self).set_global(ToBoolean(value)); }},
    Member{"Multiline", MemberKind::kReadWrite, 0, 0,
           [](Object& self, Arguments) { return Variant(Self(self).multiline()); },
           [](Object& self, Arguments, const Variant& value) { Self(self).set_multiline(ToBoolean(value)); }},
    Member{"Execute", MemberKind::kMethod, 1, 1,
           [](Object& self, Arguments arguments) { return Self(self).Execute(arguments[0]); }},
    Member{"Test", MemberKind::kMethod, 1, 1,
           [](Object& self, Arguments arguments) { return Variant(Self(self).Test(arguments[0])); }},
    Member{"Replace", MemberKind::kMethod, 2, 2,
           [](Object& self, Arguments arguments) { return Self(self).Replace(arguments[0], arguments[1]); }},
};

constexpr MemberTable kMembers{nullptr, kRows};

// Every match from the start of the text, or only the first. An empty match moves the search on by one unit.
template <class OnMatch>
void ForEachMatch(RegExpMatcher& matcher, size_t length, bool global, OnMatch on_match) {
  for (uint32_t from = 0; from <= length && matcher.Find(from);) {
    on_match();
    if (!global) return;
    from = matcher.end(0) > matcher.begin(0) ? matcher.end(0) : matcher.end(0) + 1;
  }
}

// Writes one replacement with its $ forms.
class Expansion {
 public:
  Expansion(std::u16string_view text, std::u16string_view replacement, uint32_t group_count)
      : text_(text), replacement_(replacement), group_count_(group_count) {}

  void AppendTo(TextBuilder& result, const RegExpMatcher& matcher) const {
    for (size_t at = 0; at < replacement_.size();) {
      const size_t form = std::min(replacement_.find(u'$', at), replacement_.size());
      result.Append(replacement_.substr(at, form - at));
      if (form == replacement_.size()) return;
      const size_t taken = AppendForm(result, matcher, form);
      if (taken == 0) result.Append(u'$');
      at = form + (taken == 0 ? 1 : taken);
    }
  }

 private:
  [[nodiscard]] std::u16string_view Group(const RegExpMatcher& matcher, uint32_t group) const {
    if (matcher.begin(group) == kNoPosition) return {};
    return text_.substr(matcher.begin(group), matcher.end(group) - matcher.begin(group));
  }

  // The number of units that the form at `at` takes; 0 when it is none.
  size_t AppendForm(TextBuilder& result, const RegExpMatcher& matcher, size_t at) const {
    if (at + 1 == replacement_.size()) return 0;
    const char16_t letter = replacement_[at + 1];
    switch (letter) {
      case u'$': result.Append(u'$'); return 2;
      case u'&': result.Append(Group(matcher, 0)); return 2;
      case u'`': result.Append(text_.substr(0, matcher.begin(0))); return 2;
      case u'\'': result.Append(text_.substr(matcher.end(0))); return 2;
      case u'_': result.Append(text_); return 2;
      case u'+':
        if (group_count_ > 1) result.Append(Group(matcher, group_count_ - 1));
        return 2;
      default: return AppendGroup(result, matcher, at);
    }
  }

  // "$12" is group 12 when there is one, else group 1 and a "2".
  size_t AppendGroup(TextBuilder& result, const RegExpMatcher& matcher, size_t at) const {
    uint32_t group = 0;
    size_t used = 0;
    for (size_t digits = 1; digits <= 2 && at + digits < replacement_.size(); ++digits) {
      const char16_t unit = replacement_[at + digits];
      if (unit < u'0' || unit > u'9') break;
      const uint32_t next = group * 10 + static_cast<uint32_t>(unit - u'0');
      if (next >= group_count_) break;
      group = next;
      used = digits;
    }
    if (group == 0) return 0;
    result.Append(Group(matcher, group));
    return used + 1;
  }

  std::u16string_view text_;
  std::u16string_view replacement_;
  uint32_t group_count_;
};

}  // namespace

const MemberTable& RegExp::Members() const { return kMembers; }

void RegExp::set_pattern(const Variant& pattern) {
  pattern_ = ToTextValue(pattern);
  program_.reset();
}

void RegExp::set_ignore_case(bool ignore_case) {
  if (ignore_case != ignore_case_) program_.reset();
  ignore_case_ = ignore_case;
}

void RegExp::set_multiline(bool multiline) {
  if (multiline != multiline_) program_.reset();
  multiline_ = multiline;
}

const RegExpProgram& RegExp::Program() {
  if (!program_) {
    context().Charge(pattern_.text().size());
    context().ChargeMemory(pattern_.text().size() * kBytesPerPatternUnit);
    program_ = CompileRegExp(pattern_.text(), ignore_case_, multiline_);
    size_t bytes = LiveBytes::BlockOf(program_->code) + LiveBytes::BlockOf(program_->sets);
    for (const UnitSet& set : program_->sets) bytes += LiveBytes::BlockOf(set.ranges);
    program_bytes_.Set(bytes);
  }
  return *program_;
}

bool RegExp::Test(const Variant& text) {
  const TextArgument subject(text);
  return RegExpMatcher(context(), Program(), subject.view()).Find(0);
}

Variant RegExp::Execute(const Variant& text) {
  const TextArgument subject(text);
  const RegExpProgram& program = Program();
  RegExpMatcher matcher(context(), program, subject.view());
  std::vector<TextSpan> spans;
  ForEachMatch(matcher, subject.size(), global_, [&] {
    MakeRoom(context(), spans, program.group_count);
    context().Charge(1 + program.group_count / kElementsPerStep);
    AppendSpans(spans, matcher, program.group_count);
  });
  return MakeRef<Matches>(subject.value(), program.group_count, std::move(spans));
}

Variant RegExp::Replace(const Variant& text, const Variant& replacement) {
  const TextArgument subject(text);
  const bool truth = replacement.Is(VarType::kBoolean);
  const TextArgument form(truth ? Variant(BooleanBits(replacement.boolean())) : replacement);
  const RegExpProgram& program = Program();
  RegExpMatcher matcher(context(), program, subject.view());
  const Expansion expansion(subject.view(), form.view(), program.group_count);
  TextBuilder result(context());
  uint32_t done = 0;
  ForEachMatch(matcher, subject.size(), global_, [&] {
    result.Append(subject.view().substr(done, matcher.begin(0) - done));
    expansion.AppendTo(result, matcher);
    done = matcher.end(0);
  });
  result.Append(subject.view().substr(done));
  return result.Take();
}

}  // namespace kestrun::vbs
