// The machine's instructions. One list: the machine makes its dispatch table from it, the compiler its numbers.
//
// Unless a line says otherwise: a is the operand that is written, b and c are those that are read, n counts arguments.
// An argument list is n registers from register b on.
//
//   Move, Let, LetTemporary, Set   a = b: as it stands, with Let, taking b's value away, with Set
//   Clear                          registers a to a+n-1 emptied
//   MakeReference, Pin             register a stands for b; register a keeps the array b in place
//   ElementReferenceMany           register a stands for an element of b; n indexes from register c on
//   Index, IndexMany, Borrow       element c of b; Many: n indexes from register c on; Borrow: for one instruction
//   only,
//                                  a number as it is, what is counted by a stand-in
//   StoreIndex, SetIndex           element c of a becomes b; Many as above
//   comparisons                    bits 0 and 1 of n: the left, the right side is a literal; bit 2: a Case, where a
//                                  text that is no number just differs from a number
//   ...Small                       as without it, where c is an Integer that n holds as well (SmallNumber)
//   Append                         a &= the n values from register b on
//   AddElement                     a becomes the sum of a and element c of b
//   jumps                          by a instructions; Loop goes back and costs n steps of time
//   CountFailure                   jumps by a while the condition of a loop has not failed too often: count in b
//   For..., Each...                state in registers from c on, variable b; by a to where the body begins or ends;
//                                  ...Next costs n steps of time; ForNextOne: the step is 1
//   calls                          result to a, or dropped when a is kNoResult; c names what is called
//   Put..., SetMember, SetOwn      the value stands behind the arguments; c names the member
//   DimArray, ReDim                a the variable; bounds list c; n bounds from register b on, c preserves
#pragma once

#include <cstdint>

namespace kestrun::vbs {

// clang-format off
#define KESTRUN_OPCODES(X)                                                                       \
  X(Move) X(Let) X(LetTemporary) X(Set) X(Clear)                                                 \
  X(MakeReference) X(Pin) X(ElementReferenceMany)                                                \
  X(Index) X(IndexMany) X(Borrow)                                                                \
  X(StoreIndex) X(StoreIndexMany) X(SetIndex) X(SetIndexMany)                                    \
  X(Add) X(Subtract) X(Multiply) X(Divide) X(IntegerDivide) X(Modulo) X(Power) X(Concatenate)    \
  X(And) X(Or) X(Xor) X(Eqv) X(Imp) X(Is) X(Negate) X(Plus) X(Not)                               \
  X(Equal) X(NotEqual) X(Less) X(LessEqual) X(Greater) X(GreaterEqual)                           \
  X(Append) X(AddElement)                                                                        \
  X(Jump) X(Loop) X(CountFailure) X(JumpFalse) X(JumpTrue)                                       \
  X(JumpUnlessEqual) X(JumpUnlessNotEqual) X(JumpUnlessLess) X(JumpUnlessLessEqual)              \
  X(JumpUnlessGreater) X(JumpUnlessGreaterEqual)                                                 \
  X(JumpIfEqual) X(JumpIfNotEqual) X(JumpIfLess) X(JumpIfLessEqual)                              \
  X(JumpIfGreater) X(JumpIfGreaterEqual)                                                         \
  X(AddSmall) X(SubtractSmall) X(MultiplySmall) X(IntegerDivideSmall) X(ModuloSmall)             \
  X(JumpUnlessEqualSmall) X(JumpUnlessNotEqualSmall) X(JumpUnlessLessSmall)                      \
  X(JumpUnlessLessEqualSmall) X(JumpUnlessGreaterSmall) X(JumpUnlessGreaterEqualSmall)           \
  X(JumpIfEqualSmall) X(JumpIfNotEqualSmall) X(JumpIfLessSmall)                                  \
  X(JumpIfLessEqualSmall) X(JumpIfGreaterSmall) X(JumpIfGreaterEqualSmall)                       \
  X(ForBegin) X(ForNext) X(ForNextOne) X(EachBegin) X(EachNext)                                                \
  X(CallProcedure) X(CallOwn) X(CallBuiltin) X(CallName) X(CallMember) X(InvokeMember)           \
  X(GetMember) X(PutMember) X(SetMember) X(PutOwn) X(SetOwn)                                     \
  X(LoadName) X(StoreName) X(SetName) X(New) X(LoadMe) X(LoadErr)                                \
  X(Execute) X(ExecuteGlobal) X(Eval) X(GetRef)                                                  \
  X(DimArray) X(ReDim) X(Erase)                                                                  \
  X(OnError) X(Raise) X(Return) X(End)
// clang-format on

// The bit of a comparison that belongs to a Case.
inline constexpr unsigned kCaseComparison = 4;
// The bits of a comparison's n that say what its sides are; a small number stands above them.
inline constexpr int kSideBits = 3;
inline constexpr unsigned kSidesMask = (1U << kSideBits) - 1;
inline constexpr int32_t kLeastSmallNumber = -4096;
inline constexpr int32_t kMostSmallNumber = 4095;

enum class Opcode : uint16_t {
#define KESTRUN_OPCODE_NAME(name) k##name,
  KESTRUN_OPCODES(KESTRUN_OPCODE_NAME)
#undef KESTRUN_OPCODE_NAME
};

}  // namespace kestrun::vbs
