// Every key of packit.ini, one row each: section, key, default. What a key means stands beside it; a row is what
// ReadSetting and WriteSetting take, so that no section, key or default stands anywhere else.
#pragma once

#include <string_view>

namespace kestrun {

// What the default text of a row starts with.
enum class SettingDefault {
  kText,                  // nothing: the row's own text
  kProgramFolder,         // the folder of the running program, and the row's text behind it
  kGameFolder,            // what GameFolder gives
  kMapFolder,             // what MapFolder gives
  kGamePathFromRegistry,  // the game's App Paths entry
};

struct Setting {
  std::string_view section;
  std::string_view key;
  std::string_view text;
  SettingDefault source = SettingDefault::kText;
};

namespace setting {

// Section launcher.
inline constexpr Setting kStyle{"launcher", "STYLE", "\\default.stl", SettingDefault::kProgramFolder};
inline constexpr Setting kCheckGamePath{"launcher", "CHECKLWPATH", "True"};  // start-up looks for the game folder
inline constexpr Setting kFirstRun{"launcher", "FIRSTRUN", "True"};          // start-up asks the association question
inline constexpr Setting kApp{"launcher", "APP", ""};                        // the program's file name; read by nothing
inline constexpr Setting kMapFolder{"launcher", "PATH", "", SettingDefault::kGameFolder};
inline constexpr Setting kArchiveName{"launcher", "PFFBASE", "dflw.pff"};  // in the game folder; no window edits it
inline constexpr Setting kGameProgram{"launcher", "DFLWDEM.EXE", "DFLWDEM.EXE"};
inline constexpr Setting kEditorProgram{"launcher", "DFLWEDIT.EXE", "DFLWMEDFC2.EXE"};
inline constexpr Setting kEditorCopy{"launcher", "EDITEXE", ""};      // read by nothing
inline constexpr Setting kGameParameters{"launcher", "DFLWPAR", ""};  // edited, and not passed to the game
inline constexpr Setting kRunAfterPack{"launcher", "SHELLPACK", "False"};
inline constexpr Setting kRunAfterPlaying{"launcher", "SHELLIMPLAYING", "False"};
inline constexpr Setting kPackProgram{"launcher", "PACKIT.EXE", "pack.exe"};   // of SHELLPACK
inline constexpr Setting kPlayingProgram{"launcher", "PACK.EXE", "pack.exe"};  // of SHELLIMPLAYING
inline constexpr Setting kPackProgramCopy{"launcher", "PACKEXE", ""};          // read by nothing
inline constexpr Setting kWarnOverwrite{"launcher", "WARNOVERWRITE", "True"};
inline constexpr Setting kColorPicker{"launcher", "color", "\\ColorPicker.EXE", SettingDefault::kProgramFolder};
inline constexpr Setting kConvertor{"launcher", "CONVERTOR", "\\DF3BMStoMIS.exe", SettingDefault::kProgramFolder};
inline constexpr Setting kOutputText{"launcher", "txtoutputtext", ""};  // last rename text
inline constexpr Setting kStatusLine{"launcher", "TXTSTATUS", "True"};
inline constexpr Setting kShowQuickLinks{"launcher", "SHOWQUICKLINKS", "0"};
inline constexpr Setting kLoadAsDeathmatch{"launcher", "OPTIONS0", "False"};
inline constexpr Setting kLoadAsCaptureTheFlag{"launcher", "OPTIONS1", "True"};
inline constexpr Setting kLoadRenamed{"launcher", "OPTIONS3", "False"};
inline constexpr Setting kListFolder{"launcher", "PATHLIST", "", SettingDefault::kMapFolder};
inline constexpr Setting kGameVersion{"launcher", "DFVERSION", "-1"};
inline constexpr Setting kResetGames{"launcher", "RESETGAMES", "0"};
inline constexpr Setting kListRename{"launcher", "renameA", ""};
inline constexpr Setting kListSeconds{"launcher", "TIMESEC", "58"};
inline constexpr Setting kListMinutes{"launcher", "TIMEMIN", "15"};
inline constexpr Setting kGameTimer{"launcher", "GAMETIMER", "1"};
inline constexpr Setting kUpdaterLocalFolder{"launcher", "PCPATH", "C:\\"};
inline constexpr Setting kUpdaterSharedFolder{"launcher", "REMPATH", "C:\\"};
inline constexpr Setting kUpdaterLocalText{"launcher", "TXTPC", "", SettingDefault::kProgramFolder};
inline constexpr Setting kUpdaterSharedText{"launcher", "TXTREM", "", SettingDefault::kProgramFolder};
inline constexpr Setting kUpdaterOption1{"launcher", "UPOP1", "False"};
inline constexpr Setting kUpdaterOption2{"launcher", "UPOP2", "True"};
inline constexpr Setting kUpdaterCheck1{"launcher", "UPCH1", "1"};
inline constexpr Setting kUpdaterCheckCrc{"launcher", "CHECKCRC", "1"};
inline constexpr Setting kUploadComments{"launcher", "COMMENTS", "1"};
inline constexpr Setting kUploadAutoRename{"launcher", "autorename", "1"};
inline constexpr Setting kUploadSavePassword{"launcher", "save pass", "1"};
inline constexpr Setting kUploadFolder{"launcher", "UPLOADDIR", "", SettingDefault::kGameFolder};
inline constexpr Setting kUserName{"launcher", "USERNAME", ""};
inline constexpr Setting kPassword{"launcher", "PASSWORD", ""};
inline constexpr Setting kPictureFolder{"LAUNCHER", "IMAGEPATH", "", SettingDefault::kMapFolder};

// Other sections.
inline constexpr Setting kGameFolder{"FOLDERS", "DFLW", "", SettingDefault::kGamePathFromRegistry};
inline constexpr Setting kShowBanner{"BANNERS", "SHOW", "True"};
inline constexpr Setting kLastVisit{"MAPS", "LASTVISIT", "0"};  // site maps at the last check
inline constexpr Setting kProgramCount{"PROGRAMS", "TOT", "0"};
inline constexpr Setting kAddinCount{"AUTO HOST ADDINS", "TOT", "0"};
inline constexpr Setting kMessengerVersion{"Chat", "VER", "0"};
inline constexpr Setting kMessageCount{"Chat", "TOTMSG", "0"};
inline constexpr Setting kMessagesRandom{"Chat", "RAND", "0"};
inline constexpr Setting kMessageSeconds{"Chat", "TIME", "60"};
inline constexpr Setting kHelpVersion{"HELP", "VERSION", "0"};
inline constexpr Setting kHelpPath{"HELP", "PATH", ""};
inline constexpr Setting kNameEditorFolder{"name editor", "DFLWPATH", "", SettingDefault::kGameFolder};

// Rows of which there are many: the key has a number, or a map's path, behind it; for a user program the section has.
inline constexpr Setting kMapPicture{"IMAGE", "", ""};  // key: the map's path or file name
inline constexpr Setting kUserProgramName{"PROGRAM", "NAME", "ERROR"};
inline constexpr Setting kUserProgramPath{"PROGRAM", "PATH", "ERROR"};
inline constexpr Setting kAddinName{"AUTO HOST ADDINS", "NAME", "Unknown"};
inline constexpr Setting kAddinClass{"AUTO HOST ADDINS", "CLSID", "UNKNOWN"};
inline constexpr Setting kMessageText{"Chat", "MSG", "Typ your message here"};
inline constexpr Setting kMessageKey{"Chat", "MSGKEY", ""};

}  // namespace setting
}  // namespace kestrun
