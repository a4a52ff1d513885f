// The link of a window to the game beside it, as a control without a body: scripts and add-ins reach the game through
// it, by name, as the window itself does.
#pragma once

#include <memory>

#include "forms/control.h"
#include "platform/game_memory.h"

namespace kestrun {

class MemControl final : public Control, public GameMemory {
 public:
  MemControl(Form* form, std::string name, int index);

  [[nodiscard]] uint8_t ReadByteAt(int32_t address) override;
  [[nodiscard]] int32_t ReadLongAt(int32_t address) override;
  // By input or by messages, as the setting `KEYS` says.
  void PressKey(int32_t key_code) override;
  void WriteTextAt(int32_t address, std::string_view text) override;
  [[nodiscard]] bool AttachToWindow(std::string_view title) override;
  [[nodiscard]] std::string Refusal() override;

  // By name, WriteTextAt takes a third argument, a boolean that changes nothing.
  [[nodiscard]] bool HasBody() const override { return false; }
  [[nodiscard]] std::string TypeName() const override { return "MemControl"; }
  [[nodiscard]] const MemberTable& Members() const override;

 protected:
  // Lets go of the game.
  void Disconnect() override;

 private:
  // Made at the first use.
  [[nodiscard]] GameMemory& Link();

  std::unique_ptr<GameMemory> link_;
};

}  // namespace kestrun
