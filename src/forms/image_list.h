// A store of small pictures for the nodes of trees, each found by its number, which counts from 1, or by its key.
#pragma once

#include <vector>

#include "forms/control.h"

namespace kestrun {

class ImageList final : public Control {
 public:
  using Control::Control;

  [[nodiscard]] int ImageCount() const { return static_cast<int>(images_.size()); }
  // Puts a picture behind the last and gives its number. Error 35602 for a key that is taken; an empty key names
  // nothing.
  int AddImage(std::string key, Ref<Picture> picture);
  // The number of the picture that a number or a key means; 0 when there is none.
  [[nodiscard]] int NumberOf(const Variant& image) const;
  // Error 35600 for a number that no picture has.
  [[nodiscard]] Ref<Picture> Image(int number) const;

  [[nodiscard]] bool HasBody() const override { return false; }
  [[nodiscard]] std::string TypeName() const override { return "ImageList"; }
  [[nodiscard]] const MemberTable& Members() const override;

 private:
  struct Entry {
    std::string key;
    Ref<Picture> picture;
  };
  std::vector<Entry> images_;
};

}  // namespace kestrun
