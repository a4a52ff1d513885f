// What the run-time library needs from the engine that calls it: the budgets of the running script and the state that
// the language keeps per engine.
#pragma once

#include <cstddef>
#include <cstdint>

#include "base/ref.h"
#include "base/variant.h"

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
  // Asked before something large is built, and with 0 when something small has been. Error 7 when the script's memory
  // budget does not hold it.
  virtual void ChargeMemory(size_t bytes) = 0;
  // What is left of that budget.
  [[nodiscard]] virtual size_t memory_left() const { return SIZE_MAX; }
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

// What one step of the time limit stands for when texts and lists are walked through.
inline constexpr size_t kUnitsPerStep = 64;
inline constexpr size_t kElementsPerStep = 8;
// Walks over long texts and lists are charged by pieces of this size, so that the time is looked at meanwhile.
inline constexpr size_t kPieceUnits = size_t{1} << 17;
inline constexpr size_t kPieceElements = size_t{1} << 14;

// Charges for reading a text as a number or a date, which takes about as long as copying it kReadingPasses times.
// Nothing for a value of another type.
inline constexpr size_t kReadingPasses = 8;
inline void ChargeReading(RuntimeContext& context, const Variant& value) {
  if (value.Is(VarType::kString)) context.Charge(value.text().size() * kReadingPasses / kUnitsPerStep);
}

// Asked before a text of this length is built: error 14 beyond the longest text, else as ChargeMemory.
void ChargeText(RuntimeContext& context, size_t units);

// Calls work(from, to) for one piece after the other and charges for each before it.
template <class Work>
void ByPieces(RuntimeContext& context, size_t size, Work&& work) {
  for (size_t from = 0; from < size; from += kPieceUnits) {
    const size_t to = size - from < kPieceUnits ? size : from + kPieceUnits;
    context.Charge((to - from) / kUnitsPerStep);
    work(from, to);
  }
}

}  // namespace kestrun::vbs
