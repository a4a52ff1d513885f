#include "forms/file_list_box.h"

#include <algorithm>

#include "base/text.h"
#include "forms/form.h"
#include "forms/member_rows.h"
#include "platform/file_error.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

FileListBox& Self(Object& object) { return static_cast<FileListBox&>(object); }

// "C:\Maps\" becomes "C:\Maps"; "C:\" and "\" stay. "C:" is the drive's root here: to the system it is the folder where
// the process last was on that drive, which no user can see.
std::string WithoutTrailingSeparator(std::string_view folder) {
  if (folder.size() == 2 && folder.back() == ':') return std::string(folder) + "\\";
  while (folder.size() > 1 && (folder.back() == '\\' || folder.back() == '/') && folder[folder.size() - 2] != ':') {
    folder.remove_suffix(1);
  }
  return std::string(folder);
}

constexpr Member kRows[]{
    PropertyRow<&FileListBox::Pattern>("Pattern"),
    PropertyRow<&FileListBox::ListIndex>("ListIndex"),
    PropertyRow<&FileListBox::Appearance>("Appearance"),
    AccessorRow<&FileListBox::Path, &FileListBox::SetPath>("Path"),
    AccessorRow<&FileListBox::FileName, &FileListBox::SetFileName>("FileName"),
    ReadOnlyRow<&FileListBox::ListCount>("ListCount"),
    {"List", MemberKind::kReadOnly, 1, 1,
     [](Object& object, Arguments at) -> Variant { return Self(object).List(ToLong(at[0])); }, nullptr, "String",
     "Index"},
    PropertyRow<&FileListBox::MultiSelect>("MultiSelect"),
    ReadOnlyRow<&FileListBox::SelCount>("SelCount"),
    {"Selected", MemberKind::kReadWrite, 1, 1,
     [](Object& object, Arguments at) -> Variant { return Self(object).Selected(ToLong(at[0])); },
     [](Object& object, Arguments at, const Variant& value) {
       Self(object).SetSelected(ToLong(at[0]), ToBoolean(value));
     },
     "Boolean", "Index"},
    MethodRow<&FileListBox::Reload>("Refresh"),
};
const MemberTable kTable{&Control::kWindowedMembers, kRows};

}  // namespace

FileListBox::FileListBox(Form* form, std::string name, int index) : Control(form, std::move(name), index) {
  TakeWindowColors();
}

const MemberTable& FileListBox::Members() const { return kTable; }

const std::string& FileListBox::Path() const {
  EnsureListed();
  return path_;
}

void FileListBox::SetPath(std::string_view folder) {
  std::string wanted = WithoutTrailingSeparator(folder);
  if (!platform().files().IsFolder(wanted)) throw FileError(error::kPathNotFound, wanted);
  path_ = std::move(wanted);
  Reload();
  PathChange();
}

int FileListBox::ListCount() const {
  EnsureListed();
  return static_cast<int>(names_.size());
}

std::string FileListBox::List(int row) const {
  EnsureListed();
  return row < 0 || row >= ListCount() ? std::string() : names_[static_cast<size_t>(row)];
}

bool FileListBox::Selected(int row) const {
  if (row < 0 || row >= ListCount()) Raise(error::kInvalidProcedureCall);
  return MultiSelect == 0 ? row == ListIndex : selected_[static_cast<size_t>(row)];
}

void FileListBox::SetSelected(int row, bool selected) {
  if (row < 0 || row >= ListCount()) Raise(error::kInvalidProcedureCall);
  if (MultiSelect == 0) {
    ListIndex = selected ? row : -1;
    return;
  }
  selected_[static_cast<size_t>(row)] = selected;
  if (FormPeer* shown = peer()) shown->Update(*this, PropertyId::kSelection);
}

int FileListBox::SelCount() const {
  if (MultiSelect == 0) return ListIndex < 0 ? 0 : 1;
  EnsureListed();
  return static_cast<int>(std::count(selected_.begin(), selected_.end(), true));
}

void FileListBox::SetFileName(std::string_view name) {
  EnsureListed();
  const auto found =
      std::find_if(names_.begin(), names_.end(), [name](const std::string& file) { return EqualsNoCase(file, name); });
  if (found == names_.end()) Raise(error::kFileNotFound);
  ListIndex = static_cast<int>(found - names_.begin());
}

void FileListBox::Reload() {
  ListFolder();
  ListIndex.StoreQuietly(-1);
  if (FormPeer* shown = peer()) shown->ListChanged(*this);
}

void FileListBox::PropertyChanged(PropertyId id) {
  if (id == PropertyId::kPattern) {
    Reload();
    PatternChange();
  }
  if (id != PropertyId::kListIndex) return;
  if (ListIndex < -1 || ListIndex >= ListCount()) {
    ListIndex.StoreQuietly(-1);
    Raise(error::kInvalidProcedureCall);
  }
  Click();
}

void FileListBox::EnsureListed() const {
  if (!listed_) ListFolder();
}

void FileListBox::ListFolder() const {
  listed_ = true;
  names_.clear();
  selected_.clear();
  if (path_.empty()) path_ = platform().files().CurrentFolder();
  const std::vector<std::string> patterns = Split(Pattern.get(), ";");
  Attempt([&] {
    for (const FolderEntry& entry : platform().files().List(path_)) {
      const bool wanted =
          !entry.is_folder && std::any_of(patterns.begin(), patterns.end(), [&](const std::string& one) {
            return one == "*.*" || MatchesPattern(entry.name, one);
          });
      if (wanted) names_.push_back(entry.name);
    }
  });
  selected_.resize(names_.size());
}

}  // namespace kestrun
