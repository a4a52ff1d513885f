// Regular expressions from any pattern on any text: no crash, no endless run, spans inside the text, and a replacement
// of every match by itself gives the text back. The first byte holds the switches, a zero unit parts pattern and text.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "base/runtime_error.h"
#include "script/vbscript/runtime/regexp.h"
#include "script/vbscript/runtime/regexp_matcher.h"

namespace {

using namespace kestrun;
using namespace kestrun::vbs;

struct OutOfTime {};

class FuzzContext final : public RuntimeContext {
 public:
  void Charge(uint64_t steps) override {
    charged_ += steps;
    if (charged_ > 200000) throw OutOfTime();
  }
  void ChargeMemory(size_t bytes) override {
    if (bytes > size_t{1} << 24) Raise(error::kOutOfMemory);
  }
  [[nodiscard]] bool allow_ui() const override { return false; }
  [[nodiscard]] int locale() const override { return kEnglishUnitedStates; }
  void set_locale(int) override {}
  [[nodiscard]] uint32_t& random_state() override { return random_; }

 private:
  uint64_t charged_ = 0;
  uint32_t random_ = 0;
};

void Check(bool condition) {
  if (!condition) std::abort();
}

void CheckSpans(FuzzContext& context, const std::u16string& pattern, const std::u16string& text, uint8_t switches) {
  const RegExpProgram program = CompileRegExp(pattern, (switches & 1) != 0, (switches & 2) != 0);
  RegExpMatcher matcher(context, program, text);
  if (!matcher.Find(0)) return;
  for (uint32_t group = 0; group < program.group_count; ++group) {
    if (matcher.begin(group) == kNoPosition) continue;
    Check(matcher.begin(group) <= matcher.end(group) && matcher.end(group) <= text.size());
  }
}

void CheckReplace(FuzzContext& context, const std::u16string& pattern, const std::u16string& text, uint8_t switches) {
  const Ref<RegExp> expression = MakeRef<RegExp>(context);
  expression->set_pattern(Variant(pattern));
  expression->set_ignore_case((switches & 1) != 0);
  expression->set_multiline((switches & 2) != 0);
  expression->set_global(true);
  Check(expression->Replace(Variant(text), Variant("$&")).text() == text);
  static_cast<void>(expression->Execute(Variant(text)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  std::u16string units;
  for (size_t at = 1; at < size; ++at) units.push_back(data[at]);
  const size_t split = units.find(u'\0');
  const std::u16string pattern = units.substr(0, split);
  const std::u16string text = split == std::u16string::npos ? pattern : units.substr(split + 1);
  FuzzContext context;
  try {
    CheckSpans(context, pattern, text, data[0]);
    CheckReplace(context, pattern, text, data[0]);
  } catch (const RuntimeError&) {
  } catch (const OutOfTime&) {
  }
  return 0;
}
