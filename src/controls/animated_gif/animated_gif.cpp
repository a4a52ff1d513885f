#include "controls/animated_gif/animated_gif.h"

#include <charconv>
#include <utility>

#include "base/runtime_error.h"
#include "base/text.h"
#include "formats/gif/gif_frames.h"
#include "forms/picture_loading.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

constexpr int kShowNormal = 1;
constexpr int kTwipsPerPixel = 15;  // of a frame's place, on every screen
// A hostile file may be small and announce any number of frames of any size, or have a header of megabytes that each
// of thousands of frames begins with. All together take less than 64 MB: the file and a copy of it, the pixels of all
// frames, and one more time those of the frame that is being decoded.
constexpr int64_t kMostFramePixels = 3'000'000;  // the system's decoder takes some sixteen bytes for each
constexpr int64_t kMostPixels = 6'000'000;
constexpr size_t kMostFrames = 4096;
constexpr uint64_t kMostFileBytes = uint64_t{8} * 1024 * 1024;
constexpr size_t kMostCopiedBytes = size_t{64} * 1024 * 1024;

constexpr Member kRows[]{
    MethodRow<&AnimatedGIF::RunShellExecute>("RunShellExecute", "Operation, File, Parameters, Folder, Show"),
    MethodRow<&AnimatedGIF::LoadNewPicture>("LoadNewPicture", "File, Kind"),
    PropertyRow<&CompositeControl::BorderStyle>("BorderStyle"),
    PropertyRow<&Control::ForeColor>("ForeColor"),
    PropertyRow<&Control::BackColor>("BackColor"),
    PropertyRow<&AnimatedGIF::Url>("Url"),
    MethodRow<&AnimatedGIF::OpenUrl>("OpenUrl"),
    PropertyRow<&AnimatedGIF::Stretch>("Stretch"),
};
const MemberTable kTable{&Control::kWindowedMembers, kRows};

Bytes ReadPictureFile(const std::string& path) {
  const std::unique_ptr<File> file = platform().files().Open(path, OpenMode::kRead);
  if (file->Size() > kMostFileBytes) Raise(error::kInvalidPicture);
  Bytes content(static_cast<size_t>(file->Size()));
  content.resize(file->ReadAt(0, content));
  return content;
}

// Whether the pictures of these bytes may be made.
bool HasRoomFor(int64_t pixels, int64_t pixels_before) {
  return pixels <= kMostFramePixels && pixels <= kMostPixels - pixels_before;
}

// A frame that another follows ends where that one's extension begins. Windows takes it without the trailer that should
// stand there; other systems want it.
Ref<Picture> DecodeFrame(Bytes picture) {
  constexpr uint8_t kExtension = 0x21;
  constexpr uint8_t kTrailer = 0x3B;
  Ref<Picture> decoded = PictureFromBits(picture);
  if (decoded || picture.empty() || picture.back() != kExtension) return decoded;
  picture.back() = kTrailer;
  return PictureFromBits(picture);
}

void ShowLoadFailure(std::string_view what) {
  const RuntimeError failure = CurrentError();
  MsgBox(std::string(what) + std::to_string(failure.number()) + std::string(kCrLf) + failure.description());
}

int DelayOf(const Image& image) {
  int delay = 0;
  std::from_chars(image.Tag->data(), image.Tag->data() + image.Tag->size(), delay);
  return delay;
}

}  // namespace

AnimatedGIF::AnimatedGIF(Form* form, std::string name, int index) : CompositeControl(form, std::move(name), index) {
  AddFrameImage().Visible = true;
  AnimationTimer.Enabled = false;
  AnimationTimer.Tick = [this] { NextFrame(); };
  Move(0, 0, 3600, 900);
}

const MemberTable& AnimatedGIF::Members() const { return kTable; }

Image& AnimatedGIF::AddFrameImage() {
  Image& image = AddConstituent<Image>("ImgPic", static_cast<int>(frames_.size()), [this](Image& made) {
    made.Visible = false;
    made.Click = [this] { Click(); };
    made.DblClick = [this] { DblClick(); };
    made.MouseMove = [this, &made](int button, int shift_state, int x, int y) {
      MouseMove(button, shift_state, made.Left + x, made.Top + y);
    };
  });
  frames_.push_back({&image});
  return image;
}

void AnimatedGIF::UnloadFrames() {
  AnimationTimer.Enabled = false;
  while (frames_.size() > 1) {
    Image& last = *frames_.back().image;
    frames_.pop_back();
    RemoveConstituent(last);
  }
  current_ = 0;
  repeat_count_ = 0;
  pixels_ = 0;
  copied_bytes_ = 0;
}

bool AnimatedGIF::CanLoad(const std::string& file, int kind) {
  if (kind != kAnimatedGif) return static_cast<bool>(LoadPictureOrNull(file));
  bool is_whole = false;
  const auto look = [&] {
    const Bytes content = ReadPictureFile(file);
    gif::FrameReader reader(content);
    const std::optional<gif::Frame> first = reader.Next();
    Bytes picture = reader.PictureOf(first.value());
    is_whole = HasRoomFor(gif::LargestPicturePixels(picture), 0) && DecodeFrame(std::move(picture));
    for (size_t number = 1; number < kMostFrames && reader.Next(); ++number) {
    }
  };
  return Attempt(look) && is_whole;
}

// ---- loading -------------------------------------------------------------------------------------------------------

void AnimatedGIF::LoadNewPicture(const std::string& file, int kind) {
  const Ref<AnimatedGIF> keep(this);
  ++loads_;
  if (kind == kAnimatedGif) {
    LoadAnimation(file);
  } else {
    LoadStill(file);
  }
}

void AnimatedGIF::LoadAnimation(const std::string& file) {
  UnloadFrames();
  try {
    const Bytes content = ReadPictureFile(file);
    gif::FrameReader reader(content);
    repeat_count_ = reader.repeat_count();
    if (!LoadFrames(reader)) return;
  } catch (const std::exception&) {
    return ShowLoadFailure("Error Loading GIF file: Invalid file name ");
  }
  try {
    StartAnimation();
  } catch (const std::exception&) {
    ShowLoadFailure("Error Loading GIF file ");
  }
}

bool AnimatedGIF::LoadFrames(gif::FrameReader& reader) {
  const int load = loads_;
  for (size_t number = 0; number < kMostFrames; ++number) {
    const std::optional<gif::Frame> frame = reader.Next();
    if (!frame) break;
    if (number > 0) {
      AddFrameImage().Stretch = frames_.front().image->Stretch.get();
    }
    if (!ShowFrame(reader, *frame, number)) break;
    platform().clock().RunPendingEvents();
    if (load != loads_ || !form()) return false;
  }
  return true;
}

// False when there is no room for it, nor for what follows.
bool AnimatedGIF::ShowFrame(const gif::FrameReader& reader, const gif::Frame& frame, size_t number) {
  FrameImage& shown = frames_[number];
  shown.left_pixels = frame.left_pixels;
  shown.top_pixels = frame.top_pixels;
  Image& image = *shown.image;
  image.Left = frames_.front().image->Left + frame.left_pixels * kTwipsPerPixel;
  image.Top = frames_.front().image->Top + frame.top_pixels * kTwipsPerPixel;
  image.Tag = std::to_string(frame.delay_ms);
  Bytes picture = reader.PictureOf(frame);
  const int64_t pixels = gif::LargestPicturePixels(picture);
  copied_bytes_ += picture.size();
  if (!HasRoomFor(pixels, pixels_) || copied_bytes_ > kMostCopiedBytes) {
    image.Picture = nullptr;
    return false;
  }
  pixels_ += pixels;
  image.Picture = DecodeFrame(std::move(picture));
  return true;
}

void AnimatedGIF::StartAnimation() {
  frames_.front().image->Visible = true;
  AnimationTimer.Interval = DelayOf(*frames_.front().image);
  AnimationTimer.Enabled = true;
  LayOut();
}

// The frames of an animation before it stay away.
void AnimatedGIF::LoadStill(const std::string& file) {
  UnloadFrames();
  try {
    Image& image = *frames_.front().image;
    image.Visible = true;
    image.Tag = "";
    image.Picture = LoadPictureFile(file);
    image.Stretch = Stretch.get();
    LayOut();
  } catch (const std::exception&) {
    ShowLoadFailure("Error Loading GIF file: Invalid file name ");
  }
}

// ---- showing -------------------------------------------------------------------------------------------------------

void AnimatedGIF::NextFrame() {
  const Ref<AnimatedGIF> keep(this);
  if (current_ + 1 < FrameCount()) {
    ++current_;
    ImgPic(current_).Visible = true;
  } else {
    current_ = 0;
    for (size_t number = 1; number < frames_.size(); ++number) frames_[number].image->Visible = false;
  }
  AnimationTimer.Interval = DelayOf(ImgPic(current_));
  platform().clock().RunPendingEvents();
}

void AnimatedGIF::ApplyStretch() {
  for (const FrameImage& frame : frames_) frame.image->Stretch = Stretch.get();
  LayOut();
  MarkChanged("Stretch");
}

void AnimatedGIF::LayOut() {
  if (Stretch) {
    StretchFrames();
  } else {
    SizeToFirstFrame();
  }
}

// All frames grow or shrink with the first, which fills the control.
void AnimatedGIF::StretchFrames() {
  const int width = std::max(0, Width - EdgesTwips());
  const int height = std::max(0, Height - EdgesTwips());
  const Picture* first = frames_.front().image->Picture.get().get();
  for (const FrameImage& frame : frames_) {
    const Picture* picture = frame.image->Picture.get().get();
    if (!first || !picture) {
      frame.image->Move(0, 0, width, height);
      continue;
    }
    const auto across = [&](int64_t pixels) { return static_cast<int>(pixels * width / first->width_pixels()); };
    const auto down = [&](int64_t pixels) { return static_cast<int>(pixels * height / first->height_pixels()); };
    frame.image->Move(across(frame.left_pixels), down(frame.top_pixels), across(picture->width_pixels()),
                      down(picture->height_pixels()));
  }
}

void AnimatedGIF::SizeToFirstFrame() {
  for (const FrameImage& frame : frames_) {
    const Picture* picture = frame.image->Picture.get().get();
    if (!picture) continue;
    frame.image->Move(frame.left_pixels * kTwipsPerPixel, frame.top_pixels * kTwipsPerPixel, picture->width_twips(),
                      picture->height_twips());
  }
  if (!frames_.front().image->Picture.get()) return;
  Width = frames_.front().image->Width + EdgesTwips();
  Height = frames_.front().image->Height + EdgesTwips();
}

// ---- the web -------------------------------------------------------------------------------------------------------

void AnimatedGIF::OpenUrl() const { static_cast<void>(RunShellExecute("open", Url, "", "", kShowNormal)); }

int AnimatedGIF::RunShellExecute(const std::string& operation, const std::string& file, const std::string& parameters,
                                 const std::string& folder, int show) const {
  return platform().shell().Open(operation, file, parameters, folder, show);
}

// ---- properties ----------------------------------------------------------------------------------------------------

void AnimatedGIF::PropertyChanged(PropertyId id) {
  CompositeControl::PropertyChanged(id);
  switch (id) {
    case PropertyId::kBorderStyle: LayOut(); return MarkChanged("BorderStyle");
    case PropertyId::kForeColor: return MarkChanged("ForeColor");
    case PropertyId::kBackColor: return MarkChanged("BackColor");
    case PropertyId::kMousePointer: return MarkChanged("MousePointer");
    default: return;
  }
}

void AnimatedGIF::WriteProperties(PropertyBag& bag) const {
  bag.WriteProperty("BorderStyle", BorderStyle.get(), 0);
  bag.WriteProperty("ForeColor", StoredColor(ForeColor), StoredColor(color::kButtonText));
  bag.WriteProperty("BackColor", StoredColor(BackColor), StoredColor(color::kButtonFace));
  bag.WriteProperty("MousePointer", MousePointer.get(), 0);
  bag.WriteProperty("MouseIcon", MouseIcon.get(), Variant::Nothing());
  bag.WriteProperty("URL", Url.get(), std::string(kSite));
  bag.WriteProperty("Stretch", Stretch.get(), false);
}

void AnimatedGIF::ReadProperties(const PropertyBag& bag) {
  const Reading reading(*this);
  BorderStyle = ToLong(bag.ReadProperty("BorderStyle", 0));
  ForeColor = ColorFrom(bag.ReadProperty("ForeColor", StoredColor(color::kButtonText)));
  BackColor = ColorFrom(bag.ReadProperty("BackColor", StoredColor(color::kButtonFace)));
  MousePointer = ToLong(bag.ReadProperty("MousePointer", 0));
  MouseIcon = VariantTraits<Ref<Picture>>::From(bag.ReadProperty("MouseIcon", Variant::Nothing()));
  Url = ToText(bag.ReadProperty("URL", std::string(kSite)));
  Stretch = ToBoolean(bag.ReadProperty("Stretch", false));
}

}  // namespace kestrun
