// Windows are opened by name, since none may include another. What each of them is handed stands here, with types; a
// window that is not registered is not opened, and nothing happens then.
#pragma once

#include <string>
#include <string_view>

#include "forms/form.h"
#include "web/fetch_scope.h"

namespace kestrun {

// The names under which windows that others open register. A window that nobody opens but its own command word needs no
// row here.
namespace window_name {
inline constexpr const char* kMain = "frmain";
inline constexpr const char* kOpenMap = "frmopenmap";
inline constexpr const char* kMapInfo = "frmmapinfo";
inline constexpr const char* kAbout = "frmhelp";
inline constexpr const char* kMapList = "frmputlist";
inline constexpr const char* kGameVersion = "Frmdfversion";
inline constexpr const char* kGameTypes = "FrmGameType";
inline constexpr const char* kRehearsal = "frmrehearsal";
inline constexpr const char* kAddInManager = "FrmAddinMngr";
inline constexpr const char* kMessenger = "frmchat";
inline constexpr const char* kNameEditor = "frmname";
inline constexpr const char* kMapUpdater = "frmmapupd";
inline constexpr const char* kPrograms = "frmaddprogram";
inline constexpr const char* kUploader = "FrmCenter";
inline constexpr const char* kUpdate = "FrmUpdate";
inline constexpr const char* kHelpDownload = "frmdwnlhelp";
inline constexpr const char* kPreviewManager = "frmpicture";
inline constexpr const char* kLargePreview = "frmLargeprev";
inline constexpr const char* kOptions = "frmoptions";
inline constexpr const char* kRestore = "frmrestore";
inline constexpr const char* kStyleEditor = "FrmEdit";
}  // namespace window_name

enum class ShowWay { kShow, kShowModal };
// A window that is handed nothing.
void OpenWindow(std::string_view name, ShowWay way = ShowWay::kShow);

// Puts a path or web address into the load-map window before that loads: its load handler asks about the address.
void SetOpenMapAddress(const std::string& address);
// The same, and shows it.
void OpenAddress(const std::string& address);

// What a mission file holds. Its picture may have to be fetched before the window can be seen: that shows in the
// display, if one is given.
void OpenMapInfo(const std::string& path, ShowWay way = ShowWay::kShow, FetchDisplay* display = nullptr);

// Appends a map to the auto host's list and shows that window.
void AddToMapList(const std::string& map);
// Loads a rotation list into the auto host, which is not shown by that.
void LoadMapList(const std::string& path);

// The window in which a map, by its path or address, is given a picture. kSearch lets it look for one on the web.
enum class PreviewTask { kChoose, kSearch };
void OpenPreviewManager(const std::string& map, PreviewTask task = PreviewTask::kChoose);
// Shows a picture at its full size and waits until that window is closed. Without a picture nothing happens, unless the
// window is to show that there is none.
enum class WithoutPicture { kNothing, kEmptyWindow };
void ShowLargePicture(const Ref<Picture>& picture, WithoutPicture without = WithoutPicture::kNothing);

// The main window with the map's folder in its path field, and the map selected.
void ShowInMainWindow(const std::string& map);

// The uploader with this zip selected.
void OpenUploader(const std::string& zip);

// The style editor with a style in it.
void OpenStyleEditor(const std::string& path);

// A control of a window by its name; error 424 when it has none.
[[nodiscard]] Object& ControlOf(Form& window, std::string_view name);

}  // namespace kestrun
