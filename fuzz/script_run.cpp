// Any text as a program, with a short life and a small budget, beside a host's object that takes and gives any value.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "script/vbscript/engine/engine.h"

namespace {

class AnyHost final : public kestrun::TableObject {
 public:
  [[nodiscard]] std::string TypeName() const override { return "AnyHost"; }
  [[nodiscard]] kestrun::MemberId DefaultMember() const override { return 0; }
  [[nodiscard]] const kestrun::MemberTable& Members() const override {
    using kestrun::Arguments;
    using kestrun::Object;
    using kestrun::Variant;
    static constexpr kestrun::Member kMembers[] = {
        {"V", kestrun::MemberKind::kReadWrite, 0, 3,
         [](Object& o, Arguments) { return static_cast<AnyHost&>(o).value; },
         [](Object& o, Arguments, const Variant& v) { static_cast<AnyHost&>(o).value = v; }},
        {"M", kestrun::MemberKind::kMethod, 0, 5,
         [](Object& o, Arguments list) {
           Variant result = static_cast<AnyHost&>(o).value;
           for (Variant& argument : list) argument.Swap(result);
           return result;
         }},
    };
    static const kestrun::MemberTable kTable{nullptr, kMembers};
    return kTable;
  }

  kestrun::Variant value;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  kestrun::vbs::Engine engine;
  engine.limits() = {.timeout_ms = 100, .memory_bytes = 16 << 20, .text_units = 1 << 20};
  const kestrun::Ref<AnyHost> host = kestrun::MakeRef<AnyHost>();
  engine.AddObject("h", host);
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  static_cast<void>(engine.Report([&] { engine.Load(engine.Parse(text)); }));
  host->value.Clear();  // it may hold itself
  return 0;
}
