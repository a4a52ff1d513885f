'---- Nothing and what is no object
On Error Resume Next
Dim gone, number
Set gone = Nothing
number = 5
gone.Member
WScript.Echo "member of Nothing", Err.Number : Err.Clear '=> member of Nothing 91
x = gone
WScript.Echo "value of Nothing", Err.Number : Err.Clear '=> value of Nothing 91
x = "" & gone
WScript.Echo "text of Nothing", Err.Number : Err.Clear '=> text of Nothing 91
x = Not gone
WScript.Echo "Not Nothing", Err.Number : Err.Clear '=> Not Nothing 91
number.Member
WScript.Echo "member of a number", Err.Number : Err.Clear '=> member of a number 424
x = number Is Nothing
WScript.Echo "Is", Err.Number : Err.Clear '=> Is 424
Set x = 5
WScript.Echo "Set", Err.Number : Err.Clear '=> Set 424
'---- With what is no object fails where it begins
On Error Resume Next
With 5
  WScript.Echo "inside", Err.Number : Err.Clear '=> inside 424
  .Member = 1
  WScript.Echo "member", Err.Number : Err.Clear '=> member 424
End With
With Nothing
  WScript.Echo "nothing", Err.Number '=> nothing 0
  .Member = 1
  WScript.Echo "member", Err.Number '=> member 91
End With
'---- Fields are no methods
Class C
  Public field, list(2)
End Class
On Error Resume Next
Set o = New C
o.field
WScript.Echo Err.Number : Err.Clear '=> 438
o.field 1
WScript.Echo Err.Number : Err.Clear '=> 438
x = o.field(1)
WScript.Echo Err.Number : Err.Clear '=> 438
o.field(1) = 2
WScript.Echo Err.Number : Err.Clear '=> 5
o.list(1) = 7
WScript.Echo Err.Number, o.list(1) '=> 0 7
x = o.list(5)
WScript.Echo Err.Number : Err.Clear '=> 9
Set o.field = 5
WScript.Echo Err.Number : Err.Clear '=> 424
'---- Execute and its like want a text
On Error Resume Next
Execute 5
WScript.Echo "Execute", Err.Number : Err.Clear '=> Execute 13
ExecuteGlobal Null
WScript.Echo "ExecuteGlobal", Err.Number : Err.Clear '=> ExecuteGlobal 13
Set f = GetRef(5)
WScript.Echo "GetRef", Err.Number : Err.Clear '=> GetRef 13
Set f = GetRef("Unknown")
WScript.Echo "GetRef", Err.Number : Err.Clear '=> GetRef 5
WScript.Echo Eval(5), IsNull(Eval(Null)), IsEmpty(Eval(Empty)) '=> 5 True True
'---- Texts that are no program
On Error Resume Next
Execute "x = "
WScript.Echo Err.Number, Err.Source, Err.Description : Err.Clear '=> 1023 Microsoft VBScript compilation error Expected expression
x = Eval("1 +")
WScript.Echo Err.Number : Err.Clear '=> 1023
ExecuteGlobal "Sub S" & vbLf & "x = 1"
WScript.Echo Err.Number : Err.Clear '=> 1014
'---- What is defined a second time
Class C
End Class
Const answer = 42
Dim variable
Sub S : WScript.Echo "first" : End Sub
On Error Resume Next
ExecuteGlobal "Class C" & vbLf & "End Class"
WScript.Echo Err.Number, Err.Description : Err.Clear '=> 1041 Name redefined
ExecuteGlobal "Const answer = 1"
WScript.Echo Err.Number, answer : Err.Clear '=> 1041 42
ExecuteGlobal "Const variable = 1"
WScript.Echo Err.Number : Err.Clear '=> 1041
ExecuteGlobal "Dim answer"
WScript.Echo Err.Number : Err.Clear '=> 1041
ExecuteGlobal "Dim variable : Sub S : WScript.Echo ""second"" : End Sub"
WScript.Echo Err.Number '=> 0
S '=> second
'---- An unknown class
Set o = New Unknown '!! 506
'---- An unknown class where names must be declared
Option Explicit
Dim o
Set o = New Unknown '!! 500
'---- Err.Raise with results of the system
On Error Resume Next
Sub Show(number)
  On Error Resume Next
  Err.Raise number
  WScript.Echo Err.Number, Err.Description
End Sub
Show &H80004001 '=> 445 Object doesn't support this action
Show &H80020003 '=> 438 Object doesn't support this property or method
Show &H8002000E '=> 450 Wrong number of arguments or invalid property assignment
Show &H80030003 '=> 76 Path not found
Show &H80040154 '=> 429 ActiveX component can't create object
Show &H80070005 '=> 70 Permission denied
Show &H8007000E '=> 7 Out of memory
Show &H800706BA '=> 462 The remote server machine does not exist or is unavailable
Show &H800A000D '=> 13 Type mismatch
Show &H80123456 '=> -2146290602 Unknown runtime error
'---- Numbers that Err.Raise refuses
On Error Resume Next
Err.Raise 0
WScript.Echo Err.Number '=> 5
Err.Raise 65536
WScript.Echo Err.Number '=> 5
Err.Raise 65535
WScript.Echo Err.Number '=> 65535
Err.Raise -3000000000
WScript.Echo Err.Number '=> 6
Err.Raise
WScript.Echo Err.Number '=> 450
'---- What Err.Raise does not give stays
On Error Resume Next
Err.Raise 1, "source", "words", "help.chm", 7
Err.Raise 5
WScript.Echo Err.Number, Err.Source, Err.Description, Err.HelpFile, Err.HelpContext '=> 5 source words help.chm 7
Err.Clear
Err.Raise 5
WScript.Echo Err.Source, Err.Description, Err.HelpContext '=> Microsoft VBScript runtime error Invalid procedure call or argument 0
On Error GoTo 0
WScript.Echo Err.Number '=> 0
'---- The size of a fixed array is refused before its bounds are read
On Error Resume Next
Dim fixed(4)
ReDim fixed("abc")
WScript.Echo Err.Number '=> 10
