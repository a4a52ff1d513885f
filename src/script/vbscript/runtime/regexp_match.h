// The objects that RegExp.Execute gives. All of them share the text that was searched.
#pragma once

#include <vector>

#include "base/object.h"
#include "script/vbscript/runtime/regexp_matcher.h"

namespace kestrun::vbs {

// A group's place in the text, or kNoPosition when it took no part.
struct TextSpan {
  uint32_t begin = kNoPosition;
  uint32_t end = kNoPosition;
};

// The spans of all groups of the matcher's last match, the whole match first.
[[nodiscard]] std::vector<TextSpan> SpansOf(const RegExpMatcher& matcher, uint32_t group_count);

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
  Match(Variant text, const std::vector<TextSpan>& spans);
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

class Matches final : public TableObject {
 public:
  explicit Matches(std::vector<Ref<Match>> matches) : matches_(std::move(matches)) {
    bytes_.Set(LiveBytes::BlockOf(matches_));
  }
  [[nodiscard]] std::string TypeName() const override { return "IMatchCollection2"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] MemberId DefaultMember() const override { return 0; }
  [[nodiscard]] std::unique_ptr<Enumeration> Enumerate() override;
  [[nodiscard]] size_t Count() const { return matches_.size(); }
  // Counted from 0; error 5 outside.
  [[nodiscard]] Variant Item(const Variant& index) const;
  [[nodiscard]] Variant At(size_t index) const { return matches_[index]; }

 private:
  std::vector<Ref<Match>> matches_;
  LiveBytes bytes_;
};

}  // namespace kestrun::vbs
