'---- By reference unless it is told otherwise
Sub Change(x) : x = x & "!" : End Sub
Sub ChangeRef(ByRef x) : x = x & "!" : End Sub
Sub ChangeVal(ByVal x) : x = x & "!" : End Sub
Dim v
v = "a" : Change v : WScript.Echo v '=> a!
v = "a" : ChangeRef v : WScript.Echo v '=> a!
v = "a" : ChangeVal v : WScript.Echo v '=> a
v = "a" : Change(v) : WScript.Echo v '=> a
v = "a" : Change (v) : WScript.Echo v '=> a
v = "a" : Call Change(v) : WScript.Echo v '=> a!
v = "a" : Call Change((v)) : WScript.Echo v '=> a
v = "a" : Change v & "" : WScript.Echo v '=> a
'---- Array elements go by reference
Sub Change(x) : x = x + 1 : End Sub
Dim a(2), i
a(1) = 5 : Change a(1) : WScript.Echo a(1) '=> 6
Change (a(1)) : WScript.Echo a(1) '=> 6
i = 1 : Call Change(a(i)) : WScript.Echo a(1) '=> 7
Dim m(2, 2)
m(1, 2) = 1 : Change m(1, 2) : WScript.Echo m(1, 2) '=> 2
Dim j
j = Array(Array(1, 2), 3)
Change j(0)(1) : WScript.Echo j(0)(1) '=> 3
'---- Members go by value
Class C : Public F : End Class
Sub Change(x) : x = 99 : End Sub
Dim o
Set o = New C
o.F = 1
Change o.F
WScript.Echo o.F '=> 1
'---- Functions give the value of their name
Function One : One = 1 : End Function
Function Two() : Two = 2 : End Function
Function Nothing_() : End Function
WScript.Echo One '=> 1
WScript.Echo Two() + One() '=> 3
WScript.Echo TypeName(Nothing_()) '=> Empty
'---- The name of a function is a variable inside it
Function Sum(n)
  Dim i
  Sum = 0
  For i = 1 To n
    Sum = Sum + i
  Next
End Function
WScript.Echo Sum(10) '=> 55
'---- Recursion
Function Fact(n)
  If n <= 1 Then Fact = 1 Else Fact = n * Fact(n - 1)
End Function
WScript.Echo Fact(10) '=> 3628800
Function Ack(m, n)
  If m = 0 Then
    Ack = n + 1
  ElseIf n = 0 Then
    Ack = Ack(m - 1, 1)
  Else
    Ack = Ack(m - 1, Ack(m, n - 1))
  End If
End Function
WScript.Echo Ack(2, 3) '=> 9
'---- Two procedures that call each other
Function IsEven(n) : If n = 0 Then IsEven = True Else IsEven = IsOdd(n - 1)
End Function
Function IsOdd(n) : If n = 0 Then IsOdd = False Else IsOdd = IsEven(n - 1)
End Function
WScript.Echo IsEven(10), IsOdd(7), IsEven(7) '=> True True False
'---- A result is dropped when a function is called as a statement
Function F(x) : WScript.Echo "called " & x : F = x : End Function
F 1 '=> called 1
F(2) '=> called 2
Call F(3) '=> called 3
Call F (4) '=> called 4
'---- Exit Sub and Exit Function
Sub S(n)
  If n = 1 Then Exit Sub
  WScript.Echo "past"
End Sub
S 1
S 2 '=> past
Function F(n)
  F = "early"
  If n = 1 Then Exit Function
  F = "late"
End Function
WScript.Echo F(1), F(2) '=> early late
'---- Procedures are known before their line is reached
WScript.Echo Later() '=> later
Function Later() : Later = "later" : End Function
'---- The last of two procedures with one name holds
Sub Twice : WScript.Echo "first" : End Sub
Sub Twice : WScript.Echo "second" : End Sub
Twice '=> second
'---- Locals hide globals
Dim x
x = "global"
Sub S
  Dim x
  x = "local"
  WScript.Echo x
End Sub
S '=> local
WScript.Echo x '=> global
'---- Names that are not declared in a procedure are its own
Sub S
  fresh = 5
  WScript.Echo fresh
End Sub
S '=> 5
WScript.Echo TypeName(fresh) '=> Empty
'---- Procedures see the global code's variables, declared or not
g = 1
Sub S : g = g + 1 : End Sub
S : S
WScript.Echo g '=> 3
Dim d
Sub T : d = "set" : End Sub
T
WScript.Echo d '=> set
'---- A variable that is passed before it has a value
Sub Fill(x) : x = "filled" : End Sub
Sub S
  Fill y
  WScript.Echo y
End Sub
S '=> filled
Fill z
WScript.Echo z '=> filled
'---- One variable passed twice
Sub Both(a, b) : a = 1 : WScript.Echo b : End Sub
Dim v
v = 0
Both v, v '=> 1
'---- A reference passed on
Sub Inner(x) : x = x * 2 : End Sub
Sub Outer(y) : Inner y : Inner y : End Sub
Dim v
v = 3 : Outer v : WScript.Echo v '=> 12
'---- Objects by value and by reference
Class C : Public F : End Class
Sub ByV(ByVal o) : o.F = 1 : Set o = Nothing : End Sub
Sub ByR(ByRef o) : o.F = 2 : Set o = Nothing : End Sub
Dim o
Set o = New C
ByV o : WScript.Echo o.F, (o Is Nothing) '=> 1 False
ByR o : WScript.Echo (o Is Nothing) '=> True
'---- Arrays are passed as they are
Sub Change(a) : a(0) = "changed" : End Sub
Sub ChangeCopy(ByVal a) : a(0) = "copy" : End Sub
Dim a
a = Array(1, 2)
Change a : WScript.Echo a(0) '=> changed
ChangeCopy a : WScript.Echo a(0) '=> changed
Dim f(1)
Change f : WScript.Echo f(0) '=> changed
'---- Arguments that are left out
Sub S(a, b, c) : WScript.Echo TypeName(a), TypeName(b), TypeName(c) : End Sub
S 1, , 3 '=> Integer Error Integer
'---- Too few arguments
Sub S(a) : End Sub
S '!! 450
'---- Too many arguments
Sub S(a) : End Sub
S 1, 2 '!! 450
'---- A procedure that does not exist
NoSuch 1 '!! 13
'---- A function that does not exist
Dim x
x = NoSuch(1) '!! 13
'---- GetRef
Function Add(a, b) : Add = a + b : End Function
Sub Say(t) : WScript.Echo t : End Sub
Dim f, s
Set f = GetRef("Add")
WScript.Echo f(2, 3) '=> 5
Set s = GetRef("say")
s "through a reference" '=> through a reference
WScript.Echo TypeName(f) '=> Object
Function Apply(g, x) : Apply = g(x, x) : End Function
WScript.Echo Apply(GetRef("Add"), 21) '=> 42
'---- GetRef of an unknown name
Dim f
Set f = GetRef("nope") '!! 5
'---- The left operand is read before the right one runs
Dim x
x = 1
Function Bump() : x = x + 10 : Bump = x : End Function
WScript.Echo x + Bump() '=> 12
'---- Arguments are evaluated from left to right
Dim order
Function Note(t) : order = order & t : Note = t : End Function
Sub S(a, b, c) : End Sub
S Note("a"), Note("b"), Note("c")
WScript.Echo order '=> abc
'---- Deep recursion
Function Depth(n) : If n = 0 Then Depth = 0 Else Depth = 1 + Depth(n - 1)
End Function
WScript.Echo Depth(5000) '=> 5000
'---- Endless recursion
Sub Forever
  Forever '!! 28
End Sub
Forever
'---- Endless recursion can be passed over
Sub Forever : Forever : End Sub
On Error Resume Next
Forever
WScript.Echo Err.Number, Err.Description '=> 28 Out of stack space
'---- Public and Private before procedures
Public Sub A : WScript.Echo "a" : End Sub
Private Function B : B = "b" : End Function
A '=> a
WScript.Echo B '=> b
'---- Array parameters may have parentheses
Function Last(a()) : Last = a(UBound(a)) : End Function
WScript.Echo Last(Array(1, 2, 3)) '=> 3
'---- A function can give an object
Class C : Public F : End Class
Function Make(v) : Set Make = New C : Make.F = v : End Function
WScript.Echo Make(7).F '=> 7
'---- A function can give an array
Function Three() : Three = Array(1, 2, 3) : End Function
WScript.Echo Three()(1) '=> 2
