#include "app/simulated_game/process_memory.h"

#include <algorithm>

// Zeros that take no room in the file, in a section of their own.
__asm__(
    ".section .game,\"bw\"\n"
    ".globl kestrun_game_memory\n"
    "kestrun_game_memory:\n"
    ".space " KESTRUN_GAME_MEMORY_BYTES
    "\n"
    ".globl kestrun_game_memory_end\n"
    "kestrun_game_memory_end:\n"
    ".text\n");
extern "C" uint8_t kestrun_game_memory[];
extern "C" uint8_t kestrun_game_memory_end[];

namespace kestrun {
namespace {

bool IsInBlock(uint32_t address, size_t count) {
  const auto start = reinterpret_cast<uintptr_t>(kestrun_game_memory);
  const auto end = reinterpret_cast<uintptr_t>(kestrun_game_memory_end);
  return address == 0 || (address >= start && address + count <= end);
}

uint8_t* At(uint32_t address) { return reinterpret_cast<uint8_t*>(static_cast<uintptr_t>(address)); }

}  // namespace

bool ProcessMemory::HoldsAllBuilds() {
  return std::ranges::all_of(SimulatedBuilds(), [](const SimulatedBuild& build) {
    const bool lines = std::ranges::all_of(build.text_lines, [](uint32_t at) { return IsInBlock(at, kTextLineBytes); });
    return lines && IsInBlock(build.round_clock, sizeof(int32_t)) && IsInBlock(build.running_byte, 1);
  });
}

// Another process reads and writes these bytes: each is stored and loaded anew.
void ProcessMemory::Store(uint32_t address, ByteView bytes) {
  volatile uint8_t* const target = At(address);
  for (size_t at = 0; at < bytes.size(); ++at) target[at] = bytes[at];
}

Bytes ProcessMemory::Load(uint32_t address, size_t count) {
  const volatile uint8_t* const source = At(address);
  Bytes bytes(count);
  for (size_t at = 0; at < count; ++at) bytes[at] = source[at];
  return bytes;
}

}  // namespace kestrun
