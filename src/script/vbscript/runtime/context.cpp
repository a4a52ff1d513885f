#include "script/vbscript/runtime/context.h"

#include "script/vbscript/runtime/errors.h"

namespace kestrun::vbs {

void ChargeText(RuntimeContext& context, size_t units) {
  if (units > context.most_text_units()) RaiseScript(error::kOutOfStringSpace);
  context.ChargeMemory(units * sizeof(char16_t));
}

}  // namespace kestrun::vbs
