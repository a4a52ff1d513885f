// The objects that scripts find beside the windows: Screen, App and Clipboard.
#pragma once

#include <optional>
#include <string>

#include "base/object.h"

namespace kestrun {

// The screen's size, the windows that are loaded, the user's fonts, and a mouse pointer over all windows.
class ScreenObject final : public TableObject {
 public:
  [[nodiscard]] std::string TypeName() const override { return "Screen"; }
  [[nodiscard]] const MemberTable& Members() const override;
};

// The loaded windows. Item takes a number from 0 or a name.
class FormCollection final : public TableObject {
 public:
  [[nodiscard]] std::string TypeName() const override { return "Forms"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("Item"); }
  [[nodiscard]] std::unique_ptr<Enumeration> Enumerate() override;
};

// The program: its folder, file, title and version.
class AppObject final : public TableObject {
 public:
  // The program's name until something else is assigned.
  [[nodiscard]] std::string Title() const;
  void SetTitle(std::string_view title) { title_ = title; }
  // Whether another process of this program was there when it was first asked.
  [[nodiscard]] bool HasPreviousInstance();

  [[nodiscard]] std::string TypeName() const override { return "App"; }
  [[nodiscard]] const MemberTable& Members() const override;

 private:
  std::string title_;
  std::optional<bool> has_previous_;
};

// The system's clipboard; it holds text or a picture.
class ClipboardObject final : public TableObject {
 public:
  [[nodiscard]] std::string TypeName() const override { return "Clipboard"; }
  [[nodiscard]] const MemberTable& Members() const override;
};

// Screen.MousePointer: the pointer over all windows, as a control's MousePointer counts; 0 leaves it to the controls.
[[nodiscard]] int ScreenMousePointer();

}  // namespace kestrun
