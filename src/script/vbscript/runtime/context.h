// What the run-time library needs from the engine that calls it: the budgets of the running script and the state that
// the language keeps per engine.
#pragma once

#include <cstddef>
#include <cstdint>

#include "base/ref.h"

namespace kestrun::vbs {

class RuntimeContext;

inline constexpr size_t kMostTextUnits = size_t{64} * 1024 * 1024;

// The way back from a script's object to its engine, for objects that the host may keep longer than that.
class ContextHandle final : public RefCounted {
 public:
  explicit ContextHandle(RuntimeContext* context) : context_(context) {}
  // Null once the engine has gone.
  [[nodiscard]] RuntimeContext* context() const { return context_; }
  void EngineGone() { context_ = nullptr; }

 private:
  RuntimeContext* context_;
};

class RuntimeContext {
 public:
  RuntimeContext() : handle_(MakeRef<ContextHandle>(this)) {}
  RuntimeContext(const RuntimeContext&) = delete;
  RuntimeContext& operator=(const RuntimeContext&) = delete;
  virtual ~RuntimeContext() { handle_->EngineGone(); }
  [[nodiscard]] const Ref<ContextHandle>& handle() const { return handle_; }

  // Counts work against the time limit. Called in every loop whose length a script controls; throws the engine's own
  // fault, which no script can catch, once the time is up.
  virtual void Charge(uint64_t steps) = 0;
  // Asked before something large is built. Error 7 when the script's memory budget does not hold it.
  virtual void ChargeMemory(size_t bytes) = 0;
  // The longest text that a script may build, in UTF-16 units.
  [[nodiscard]] virtual size_t most_text_units() const { return kMostTextUnits; }
  // True while scripts may raise their own dialogues.
  [[nodiscard]] virtual bool allow_ui() const = 0;
  // The locale's number that GetLocale gives; 1033 is English (United States).
  [[nodiscard]] virtual int locale() const = 0;
  virtual void set_locale(int locale) = 0;
  // The 24 bits behind Rnd. A fresh engine starts with kFirstRandomState.
  [[nodiscard]] virtual uint32_t& random_state() = 0;

 private:
  Ref<ContextHandle> handle_;
};

// The state from which a script that never calls Randomize draws 0.7055475 first.
inline constexpr uint32_t kFirstRandomState = 0x50000;

inline constexpr int kEnglishUnitedStates = 1033;

// Asked before a text of this length is built: error 14 beyond the longest text, else as ChargeMemory.
void ChargeText(RuntimeContext& context, size_t units);

}  // namespace kestrun::vbs
