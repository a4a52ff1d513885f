// The platform's file and colour dialogues, with what a user chose last.
#pragma once

#include "forms/control.h"

namespace kestrun {

class CommonDialog final : public Control {
 public:
  using Control::Control;

  Property<std::string> DialogTitle{*this, PropertyId::kNone};
  // "Maps (*.bms)|*.bms|All files (*.*)|*.*"
  Property<std::string> Filter{*this, PropertyId::kNone};
  Property<int> FilterIndex{*this, PropertyId::kNone, 1};
  Property<std::string> InitDir{*this, PropertyId::kNone};
  Property<std::string> DefaultExt{*this, PropertyId::kNone};
  // Full path of the choice.
  Property<std::string> FileName{*this, PropertyId::kNone};
  Property<int> Flags{*this, PropertyId::kNone};
  Property<kestrun::Color> Color{*this, PropertyId::kNone};
  // When set, Cancel raises error 32755 ("Cancel was selected."); otherwise everything stays as it was.
  Property<bool> CancelError{*this, PropertyId::kNone};

  // File name without its folder.
  [[nodiscard]] std::string FileTitle() const;
  // True when the user chose.
  bool ShowOpen();
  bool ShowSave();
  bool ShowColor();

  [[nodiscard]] bool HasBody() const override { return false; }
  [[nodiscard]] std::string TypeName() const override { return "CommonDialog"; }
  [[nodiscard]] const MemberTable& Members() const override;

 private:
  bool PickFile(bool save);
  bool Finish(bool chosen);
};

}  // namespace kestrun
