// Any text through the lexer and the parser, as a module and as an expression.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "script/vbscript/engine/engine.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static kestrun::vbs::Engine engine;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  for (const bool as_expression : {false, true}) {
    try {
      static_cast<void>(engine.Parse(text, as_expression));
    } catch (const kestrun::vbs::ModuleError&) {
    }
  }
  return 0;
}
