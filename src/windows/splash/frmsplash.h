// The splash window: the first code that runs stands in its load handler.
#pragma once

#include "forms/form.h"
#include "forms/image.h"
#include "forms/label.h"

namespace kestrun {

class frmsplash final : public Form {
 public:
  static constexpr const char* kName = "frmsplash";
  frmsplash();

  Image& imgLogo = Add<Image>("imgLogo");
  Label& Label1 = Add<Label>("Label1");
  Label& lblversion = Add<Label>("lblversion");
  Label& lblstatus = Add<Label>("lblstatus");
  // The way out: ends the process at once.
  Label& Label2 = Add<Label>("Label2");

  // Applies the current style to this window.
  void LoadStyle();

  [[nodiscard]] const MemberTable& Members() const override;

 protected:
  void Load() override;

 private:
  void LayOut();
};

}  // namespace kestrun
