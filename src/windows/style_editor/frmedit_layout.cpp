// Captions, tips and places of the style editor's controls.
#include <algorithm>
#include <array>

#include "base/text.h"
#include "platform/platform.h"
#include "program/menu_pictures.h"
#include "program/program_pictures.h"
#include "program/window_kit/fill_menu.h"
#include "program/window_kit/fixed_pitch.h"
#include "program/window_kit/place_controls.h"
#include "windows/style_editor/editor_pictures.h"
#include "windows/style_editor/frmedit.h"

namespace kestrun {
namespace {

constexpr int kMargin = 120;
constexpr int kLabelStep = kLabelHeight + 30;
constexpr int kClientWidth = 12000;
constexpr int kClientHeight = 8100;
constexpr int kLeastWidth = 6600;
constexpr int kLeastHeight = 5400;
constexpr int kTreePercent = 30;  // of the width, for the trees
constexpr int kMostTreeWidth = 4200;
constexpr int kTipsHeight = 1800;
constexpr double kCodeSize = 9.75;

constexpr std::array kTips{
    "Some default tips:",
    "All projects need an assembly.txt file this contains default information about designer, included code files",
    "Examole how assembly.txt should look:",
    "//options",
    "",
    "designer Your name",
    "sitelink http://www.yoursite.com",
    "language VBScript",
    "version 1.9.2",
    "",
    "//includes include as many files as you want. here i included the code file (module) main.vbs",
    "",
    "include main.vbs",
    "",
    "How the main.vbs code file should look:",
    "sub Form_load (Form)",
    "'this sub will be run when a form loads Form is the entire form object",
    "end sub",
    "",
    "sub Control_Load(Control, Form)",
    "'this sub will be run when a control on a form loads",
    "'control is the entire usercontrol, form the form object",
    "end sub",
};

std::string TipsText() {
  std::string text;
  for (const char* line : kTips) text += line + std::string(kCrLf);
  return text;
}

}  // namespace

void FrmEdit::LayOut() {
  Caption = "Kestrun - Editor V1.1";
  Icon = DrawnOnce(&ProgramIcon);
  StartUpPosition = static_cast<int>(StartPosition::kCenterScreen);
  KeyPreview = true;
  Label1.Caption = "&Project Explorer";
  Label2.Caption = "Debug Pa&nel";
  Label3.Caption = "Code Window";
  LblHelp.Caption = "Help";
  // The name of an entry may hold an "&".
  Label3.UseMnemonic = false;
  TreeView.ToolTipText =
      "Project Explorer: All code files, images, ... can be found here. Click a file to edit it, a image to view it, "
      "sound file to here it.";
  LstDebug.ToolTipText =
      "Debug Panel: Dbl click a form to show it. First click 'Debug' => 'load style' to see the changes.";
  TxtCode.ToolTipText = "The Code window: code files and text files can be edited here.";
  for (TextBox* box : {&TxtCode, &txthelp}) {
    box->MultiLine = true;
    box->ScrollBars = 3;
  }
  CommonDialog.CancelError = true;
  TxtCode.Locked = true;  // until an entry is open
  txthelp.Locked = true;
  txthelp.ScrollBars = 2;
  txthelp.Text = TipsText();
  txthelp.Visible = false;
  LblHelp.Visible = false;
  for (kestrun::TreeView* tree : {&TreeView, &LstDebug}) tree->SetImages(Ref<kestrun::ImageList>(&ImageList));
  for (Image* picture : {&ImgNew, &ImgOpen, &ImgSave, &ImgClose, &ImgRefresh, &ImgImage, &ImgSound, &ImgMod, &ImgTxt,
                         &ImgDel, &ImgRun, &ImgHelp}) {
    picture->Visible = false;
  }
  LayOutMenus();
  SetClientSize(kClientWidth, kClientHeight);
  SetLeastClientSize(kLeastWidth, kLeastHeight);
  PlacePanes();
}

void FrmEdit::LayOutMenus() {
  FillMenu(mnu_file, "&File",
           {{mnu_new, "&New"},
            {mnu_open, "&Open"},
            {mnu_save, "&Save"},
            {mnu_saveas, "Save &as"},
            {mnu_line, kMenuLine},
            {mnu_exit, "&Exit"}});
  FillMenu(mnu_view, "&View", {{mnu_refresh, "&Refresh list"}});
  FillMenu(
      mnu_add, "&Add",
      {{mnu_addimage, "&Image"}, {mnu_addsound, "&Sound file"}, {mnu_addmod, "&Module"}, {mnu_addOther, "&Other"}});
  FillMenu(mnu_addnew, "&New", {{mnu_newText, "&Text file"}, {mnu_newMod, "&Module"}});
  mnu_addnew.SetParent(mnu_add);
  FillMenu(mnu_delete, "De&lete", {{mnu_deletefile, "File"}});
  FillMenu(mnu_debug, "&Debug", {{mnu_load, "&Load style"}, {mnu_checkstyle, "&Check style"}});
  FillMenu(mnu_help, "&Help", {{mnu_index, "&Index"}, {mnu_showtips, "&Show some tips"}});
  mnu_new.Shortcut = "Ctrl+N";
  mnu_open.Shortcut = "Ctrl+O";
  mnu_save.Shortcut = "Ctrl+S";
  mnu_refresh.Shortcut = "F5";
  mnu_load.Shortcut = "F9";
  mnu_checkstyle.Shortcut = "F8";
  mnu_index.Shortcut = "F1";
}

// The trees stand one over the other at the left, the code beside them. The tips, while they show, stand below the
// code.
void FrmEdit::PlacePanes() {
  const int height = std::max(ScaleHeight(), kLeastHeight);
  const int width = std::max(ScaleWidth(), kLeastWidth);
  const int tree_width = std::min(width * kTreePercent / 100, kMostTreeWidth);
  const int bottom = height - kMargin;
  const int half = (bottom - kMargin - kControlGap) / 2;
  const int second = kMargin + half + kControlGap;
  Label1.Move(kMargin, kMargin, tree_width, kLabelHeight);
  TreeView.Move(kMargin, kMargin + kLabelStep, tree_width, half - kLabelStep);
  Label2.Move(kMargin, second, tree_width, kLabelHeight);
  LstDebug.Move(kMargin, second + kLabelStep, tree_width, bottom - second - kLabelStep);
  const int left = kMargin + tree_width + kControlGap;
  const int code_width = width - kMargin - left;
  const int tips_top = bottom - kTipsHeight;
  LblHelp.Move(left, tips_top - kLabelStep, code_width, kLabelHeight);
  txthelp.Move(left, tips_top, code_width, kTipsHeight);
  Label3.Move(left, kMargin, code_width, kLabelHeight);
  const int code_bottom = txthelp.Visible ? LblHelp.Top.get() : bottom;
  TxtCode.Move(left, kMargin + kLabelStep, code_width, code_bottom - kMargin - kLabelStep);
}

// By number: text, picture, sound, folder, file, form, program; and modules by their key.
void FrmEdit::FillImageList() {
  if (ImageList.ImageCount() > 0) return;
  for (Ref<kestrun::Picture> (*draw)() : {&TextSheetPicture, &PreviewPicture, &SoundPicture, &FolderPicture,
                                          &NewSheetPicture, &FormPicture, &ProgramIcon}) {
    ImageList.AddImage("", DrawnOnce(draw));
  }
  ImageList.AddImage("mod", DrawnOnce(&ModulePicture));
  for (kestrun::TreeView* tree : {&TreeView, &LstDebug}) tree->SetImages(Ref<kestrun::ImageList>(&ImageList));
}

void FrmEdit::ChooseCodeFont() { GiveFixedPitch(TxtCode, kCodeSize); }

}  // namespace kestrun
