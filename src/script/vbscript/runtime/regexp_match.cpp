#include "script/vbscript/runtime/regexp_match.h"

#include <array>

#include "script/vbscript/runtime/conversions.h"
#include "script/vbscript/runtime/errors.h"

namespace kestrun::vbs {
namespace {

Variant SpanText(const Variant& text, TextSpan span) {
  if (span.begin == kNoPosition || span.end == kNoPosition) return {};
  return Variant(text.text().substr(span.begin, span.end - span.begin));
}

size_t IndexArgument(const Variant& index, size_t count) {
  const int32_t place = ToLong(index);
  if (place < 0 || static_cast<size_t>(place) >= count) RaiseScript(error::kInvalidProcedureCall);
  return static_cast<size_t>(place);
}

// Walks Matches or SubMatches and keeps them alive meanwhile.
template <class Collection>
class Walk final : public Enumeration {
 public:
  explicit Walk(Ref<Collection> items) : items_(std::move(items)) {}
  bool Next(Variant& item) override {
    if (at_ == items_->Count()) return false;
    item = items_->At(at_++);
    return true;
  }

 private:
  Ref<Collection> items_;
  size_t at_ = 0;
};

template <class Collection>
constexpr std::array kCollectionRows{
    Member{"Item", MemberKind::kReadOnly, 1, 1,
           [](Object& self, Arguments arguments) { return static_cast<Collection&>(self).Item(arguments[0]); }},
    Member{"Count", MemberKind::kReadOnly, 0, 0,
           [](Object& self, Arguments) { return CountValue(static_cast<Collection&>(self).Count()); }},
};

template <class Collection>
constexpr MemberTable kCollectionMembers{nullptr, kCollectionRows<Collection>};

Match& Self(Object& object) { return static_cast<Match&>(object); }

constexpr std::array kMatchRows{
    Member{"Value", MemberKind::kReadOnly, 0, 0, [](Object& self, Arguments) { return Self(self).Value(); }},
    Member{"FirstIndex", MemberKind::kReadOnly, 0, 0,
           [](Object& self, Arguments) { return CountValue(Self(self).FirstIndex()); }},
    Member{"Length", MemberKind::kReadOnly, 0, 0,
           [](Object& self, Arguments) { return CountValue(Self(self).Length()); }},
    // With an index the group itself, as in Match.SubMatches(0).
    Member{"SubMatches", MemberKind::kReadOnly, 0, 1,
           [](Object& self, Arguments arguments) {
             const Ref<SubMatches>& groups = Self(self).Groups();
             return arguments.empty() ? Variant(groups) : groups->Item(arguments[0]);
           }},
};

constexpr MemberTable kMatchMembers{nullptr, kMatchRows};

}  // namespace

void AppendSpans(std::vector<TextSpan>& spans, const RegExpMatcher& matcher, uint32_t group_count) {
  for (uint32_t group = 0; group < group_count; ++group) spans.push_back({matcher.begin(group), matcher.end(group)});
}

const MemberTable& SubMatches::Members() const { return kCollectionMembers<SubMatches>; }

std::unique_ptr<Enumeration> SubMatches::Enumerate() {
  return std::make_unique<Walk<SubMatches>>(Ref<SubMatches>(this));
}

Variant SubMatches::Item(const Variant& index) const { return At(IndexArgument(index, Count())); }

Variant SubMatches::At(size_t index) const { return SpanText(text_, spans_[index]); }

Match::Match(Variant text, std::span<const TextSpan> spans)
    : text_(std::move(text)),
      span_(spans.front()),
      groups_(MakeRef<SubMatches>(text_, std::vector<TextSpan>(spans.begin() + 1, spans.end()))) {}

const MemberTable& Match::Members() const { return kMatchMembers; }

Variant Match::Value() const { return SpanText(text_, span_); }

const MemberTable& Matches::Members() const { return kCollectionMembers<Matches>; }

std::unique_ptr<Enumeration> Matches::Enumerate() { return std::make_unique<Walk<Matches>>(Ref<Matches>(this)); }

Variant Matches::Item(const Variant& index) { return At(IndexArgument(index, Count())); }

Variant Matches::At(size_t index) {
  if (made_.empty()) {
    made_.resize(Count());
    bytes_.Grow(LiveBytes::BlockOf(made_));
  }
  Ref<Match>& match = made_[index];
  if (!match) match = MakeRef<Match>(text_, std::span(spans_).subspan(index * group_count_, group_count_));
  return match;
}

}  // namespace kestrun::vbs
