// The machine's instructions. One list: the machine makes its dispatch table from it, the compiler its numbers.
#pragma once

#include <cstdint>

namespace kestrun::vbs {

// Unless a line says otherwise: a is the operand that is written, b and c are those that are read, n counts arguments.
// An argument list is n registers from register b on.
#define KESTRUN_OPCODES(X)                                                                                             \
  /* values: a = b as it stands, with Let, with Set; registers a to a+n-1 emptied */                                   \
  X(Move)                                                                                                              \
  X(Let)                                                                                                               \
  X(LetTemporary)                                                                                                      \
  X(Set) X(Clear) /* register a stands for b; register a keeps the array b in place; register a                        \
                     stands for element c of b */                                                                      \
      X(MakeReference) X(Pin) X(ElementReference)                                                                      \
          X(ElementReferenceMany)     /* element c of b (Many: n indexes from register c on); Borrow: for the next     \
                                         instruction only */                                                           \
      X(Index) X(IndexMany) X(Borrow) /* element c of a becomes b */                                                   \
      X(StoreIndex) X(StoreIndexMany) X(SetIndex) X(SetIndexMany) X(Add) X(Subtract) X(Multiply) X(Divide)             \
          X(IntegerDivide) X(Modulo) X(Power) X(Concatenate) X(And) X(Or) X(Xor) X(Eqv) X(Imp) X(Is) X(Negate) X(Plus) \
              X(Not) /* comparisons: bit 0 of n says that one side is a literal */                                     \
      X(Equal) X(NotEqual) X(Less) X(LessEqual) X(Greater) X(GreaterEqual) /* a &= the n values from register b on */  \
      X(Append) /* by a instructions; Loop goes back and costs time */                                                 \
      X(Jump) X(Loop) X(JumpFalse) X(JumpTrue) X(JumpUnlessEqual) X(JumpUnlessNotEqual) X(JumpUnlessLess)              \
          X(JumpUnlessLessEqual) X(JumpUnlessGreater) X(JumpUnlessGreaterEqual) X(JumpIfEqual) X(JumpIfNotEqual)       \
              X(JumpIfLess) X(JumpIfLessEqual) X(JumpIfGreater)                                                        \
                  X(JumpIfGreaterEqual) /* loops: state in registers from c on, variable b, a is where the body begins \
                                           (Next) or ends (Begin) */                                                   \
      X(ForBegin) X(ForNext) X(EachBegin)                                                                              \
          X(EachNext) /* calls: result to register a, or dropped when a is kNoResult; c names what is called */        \
      X(CallProcedure) X(CallOwn) X(CallBuiltin) X(CallName) X(CallMember) X(InvokeMember)                             \
          X(GetMember) /* the value stands behind the arguments */                                                     \
      X(PutMember) X(SetMember) X(PutOwn) X(SetOwn) X(LoadName) X(StoreName) X(SetName) X(New) X(LoadMe) X(LoadErr) X( \
          Execute) X(ExecuteGlobal) X(Eval)                                                                            \
          X(GetRef) /* arrays: a the variable; Dim: bounds list c; ReDim: n bounds from register b on, c preserves */  \
      X(DimArray) X(ReDim) X(Erase) X(OnError) X(Raise) X(Return) X(End)

enum class Opcode : uint16_t {
#define KESTRUN_OPCODE_NAME(name) k##name,
  KESTRUN_OPCODES(KESTRUN_OPCODE_NAME)
#undef KESTRUN_OPCODE_NAME
};

}  // namespace kestrun::vbs
