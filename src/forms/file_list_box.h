// The files of one folder that match a pattern, in the file list's own order: by name without regard to case.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"

namespace kestrun {

class FileListBox final : public Control {
 public:
  FileListBox(Form* form, std::string name, int index);

  // Patterns joined by ";", "*.bms;*.zip".
  Property<std::string> Pattern{*this, PropertyId::kPattern, "*.*"};
  // 0 flat, 1 sunken: how the border looks.
  Property<int> Appearance{*this, PropertyId::kAppearance, 1};
  Property<int> ListIndex{*this, PropertyId::kListIndex, -1};

  // 0 one row, 1 several by click, 2 several with Ctrl and Shift.
  Property<int> MultiSelect{*this, PropertyId::kMultiSelect};

  // A list may show more of its files than their names: texts in columns behind them, which are asked for when the rows
  // are shown and are no part of List. Each column begins so many twips from the list's left edge; the names are cut
  // where the first one begins. Set before the list is shown.
  std::vector<int> ColumnLefts;
  std::function<std::vector<std::string>(const std::string& name)> ColumnTexts;

  // The folder without a trailing separator (a drive's root has one). Assigning lists the new folder and fires
  // PathChange; error 76, with nothing changed, when the folder does not exist. Empty at first: the process's current
  // folder is listed on first use.
  [[nodiscard]] const std::string& Path() const;
  void SetPath(std::string_view folder);

  [[nodiscard]] int ListCount() const;
  // Name without folder; empty when the row does not exist.
  [[nodiscard]] std::string List(int row) const;
  // The current file's name, empty when none. Assigning a listed name makes it the current one; error 53 otherwise.
  [[nodiscard]] std::string FileName() const { return List(ListIndex); }
  void SetFileName(std::string_view name);
  // Error 5 for a row that does not exist.
  [[nodiscard]] bool Selected(int row) const;
  void SetSelected(int row, bool selected);
  [[nodiscard]] int SelCount() const;
  // Lists the folder again; the current row and the selection go. A folder that has vanished gives an empty list.
  void Reload();

  Event<> PathChange;
  Event<> PatternChange;

  [[nodiscard]] std::string TypeName() const override { return "FileListBox"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("FileName"); }

 protected:
  void PropertyChanged(PropertyId id) override;

 private:
  void EnsureListed() const;
  void ListFolder() const;

  mutable std::string path_;
  mutable std::vector<std::string> names_;
  mutable std::vector<bool> selected_;  // by row, of a list with several
  mutable bool listed_ = false;
};

}  // namespace kestrun
