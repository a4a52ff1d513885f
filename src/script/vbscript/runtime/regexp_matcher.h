// Runs a regular expression's program by backtracking, on a stack of its own and under the script's time limit.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "script/vbscript/runtime/context.h"
#include "script/vbscript/runtime/regexp_program.h"

namespace kestrun::vbs {

inline constexpr uint32_t kNoPosition = UINT32_MAX;

class RegExpMatcher {
 public:
  // Program and text must outlive the matcher.
  RegExpMatcher(RuntimeContext& context, const RegExpProgram& program, std::u16string_view text);

  // Finds the first match that begins at or behind `from`. Error 7 when the stack outgrows its bound.
  [[nodiscard]] bool Find(uint32_t from);
  // Where group n of the last match begins and ends; kNoPosition for a group that took no part.
  [[nodiscard]] uint32_t begin(uint32_t group) const { return slots_[group * 2]; }
  [[nodiscard]] uint32_t end(uint32_t group) const { return slots_[group * 2 + 1]; }

 private:
  enum class EntryKind : uint32_t { kChoice, kUndo, kGreedyRun, kLazyRun, kBarrier };
  // What to go back to: an instruction and a position, or a slot and its old value.
  struct Entry {
    EntryKind kind;
    uint32_t target;
    uint32_t value;
    uint32_t extra;
  };

  bool RunAt(uint32_t start);
  bool Step();
  bool StepPlace(const PatternInstruction& instruction);
  bool StepLook(const PatternInstruction& instruction);
  bool StepLoop(const PatternInstruction& instruction);
  bool StepRun(const PatternInstruction& instruction);
  bool StepBackReference(const PatternInstruction& instruction);
  void EnterLoop(uint32_t slot);
  bool Backtrack();
  bool ResumeLazyRun(const Entry& entry);
  void Push(EntryKind kind, uint32_t target, uint32_t value, uint32_t extra = 0);
  void SetSlot(uint32_t slot, uint32_t value);
  // Forgets the choices above `height` but keeps what undoes the slots.
  void DropChoices(size_t height);
  void UnwindTo(size_t height);
  [[nodiscard]] bool MatchesUnit(const PatternInstruction& instruction, char16_t unit) const;
  [[nodiscard]] bool IsWordAt(int64_t place) const;
  [[nodiscard]] uint32_t NextCandidate(uint32_t from) const;
  void CountStep(uint32_t steps = 1);

  RuntimeContext& context_;
  const RegExpProgram& program_;
  std::u16string_view text_;
  uint32_t length_;
  std::vector<uint32_t> slots_;
  std::vector<Entry> stack_;
  size_t charged_stack_ = 1024;
  uint32_t pc_ = 0;
  uint32_t position_ = 0;
  uint32_t uncharged_ = 0;
};

}  // namespace kestrun::vbs
