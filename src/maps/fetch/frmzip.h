// The choice of one map among those inside a zip.
#pragma once

#include <cstdint>
#include <string>

#include "controls/image_list/image_list.h"
#include "controls/list_box/mc_list_box.h"
#include "forms/command_button.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/window_registry.h"

namespace kestrun {

class frmzip final : public Form {
 public:
  static constexpr const char* kName = "frmzip";
  frmzip();

  Label& lblText = Add<Label>("lblText");
  McListBox& LstZip = Add<McListBox>("LstZip");
  CommandButton& Command1 = Add<CommandButton>("Command1");
  CommandButton& Command2 = Add<CommandButton>("Command2");
  McImageList& ImageList1 = Add<McImageList>("ImageList1");

  // A row for a map under its number in the zip.
  void AddMap(const std::string& name, int32_t member);

 protected:
  void Load() override;

 private:
  void LayOut();
  void Choose();
};

// The number of the member that was chosen last; shared by all instances of the window.
inline constexpr int32_t kNoZipMember = -1;
[[nodiscard]] int32_t ChosenZipMember();
void SetChosenZipMember(int32_t member);

}  // namespace kestrun
