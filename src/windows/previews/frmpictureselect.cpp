#include "windows/previews/frmpictureselect.h"

#include "base/member_rows.h"
#include "forms/picture_loading.h"
#include "maps/file_tools.h"
#include "maps/map_picture.h"
#include "maps/preview_search.h"
#include "platform/platform.h"
#include "program/folders.h"
#include "program/path_text.h"
#include "program/settings.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/fit_picture.h"
#include "program/window_kit/open_window.h"
#include "program/window_kit/place_controls.h"
#include "program/window_kit/run_command.h"
#include "web/download_file.h"

namespace kestrun {
namespace {

const WindowRegistration registration(FrmpictureSelect::kName, [] { return MakeRef<FrmpictureSelect>(); });

constexpr const char* kMessage =
    "Kestrun found the following pictures for %1 on the Mapping Center. Please select the best one and click 'OK'.";
constexpr int kClientWidth = 9300;
constexpr int kMessageHeight = 2 * kLabelHeight;
constexpr int kListTop = kWindowMargin + kMessageHeight + kControlGap;
constexpr int kListWidth = 3900;
constexpr int kListHeight = 3600;
constexpr int kFrameLeft = kWindowMargin + kListWidth + kControlGap;
constexpr int kFrameInside = kClientWidth - kWindowMargin - kFrameLeft;
constexpr Place kPicturePlace{kWindowMargin, 330, kFrameInside - 2 * kWindowMargin, kListHeight - 330 - kWindowMargin};
constexpr int kButtonTop = kListTop + kListHeight + kWindowMargin;
constexpr int kStyleTimerMs = 50;

constexpr Member kRows[]{MethodRow<&FrmpictureSelect::RefreshList>("RefreshList", "Reply, MapName")};
const MemberTable kTable{&Form::kFormMembers, kRows};

std::string PreviewFile() { return SpecialFolder(folder::kTemporary) + "preview.jpg"; }

}  // namespace

const MemberTable& FrmpictureSelect::Members() const { return kTable; }

FrmpictureSelect::FrmpictureSelect() : Form(kName) {
  LayOut();
  LstPictures.Click = [this] { RunCommand([this] { ShowChosen(); }); };
  LstPictures.DblClick = [this] { RunCommand([this] { TakeChosen(); }); };
  ImgPreview.DblClick = [this] { ShowLargePicture(ImgPreview.Picture); };
  SetCommand({&Command1.Click}, [this] { TakeChosen(); });
  Command2.Click = [this] { Unload(); };
  SetUpStyleTimer(*this, Timer1, kStyleTimerMs, "applystyle ");
}

void FrmpictureSelect::Load() { StartStyleTimer(Timer1); }

void FrmpictureSelect::LayOut() {
  LayOutDialog(*this, "Select Picture");
  SetClientSize(kClientWidth, kButtonTop + kDialogButtonHeight + kWindowMargin + kStatusLineHeight);
  PlaceLabel(LblMsg, kWindowMargin, kWindowMargin, kClientWidth - 2 * kWindowMargin,
             FillPlaceholders(kMessage, {std::string("a map")}));
  LblMsg.Height = kMessageHeight;
  LblMsg.WordWrap = true;
  LblMsg.UseMnemonic = false;
  LstPictures.Move(kWindowMargin, kListTop, kListWidth, kListHeight);
  LstPictures.ToolTipText = "The pictures that were found.";
  Frame1.Caption = "Preview:";
  Frame1.Move(kFrameLeft, kListTop, kFrameInside, kListHeight);
  ImgPreview.SetContainer(Frame1);
  ImgPreview.Stretch = true;
  ImgPreview.ToolTipText = "Double click to enlarge.";
  LblNoPicture.SetContainer(Frame1);
  PlaceLabel(LblNoPicture, kPicturePlace.left, kPicturePlace.top + kPicturePlace.height / 2, kPicturePlace.width, "");
  LblNoPicture.Alignment = static_cast<int>(TextAlignment::kCenter);
  LblNoPicture.ForeColor = color::kGrayText;
  SetPicture({});
  PlaceOkAndCancel(Command1, Command2, kClientWidth - kWindowMargin, kButtonTop);
  Command1.Enabled = false;
  status_line_.LayOut("Click a picture in the list to see it.");
  status_line_.Place(kClientWidth, ScaleHeight());
}

void FrmpictureSelect::SetPicture(const Ref<kestrun::Picture>& picture) {
  ImgPreview.Picture = picture;
  MoveTo(ImgPreview, FitPicture(picture, kPicturePlace, SmallPicture::kEnlarge));
  LblNoPicture.Visible = !picture;
  LblNoPicture.Caption = LstPictures.ListCount() == 0 ? "Nothing was found" : "No picture";
}

void FrmpictureSelect::RefreshList(const std::string& Reply, const std::string& MapName) {
  map_name_ = MapName;
  taken_path_.clear();
  addresses_ = PreviewAddresses(Reply);
  LblMsg.Caption = FillPlaceholders(kMessage, {MapName});
  LstPictures.Clear();
  for (const std::string& address : addresses_) LstPictures.AddItem(PreviewName(address));
  FitListWidth(*this, LstPictures);
  SetPicture({});
}

std::string FrmpictureSelect::ChosenAddress() const {
  const auto row = static_cast<size_t>(LstPictures.ListIndex.get());  // none is past every end
  return row < addresses_.size() ? addresses_[row] : std::string();
}

void FrmpictureSelect::ShowChosen() {
  const std::string address = ChosenAddress();
  Command1.Enabled = !address.empty();
  if (address.empty()) return;
  const FetchScope fetch(&status_line_);
  const std::string path = PreviewFile();
  const bool is_there = DownloadFile(address, path);
  SetPicture(is_there ? LoadPictureOrNull(path) : Ref<kestrun::Picture>());
  if (!ImgPreview.Picture.get() && !fetch.IsCancelled()) MsgBox("Unable to download picture.");
}

// The download is checked to be a picture before it replaces the one of the map.
void FrmpictureSelect::TakeChosen() {
  const Ref<Form> keep(this);
  const std::string address = ChosenAddress();
  if (address.empty()) return;
  const std::string target = ReadSetting(setting::kImageFolder) + "\\" + map_name_ + ".jpg";
  const std::string fetched = PreviewFile();
  {
    const FetchScope fetch(&status_line_);
    const bool is_there = DownloadFile(address, fetched);
    if (fetch.IsCancelled()) return;
    if (!is_there || !LoadPictureOrNull(fetched) || !Attempt([&] { platform().files().Copy(fetched, target); })) {
      MsgBox("Failed to download picture.");
      return;
    }
  }
  taken_path_ = target;
  MsgBox("The picture has been downloaded to '" + target + "' Click the 'save' button to save the settings.");
  Unload();
}

}  // namespace kestrun
