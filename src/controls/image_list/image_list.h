// A store of pictures that lives with the window that owns it. It is never seen at run time; in a window's designer it
// shows its current picture.
#pragma once

#include <string>
#include <vector>

#include "controls/stored_control.h"
#include "forms/canvas.h"
#include "forms/picture.h"

namespace kestrun {

// Positions count from 0. Error 9 for one that holds no picture.
class McImageList final : public Control, public StoredControl {
 public:
  using Control::Control;

  [[nodiscard]] Ref<Picture> ListImages(int position) const;
  void SetListImages(int position, Ref<Picture> picture);
  [[nodiscard]] int ImageCount() const { return static_cast<int>(pictures_.size()); }
  // The current picture.
  [[nodiscard]] Ref<Picture> Image() const { return ListImages(current_); }
  void SetImage(Ref<Picture> picture) { SetListImages(current_, std::move(picture)); }
  // Position of the current picture, 0 in an empty list. A position outside the list becomes the nearest inside.
  [[nodiscard]] int CurrentImage() const { return current_; }
  void SetCurrentImage(int position);

  // Puts a picture behind the last.
  void AddNewImage(Ref<Picture> picture);
  // Takes the current picture out, unless `really` is 0 or the list is empty.
  void RemoveImage(int really);
  // Exchanges the current picture with the one at the position, with the last one for a position past the end. The
  // current position stays.
  void MoveImageTo(int position);
  // -1 steps to the next picture and 0 to the one before, around the ends; anything else stays. Gives the picture that
  // is current then.
  Ref<Picture> CyclePic(int direction);

  // What a designer sees: a frame, the current picture fitted into it above its number.
  void PaintPreview(Canvas& canvas) const;

  void WriteProperties(PropertyBag& bag) const;
  // Error 321 for a count that no list has; the list is then as it was.
  void ReadProperties(const PropertyBag& bag);

  [[nodiscard]] bool HasBody() const override { return false; }
  [[nodiscard]] std::string TypeName() const override { return "McImageList"; }
  [[nodiscard]] const MemberTable& Members() const override;

 private:
  [[nodiscard]] size_t Place(int position) const;
  void StoreChange(std::string_view name);

  std::vector<Ref<Picture>> pictures_;
  int current_ = 0;
};

}  // namespace kestrun
