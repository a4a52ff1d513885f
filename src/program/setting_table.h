// The key table of packit.ini: section, key and default of every setting, each in one row. What reads or writes a
// setting names its row.
#pragma once

#include <array>
#include <string_view>

namespace kestrun {

// What the default of a setting begins with; the row's text stands behind kProgramFolder.
enum class DefaultBase { kText, kProgramFolder, kGameFolder, kMapFolder, kRegistry };
// Which name of a row goes on with a number, or with the name of a map.
enum class OpenName { kNone, kSection, kKey };

struct Setting {
  std::string_view section;
  std::string_view key;
  std::string_view text;
  DefaultBase base = DefaultBase::kText;
  OpenName open = OpenName::kNone;
};

namespace setting {

inline constexpr std::string_view kLauncher = "launcher";

// One row a line.
// clang-format off

// Start-up.
inline constexpr Setting kStyle{kLauncher, "STYLE", "\\default.stl", DefaultBase::kProgramFolder};  // path of the default style file
inline constexpr Setting kCheckGamePath{kLauncher, "CHECKLWPATH", "True"};  // whether start-up looks for the game folder
inline constexpr Setting kFirstRun{kLauncher, "FIRSTRUN", "True"};  // whether start-up asks the association question
inline constexpr Setting kApp{kLauncher, "APP", ""};  // file name of the running program; written only

// The game and its folders.
inline constexpr Setting kGameFolder{"FOLDERS", "DFLW", "", DefaultBase::kRegistry};  // game folder
inline constexpr Setting kMapFolder{kLauncher, "PATH", "", DefaultBase::kGameFolder};  // default map folder
inline constexpr Setting kArchiveName{kLauncher, "PFFBASE", "dflw.pff"};  // file name of the game's archive; no window edits it
inline constexpr Setting kGameProgram{kLauncher, "DFLWDEM.EXE", "DFLWDEM.EXE"};  // file name of the game program
inline constexpr Setting kEditorProgram{kLauncher, "DFLWEDIT.EXE", "DFLWMEDFC2.EXE"};  // file name of the map editor
inline constexpr Setting kEditorCopy{kLauncher, "EDITEXE", ""};  // copy of the editor's name; written only
inline constexpr Setting kGameParameters{kLauncher, "DFLWPAR", ""};  // parameters for the game

inline constexpr Setting kOriginalsLimit{"ORIGINALS", "LIMITMB", "512"};  // megabytes that kept contents may take; first versions are kept all the same

// Outside programs.
inline constexpr Setting kRunAfterPack{kLauncher, "SHELLPACK", "False"};  // run a program after packing a map
inline constexpr Setting kRunAfterPlaying{kLauncher, "SHELLIMPLAYING", "False"};  // run a program after "I'm already playing"
inline constexpr Setting kPackProgram{kLauncher, "PACKIT.EXE", "pack.exe"};  // the program of SHELLPACK
inline constexpr Setting kPlayingProgram{kLauncher, "PACK.EXE", "pack.exe"};  // the program of SHELLIMPLAYING
inline constexpr Setting kPackProgramCopy{kLauncher, "PACKEXE", ""};  // copy of PACKIT.EXE; written only
inline constexpr Setting kColorPicker{kLauncher, "color", "\\ColorPicker.EXE", DefaultBase::kProgramFolder};  // path of the colour picker
inline constexpr Setting kConverter{kLauncher, "CONVERTOR", "\\DF3BMStoMIS.exe", DefaultBase::kProgramFolder};  // path of the BMS to MIS converter

// Main window and load-map window.
inline constexpr Setting kWarnOverwrite{kLauncher, "WARNOVERWRITE", "True"};  // show the overwrite question
inline constexpr Setting kOutputText{kLauncher, "txtoutputtext", ""};  // last rename text
inline constexpr Setting kStatusLine{kLauncher, "TXTSTATUS", "True"};  // status line visible
inline constexpr Setting kShowQuickLinks{kLauncher, "SHOWQUICKLINKS", "0"};  // start-up state of the quick-link panel's check box
inline constexpr Setting kChooseDeathmatch{kLauncher, "OPTIONS0", "False"};  // load-map window: deathmatch chosen
inline constexpr Setting kChooseCaptureTheFlag{kLauncher, "OPTIONS1", "True"};  // load-map window: capture the flag chosen
inline constexpr Setting kChooseRename{kLauncher, "OPTIONS3", "False"};  // load-map window: rename chosen

// Auto host.
inline constexpr Setting kAutoHostFolder{kLauncher, "PATHLIST", "", DefaultBase::kMapFolder};  // auto host folder
inline constexpr Setting kAutoHostVersion{kLauncher, "DFVERSION", "-1"};  // auto host game version
inline constexpr Setting kAutoHostResetGames{kLauncher, "RESETGAMES", "0"};  // auto host option
inline constexpr Setting kAutoHostRename{kLauncher, "renameA", ""};  // auto host rename text
inline constexpr Setting kAutoHostSeconds{kLauncher, "TIMESEC", "58"};  // auto host time, seconds
inline constexpr Setting kAutoHostMinutes{kLauncher, "TIMEMIN", "15"};  // auto host time, minutes
inline constexpr Setting kAutoHostGameTimer{kLauncher, "GAMETIMER", "1"};  // auto host: use game timer
inline constexpr Setting kAddInCount{"AUTO HOST ADDINS", "TOT", "0"};  // count of add-ins
inline constexpr Setting kAddInName{"AUTO HOST ADDINS", "NAME", "Unknown", DefaultBase::kText, OpenName::kKey};  // one add-in
inline constexpr Setting kAddInClassId{"AUTO HOST ADDINS", "CLSID", "UNKNOWN", DefaultBase::kText, OpenName::kKey};  // one add-in

// Map updater.
inline constexpr Setting kUpdaterLocalFolder{kLauncher, "PCPATH", "C:\\"};  // local folder
inline constexpr Setting kUpdaterSharedFolder{kLauncher, "REMPATH", "C:\\"};  // shared folder
inline constexpr Setting kUpdaterLocalText{kLauncher, "TXTPC", "", DefaultBase::kProgramFolder};  // text of the local folder
inline constexpr Setting kUpdaterSharedText{kLauncher, "TXTREM", "", DefaultBase::kProgramFolder};  // text of the shared folder
inline constexpr Setting kUpdaterOption1{kLauncher, "UPOP1", "False"};  // option
inline constexpr Setting kUpdaterOption2{kLauncher, "UPOP2", "True"};  // option
inline constexpr Setting kUpdaterCheck1{kLauncher, "UPCH1", "1"};  // option
inline constexpr Setting kUpdaterCheckCrc{kLauncher, "CHECKCRC", "1"};  // option

// Upload window, banner and previews.
inline constexpr Setting kUploadComments{kLauncher, "COMMENTS", "1"};  // option
inline constexpr Setting kUploadAutoRename{kLauncher, "autorename", "1"};  // option
inline constexpr Setting kUploadSavePassword{kLauncher, "save pass", "1"};  // option
inline constexpr Setting kUploadFolder{kLauncher, "UPLOADDIR", "", DefaultBase::kGameFolder};  // upload window folder
inline constexpr Setting kUploadUser{kLauncher, "USERNAME", ""};  // field
inline constexpr Setting kUploadPassword{kLauncher, "PASSWORD", ""};  // field
inline constexpr Setting kImageFolder{"LAUNCHER", "IMAGEPATH", "", DefaultBase::kMapFolder};  // folder of preview pictures
inline constexpr Setting kShowBanner{"BANNERS", "SHOW", "True"};  // show the banner
inline constexpr Setting kPreviewPicture{"IMAGE", "", "", DefaultBase::kText, OpenName::kKey};  // preview picture of the map that is the key
inline constexpr Setting kLastVisit{"MAPS", "LASTVISIT", "0"};  // count of site maps at the last check

// Programs, messenger, help, name editor.
inline constexpr Setting kProgramCount{"PROGRAMS", "TOT", "0"};  // count of user programs
inline constexpr Setting kProgramName{"PROGRAM", "NAME", "ERROR", DefaultBase::kText, OpenName::kSection};  // one user program, from 1
inline constexpr Setting kProgramPath{"PROGRAM", "PATH", "ERROR", DefaultBase::kText, OpenName::kSection};  // one user program, from 1
inline constexpr Setting kChatVersion{"Chat", "VER", "0"};  // game version of the messages
inline constexpr Setting kChatCount{"Chat", "TOTMSG", "0"};  // count of messages
inline constexpr Setting kChatRandom{"Chat", "RAND", "0"};  // messages in random order
inline constexpr Setting kChatSeconds{"Chat", "TIME", "60"};  // seconds between messages
inline constexpr Setting kChatMessage{"Chat", "MSG", "Typ your message here", DefaultBase::kText, OpenName::kKey};  // one message
inline constexpr Setting kChatMessageType{"Chat", "MSGKEY", "84", DefaultBase::kText, OpenName::kKey};  // type of one message
inline constexpr Setting kHelpVersion{"HELP", "VERSION", "0"};  // version of the downloaded help
inline constexpr Setting kHelpPath{"HELP", "PATH", ""};  // path of the downloaded help
inline constexpr Setting kNameEditorFolder{"name editor", "DFLWPATH", "", DefaultBase::kGameFolder};  // name editor's game folder
// clang-format on

// Every row, for what has to look at all of them.
inline constexpr std::array kAll{&kStyle,
                                 &kCheckGamePath,
                                 &kFirstRun,
                                 &kApp,
                                 &kGameFolder,
                                 &kMapFolder,
                                 &kArchiveName,
                                 &kGameProgram,
                                 &kEditorProgram,
                                 &kEditorCopy,
                                 &kGameParameters,
                                 &kOriginalsLimit,
                                 &kRunAfterPack,
                                 &kRunAfterPlaying,
                                 &kPackProgram,
                                 &kPlayingProgram,
                                 &kPackProgramCopy,
                                 &kColorPicker,
                                 &kConverter,
                                 &kWarnOverwrite,
                                 &kOutputText,
                                 &kStatusLine,
                                 &kShowQuickLinks,
                                 &kChooseDeathmatch,
                                 &kChooseCaptureTheFlag,
                                 &kChooseRename,
                                 &kAutoHostFolder,
                                 &kAutoHostVersion,
                                 &kAutoHostResetGames,
                                 &kAutoHostRename,
                                 &kAutoHostSeconds,
                                 &kAutoHostMinutes,
                                 &kAutoHostGameTimer,
                                 &kAddInCount,
                                 &kAddInName,
                                 &kAddInClassId,
                                 &kUpdaterLocalFolder,
                                 &kUpdaterSharedFolder,
                                 &kUpdaterLocalText,
                                 &kUpdaterSharedText,
                                 &kUpdaterOption1,
                                 &kUpdaterOption2,
                                 &kUpdaterCheck1,
                                 &kUpdaterCheckCrc,
                                 &kUploadComments,
                                 &kUploadAutoRename,
                                 &kUploadSavePassword,
                                 &kUploadFolder,
                                 &kUploadUser,
                                 &kUploadPassword,
                                 &kImageFolder,
                                 &kShowBanner,
                                 &kPreviewPicture,
                                 &kLastVisit,
                                 &kProgramCount,
                                 &kProgramName,
                                 &kProgramPath,
                                 &kChatVersion,
                                 &kChatCount,
                                 &kChatRandom,
                                 &kChatSeconds,
                                 &kChatMessage,
                                 &kChatMessageType,
                                 &kHelpVersion,
                                 &kHelpPath,
                                 &kNameEditorFolder};

}  // namespace setting
}  // namespace kestrun
