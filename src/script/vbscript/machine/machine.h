// Runs code. Frames lie one behind the other in one block of values that never moves; a call's arguments are the first
// registers of the callee's frame. Script calls script without a frame of the native stack.
#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <memory>
#include <vector>

#include "base/runtime_error.h"
#include "script/vbscript/compiler/code.h"
#include "script/vbscript/engine/program.h"
#include "script/vbscript/runtime/operators.h"

namespace kestrun::vbs {

class ClassInstance;
class Engine;

// Where an error arose.
struct ErrorPlace {
  std::shared_ptr<const Module> module;  // kept, because executed text is gone with its statement
  uint32_t position = 0;
};

// An error on its way out of the machine.
class PlacedError : public RuntimeError {
 public:
  PlacedError(const RuntimeError& error, ErrorPlace place, std::string name = {})
      : RuntimeError(error), place_(std::move(place)), name_(std::move(name)) {}
  [[nodiscard]] const ErrorPlace& place() const { return place_; }
  // What the error is about; empty when it is about no name.
  [[nodiscard]] const std::string& name() const { return name_; }

 private:
  ErrorPlace place_;
  std::string name_;
};

// An error about a name: the name is for the host, the description that a script sees stays plain.
class NamedError : public RuntimeError {
 public:
  NamedError(int number, std::string name);
  [[nodiscard]] const std::string& name() const { return name_; }

 private:
  std::string name_;
};

class Machine {
 public:
  explicit Machine(Engine& engine);
  ~Machine();
  Machine(const Machine&) = delete;
  Machine& operator=(const Machine&) = delete;

  // Calls a procedure from outside: the arguments' new values come back in place.
  Variant Invoke(Procedure& procedure, ClassInstance* self, Arguments arguments);
  // Runs statements that are compiled one after the other, each knowing what the ones before have defined.
  void RunGlobal(Module& module);
  // Runs executed text with the variables of the procedure that executes it, or evaluates it.
  Variant RunInside(Module& module);
  Variant EvaluateGlobal(Module& module);

  // True while the executing code stands in a procedure.
  [[nodiscard]] bool InProcedure() const;
  [[nodiscard]] bool idle() const { return depth_ == 0; }
  // For an object that a script has called: where the call stands. No module when no script has.
  [[nodiscard]] ErrorPlace CallingPlace() const;

  void Charge(uint64_t steps) {
    fuel_ -= static_cast<int64_t>(steps);
    if (fuel_ < 0) Refuel();
  }
  void ResetFuel() { fuel_ = 0; }

 private:
  struct ExtraLocals {
    std::map<NameId, Variant> values;
    LiveBytes bytes;
  };
  struct Frame {
    const Code* code = nullptr;
    Variant* base = nullptr;
    const Instruction* return_to = nullptr;
    ClassInstance* self = nullptr;         // counted
    const Instruction* calling = nullptr;  // what called a host's object last
    ExtraLocals* extras = nullptr;         // owned; variables that executed text has added
    Operand result = kNoResult;
    bool in_procedure = false;
    bool boundary = false;  // returns to native code
    bool resume_next = false;
  };

#define KESTRUN_HANDLER(name) const Instruction* Do##name(const Instruction* pc);
  KESTRUN_OPCODES(KESTRUN_HANDLER)
#undef KESTRUN_HANDLER

  bool HoldsEqual(const Instruction* pc);
  bool HoldsEqualSmall(const Instruction* pc);
  bool HoldsNotEqual(const Instruction* pc);
  bool HoldsNotEqualSmall(const Instruction* pc);
  bool HoldsLess(const Instruction* pc);
  bool HoldsLessSmall(const Instruction* pc);
  bool HoldsLessEqual(const Instruction* pc);
  bool HoldsLessEqualSmall(const Instruction* pc);
  bool HoldsGreater(const Instruction* pc);
  bool HoldsGreaterSmall(const Instruction* pc);
  bool HoldsGreaterEqual(const Instruction* pc);
  bool HoldsGreaterEqualSmall(const Instruction* pc);

  // Where the operand stands; for a parameter this may be a stand-in for the caller's variable. The bases are moved
  // back by the number of their space, which the operand holds in its low bits: moved, they point into nothing.
  [[nodiscard, gnu::always_inline]] Variant& Place(Operand operand) const {
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    return *reinterpret_cast<Variant*>(bases_[static_cast<size_t>(operand & kSpaceMask)] +
                                       static_cast<uintptr_t>(operand));
  }
  [[nodiscard, gnu::always_inline]] Variant& At(Operand operand) const {
    Variant& value = Place(operand);
    return SpaceOf(operand) == Space::kIndirect && value.IsReference() ? *value.target() : value;
  }
  // Results of the fast paths, which mostly overwrite something plain.
  void PutWhole(Operand target, unsigned kind, int64_t value);
  void PutReal(Operand target, double value);
  void PutElsewhere(Operand target, Variant value);
  void SetBase(Space space, const void* base) {
    bases_[static_cast<size_t>(space)] = reinterpret_cast<uintptr_t>(base) - static_cast<uintptr_t>(space);
  }
  [[nodiscard]] Variant& Register(int reg) const { return registers_[reg]; }
  [[nodiscard]] Frame& Top() const { return *top_; }
  [[nodiscard]] Arguments List(const Instruction& at) const { return {registers_ + at.b, at.n}; }

  // Frames (frames.cpp).
  void Execute(const Instruction* pc);
  const Instruction* Dispatch(const Instruction* pc);
  const Instruction* Recover(const RuntimeError& error, const Instruction* pc);
  const Instruction* Enter(Procedure& procedure, ClassInstance* self, Variant* arguments, uint32_t count,
                           Operand result, const Instruction* return_to);
  const Instruction* EnterNow(Procedure& procedure, ClassInstance* self, Variant* arguments, uint32_t count,
                              Operand result, const Instruction* return_to);
  void PushFrame(const Code& code, ClassInstance* self, Variant* base);
  void PopFrame();
  static void ClearRegisters(Variant* base, uint32_t count);
  void GrowFrames();
  void UseFrame();
  // A frame that returns to native code, and its end.
  void OpenFrame(const Code& code, ClassInstance* self, Variant* base);
  void CloseFrame();
  void UnwindBoundary();
  void Refresh(Procedure& procedure);
  void TakeByValue(const Code& code, Variant* arguments);
  [[nodiscard]] Variant* FreeStack(uint32_t count);
  [[nodiscard]] static const StatementMark* MarkAt(const Code& code, const Instruction* pc);
  [[nodiscard]] static ErrorPlace PlaceOf(const Code& code, const StatementMark* mark);
  void Refuel();
  void BindOuterNames(Module& module, std::vector<NameId>& names, std::vector<Variant*>& places);
  [[nodiscard]] Variant* ExtraLocal(NameId name);

  // Values (values.cpp).
  void Let(Variant& target, const Variant& value);
  Variant CopyOf(const Variant& value);
  Variant PlainCopy(const Variant& value);
  [[nodiscard]] static Object& ObjectOf(const Variant& value);
  static void ObjectOrNothing(const Variant& value);
  void RequireAssignable(const Variant& target) const;

  // Operators (arithmetic.cpp): what the fast paths leave over.
  using BinaryOperator = Variant (*)(const Variant&, const Variant&);
  void SlowBinary(const Instruction& at, BinaryOperator operation);
  void SlowAdd(const Instruction& at, BinaryOperator operation);
  void SlowUnary(const Instruction& at, Variant (*operation)(const Variant&));
  void ChargeArguments(const Builtin& builtin, Arguments arguments);
  Variant CompareValues(const Variant& left, const Variant& right, Comparison wanted, unsigned literals);
  void SlowCompare(const Instruction& at, int comparison, Variant& result);
  bool SlowTest(const Instruction& at, int comparison);
  bool SlowTruth(const Variant& value);
  void Concatenate(const Instruction& at);
  void AppendParts(Variant& target, Variant* parts, uint32_t count);
  Variant Joined(const Variant& left, const Variant& right);
  void ChargeReading(const Variant& value);
  void ChargeReading(const Variant& left, const Variant& right);

  // Elements (elements.cpp).
  int32_t IndexNumber(const Variant& index);
  size_t ElementOffset(const ArrayBody& array, Arguments indexes);
  static Variant& ElementAt(const ArrayBody& array, const Variant& index);
  Variant IndexedValue(const Variant& object, Arguments indexes);
  void StoreIndexed(Variant& object, Arguments indexes, const Variant& value, bool set);
  const Instruction* SlowIndex(const Instruction* pc);
  const Instruction* SlowBorrow(const Instruction* pc);
  const Instruction* SlowAddElement(const Instruction* pc);
  const Instruction* SlowStoreIndex(const Instruction* pc);
  void ReDimArray(Variant& target, Arguments bounds, bool preserve);
  void EraseArray(Variant& target);
  Variant NewArray(const std::vector<int32_t>& bounds);
  // Arrays under the limits: of Empty, copied, of another size.
  Ref<ArrayBody> MakeArray(std::vector<int32_t> sizes, bool fixed);
  Ref<ArrayBody> CloneArray(const ArrayBody& array);
  void Resize(Variant& array, size_t count);
  // The array for changing: copied first when it is shared.
  ArrayBody& OwnArray(Variant& array) {
    if (!array.array().IsUnshared()) array = Variant(CloneArray(array.array()));
    return const_cast<ArrayBody&>(array.array());
  }

  // Members (members.cpp).
  void ResolveSite(CallSite& site, Object& object);
  const Instruction* CallSiteMember(const Instruction* pc, bool is_statement);
  static void RequireCallableField(const Variant& field, size_t argument_count, bool is_statement);
  const Instruction* CallClassMember(const Instruction* pc, ClassInstance& self, const ClassMember& member);
  const Instruction* CallWithTooMany(const Instruction* pc, ClassInstance& self, Procedure& procedure);
  void CallHostMember(const Instruction* pc, Object& object, MemberId member, bool is_statement);
  const Instruction* StoreSiteMember(const Instruction* pc, bool set);
  const Instruction* StoreClassMember(const Instruction* pc, ClassInstance& self, const ClassMember& member, bool set);
  const Instruction* StoreOwnMember(const Instruction* pc, bool set);
  const Instruction* CallGlobalName(const Instruction* pc);
  static Arguments ValuesOf(Arguments arguments);
  void ChargeMaking(const Variant& result);
  void GiveResult(Operand result, Variant&& value) {
    if (result != kNoResult) At(result) = std::move(value);
  }
  void StoreByName(const Instruction& at, bool set);
  Variant LoopNumber(const Variant& value);
  const Instruction* SlowForNext(const Instruction* pc);
  [[noreturn]] void RaiseNamed(int number, NameId name) const;
  Variant IterationOver(const Variant& collection);

  Engine& engine_;
  GlobalScope& globals_;
  std::array<uintptr_t, 16> bases_{};
  Variant* registers_ = nullptr;
  int64_t fuel_ = 0;
  std::vector<Frame> frames_;  // the first depth_ are in use
  size_t depth_ = 0;
  Frame* top_ = nullptr;
  Variant* stack_;
  Variant* stack_end_;
  Variant returned_;
  int nested_runs_ = 0;

  friend class Engine;
  friend class ClassInstance;
};

}  // namespace kestrun::vbs
