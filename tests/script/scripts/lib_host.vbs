'---- The engine names itself
WScript.Echo ScriptEngine, ScriptEngineMajorVersion, ScriptEngineMinorVersion, ScriptEngineBuildVersion > 0 '=> VBScript 5 8 True
'---- The locale
WScript.Echo GetLocale(), SetLocale("de-de"), GetLocale(), FormatNumber(1.5), SetLocale(0), GetLocale() '=> 1033 1033 1031 1,50 1031 1033
'---- The machine is closed
x = CreateObject("Scripting.FileSystemObject") '!! 429
'---- So are running objects
Set x = GetObject("winmgmts:") '!! 429
'---- Pictures are files
Set x = LoadPicture("a.bmp") '!! 481
'---- Boxes need the host's leave
MsgBox "Hello" '!! 70
'---- So do questions
x = InputBox("Name?") '!! 70
'---- Types
Dim v, a(1)
WScript.Echo TypeName(v), TypeName(Null), TypeName(1), TypeName(100000), TypeName(1.5), TypeName("a"), TypeName(True) '=> Empty Null Integer Long Double String Boolean
WScript.Echo TypeName(Nothing), TypeName(a), TypeName(#1/1/2020#), TypeName(New RegExp) '=> Nothing Variant() Date IRegExp2
WScript.Echo VarType(v), VarType(Null), VarType(1), VarType("a"), VarType(Nothing), VarType(a) = vbArray + vbVariant '=> 0 1 2 8 9 True
WScript.Echo IsEmpty(v), IsNull(Null), IsArray(a), IsObject(Nothing), IsObject(v) '=> True True True True False
'---- Constants
WScript.Echo vbRed, vbOKCancel, vbYes, vbSunday, vbObjectError, vbString, vbTrue, vbUseDefault '=> 255 1 6 1 -2147221504 8 -1 -2
'---- Error words
On Error Resume Next
x = 1 / 0
WScript.Echo Err.Number, Err.Description '=> 11 Division by zero
Err.Clear
x = CInt("a")
WScript.Echo Err.Number, Err.Description '=> 13 Type mismatch
Err.Clear
x = CInt(99999)
WScript.Echo Err.Number, Err.Description '=> 6 Overflow
Err.Clear
x = CStr(Null)
WScript.Echo Err.Number, Err.Description '=> 94 Invalid use of Null
Err.Clear
x = CStr(Nothing)
WScript.Echo Err.Number, Err.Description '=> 91 Object variable not set
Err.Clear
x = Mid("a", 0)
WScript.Echo Err.Number, Err.Description '=> 5 Invalid procedure call or argument
Err.Clear
x = UBound(Array(1), 2)
WScript.Echo Err.Number, Err.Description '=> 9 Subscript out of range
Err.Clear
Set x = CreateObject("Nonsense")
WScript.Echo Err.Number, Err.Description '=> 429 ActiveX component can't create object
