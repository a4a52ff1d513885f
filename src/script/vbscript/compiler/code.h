// What the compiler makes of a procedure, and the machine runs.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "base/object.h"
#include "script/vbscript/compiler/opcodes.h"
#include "script/vbscript/lexer/names.h"
#include "script/vbscript/runtime/builtins.h"

namespace kestrun::vbs {

class ClassDefinition;
struct Module;

// Where a value lives. The number is the offset in bytes from the start of its space, whose number fills the low bits:
// finding the value costs one addition.
using Operand = int32_t;

enum class Space : uint8_t {
  kRegister,
  kConstant,
  kGlobal,
  kField,     // of the object whose method runs
  kIndirect,  // a register that may hold a stand-in for another variable
  kSpaceCount,
};

inline constexpr Operand kSpaceMask = sizeof(Variant) - 1;
inline constexpr Operand kNoResult = -1;

[[nodiscard]] constexpr Operand MakeOperand(Space space, uint32_t index) {
  return static_cast<Operand>(index * sizeof(Variant)) | static_cast<Operand>(space);
}
[[nodiscard]] constexpr Space SpaceOf(Operand operand) { return static_cast<Space>(operand & kSpaceMask); }
[[nodiscard]] constexpr uint32_t IndexOf(Operand operand) {
  return static_cast<uint32_t>(operand) / static_cast<uint32_t>(sizeof(Variant));
}

struct Instruction {
  Opcode opcode;
  uint16_t n;
  int32_t a;
  int32_t b;
  int32_t c;
};
static_assert(sizeof(Instruction) == 16);

// The number in an instruction that ends in Small.
[[nodiscard]] constexpr int32_t SmallNumber(const Instruction& at) { return static_cast<int16_t>(at.n) >> kSideBits; }

// A turn of a loop and a call cost one step, and one more for so many instructions of their code.
inline constexpr int32_t kInstructionsPerStep = 8;

// A place where a member is called by name. Keeps what the name meant for the last object's class.
struct CallSite {
  NameId name = kNoName;
  Operand object = 0;
  const void* layout = nullptr;
  MemberId member = kNoMember;
  ClassDefinition* script_class = nullptr;  // set when the layout is that of a script's class
};

// The instructions from `first` on belong to the statement at `position`; a failure in it resumes at `resume`.
struct StatementMark {
  uint32_t first;
  uint32_t position;
  uint32_t resume;
};

// A global name whose meaning the code has built in.
struct Dependency {
  NameId name;
  uint32_t version;
};

struct LocalName {
  NameId name;
  Operand place;
};

struct Code {
  std::vector<Instruction> instructions;
  std::vector<Variant> constants;
  std::vector<CallSite> sites;
  std::vector<const Builtin*> builtins;
  std::vector<std::vector<int32_t>> bounds;  // of Dim: upper bounds
  std::vector<StatementMark> marks;
  std::vector<Dependency> dependencies;
  std::vector<LocalName> locals;
  uint32_t register_count = 0;
  uint32_t parameter_count = 0;
  uint32_t cleared_count = 0;  // registers from the parameters on that must be Empty at the start
  uint32_t result_register = 0;
  bool gives_result = false;
  bool has_by_value = false;
  std::vector<bool> by_value;  // by parameter
  Module* module = nullptr;
  LiveBytes bytes;

  void CountBytes();
};

}  // namespace kestrun::vbs
