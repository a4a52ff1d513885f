// The object that scripts know as System: see-through windows, gradients, controls cut to a shape, pictures and sounds
// out of the style file, and pauses.
#pragma once

#include <functional>
#include <string>

#include "base/object.h"
#include "forms/picture.h"
#include "styles/style_archive.h"

namespace kestrun {

// How long one call into a script may take, in milliseconds, and so a pause or a sound inside it.
inline constexpr uint32_t kScriptTimeoutMs = 10000;

class ClsSystem final : public TableObject {
 public:
  // Called behind everything that waits: stops the script when its time is up.
  explicit ClsSystem(std::function<void()> check_time) : check_time_(std::move(check_time)) {}

  // The archive that pictures and sounds are taken from. Error 13 for an object that is none.
  void SetPff(const Variant& archive);
  // Makes a whole window see-through, 0 to 255. Tells a failure in a box and gives False.
  bool CreateTransFormA(const Variant& window, const Variant& alpha);
  // From the top to the bottom of the rectangle from (0, 0). Colours have red in their low byte.
  void DrawGradientBackground(int32_t context, int32_t right, int32_t bottom, int32_t first, int32_t second);
  // Null, after two boxes, when there is no such entry; null for an entry that is no picture.
  [[nodiscard]] Ref<Picture> LoadPFFPicture(const std::string& name);
  // Cuts a control to the shape of its own pixels.
  void TransControl(const Variant& control, int32_t key_color);
  // Plays a wave sound and waits. Failures are told in boxes.
  void PlaySoundFile(const std::string& name);
  // Lets the message loop run once.
  void DrawIt();
  // The whole program stands still meanwhile, for as long as a script may run at most. What is no number is passed
  // over.
  void Pause(const Variant& milliseconds);

  [[nodiscard]] std::string TypeName() const override { return "ClsSystem"; }
  [[nodiscard]] const MemberTable& Members() const override;

 private:
  [[nodiscard]] StyleArchive& Archive();
  // False when there is no such entry.
  bool Extract(const std::string& name, Bytes& bytes);
  // Uses an entry's bytes. A failure is told, with what was being done; a missing entry by its own sentence before.
  void UseEntry(const std::string& name, const std::string& context, const std::string& missing,
                const std::function<void(ByteView)>& use);

  std::function<void()> check_time_;
  Ref<StyleArchive> archive_;
};

}  // namespace kestrun
