'---- Execute in the global code
Execute "x = 5"
WScript.Echo x '=> 5
Execute "Dim y : y = 6 : WScript.Echo y" '=> 6
WScript.Echo y '=> 6
Execute "Sub S : WScript.Echo ""from text"" : End Sub"
S '=> from text
Execute "Class C : Public V : End Class"
Set o = New C
o.V = 1
WScript.Echo o.V '=> 1
'---- Execute in a procedure sees its variables
Dim g
g = "global"
Sub S(p)
  Dim l
  l = 1
  Execute "l = l + p"
  WScript.Echo l
  Execute "p = 100"
  Execute "g = ""changed"""
End Sub
Dim v
v = 5
S v '=> 6
WScript.Echo v, g '=> 100 changed
'---- Variables that executed text makes belong to the procedure
Sub S
  Execute "made = 7"
  WScript.Echo made
  Execute "made = made + 1"
  WScript.Echo Eval("made")
End Sub
S '=> 7
'=> 8
WScript.Echo TypeName(made) '=> Empty
'---- ExecuteGlobal in a procedure
Sub S
  Dim x
  x = "local"
  ExecuteGlobal "x = ""global"""
  WScript.Echo x
End Sub
S '=> local
WScript.Echo x '=> global
'---- ExecuteGlobal defines procedures for everybody
Sub Load
  ExecuteGlobal "Function F(n) : F = n * 2 : End Function"
End Sub
Load
WScript.Echo F(21) '=> 42
'---- A procedure that text redefines
Function F : F = "old" : End Function
Function G : G = F() : End Function
WScript.Echo G() '=> old
ExecuteGlobal "Function F : F = ""new"" : End Function"
WScript.Echo F(), G() '=> new new
'---- Text defines what the same procedure then calls
Sub S
  ExecuteGlobal "Function Fresh(n) : Fresh = n + 1 : End Function"
  WScript.Echo Fresh(1)
End Sub
S '=> 2
'---- Eval
Dim x
x = 5
WScript.Echo Eval("x + 1") '=> 6
WScript.Echo Eval("x = 5") '=> True
WScript.Echo x '=> 5
WScript.Echo Eval("""text"" & x") '=> text5
WScript.Echo Eval(12) '=> 12
WScript.Echo Eval("Len(""four"")") '=> 4
Function F(p) : F = Eval("p * 2") : End Function
WScript.Echo F(8) '=> 16
'---- Eval of what is no expression
WScript.Echo Eval("1 +") '!! 1023
'---- Eval of a statement
WScript.Echo Eval("Dim x") '!! 1023
'---- Execute of a broken text can be passed over
On Error Resume Next
Execute "If"
WScript.Echo Err.Number, Err.Description, Err.Source '=> 1023 Expected expression Microsoft VBScript compilation error
Err.Clear
ExecuteGlobal "x = = 1"
WScript.Echo Err.Number '=> 1023
'---- An error inside executed text
On Error Resume Next
Execute "x = 1 / 0"
WScript.Echo Err.Number '=> 11
'---- On Error inside executed text stays there
Execute "On Error Resume Next : x = 1 / 0"
WScript.Echo "on" '=> on
Dim y
y = 1 / 0 '!! 11
'---- Executed text of many lines
Execute "Dim i" & vbCrLf & "For i = 1 To 3" & vbCrLf & "WScript.Echo i" & vbCrLf & "Next"
'=> 1
'=> 2
'=> 3
'---- Execute in a method sees its object
Class C
  Private v
  Public Sub M
    v = 1
    Execute "v = v + 1"
    WScript.Echo v, Eval("v * 10")
  End Sub
End Class
Dim o
Set o = New C
o.M '=> 2 20
'---- Execute needs a text
Execute '!! 450
'---- Executing in a loop
Dim i, sum
For i = 1 To 100
  Execute "sum = sum + " & i
Next
WScript.Echo sum '=> 5050
'---- Me inside executed text
Class C
  Public V
  Public Sub M
    Execute "Me.V = 5"
    WScript.Echo V, Eval("Me.V + 1")
  End Sub
End Class
Dim o
Set o = New C
o.M '=> 5 6
'---- Me outside a method
Dim me_outside
Execute "Set me_outside = Me"
me_outside.me_outside = 5
WScript.Echo me_outside '=> 5
'---- Words of the library keep their meaning as arguments in executed text
Sub S
  Execute "x = Len(vbCrLf) : y = TypeName(Err)"
  WScript.Echo x, y '=> 2 Object
End Sub
S
