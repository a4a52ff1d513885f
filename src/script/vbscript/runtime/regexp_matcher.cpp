#include "script/vbscript/runtime/regexp_matcher.h"

#include <algorithm>

#include "script/vbscript/runtime/errors.h"
#include "script/vbscript/runtime/text_search.h"

namespace kestrun::vbs {
namespace {

constexpr size_t kMostEntries = 4'000'000;
constexpr uint32_t kChargeEvery = 1024;

bool IsLineBreak(char16_t unit) { return unit == u'\n' || unit == u'\r'; }

}  // namespace

RegExpMatcher::RegExpMatcher(RuntimeContext& context, const RegExpProgram& program, std::u16string_view text)
    : context_(context),
      program_(program),
      text_(text),
      length_(static_cast<uint32_t>(text.size())),
      slots_(program.slot_count, kNoPosition) {}

void RegExpMatcher::CountStep(uint32_t steps) {
  uncharged_ += steps;
  if (uncharged_ < kChargeEvery) return;
  context_.Charge(uncharged_);
  uncharged_ = 0;
}

void RegExpMatcher::Push(EntryKind kind, uint32_t target, uint32_t value, uint32_t extra) {
  if (stack_.size() == charged_stack_) {
    if (stack_.size() >= kMostEntries) RaiseScript(error::kOutOfMemory);
    charged_stack_ *= 2;
    context_.ChargeMemory(charged_stack_ * sizeof(Entry));
  }
  stack_.push_back({kind, target, value, extra});
}

void RegExpMatcher::SetSlot(uint32_t slot, uint32_t value) {
  // Without a choice to go back to there is nothing to restore.
  if (!stack_.empty()) Push(EntryKind::kUndo, slot, slots_[slot]);
  slots_[slot] = value;
}

bool RegExpMatcher::IsWordAt(int64_t place) const {
  return place >= 0 && place < int64_t{length_} && IsWordUnit(text_[static_cast<size_t>(place)]);
}

bool RegExpMatcher::MatchesUnit(const PatternInstruction& instruction, char16_t unit) const {
  switch (instruction.operation) {
    case PatternOperation::kUnit:
      return (program_.ignore_case ? LowerUnit(unit) : unit) == static_cast<char16_t>(instruction.first);
    case PatternOperation::kAny: return unit != u'\n';
    default: break;
  }
  const UnitSet& set = program_.sets[instruction.first];
  if (!program_.ignore_case) return set.Contains(unit);
  // Either case in the set is enough, and a negated set refuses both.
  const bool lower = set.Contains(LowerUnit(unit));
  const bool upper = set.Contains(UpperUnit(unit));
  return set.negated ? lower && upper : lower || upper;
}

// The next place where a match can begin at all.
uint32_t RegExpMatcher::NextCandidate(uint32_t from) const {
  const PatternInstruction& first = program_.code.front();
  if (first.operation == PatternOperation::kUnit && !program_.ignore_case) {
    const size_t place = text_.find(static_cast<char16_t>(first.first), from);
    return place == std::u16string_view::npos ? length_ + 1 : static_cast<uint32_t>(place);
  }
  if (first.operation == PatternOperation::kLineStart && !program_.multiline) return from == 0 ? 0 : length_ + 1;
  return from;
}

bool RegExpMatcher::Find(uint32_t from) {
  while (from <= length_) {
    const uint32_t start = NextCandidate(from);
    // A search that finds nothing has walked to the end.
    CountStep((std::min(start, length_) - from) / kUnitsPerStep + 1);
    if (start > length_) return false;
    if (RunAt(start)) return true;
    from = start + 1;
  }
  return false;
}

bool RegExpMatcher::RunAt(uint32_t start) {
  CountStep(static_cast<uint32_t>(slots_.size() / 16));
  std::fill(slots_.begin(), slots_.end(), kNoPosition);
  stack_.clear();
  pc_ = 0;
  position_ = start;
  while (program_.code[pc_].operation != PatternOperation::kMatch) {
    CountStep();
    if (!Step() && !Backtrack()) return false;
  }
  slots_[0] = start;
  slots_[1] = position_;
  return true;
}

// One instruction. False when it does not match here.
bool RegExpMatcher::Step() {
  const PatternInstruction& instruction = program_.code[pc_];
  switch (instruction.operation) {
    case PatternOperation::kUnit:
    case PatternOperation::kAny:
    case PatternOperation::kSet:
      if (position_ == length_ || !MatchesUnit(instruction, text_[position_])) return false;
      ++position_;
      ++pc_;
      return true;
    case PatternOperation::kRun: return StepRun(instruction);
    case PatternOperation::kBackReference: return StepBackReference(instruction);
    case PatternOperation::kSavePosition: SetSlot(instruction.slot, position_); break;
    case PatternOperation::kCloseGroup:
      SetSlot(instruction.first * 2, slots_[instruction.slot]);
      SetSlot(instruction.first * 2 + 1, position_);
      break;
    case PatternOperation::kClearCount: SetSlot(instruction.slot, 0); break;
    case PatternOperation::kFork:
      Push(EntryKind::kChoice, instruction.second, position_);
      pc_ = instruction.first;
      return true;
    case PatternOperation::kJump: pc_ = instruction.first; return true;
    case PatternOperation::kLoop: return StepLoop(instruction);
    case PatternOperation::kEnterLoop: EnterLoop(instruction.slot); break;
    case PatternOperation::kLookAhead:
    case PatternOperation::kEndLookAhead:
    case PatternOperation::kRefuseAhead:
    case PatternOperation::kEndRefuseAhead: return StepLook(instruction);
    default: return StepPlace(instruction);
  }
  ++pc_;
  return true;
}

bool RegExpMatcher::StepPlace(const PatternInstruction& instruction) {
  const int64_t here = position_;
  const bool boundary = IsWordAt(here - 1) != IsWordAt(here);
  bool holds = false;
  switch (instruction.operation) {
    case PatternOperation::kLineStart:
      holds = position_ == 0 || (program_.multiline && IsLineBreak(text_[position_ - 1]));
      break;
    case PatternOperation::kLineEnd:
      holds = position_ == length_ || (program_.multiline && IsLineBreak(text_[position_]));
      break;
    case PatternOperation::kWordBoundary: holds = boundary; break;
    default: holds = !boundary; break;
  }
  if (holds) ++pc_;
  return holds;
}

bool RegExpMatcher::StepBackReference(const PatternInstruction& instruction) {
  const uint32_t from = slots_[instruction.first * 2];
  const uint32_t to = slots_[instruction.first * 2 + 1];
  ++pc_;
  if (from == kNoPosition || to == kNoPosition) return true;
  const uint32_t size = to - from;
  if (size > length_ - position_) return false;
  CountStep(size / 16);
  for (uint32_t at = 0; at < size; ++at) {
    const char16_t wanted = text_[from + at];
    const char16_t unit = text_[position_ + at];
    if (wanted != unit && !(program_.ignore_case && LowerUnit(wanted) == LowerUnit(unit))) return false;
  }
  position_ += size;
  return true;
}

// A run of single units needs one entry on the stack, however long it is.
bool RegExpMatcher::StepRun(const PatternInstruction& instruction) {
  const PatternInstruction& unit = program_.code[pc_ + 1];
  const uint32_t wanted = instruction.greedy ? instruction.most : instruction.least;
  const uint32_t start = position_;
  const uint32_t room = std::min(wanted, length_ - position_);
  while (position_ - start < room && MatchesUnit(unit, text_[position_])) ++position_;
  const uint32_t taken = position_ - start;
  CountStep(taken / 4);
  if (taken < instruction.least) return false;
  if (instruction.greedy && taken > instruction.least) {
    Push(EntryKind::kGreedyRun, pc_ + 2, position_, start + instruction.least);
  } else if (!instruction.greedy && instruction.least < instruction.most) {
    Push(EntryKind::kLazyRun, pc_, position_, instruction.most - taken);
  }
  pc_ += 2;
  return true;
}

// Takes one unit more for a lazy run; the entry has been popped.
bool RegExpMatcher::ResumeLazyRun(const Entry& entry) {
  const uint32_t place = entry.value;
  if (place >= length_ || !MatchesUnit(program_.code[entry.target + 1], text_[place])) return false;
  if (entry.extra > 1) Push(EntryKind::kLazyRun, entry.target, place + 1, entry.extra - 1);
  position_ = place + 1;
  pc_ = entry.target + 2;
  return true;
}

// The head of a loop: another turn or on behind it. A turn that took nothing counts only where one is still due, and
// then stands for all that are.
bool RegExpMatcher::StepLoop(const PatternInstruction& instruction) {
  const uint32_t count = slots_[instruction.slot];
  const bool idle = count > 0 && slots_[instruction.slot + 1] == position_;
  if (idle && count > instruction.least) return false;
  if (idle || count >= instruction.most) {
    pc_ = instruction.first;
  } else if (count < instruction.least) {
    ++pc_;
  } else if (instruction.greedy) {
    Push(EntryKind::kChoice, instruction.first, position_);
    ++pc_;
  } else {
    Push(EntryKind::kChoice, pc_ + 1, position_);
    pc_ = instruction.first;
  }
  return true;
}

void RegExpMatcher::EnterLoop(uint32_t slot) {
  SetSlot(slot, slots_[slot] + 1);
  SetSlot(slot + 1, position_);
}

bool RegExpMatcher::StepLook(const PatternInstruction& instruction) {
  switch (instruction.operation) {
    case PatternOperation::kLookAhead:
    case PatternOperation::kRefuseAhead: {
      // The slot's undo entry must lie below the barrier, or ending the look ahead would lose it.
      Push(EntryKind::kUndo, instruction.slot, slots_[instruction.slot]);
      slots_[instruction.slot] = static_cast<uint32_t>(stack_.size());
      const bool refuse = instruction.operation == PatternOperation::kRefuseAhead;
      Push(EntryKind::kBarrier, refuse ? instruction.first : kNoPosition, position_);
      ++pc_;
      return true;
    }
    case PatternOperation::kEndLookAhead: {
      const size_t height = slots_[instruction.slot];
      position_ = stack_[height].value;
      DropChoices(height);
      ++pc_;
      return true;
    }
    default: UnwindTo(slots_[instruction.slot]); return false;
  }
}

void RegExpMatcher::DropChoices(size_t height) {
  CountStep(static_cast<uint32_t>((stack_.size() - height) / 16));
  const auto first = stack_.begin() + static_cast<std::ptrdiff_t>(height);
  const auto kept =
      std::remove_if(first, stack_.end(), [](const Entry& entry) { return entry.kind != EntryKind::kUndo; });
  stack_.erase(kept, stack_.end());
}

void RegExpMatcher::UnwindTo(size_t height) {
  while (stack_.size() > height) {
    const Entry entry = stack_.back();
    stack_.pop_back();
    if (entry.kind == EntryKind::kUndo) slots_[entry.target] = entry.value;
  }
}

// Goes back to the latest choice. False when there is none left.
bool RegExpMatcher::Backtrack() {
  while (!stack_.empty()) {
    CountStep();
    Entry& top = stack_.back();
    if (top.kind == EntryKind::kGreedyRun) {
      position_ = --top.value;
      pc_ = top.target;
      if (top.value == top.extra) stack_.pop_back();
      return true;
    }
    const Entry entry = top;
    stack_.pop_back();
    switch (entry.kind) {
      case EntryKind::kUndo: slots_[entry.target] = entry.value; break;
      case EntryKind::kLazyRun:
        if (ResumeLazyRun(entry)) return true;
        break;
      default:
        if (entry.target == kNoPosition) break;
        pc_ = entry.target;
        position_ = entry.value;
        return true;
    }
  }
  return false;
}

}  // namespace kestrun::vbs
