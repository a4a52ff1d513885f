'---- Me outside of a class is the space of global names
Dim count
count = 3
Function Twice(n) : Twice = 2 * n : End Function
WScript.Echo Me.count, Me.Twice(4), TypeName(Me) '=> 3 8 Object
Me.count = 5
WScript.Echo count, Me Is Me '=> 5 True
Sub Show : WScript.Echo Me.count : End Sub
Show '=> 5
'---- Me has no member of an unknown name
x = Me.unknown '!! 438
'---- End Sub and its like need no separator
Sub S
  WScript.Echo "sub" End Sub
Function F(n)
  F = n + 1 End Function
Class C
  Private v
  Property Get P
    P = v End Property
  Property Let P(n) v = n End Property End Class
S '=> sub
WScript.Echo F(1) '=> 2
Set o = New C
o.P = 7
WScript.Echo o.P '=> 7
'---- A whole Sub on one line
Sub S() WScript.Echo "one line" End Sub
S '=> one line
'---- An If on one line in front of End Sub
Sub S(n)
  If n Then WScript.Echo "yes" End Sub
S True '=> yes
'---- Procedures under an If are always defined
If False Then
  Sub S
    WScript.Echo "defined"
  End Sub
Else
  If True Then
    Function F : F = "inner" : End Function
  End If
End If
S '=> defined
WScript.Echo F '=> inner
'---- Else and ElseIf with statements on their line
If False Then
  x = 1
Else x = 3 End If
WScript.Echo x '=> 3
If False Then
  x = 1
ElseIf True Then x = 4 End If
WScript.Echo x '=> 4
If False Then
ElseIf False Then x = 5
  y = 6
Else x = 7
  y = 8
End If
WScript.Echo x, y '=> 7 8
'---- Else with a colon behind it
If False Then
Else
: x = 9
End If
WScript.Echo x '=> 9
'---- An If with nothing behind Then but a colon is whole
If False Then :
WScript.Echo "behind" '=> behind
If True Then x = 1 Else x = 2 End If
WScript.Echo x '=> 1
'---- Case without a separator
Select Case 2
  Case 1 WScript.Echo "one"
  Case 2 WScript.Echo "two" '=> two
End Select
'---- Call of what stands in parentheses
Class C
  Public Sub M(n) : WScript.Echo "M", n : End Sub
  Public Sub N : WScript.Echo "N" : End Sub
End Class
Call (New C).M(1) '=> M 1
Call (New C).N '=> N
Sub Change(list) : list(0) = 2 : End Sub
a = Array(1)
Call (((Change)))(a)
WScript.Echo a(0) '=> 2
Call (((Change)))((a))
Function First(list) : First = list(0) : End Function
x = (First)(a)
y = ((a))(0)
WScript.Echo x, y '=> 2 2
'---- Numbers and words that touch
WScript.Echo &h01or&h02, 1or 2, "a"&1, &17 '=> 3 3 a1 15
'---- A member outside of With is run-time error 505
x = .name '!! 505
'---- Even when it is called
On Error Resume Next
.Method 1
WScript.Echo Err.Number '=> 505
.prop = 2
WScript.Echo Err.Description '=> Invalid or unqualified reference
'---- A Sub and a Property Let of one name
Class C
  Public Sub Value(n) : WScript.Echo "called", n : End Sub
  Public Property Let Value(n) : WScript.Echo "assigned", n : End Property
End Class
Set o = New C
o.Value 1 '=> called 1
o.Value = 2 '=> assigned 2
'---- A Sub and a Property Get of one name
Class C
  Public Sub Value(n) : End Sub
  Public Property Get Value : End Property '!! 1041@23
End Class
'---- A sign binds tighter than a power
x = 3
WScript.Echo -3 ^ 2, -x ^ 2, 2 ^ -1, +x ^ 2, -x * 2 '=> 9 9 0.5 9 -6
'---- Types of literals
WScript.Echo TypeName(&H10&), TypeName(&HFFFF&), TypeName(&HFFFFFFFF&), TypeName(&H7FFF) '=> Integer Long Integer Integer
WScript.Echo TypeName(&H8000), &H8000, TypeName(&HFFFF), &HFFFF, TypeName(&H10000) '=> Long -32768 Integer -1 Long
WScript.Echo 1e-94938484 '=> 0
'---- A number beyond every number
x = 1e309 '!! 1031@5
'---- Unary plus leaves objects alone
Set o = CreateObject("Scripting.Dictionary")
WScript.Echo +o Is o, +"1" + 1, TypeName(+True) '=> True 2 Boolean
'---- The language's own RegExp counts before a script's
Class RegExp
  Public Global
End Class
Set r = New RegExp
WScript.Echo r.Global '=> False
'---- Conversions are no statements
On Error Resume Next
CInt 5
WScript.Echo Err.Number, Err.Description '=> 458 Variable uses an Automation type not supported in VBScript
Err.Clear
CInt "x"
WScript.Echo Err.Number '=> 13
Err.Clear
x = Randomize(1)
WScript.Echo Err.Number '=> 13
