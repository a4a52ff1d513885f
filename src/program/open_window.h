// Windows are opened by name, since none may include another. What each of them is handed stands here, with types; a
// window that is not registered is not opened, and nothing happens then.
#pragma once

#include <string>
#include <string_view>

#include "forms/form.h"

namespace kestrun {

// The names under which windows that are opened from more than one place register.
namespace window_name {
inline constexpr std::string_view kMain = "frmain";
inline constexpr std::string_view kOpenMap = "frmopenmap";
inline constexpr std::string_view kMapInfo = "frmmapinfo";
inline constexpr std::string_view kMapList = "frmputlist";
inline constexpr std::string_view kUploader = "FrmCenter";
inline constexpr std::string_view kPreviewManager = "frmpicture";
inline constexpr std::string_view kLargePreview = "frmLargeprev";
inline constexpr std::string_view kOptions = "frmoptions";
inline constexpr std::string_view kStyleEditor = "FrmEdit";
}  // namespace window_name

// Puts a path or web address into the load-map window before that loads: its load handler asks about the address.
void SetOpenMapAddress(const std::string& address);
// The same, and shows it.
void OpenAddress(const std::string& address);

// What a mission file holds.
enum class ShowWay { kShow, kShowModal };
void OpenMapInfo(const std::string& path, ShowWay way = ShowWay::kShow);

// Appends a map to the auto host's list and shows that window.
void AddToMapList(const std::string& map);
// Loads a rotation list into the auto host, which is not shown by that.
void LoadMapList(const std::string& path);

// The uploader with this zip selected.
void OpenUploader(const std::string& zip);

// The style editor with a style in it.
void OpenStyleEditor(const std::string& path);

// A control of a window by its name; error 424 when it has none.
[[nodiscard]] Object& ControlOf(Form& window, std::string_view name);

}  // namespace kestrun
