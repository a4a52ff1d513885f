#include "forms/common_dialog.h"

#include "forms/member_rows.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

constexpr int kCancelSelected = 32755;

constexpr Member kRows[]{
    PropertyRow<&CommonDialog::DialogTitle>("DialogTitle"),
    PropertyRow<&CommonDialog::Filter>("Filter"),
    PropertyRow<&CommonDialog::FilterIndex>("FilterIndex"),
    PropertyRow<&CommonDialog::InitDir>("InitDir"),
    PropertyRow<&CommonDialog::DefaultExt>("DefaultExt"),
    PropertyRow<&CommonDialog::FileName>("FileName"),
    PropertyRow<&CommonDialog::Flags>("Flags"),
    PropertyRow<&CommonDialog::Color>("Color"),
    PropertyRow<&CommonDialog::CancelError>("CancelError"),
    ReadOnlyRow<&CommonDialog::FileTitle>("FileTitle"),
    MethodRow<&CommonDialog::ShowOpen>("ShowOpen"),
    MethodRow<&CommonDialog::ShowSave>("ShowSave"),
    MethodRow<&CommonDialog::ShowColor>("ShowColor"),
};
const MemberTable kTable{&Control::kControlMembers, kRows};

}  // namespace

const MemberTable& CommonDialog::Members() const { return kTable; }

std::string CommonDialog::FileTitle() const {
  const std::string& path = FileName.get();
  return path.substr(path.find_last_of("\\/") + 1);
}

bool CommonDialog::ShowOpen() { return PickFile(false); }

bool CommonDialog::ShowSave() { return PickFile(true); }

bool CommonDialog::ShowColor() {
  const auto chosen = platform().dialogs().PickColor(Color);
  if (chosen) Color = *chosen;
  return Finish(chosen.has_value());
}

bool CommonDialog::PickFile(bool save) {
  FileDialogRequest request;
  request.save = save;
  request.title = DialogTitle;
  request.filter = Filter;
  request.filter_index = FilterIndex;
  request.folder = InitDir;
  request.file_name = FileName;
  request.default_extension = DefaultExt;
  request.flags = static_cast<uint32_t>(Flags.get());
  const auto chosen = platform().dialogs().PickFile(request);
  if (chosen) FileName = *chosen;
  return Finish(chosen.has_value());
}

bool CommonDialog::Finish(bool chosen) {
  if (!chosen && CancelError) Raise(kCancelSelected, "Cancel was selected.");
  return chosen;
}

}  // namespace kestrun
