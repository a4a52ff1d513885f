#include "game/memory/mem_control.h"

#include "base/text.h"
#include "forms/member_rows.h"
#include "game/memory/type_message.h"
#include "platform/platform.h"
#include "program/settings.h"

namespace kestrun {
namespace {

KeyDelivery StoredKeyDelivery() {
  const std::string stored = ReadSetting(setting::kGameKeys);
  if (EqualsNoCase(stored, "input")) return KeyDelivery::kInput;
  if (EqualsNoCase(stored, "post")) return KeyDelivery::kPost;
  return KeyDelivery::kAuto;
}

Variant WriteText(Object& object, Arguments arguments) {
  static_cast<void>(ToBoolean(arguments[2]));
  static_cast<MemControl&>(object).WriteTextAt(ToLong(arguments[0]), ToText(arguments[1]));
  return {};
}

constexpr Member kRows[]{
    MethodRow<&MemControl::ReadByteAt>("ReadByteAt", "Address"),
    MethodRow<&MemControl::ReadLongAt>("ReadLongAt", "Address"),
    MethodRow<&MemControl::PressKey>("PressKey", "KeyCode"),
    RawMethodRow("WriteTextAt", 3, 3, &WriteText, "Address, Text, Flag"),
    MethodRow<&MemControl::AttachToWindow>("AttachToWindow", "WindowTitle"),
};
const MemberTable kTable{&Control::kControlMembers, kRows};

}  // namespace

MemControl::MemControl(Form* form, std::string name, int index) : Control(form, std::move(name), index) {}

const MemberTable& MemControl::Members() const { return kTable; }

GameMemory& MemControl::Link() {
  if (!link_) link_ = platform().running_games().MakeMemory(StoredKeyDelivery);
  return *link_;
}

uint8_t MemControl::ReadByteAt(int32_t address) { return Link().ReadByteAt(address); }

int32_t MemControl::ReadLongAt(int32_t address) { return Link().ReadLongAt(address); }

void MemControl::PressKey(int32_t key_code) { Link().PressKey(key_code); }

void MemControl::WriteTextAt(int32_t address, std::string_view text) { Link().WriteTextAt(address, text); }

bool MemControl::AttachToWindow(std::string_view title) { return Link().AttachToWindow(title); }

std::string MemControl::Refusal() { return Link().Refusal(); }

void MemControl::Disconnect() {
  // A line of text that is open in the game is still written and closed: the link goes with the control.
  if (!IsTextLineTaken()) link_.reset();
  Control::Disconnect();
}

}  // namespace kestrun
