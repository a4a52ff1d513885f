#include "windows/previews/frmpicture.h"

#include "base/convert.h"
#include "base/member_rows.h"
#include "formats/bitmap/bitmap_file.h"
#include "forms/picture_loading.h"
#include "forms/script_system.h"
#include "maps/map_picture.h"
#include "maps/preview_search.h"
#include "platform/platform.h"
#include "program/folders.h"
#include "program/game_paths.h"
#include "program/path_text.h"
#include "program/settings.h"
#include "program/site_file.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/ask.h"
#include "program/window_kit/file_dialog.h"
#include "program/window_kit/run_command.h"
#include "windows/previews/frmpictureselect.h"

namespace kestrun {
namespace {

const WindowRegistration registration(frmpicture::kName, [] { return MakeRef<frmpicture>(); });

constexpr int kStyleTimerMs = 50;
constexpr const char* kPictureFilter =
    "All image files|*.jpg;*.jpeg;*.bmp;*.dib;*.gif;*.wmf;*.emf;*.cur;*.ico|Bitmaps (*.bmp)|*.bmp|JPEG files "
    "(*.jpg;*.jpeg)|*.jpg;*.jpeg|Gif files (*.gif)|*.gif|Meta files (*.wmf;*.emf)|*.wmf;*.emf|Icons "
    "(*.ico;*.cur)|*.ico;*.cur|All files (*.*)|*.*";

constexpr Member kRows[]{
    MethodRow<&frmpicture::CmdDownload_Click>("CmdDownload_Click"),
    MethodRow<&frmpicture::Update>("Update"),
    MethodRow<&frmpicture::ShowMap>("ShowMap"),
};
const MemberTable kTable{&Form::kFormMembers, kRows};

void WriteBitmap(const Picture& picture, const std::string& path) {
  platform().files().WriteAll(path, EncodeBitmap(picture.width_pixels(), picture.height_pixels(), picture.pixels()));
}

}  // namespace

const MemberTable& frmpicture::Members() const { return kTable; }

frmpicture::frmpicture() : Form(kName) {
  LayOut();
  BuildMenus();
  Connect();
  SetUpStyleTimer(*this, Timer1, kStyleTimerMs, "applystyle ");
}

void frmpicture::Connect() {
  SetCommand({&CmdDownload.Click}, [this] { CmdDownload_Click(); });
  SetCommand({&Command3.Click}, [this] { Browse(); });
  SetCommand({&CmdPaste.Click, &mnu_paste.Click}, [this] { Paste(); });
  SetCommand({&Command4.Click}, [this] { EditPicture(); });
  SetCommand({&Command1.Click}, [this] {
    if (SaveLink()) Unload();
  });
  SetCommand({&Command2.Click, &mnu_exit.Click}, [this] { Unload(); });
  SetCommand({&ImgPrev.Click, &ImgPrev.DblClick}, [this] { ShowLargePicture(ImgPrev.Picture); });
  SetCommand({&mnu_setimagepath.Click}, [] {
    const std::string folder = BrowseForFolder("Select a folder", folder::kMyComputer, "");
    if (!folder.empty()) WriteSetting(setting::kImageFolder, ParentFolder(folder));
  });
  SetCommand({&mnu_saveimageas.Click}, [this] { SaveImageAs(); });
  SetCommand({&mnu_copyclip.Click}, [this] { CopyPicture(); });
  SetCommand({&mnu_copymapname.Click}, [this] { platform().clipboard().SetText(MapName()); });
  FilesDropped = [this](const std::vector<std::string>& paths) {
    if (!paths.empty()) RunCommand([&] { TakeFile(paths.front()); });
  };
}

void frmpicture::Load() { StartStyleTimer(Timer1); }

void frmpicture::Shown() { ShowMap(); }

std::string frmpicture::MapName() const { return GetFileName(lblmap.Caption, true); }

// A picture on the web is fetched, which shows in the status line.
void frmpicture::ShowMap() {
  const std::string map = lblmap.Caption;
  if (map.empty()) return;
  const FetchScope fetch(&status_line_);
  std::string link;
  const std::string path = GetMapPath(map, &link);
  const bool is_by_name = ReadSetting(setting::kPreviewPicture, PictureKey(map)).empty() && !link.empty();
  (is_by_name ? OptNameOnly : OptFullPath).Value = true;
  txtimage.Text = link;
  SetPicture(LoadPictureOrNull(path));
}

// ---- where the picture comes from ----------------------------------------------------------------------------------

// What is no picture changes nothing.
void frmpicture::TakeFile(const std::string& path) {
  const Ref<kestrun::Picture> picture = LoadPictureFile(path);
  txtimage.Text = path;
  SetPicture(picture);
}

void frmpicture::Browse() {
  CommonDialog1.DialogTitle = "Select image.";
  CommonDialog1.Filter = kPictureFilter;
  CommonDialog1.FileName = "";
  if (CommonDialog1.ShowOpen()) TakeFile(CommonDialog1.FileName);
}

void frmpicture::Paste() {
  std::optional<DecodedPicture> there = InstalledScriptSystem().clipboard_picture();
  if (!there) {
    MsgBox("There is no picture on the clipboard.");
    return;
  }
  txtimage.Text = "";
  SetPicture(MakeRef<kestrun::Picture>(there->width, there->height, std::move(there->pixels)));
}

void frmpicture::CmdDownload_Click() {
  const Ref<Form> keep(this);
  std::string reply;
  {
    const FetchScope fetch(&status_line_);
    const bool is_there = FetchSiteFile() == SiteFetch::kThere;
    if (is_there) reply = SearchPreviews(ReadSiteValue(SiteFilePath(), site::kMapCenter), lblmap.Caption);
    if (fetch.IsCancelled()) return;
    if (!is_there) {
      MsgBox(
          "Unable to load map center location. Make sure you are connected to the internet and kestrun can access it.");
      return;
    }
  }
  if (reply.empty()) {
    MsgBox("Unable to download any previews or no previews were found. Please try again later.");
  }
  const Ref<FrmpictureSelect> select(&Window<FrmpictureSelect>());
  select->RefreshList(reply, MapBaseName(lblmap.Caption));
  select->ShowModal();
  if (!select->taken_path().empty() && IsLoaded()) TakeFile(select->taken_path());
}

// ---- saving --------------------------------------------------------------------------------------------------------

void frmpicture::Update() { static_cast<void>(SaveLink()); }

bool frmpicture::SaveLink() {
  const std::string map = lblmap.Caption;
  if (txtimage.Text.get().empty() && !SavePictureFile()) return false;
  WriteNumberedSetting(setting::kPreviewPicture, OptFullPath.Value ? PictureKey(map) : PictureNameKey(map),
                       txtimage.Text);
  return true;
}

// A picture that is in memory only becomes a bitmap in the folder for pictures.
bool frmpicture::SavePictureFile() {
  const Ref<kestrun::Picture> picture = ImgPrev.Picture;
  if (!picture) {
    MsgBox("There is no picture to save. Browse for one, paste one or search the internet.");
    return false;
  }
  const std::string path = ReadSetting(setting::kImageFolder) + "\\" + MapName() + ".bmp";
  if (FileExists(path) &&
      !AskYesNo("This screen shot already exists do you want to overwrite the file " + path + "?")) {
    return false;
  }
  WriteBitmap(*picture, path);
  txtimage.Text = path;
  return true;
}

void frmpicture::EditPicture() {
  if (!SaveLink()) return;
  const FetchScope fetch(&status_line_);
  const std::string path = GetMapPath(lblmap.Caption);
  if (!path.empty()) ShellOpen("open", path, "", ParentFolder(path), kShowNormal);
}

void frmpicture::SaveImageAs() {
  const Ref<kestrun::Picture> picture = ImgPrev.Picture;
  if (!picture) return;
  SetUpFileDialog(CommonDialog1, "Select file", "Bitmaps (*.BMP)|*.BMP", "bmp");
  const std::string path = AskWhereToSave(CommonDialog1);
  if (path.empty()) return;
  WriteBitmap(*picture, path);
}

void frmpicture::CopyPicture() {
  const Ref<kestrun::Picture> picture = ImgPrev.Picture;
  if (!picture) return;
  InstalledScriptSystem().set_clipboard_picture({picture->width_pixels(), picture->height_pixels(), picture->pixels()});
}

}  // namespace kestrun
