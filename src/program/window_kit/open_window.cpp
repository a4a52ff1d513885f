#include "program/window_kit/open_window.h"

#include "base/convert.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "forms/window_registry.h"
#include "platform/platform.h"
#include "program/path_text.h"

namespace kestrun {
namespace {

// What the window of the large picture is larger than that, in twips.
constexpr int kLargePreviewRight = 250;
constexpr int kLargePreviewBottom = 500;

void Show(Form& window, ShowWay way) {
  if (way == ShowWay::kShowModal) {
    window.ShowModal();
  } else {
    window.Show();
  }
}

// Hands a file to a window by one of its procedures and shows it.
void OpenWithFile(std::string_view name, std::string_view procedure, const std::string& file, ShowWay way,
                  FetchDisplay* display = nullptr) {
  if (!IsWindowRegistered(name)) return;
  const Ref<Form> window(&WindowByName(name));
  const bool was_shown = window->IsShown();
  {
    const FetchScope fetch(display);
    CallMember(*window, procedure, {file});
  }
  // It may have come to the screen to show what it fetches.
  if (way == ShowWay::kShowModal && !was_shown) window->Hide();
  Show(*window, way);
}

void SelectFile(Object& list, const std::string& name) {
  const int32_t count = ToLong(GetMember(list, "ListCount"));
  for (int32_t row = 0; row < count; ++row) {
    if (!EqualsNoCase(ToText(GetMember(list, "List", {row})), name)) continue;
    PutMember(list, "ListIndex", row);
    // Where several can be chosen, the current row is not chosen by that.
    if (list.FindMember("Selected") != kNoMember) PutMember(list, "Selected", true, {row});
    return;
  }
}

}  // namespace

Object& ControlOf(Form& window, std::string_view name) {
  const Variant control = GetMember(window, name);
  if (!control.object()) Raise(error::kObjectRequired);
  return *control.object();
}

void OpenWindow(std::string_view name, ShowWay way) {
  if (IsWindowRegistered(name)) Show(WindowByName(name), way);
}

void SetOpenMapAddress(const std::string& address) {
  if (!IsWindowRegistered(window_name::kOpenMap)) return;
  PutMember(ControlOf(WindowBeforeLoad(window_name::kOpenMap), "TxtFile"), "Text", address);
}

void OpenAddress(const std::string& address) {
  SetOpenMapAddress(address);
  ShowWindow(window_name::kOpenMap);
}

void OpenMapInfo(const std::string& path, ShowWay way, FetchDisplay* display) {
  OpenWithFile(window_name::kMapInfo, "LoadMap", path, way, display);
}

void AddToMapList(const std::string& map) {
  if (!IsWindowRegistered(window_name::kMapList)) return;
  Form& window = WindowByName(window_name::kMapList);
  CallMember(ControlOf(window, "lstmaps"), "AddItem", {map});
  CallMember(window, "mnu_refreshlist_Click");
  window.Show();
}

void LoadMapList(const std::string& path) {
  if (!IsWindowRegistered(window_name::kMapList)) return;
  const Ref<Form> window(&WindowByName(window_name::kMapList));
  RunPendingEvents();
  CallMember(*window, "LoadList", {path});
}

void OpenPreviewManager(const std::string& map, PreviewTask task) {
  if (!IsWindowRegistered(window_name::kPreviewManager)) return;
  const Ref<Form> window(&WindowByName(window_name::kPreviewManager));
  PutMember(ControlOf(*window, "lblmap"), "Caption", map);
  // One that is on the screen already shows another map's picture.
  if (window->IsShown() && window->FindMember("ShowMap") != kNoMember) CallMember(*window, "ShowMap");
  window->Show();
  if (task == PreviewTask::kSearch) CallMember(*window, "CmdDownload_Click");
}

void ShowLargePicture(const Ref<Picture>& picture, WithoutPicture without) {
  if (!picture && without == WithoutPicture::kNothing) return;
  if (!IsWindowRegistered(window_name::kLargePreview)) return;
  const Ref<Form> window(&WindowByName(window_name::kLargePreview));
  Control* box = window->FindControl("Picture1");
  if (!box) Raise(error::kObjectRequired);
  PutMember(*box, "Picture", picture);
  window->Width = box->Left + box->Width + kLargePreviewRight;
  window->Height = box->Top + box->Height + kLargePreviewBottom;
  window->ShowModal();
}

void ShowInMainWindow(const std::string& map) {
  const Ref<Form> window(&WindowByName(window_name::kMain));
  PutMember(ControlOf(*window, "Text1"), "Text", ParentFolder(map));
  for (const char* list : {"FileMaps", "ListBox"}) SelectFile(ControlOf(*window, list), GetFileName(map, true));
  window->Show();
}

void OpenUploader(const std::string& zip) {
  if (!ShowWindow(window_name::kUploader)) return;
  Form& window = WindowByName(window_name::kUploader);
  PutMember(ControlOf(window, "TxtDir"), "Text", ParentFolder(zip));
  PutMember(ControlOf(window, "ChAutoRename"), "Value", int32_t{0});
  PutMember(ControlOf(window, "ChSelected"), "Value", int32_t{1});
  SelectFile(ControlOf(window, "FileMaps"), GetFileName(zip));
}

void OpenStyleEditor(const std::string& path) {
  OpenWithFile(window_name::kStyleEditor, "LoadStyle", path, ShowWay::kShow);
}

}  // namespace kestrun
