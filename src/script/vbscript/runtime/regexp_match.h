// The objects that RegExp.Execute gives. All of them share the text that was searched.
#pragma once

#include <span>
#include <vector>

#include "base/object.h"
#include "script/vbscript/runtime/regexp_matcher.h"

namespace kestrun::vbs {

// A group's place in the text, or kNoPosition when it took no part.
struct TextSpan {
  uint32_t begin = kNoPosition;
  uint32_t end = kNoPosition;
};

// Appends the spans of all groups of the matcher's last match, the whole match first.
void AppendSpans(std::vector<TextSpan>& spans, const RegExpMatcher& matcher, uint32_t group_count);

class SubMatches final : public TableObject {
 public:
  SubMatches(Variant text, std::vector<TextSpan> spans) : text_(std::move(text)), spans_(std::move(spans)) {
    bytes_.Set(LiveBytes::BlockOf(spans_));
  }
  [[nodiscard]] std::string TypeName() const override { return "ISubMatches"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] MemberId DefaultMember() const override { return 0; }
  [[nodiscard]] std::unique_ptr<Enumeration> Enumerate() override;
  [[nodiscard]] size_t Count() const { return spans_.size(); }
  // Counted from 0; error 5 outside. Empty for a group that took no part.
  [[nodiscard]] Variant Item(const Variant& index) const;
  [[nodiscard]] Variant At(size_t index) const;

 private:
  Variant text_;
  std::vector<TextSpan> spans_;
  LiveBytes bytes_;
};

class Match final : public TableObject {
 public:
  // With the spans of its groups, the whole match first.
  Match(Variant text, std::span<const TextSpan> spans);
  [[nodiscard]] std::string TypeName() const override { return "IMatch2"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] MemberId DefaultMember() const override { return 0; }
  [[nodiscard]] Variant Value() const;
  // Counted from 0.
  [[nodiscard]] uint32_t FirstIndex() const { return span_.begin; }
  [[nodiscard]] uint32_t Length() const { return span_.end - span_.begin; }
  [[nodiscard]] const Ref<SubMatches>& Groups() const { return groups_; }

 private:
  Variant text_;
  TextSpan span_;
  Ref<SubMatches> groups_;
};

// A long text may hold millions of matches: they are kept as places, and a match becomes an object when it is asked
// for.
class Matches final : public TableObject {
 public:
  // The spans of all matches, those of one match's groups together.
  Matches(Variant text, uint32_t group_count, std::vector<TextSpan> spans)
      : text_(std::move(text)), group_count_(group_count), spans_(std::move(spans)) {
    bytes_.Set(LiveBytes::BlockOf(spans_));
  }
  [[nodiscard]] std::string TypeName() const override { return "IMatchCollection2"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] MemberId DefaultMember() const override { return 0; }
  [[nodiscard]] std::unique_ptr<Enumeration> Enumerate() override;
  [[nodiscard]] size_t Count() const { return spans_.size() / group_count_; }
  // Counted from 0; error 5 outside.
  [[nodiscard]] Variant Item(const Variant& index);
  [[nodiscard]] Variant At(size_t index);

 private:
  Variant text_;
  uint32_t group_count_;
  std::vector<TextSpan> spans_;
  std::vector<Ref<Match>> made_;  // so that a match is the same object each time; empty before the first
  LiveBytes bytes_;
};

}  // namespace kestrun::vbs
