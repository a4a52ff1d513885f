// The memory and the keyboard of a game that runs beside the program. One link belongs to one game at a time; each
// window that watches a game has a link of its own.
//
// No operation raises. Where nothing is attached, the game has ended, or the address cannot be read, reads give 0;
// writes and keys then do nothing.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace kestrun {

// How key presses reach the game.
enum class KeyDelivery {
  kAuto,   // kInput while the game's window is in the foreground, kPost otherwise
  kInput,  // as input of the keyboard, which goes to the window in the foreground, whichever that is
  kPost,   // as messages to the game's window
};

// Asked at each key press, so that a changed setting counts at once.
using KeyDeliverySource = std::function<KeyDelivery()>;

class GameMemory {
 public:
  virtual ~GameMemory() = default;
  // Addresses are those of the game's own process; the 32 bits count as an unsigned number.
  [[nodiscard]] virtual uint8_t ReadByteAt(int32_t address) = 0;
  // Four bytes, little-endian; 0 unless all four can be read.
  [[nodiscard]] virtual int32_t ReadLongAt(int32_t address) = 0;
  // One press and release of the key with this virtual key code, as if typed. Waits for less than 100 ms.
  virtual void PressKey(int32_t key_code) = 0;
  // The text in the code page, with a zero byte behind it. Writes all of it or nothing.
  virtual void WriteTextAt(int32_t address, std::string_view text) = 0;
  // Lets go of the game that was attached, and attaches to the one whose window has exactly this title. False when
  // there is none or the system refuses.
  [[nodiscard]] virtual bool AttachToWindow(std::string_view title) = 0;
  // Why a game that is there could not be attached or written to, and what the user can do: one sentence. Empty when
  // nothing was refused since the last AttachToWindow, and when no such game was there.
  [[nodiscard]] virtual std::string Refusal() = 0;
};

class RunningGames {
 public:
  virtual ~RunningGames() = default;
  // A link that is attached to nothing yet. Without a source the delivery is kAuto.
  [[nodiscard]] virtual std::unique_ptr<GameMemory> MakeMemory(KeyDeliverySource key_delivery = {}) = 0;
};

// What Refusal says.
inline constexpr std::string_view kGameNotReadable =
    "Windows keeps Kestrun out of the game, most likely because the game runs as administrator: "
    "start the game without that, or start Kestrun as administrator too.";
inline constexpr std::string_view kGameNotWritable =
    "Windows lets Kestrun watch the game but not write to it, so that no command or message gets there: "
    "start Kestrun as administrator.";
inline constexpr std::string_view kKeysNotTaken =
    "Windows does not let Kestrun press keys in the game, most likely because the game runs as administrator: "
    "start the game without that, or start Kestrun as administrator too.";

}  // namespace kestrun
