// A picture that moves when it is an animated GIF: each frame is a picture of its own, shown over those before it,
// until the last has been shown and all but the first go. All places and sizes are twips.
#pragma once

#include <string>
#include <vector>

#include "base/site_address.h"
#include "controls/stored_control.h"
#include "forms/composite_control.h"
#include "forms/image.h"
#include "forms/timer.h"

namespace kestrun {

namespace gif {
struct Frame;
class FrameReader;
}  // namespace gif

// The kind of LoadNewPicture that moves.
inline constexpr int kAnimatedGif = 1;

class AnimatedGIF final : public CompositeControl, public StoredControl {
 public:
  AnimatedGIF(Form* form, std::string name, int index);

  // Those of every frame, passed on: Click, DblClick and MouseMove of the control itself.

  // What OpenUrl opens.
  LetProperty<std::string> Url{std::string(kSite), [this] { MarkChanged("URL"); }};
  // The frames take the size of the control; otherwise the control takes the size of its first frame.
  LetProperty<bool> Stretch{false, [this] { ApplyStretch(); }};

  Timer& AnimationTimer = AddConstituent<Timer>("AnimationTimer");

  // Shows a file: kind 1 is an animated GIF, any other a still picture. The message loop runs once for each frame. A
  // failure is shown in a box, and the frames before it stay. What is too much for a small panel is left out, so that
  // no file takes more than 64 MB: a file of more than 8 MB, a frame of more than 3 million pixels and what follows it,
  // the frames behind the first 4,096, and those that would make more than 6 million pixels of all.
  void LoadNewPicture(const std::string& file, int kind);
  // Whether LoadNewPicture shows the file to its end without a box.
  [[nodiscard]] static bool CanLoad(const std::string& file, int kind);
  // Opens Url with the shell, shown normally.
  void OpenUrl() const;
  // The shell's open service with the desktop as owner; its own number, above 32 on success.
  int RunShellExecute(const std::string& operation, const std::string& file, const std::string& parameters,
                      const std::string& folder, int show) const;

  // The frames; element 0 is always there, and its Tag has its delay in milliseconds.
  [[nodiscard]] Image& ImgPic(int index) const { return *frames_[static_cast<size_t>(index)].image; }
  [[nodiscard]] int FrameCount() const { return static_cast<int>(frames_.size()); }
  // The frame that was shown last, from 0.
  [[nodiscard]] int CurrentFrame() const { return current_; }
  // How often the file says that it is to be shown. It is shown for ever.
  [[nodiscard]] int RepeatCount() const { return repeat_count_; }

  void WriteProperties(PropertyBag& bag) const;
  void ReadProperties(const PropertyBag& bag);

  [[nodiscard]] std::string TypeName() const override { return "AnimatedGIF"; }
  [[nodiscard]] const MemberTable& Members() const override;

 protected:
  void Resized() override { LayOut(); }
  void PropertyChanged(PropertyId id) override;

 private:
  struct FrameImage {
    Image* image;
    int left_pixels = 0;
    int top_pixels = 0;
  };

  void LoadAnimation(const std::string& file);
  void LoadStill(const std::string& file);
  // Adds all frames; false when another picture was loaded or the form closed meanwhile.
  [[nodiscard]] bool LoadFrames(gif::FrameReader& reader);
  [[nodiscard]] bool ShowFrame(const gif::FrameReader& reader, const gif::Frame& frame, size_t number);
  void StartAnimation();
  void UnloadFrames();
  Image& AddFrameImage();
  void NextFrame();
  void ApplyStretch();
  void LayOut();
  void StretchFrames();
  void SizeToFirstFrame();
  [[nodiscard]] int EdgesTwips() const { return BorderStyle == 0 ? 0 : kSunkenEdgesTwips; }

  std::vector<FrameImage> frames_;
  int current_ = 0;
  int repeat_count_ = 0;
  int64_t pixels_ = 0;
  size_t copied_bytes_ = 0;
  int loads_ = 0;  // counts the calls of LoadNewPicture
};

}  // namespace kestrun
