// The about window: what the program asks of a machine, its version, and who made the style that it wears.
#pragma once

#include "forms/command_button.h"
#include "forms/form.h"
#include "forms/image.h"
#include "forms/label.h"
#include "forms/window_registry.h"
#include "program/window_kit/open_window.h"

namespace kestrun {

class frmhelp final : public Form {
 public:
  static constexpr const char* kName = window_name::kAbout;
  frmhelp();

  Image& imgLogo = Add<Image>("imgLogo");
  Label& Label1 = Add<Label>("Label1");
  // The program's credit, and the link to its home page.
  Label& Label2 = Add<Label>("Label2");
  Label& Label3 = Add<Label>("Label3");
  Label& Label4 = Add<Label>("Label4");
  // Seen only while a style is active: the heading, who made the style, and the way to the designer's site.
  Label& Label7 = Add<Label>("Label7");
  Label& Label5 = Add<Label>("Label5");
  Label& Label6 = Add<Label>("Label6");
  CommandButton& Command1 = Add<CommandButton>("Command1");

 protected:
  void Load() override;

 private:
  void LayOut();
  void Connect();
  void ShowStyleLines();
  void PlaceButtonAt(int top);
};

}  // namespace kestrun
