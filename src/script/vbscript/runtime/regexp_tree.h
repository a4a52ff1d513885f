// The parsed form of a regular expression, between pattern and program.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "script/vbscript/runtime/regexp_program.h"

namespace kestrun::vbs {

enum class NodeKind {
  kUnit,
  kAny,
  kSet,
  kLineStart,
  kLineEnd,
  kWordBoundary,
  kNoWordBoundary,
  kBackReference,
  kSequence,
  kAlternatives,
  kGroup,      // one child, captured as group `value`
  kRepeat,     // one child
  kLookAhead,  // one child
  kRefuseAhead,
};

struct PatternNode {
  NodeKind kind;
  uint32_t value = 0;  // unit, set, or group
  uint32_t least = 0;
  uint32_t most = 0;
  bool greedy = true;
  std::vector<std::unique_ptr<PatternNode>> children;

  [[nodiscard]] bool IsOneUnit() const {
    return kind == NodeKind::kUnit || kind == NodeKind::kAny || kind == NodeKind::kSet;
  }
  // Matches a place and takes nothing: no quantifier may follow.
  [[nodiscard]] bool IsPlace() const { return kind >= NodeKind::kLineStart && kind <= NodeKind::kNoWordBoundary; }
};

struct RegExpTree {
  std::unique_ptr<PatternNode> root;
  std::vector<UnitSet> sets;
  uint32_t group_count = 1;
};

[[nodiscard]] RegExpTree ParseRegExp(std::u16string_view pattern);

}  // namespace kestrun::vbs
