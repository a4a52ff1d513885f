#include <algorithm>

#include "script/vbscript/runtime/regexp_program.h"
#include "script/vbscript/runtime/regexp_tree.h"
#include "script/vbscript/runtime/text_search.h"

namespace kestrun::vbs {
namespace {

// Lays the tree out as instructions. Targets are filled in once they are known.
class Emitter {
 public:
  explicit Emitter(RegExpProgram& program) : program_(program) {}

  void Emit(const PatternNode& node) {
    switch (node.kind) {
      case NodeKind::kUnit: EmitUnit(node); return;
      case NodeKind::kAny: Append(PatternOperation::kAny); return;
      case NodeKind::kSet: Append(PatternOperation::kSet, node.value); return;
      case NodeKind::kLineStart: Append(PatternOperation::kLineStart); return;
      case NodeKind::kLineEnd: Append(PatternOperation::kLineEnd); return;
      case NodeKind::kWordBoundary: Append(PatternOperation::kWordBoundary); return;
      case NodeKind::kNoWordBoundary: Append(PatternOperation::kNoWordBoundary); return;
      case NodeKind::kBackReference: Append(PatternOperation::kBackReference, node.value); return;
      case NodeKind::kSequence:
        for (const auto& child : node.children) Emit(*child);
        return;
      case NodeKind::kAlternatives: EmitAlternatives(node); return;
      case NodeKind::kGroup: EmitGroup(node); return;
      case NodeKind::kRepeat: EmitRepeat(node); return;
      case NodeKind::kLookAhead: EmitLook(node, PatternOperation::kLookAhead, PatternOperation::kEndLookAhead); return;
      case NodeKind::kRefuseAhead:
        EmitLook(node, PatternOperation::kRefuseAhead, PatternOperation::kEndRefuseAhead);
        return;
    }
  }

  uint32_t Append(PatternOperation operation, uint32_t first = 0) {
    PatternInstruction instruction{operation};
    instruction.first = first;
    program_.code.push_back(instruction);
    return Here() - 1;
  }

 private:
  [[nodiscard]] uint32_t Here() const { return static_cast<uint32_t>(program_.code.size()); }

  void EmitUnit(const PatternNode& node) {
    const auto unit = static_cast<char16_t>(node.value);
    Append(PatternOperation::kUnit, program_.ignore_case ? LowerUnit(unit) : unit);
  }

  // Fork to the first or to the rest, once per alternative but the last.
  void EmitAlternatives(const PatternNode& node) {
    std::vector<uint32_t> exits;
    for (size_t at = 0; at + 1 < node.children.size(); ++at) {
      const uint32_t fork = Append(PatternOperation::kFork, Here() + 1);
      Emit(*node.children[at]);
      exits.push_back(Append(PatternOperation::kJump));
      program_.code[fork].second = Here();
    }
    Emit(*node.children.back());
    for (const uint32_t exit : exits) program_.code[exit].first = Here();
  }

  // Both ends are set together when the group is through, so that a turn that fails half way leaves the last whole one.
  void EmitGroup(const PatternNode& node) {
    const uint32_t slot = NewSlots(1);
    program_.code[Append(PatternOperation::kSavePosition)].slot = slot;
    Emit(*node.children[0]);
    program_.code[Append(PatternOperation::kCloseGroup, node.value)].slot = slot;
  }

  uint32_t NewSlots(uint32_t count) {
    const uint32_t slot = program_.slot_count;
    program_.slot_count += count;
    return slot;
  }

  void EmitRepeat(const PatternNode& node) {
    const PatternNode& body = *node.children[0];
    if (body.IsOneUnit()) {
      const uint32_t run = Append(PatternOperation::kRun);
      program_.code[run].least = node.least;
      program_.code[run].most = node.most;
      program_.code[run].greedy = node.greedy;
      Emit(body);
      return;
    }
    const uint32_t slot = NewSlots(2);
    program_.code[Append(PatternOperation::kClearCount)].slot = slot;
    const uint32_t head = Append(PatternOperation::kLoop);
    program_.code[head].slot = slot;
    program_.code[head].least = node.least;
    program_.code[head].most = node.most;
    program_.code[head].greedy = node.greedy;
    const uint32_t enter = Append(PatternOperation::kEnterLoop);
    program_.code[enter].slot = slot;
    Emit(body);
    Append(PatternOperation::kJump, head);
    program_.code[head].first = Here();
  }

  void EmitLook(const PatternNode& node, PatternOperation begin, PatternOperation end) {
    const uint32_t slot = NewSlots(1);
    const uint32_t start = Append(begin);
    program_.code[start].slot = slot;
    Emit(*node.children[0]);
    program_.code[Append(end)].slot = slot;
    program_.code[start].first = Here();
  }

  RegExpProgram& program_;
};

}  // namespace

bool IsWordUnit(char16_t unit) {
  return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || (unit >= u'0' && unit <= u'9') ||
         unit == u'_';
}

bool UnitSet::Contains(char16_t unit) const {
  const auto behind = std::upper_bound(ranges.begin(), ranges.end(), unit,
                                       [](char16_t wanted, const Range& range) { return wanted < range.first; });
  const bool inside = behind != ranges.begin() && unit <= std::prev(behind)->last;
  return inside != negated;
}

namespace {

// Sorted and without overlaps, so that a search by halves finds the one range that can hold a unit.
void Normalize(UnitSet& set) {
  std::sort(set.ranges.begin(), set.ranges.end(), [](auto left, auto right) { return left.first < right.first; });
  std::vector<UnitSet::Range> merged;
  for (const UnitSet::Range range : set.ranges) {
    if (!merged.empty() && range.first <= merged.back().last) {
      merged.back().last = std::max(merged.back().last, range.last);
    } else {
      merged.push_back(range);
    }
  }
  set.ranges = std::move(merged);
}

}  // namespace

RegExpProgram CompileRegExp(std::u16string_view pattern, bool ignore_case, bool multiline) {
  RegExpTree tree = ParseRegExp(pattern);
  RegExpProgram program;
  program.ignore_case = ignore_case;
  program.multiline = multiline;
  program.group_count = tree.group_count;
  program.slot_count = tree.group_count * 2;
  program.sets = std::move(tree.sets);
  for (UnitSet& set : program.sets) Normalize(set);
  Emitter emitter(program);
  emitter.Emit(*tree.root);
  emitter.Append(PatternOperation::kMatch);
  return program;
}

}  // namespace kestrun::vbs
