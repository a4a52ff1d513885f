Option Explicit
WScript.Echo "sum", 1 + 2, WScript.Arguments.Count, WScript.Arguments(0)
Dim word
For Each word In WScript.Arguments
  WScript.Echo "word " & word
Next
WScript.Echo Shared()
WScript.Quit 0
