#include "styles/cls_system.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/convert.h"
#include "forms/member_rows.h"
#include "forms/picture_loading.h"
#include "platform/platform.h"
#include "platform/window_effects.h"
#include "program/show_error.h"
#include "styles/mod_trans_control.h"
#include "styles/wave_file.h"

namespace kestrun {
namespace {

// The bit pattern of a 16-bit channel as the system's signed word has it.
int16_t LongToSignedWord(int32_t value) { return static_cast<int16_t>(value >= 32768 ? value - 65536 : value); }

uint16_t Channel(int32_t color, int shift) {
  const int32_t eight_bits = color >> shift & 0xFF;
  return static_cast<uint16_t>(LongToSignedWord(eight_bits * 256));
}

GradientVertex VertexOf(int32_t x, int32_t y, int32_t color) {
  return {x, y, Channel(color, 0), Channel(color, 8), Channel(color, 16), 0};
}

// clang-format off
constexpr Member kRows[]{
    MethodRow<&ClsSystem::CreateTransFormA>("CreateTransFormA"),
    MethodRow<&ClsSystem::DrawGradientBackground>("DrawGradientBackground"),
    MethodRow<&ClsSystem::SetPff>("SetPff"),
    MethodRow<&ClsSystem::LoadPFFPicture>("LoadPFFPicture"),
    MethodRow<&ClsSystem::TransControl>("TransControl"),
    MethodRow<&ClsSystem::PlaySoundFile>("PlaySoundFile"),
    MethodRow<&ClsSystem::DrawIt>("DrawIt"),
    MethodRow<&ClsSystem::Pause>("Pause"),
};
// clang-format on
constexpr MemberTable kTable{nullptr, kRows};

}  // namespace

const MemberTable& ClsSystem::Members() const { return kTable; }

void ClsSystem::SetPff(const Variant& archive) {
  auto* given = archive.Is(VarType::kObject) ? dynamic_cast<StyleArchive*>(archive.object()) : nullptr;
  if (!given) Raise(error::kTypeMismatch);
  archive_ = Ref<StyleArchive>(given);
}

StyleArchive& ClsSystem::Archive() {
  if (!archive_) Raise(error::kObjectNotSet);
  return *archive_;
}

bool ClsSystem::Extract(const std::string& name, Bytes& bytes) {
  int32_t number = -1;
  if (!Archive().archive().PFFFileExists(name, number)) return false;
  bytes = Archive().Extract(number);
  return true;
}

bool ClsSystem::CreateTransFormA(const Variant& window, const Variant& alpha) {
  try {
    window_effects().SetOpacity(ToLong(window), ToByte(alpha));
    return true;
  } catch (const std::exception&) {
    const RuntimeError failure = CurrentError();
    MsgBox("Special function Error: 'CreateTransFormA' " + std::to_string(failure.number()) + " " +
           failure.description());
    return false;
  }
}

void ClsSystem::DrawGradientBackground(int32_t context, int32_t right, int32_t bottom, int32_t first, int32_t second) {
  window_effects().FillGradient(context, {VertexOf(0, 0, first), VertexOf(right, bottom, second)});
}

void ClsSystem::UseEntry(const std::string& name, const std::string& context, const std::string& missing,
                         const std::function<void(ByteView)>& use) {
  try {
    Bytes bytes;
    if (Extract(name, bytes)) return use(bytes);
  } catch (const std::exception&) {
    ShowError(context);
    return;
  }
  // A missing entry is told twice: styles' authors know both boxes.
  MsgBox(missing);
  ShowError(context);
}

Ref<Picture> ClsSystem::LoadPFFPicture(const std::string& name) {
  Ref<Picture> picture;
  UseEntry(name, "Load picture " + name, "Style Error: picture '" + name + "' not found in style file.",
           [&](ByteView bytes) { picture = PictureFromBits(bytes); });
  return picture;
}

void ClsSystem::TransControl(const Variant& control, int32_t key_color) {
  if (!control.Is(VarType::kObject) || !control.object()) Raise(error::kObjectRequired);
  CutControlToKeyColour(*control.object(), key_color);
}

void ClsSystem::PlaySoundFile(const std::string& name) {
  UseEntry(name, "Playing sound file " + name, "Sound file " + name + " not found!", [this](ByteView bytes) {
    window_effects().PlaySoundAndWait(PlayableWave(bytes, kScriptTimeoutMs));
    check_time_();
  });
}

void ClsSystem::DrawIt() {
  RunPendingEvents();
  check_time_();
}

void ClsSystem::Pause(const Variant& milliseconds) {
  if (!IsNumeric(milliseconds)) return;
  const double wanted = ToDouble(milliseconds);
  Sleep(static_cast<uint32_t>(std::lround(std::clamp(wanted, 0.0, static_cast<double>(kScriptTimeoutMs)))));
  check_time_();
}

}  // namespace kestrun
