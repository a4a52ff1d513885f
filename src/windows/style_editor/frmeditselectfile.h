// Asks which entry of the style editor's project is to be deleted.
#pragma once

#include <string>

#include "forms/command_button.h"
#include "forms/form.h"
#include "forms/list_box.h"
#include "forms/window_registry.h"

namespace kestrun {

class FrmEditSelectFile final : public Form {
 public:
  static constexpr const char* kName = "FrmEditSelectFile";
  FrmEditSelectFile();

  // The entries; the number of each in the archive is its item data.
  ListBox& LstFiles = Add<ListBox>("LstFiles");
  CommandButton& Command1 = Add<CommandButton>("Command1");
  CommandButton& Command2 = Add<CommandButton>("Command2");

  // Makes the entry of that name the chosen one, if there is one.
  void Choose(const std::string& name);

 protected:
  void Load() override;

 private:
  void DeleteChosen();
};

}  // namespace kestrun
