'---- An error ends the script at its line
WScript.Echo "before" '=> before
Dim x
x = 1 / 0 '!! 11@1
WScript.Echo "never"
'---- The column is that of the statement
Dim x : x = 5 : x = x / 0 '!! 11@17
'---- The column of a statement in a line If
If True Then Err.Raise 77 '!! 77@14
'---- On Error Resume Next goes on with the next statement
On Error Resume Next
Dim x
x = 1 / 0
WScript.Echo Err.Number, Err.Description, Err.Source '=> 11 Division by zero Microsoft VBScript runtime error
x = 5
WScript.Echo Err.Number, x '=> 11 5
Err.Clear
WScript.Echo Err.Number, Err.Description, Err.Source '=> 0  
'---- On Error GoTo 0 ends it and forgets the error
On Error Resume Next
x = 1 / 0
On Error GoTo 0
WScript.Echo Err.Number '=> 0
x = 1 / 0 '!! 11
'---- A failing assignment leaves the variable as it was
On Error Resume Next
Dim x
x = "old"
x = CInt("no number")
WScript.Echo x, Err.Number '=> old 13
'---- A condition that fails goes on inside its branch
On Error Resume Next
If 1 / 0 Then
  WScript.Echo "in" '=> in
Else
  WScript.Echo "else"
End If
WScript.Echo "after" '=> after
'---- A While whose condition fails runs its body
On Error Resume Next
Dim n
Do While 1 / 0
  n = n + 1
  If n = 2 Then Exit Do
Loop
WScript.Echo n '=> 2
'---- A For whose head fails runs its body once
On Error Resume Next
Dim i
i = "start"
For i = 1 / 0 To 5
  WScript.Echo i, Err.Number '=> start 11
Next
WScript.Echo i, Err.Number '=> start 92
'---- A For Each whose collection fails runs its body once
On Error Resume Next
Dim e
For Each e In 5
  WScript.Echo "in" '=> in
Next
WScript.Echo Err.Number '=> 451
'---- A Select whose subject fails is left
On Error Resume Next
Select Case 1 / 0
  Case 1 : WScript.Echo "no"
  Case Else : WScript.Echo "no"
End Select
WScript.Echo "after" '=> after
'---- An error in a procedure goes to the caller that passes over errors
Sub Fails
  Dim x
  WScript.Echo "enter"
  x = 1 / 0
  WScript.Echo "never"
End Sub
On Error Resume Next
Fails '=> enter
WScript.Echo Err.Number '=> 11
'---- Through several callers
Sub A : B : WScript.Echo "never a" : End Sub
Sub B : C : WScript.Echo "never b" : End Sub
Sub C : Dim x : x = 1 / 0 : End Sub
On Error Resume Next
A
WScript.Echo Err.Number '=> 11
'---- The place is that of the first error
Sub A : B : End Sub
Sub B
  Dim x
  x = 1 / 0 '!! 11@3
End Sub
A
'---- A procedure's handler is its own
Sub Careful
  On Error Resume Next
  Dim x
  x = 1 / 0
  WScript.Echo "careful", Err.Number
End Sub
Careful '=> careful 11
Dim y
y = 1 / 0 '!! 11
'---- The handler of a caller does not reach into the callee
Sub S
  Dim x
  x = 1 / 0
  WScript.Echo "never"
End Sub
On Error Resume Next
S
S
WScript.Echo "end" '=> end
'---- A function that fails gives nothing
Function F
  F = 5
  F = 1 / 0
  F = 6
End Function
On Error Resume Next
Dim x
x = "old"
x = F()
WScript.Echo x '=> old
'---- A function that passes over its error gives what it has
Function F
  On Error Resume Next
  F = 5
  F = 1 / 0
End Function
WScript.Echo F() '=> 5
'---- Err.Raise
On Error Resume Next
Err.Raise 1234, "my source", "my description", "help.chm", 17
WScript.Echo Err.Number, Err.Source, Err.Description, Err.HelpFile, Err.HelpContext '=> 1234 my source my description help.chm 17
Err.Raise 9
WScript.Echo Err.Number, Err.Description, Err.Source '=> 9 my description my source
Err.Clear
Err.Raise 9
WScript.Echo Err.Number, Err.Description, Err.Source '=> 9 Subscript out of range Microsoft VBScript runtime error
Err.Clear
Err.Raise 1000
WScript.Echo Err.Description '=> Unknown runtime error
Err.Raise vbObjectError + 5, "s", "d"
WScript.Echo Err.Number '=> -2147221499
Err.Raise 0
WScript.Echo Err.Number '=> 5
'---- Err.Raise with arguments left out
On Error Resume Next
Err.Raise 13, , "only text"
WScript.Echo Err.Number, Err.Source, Err.Description '=> 13 Microsoft VBScript runtime error only text
'---- A raised error ends the script
Err.Raise 513, "src", "mine" '!! 513
'---- Err as a value
On Error Resume Next
Dim x
x = 1 / 0
If Err Then WScript.Echo "set" '=> set
If Err <> 0 Then WScript.Echo Err '=> 11
WScript.Echo TypeName(Err) '=> Object
'---- Err.Number can be written
Err.Number = 9
WScript.Echo Err.Number, Err.Description '=> 9 Subscript out of range
Err.Description = "mine"
Err.Source = "me"
WScript.Echo Err.Description, Err.Source '=> mine me
'---- On Error Resume Next forgets the last error
On Error Resume Next
Dim x
x = 1 / 0
On Error Resume Next
WScript.Echo Err.Number '=> 0
'---- Err stays until it is cleared
On Error Resume Next
Dim x
x = 1 / 0
x = 1 + 1
Sub S : End Sub
S
WScript.Echo Err.Number '=> 11
'---- The last of two errors stands
On Error Resume Next
Dim x
x = 1 / 0
x = CInt("a")
WScript.Echo Err.Number '=> 13
'---- Numbers of the common errors
On Error Resume Next
Dim a(1), o, x, v
Sub Check(n) : WScript.Echo Err.Number = n : Err.Clear : End Sub
Set o = Nothing
x = a(5) : Check 9 '=> True
x = o : Check 91 '=> True
o.M : Check 91 '=> True
v.M : Check 424 '=> True
Set o = 5 : Check 424 '=> True
x = NoFunction(1) : Check 13 '=> True
NoSub : Check 13 '=> True
x = "a" + 1 : Check 13 '=> True
x = 1 Mod 0 : Check 11 '=> True
x = 1 \ 0 : Check 11 '=> True
Set o = New Nope : Check 506 '=> True
vbCrLf = 1 : Check 501 '=> True
Len = 1 : Check 501 '=> True
Check 1, 2 : WScript.Echo Err.Number '=> 450
Err.Clear
x = Len() : Check 450 '=> True
x = Len(1, 2) : Check 450 '=> True
ReDim a(3) : Check 10 '=> True
x = a : x = x(9) : Check 9 '=> True
'---- A constant cannot be assigned
Const K = 1
K = 2 '!! 501
'---- A procedure cannot be assigned
Sub S : End Sub
S = 1 '!! 501
'---- A host's object cannot be assigned
WScript = 1 '!! 501
'---- A builtin cannot be assigned
Left = 1 '!! 501
'---- Option Explicit: reading
Option Explicit
WScript.Echo x '!! 500
'---- Option Explicit: writing
Option Explicit
x = 1 '!! 500
'---- Option Explicit: in a procedure
Option Explicit
Sub S
  x = 1 '!! 500
End Sub
S
'---- Option Explicit: passing
Option Explicit
Sub S(v) : End Sub
S x '!! 500
'---- Option Explicit: a loop's variable
Option Explicit
For i = 1 To 3 '!! 500
Next
'---- Option Explicit: calling
Option Explicit
Foo 1 '!! 500
'---- Option Explicit: parameters, locals, constants and globals are known
Option Explicit
Dim g : g = 1
Const K = 2
Function F(p) : Dim l : l = 3 : F = p + l + g + K : End Function
WScript.Echo F(4) '=> 10
'---- Option Explicit is found out when the line runs
Option Explicit
If False Then x = 1
WScript.Echo "fine" '=> fine
'---- Nested errors keep the outer handler
Sub Inner
  On Error Resume Next
  Dim x
  x = 1 / 0
End Sub
On Error Resume Next
Inner
x = CInt("z")
WScript.Echo Err.Number '=> 13
'---- On Error in a loop
On Error Resume Next
Dim i, n
For i = -1 To 1
  n = 1 / i
  If Err.Number Then WScript.Echo "at " & i : Err.Clear
Next
'=> at 0
'---- An error in a method
Class C
  Public Sub M
    Err.Raise 555, "C.M", "from M"
  End Sub
End Class
On Error Resume Next
Dim o
Set o = New C
o.M
WScript.Echo Err.Number, Err.Source, Err.Description '=> 555 C.M from M
'---- An error in a default property inside an expression
Class C
  Public Default Property Get V
    Err.Raise 600, "s", "t"
  End Property
End Class
On Error Resume Next
Dim o, x
Set o = New C
x = o + 1
WScript.Echo Err.Number, Err.Description '=> 600 t
'---- The place of an error inside a default property
Class C
  Public Default Property Get V
    V = 1 / 0 '!! 11
  End Property
End Class
Dim o
Set o = New C
WScript.Echo o + 1
