'---- Fields
Class C
  Public A, B
  Dim D
  Private P
  Public Sub SetP(v) : P = v : End Sub
  Public Function GetP() : GetP = P : End Function
End Class
Dim o
Set o = New C
WScript.Echo TypeName(o), TypeName(o.A) '=> C Empty
o.A = 1 : o.B = "b" : o.D = 3
WScript.Echo o.A, o.B, o.D '=> 1 b 3
o.SetP "private"
WScript.Echo o.GetP() '=> private
WScript.Echo o.GetP '=> private
'---- A private field from outside
Class C : Private P : End Class
Dim o
Set o = New C
o.P = 1 '!! 438
'---- A private method from outside
Class C : Private Sub M : End Sub : End Class
Dim o
Set o = New C
o.M '!! 438
'---- An unknown member
Class C : End Class
Dim o
Set o = New C
WScript.Echo o.Nope '!! 438
'---- Two objects are apart
Class C : Public V : End Class
Dim a, b, c1
Set a = New C : Set b = New C
a.V = 1 : b.V = 2
WScript.Echo a.V, b.V '=> 1 2
Set c1 = a
c1.V = 9
WScript.Echo a.V, (a Is c1), (a Is b) '=> 9 True False
'---- Property Get, Let and Set
Class C
  Private v, obj
  Public Property Get Value : Value = v : End Property
  Public Property Let Value(x) : v = x * 2 : End Property
  Public Property Get Ref : Set Ref = obj : End Property
  Public Property Set Ref(x) : Set obj = x : End Property
End Class
Dim o
Set o = New C
o.Value = 21
WScript.Echo o.Value '=> 42
Set o.Ref = o
WScript.Echo (o.Ref Is o), o.Ref.Ref.Value '=> True 42
Set o.Ref = Nothing
'---- Indexed properties
Class C
  Private items(9)
  Public Property Get Item(i) : Item = items(i) : End Property
  Public Property Let Item(i, v) : items(i) = v : End Property
  Public Property Get Pair(a, b) : Pair = a & "/" & b : End Property
  Public Property Let Pair(a, b, v) : items(0) = a & b & v : End Property
End Class
Dim o
Set o = New C
o.Item(3) = "three"
WScript.Echo o.Item(3) '=> three
WScript.Echo o.Pair(1, 2) '=> 1/2
o.Pair("x", "y") = "z"
WScript.Echo o.Item(0) '=> xyz
'---- Default members
Class C
  Private d
  Public Default Property Get Value : Value = d : End Property
  Public Property Let Value(x) : d = x : End Property
End Class
Dim o, x
Set o = New C
o.Value = 5
WScript.Echo o + 1 '=> 6
x = o
WScript.Echo TypeName(x), x '=> Integer 5
WScript.Echo o & "!" '=> 5!
If o = 5 Then WScript.Echo "equal" '=> equal
WScript.Echo -o, Not o, o * o '=> -5 -6 25
'---- A default property is written through the object's name
Class C
  Private d
  Public Default Property Get Value(i) : Value = d & i : End Property
  Public Property Let Value(i, x) : d = x : End Property
End Class
Dim o
Set o = New C
o.Value(1) = "v"
WScript.Echo o(2) '=> v2
o(3) = "w"
WScript.Echo o(1) '=> w1
'---- A default function
Class C
  Public Default Function Twice(n) : Twice = n * 2 : End Function
End Class
Dim o
Set o = New C
WScript.Echo o(21), o.Twice(4) '=> 42 8
'---- An object without a default member has no value
Class C : End Class
Dim o, x
Set o = New C
x = o '!! 438
'---- Nothing has no value
Dim o, x
Set o = Nothing
x = o '!! 91
'---- A member of Nothing
Dim o
Set o = Nothing
o.M '!! 91
'---- A member of what is no object
Dim v
v = 5
v.M '!! 424
'---- A member of Empty
Dim v
WScript.Echo v.M '!! 424
'---- Set needs an object
Dim v
Set v = 5 '!! 424
'---- Class_Initialize and Class_Terminate
Class C
  Private Sub Class_Initialize : WScript.Echo "born" : End Sub
  Private Sub Class_Terminate : WScript.Echo "gone" : End Sub
End Class
Dim o
Set o = New C '=> born
WScript.Echo "living" '=> living
Set o = Nothing '=> gone
WScript.Echo "after" '=> after
Set o = New C '=> born
Set o = New C '=> born
'=> gone
o = Empty '=> gone
WScript.Echo "end" '=> end
'---- Locals end with their procedure
Class C
  Private Sub Class_Terminate : WScript.Echo "gone" : End Sub
End Class
Sub S
  Dim o
  Set o = New C
  WScript.Echo "in" '=> in
End Sub
S '=> gone
WScript.Echo "out" '=> out
'---- An object that nobody takes ends with its statement
Class C
  Public V
  Private Sub Class_Terminate : WScript.Echo "gone" : End Sub
  Public Function Me_() : Set Me_ = Me : End Function
End Class
Function Make() : Set Make = New C : End Function
Make '=> gone
WScript.Echo "1" '=> 1
Call Make() '=> gone
WScript.Echo "2" '=> 2
WScript.Echo TypeName(Make()) '=> gone
'=> C
WScript.Echo "3" '=> 3
Make().Me_().V = 1 '=> gone
WScript.Echo "4" '=> 4
'---- Elements end with their array
Class C
  Public N
  Private Sub Class_Terminate : WScript.Echo "gone " & N : End Sub
End Class
Dim a(1)
Set a(0) = New C : a(0).N = 0
Set a(1) = New C : a(1).N = 1
Erase a '=> gone 0
'=> gone 1
WScript.Echo "end" '=> end
'---- What is left ends with the engine
Class C
  Private Sub Class_Terminate : WScript.Echo "gone" : End Sub
End Class
Dim o
Set o = New C
WScript.Echo "end of code" '=> end of code
'=> gone
'---- Objects that hold each other end with the engine
Class C
  Public Other
  Public N
  Private Sub Class_Terminate : WScript.Echo "gone" : End Sub
End Class
Dim a, b
Set a = New C : Set b = New C
Set a.Other = b : Set b.Other = a
Set a = Nothing : Set b = Nothing
WScript.Echo "end of code" '=> end of code
'=> gone
'=> gone
'---- An error in Class_Terminate stays inside
Class C
  Private Sub Class_Terminate
    Dim x
    x = 1 / 0
  End Sub
End Class
Dim o
Set o = New C
Set o = Nothing
WScript.Echo "on" '=> on
'---- An error in Class_Initialize comes out of New
Class C
  Private Sub Class_Initialize
    Dim x
    x = 1 / 0 '!! 11
  End Sub
End Class
Dim o
Set o = New C
'---- Me
Class C
  Public V
  Public Function Self() : Set Self = Me : End Function
  Public Sub Fill : Me.V = "by me" : End Sub
  Public Function Chain(x) : V = V & x : Set Chain = Me : End Function
End Class
Dim o
Set o = New C
o.Fill
WScript.Echo o.V, (o.Self Is o) '=> by me True
o.V = ""
WScript.Echo o.Chain(1).Chain(2).Chain(3).V '=> 123
'---- Members call each other by name
Class C
  Private n
  Public Sub Go
    Inc
    Inc
    Count = Count + 10
    WScript.Echo Double(n), Count
  End Sub
  Private Sub Inc : n = n + 1 : End Sub
  Private Function Double(x) : Double = x * 2 : End Function
  Public Property Get Count : Count = n : End Property
  Public Property Let Count(v) : n = v : End Property
End Class
Dim o
Set o = New C
o.Go '=> 24 12
'---- A member hides the global name
Dim Name_
Name_ = "global"
Class C
  Public Name_
  Public Function F() : F = Name_ : End Function
End Class
Dim o
Set o = New C
o.Name_ = "member"
WScript.Echo o.F(), Name_ '=> member global
'---- Methods change what they are passed
Class C
  Public Sub M(x) : x = "changed" : End Sub
End Class
Dim o, v
Set o = New C
v = 1 : o.M v : WScript.Echo v '=> changed
v = 1 : o.M (v) : WScript.Echo v '=> 1
v = 1 : Call o.M(v) : WScript.Echo v '=> changed
'---- Recursion in methods
Class C
  Public Function F(n) : If n < 2 Then F = 1 Else F = n * F(n - 1)
  End Function
End Class
Dim o
Set o = New C
WScript.Echo o.F(6) '=> 720
'---- A linked list
Class Node
  Public Value, Link
End Class
Dim head, n, i, s
Set head = Nothing
For i = 1 To 4
  Set n = New Node
  n.Value = i
  Set n.Link = head
  Set head = n
Next
Set n = head
Do Until n Is Nothing
  s = s & n.Value
  Set n = n.Link
Loop
WScript.Echo s '=> 4321
'---- A very long list ends without trouble
Class Node : Public Link : End Class
Dim head, n, i
Set head = Nothing
For i = 1 To 50000
  Set n = New Node
  Set n.Link = head
  Set head = n
Next
Set n = Nothing
Set head = Nothing
WScript.Echo "done" '=> done
'---- An unknown class
Dim o
Set o = New NoSuchClass '!! 506
'---- A class is known before its line is reached
Dim o
Set o = New C
o.V = "early"
WScript.Echo o.V '=> early
Class C : Public V : End Class
'---- Objects hold arrays and give their elements
Class C
  Public A
  Public Function List() : List = Array("x", "y") : End Function
End Class
Dim o
Set o = New C
o.A = Array(1, 2, 3)
WScript.Echo o.A(1) '=> 2
o.A(1) = "two"
WScript.Echo o.A(1) '=> two
WScript.Echo o.List()(1), o.List(0) '=> y x
'---- A property without Let cannot be written
Class C
  Public Property Get P : P = 1 : End Property
End Class
Dim o
Set o = New C
o.P = 2 '!! 438
'---- A property without Get cannot be read
Class C
  Public Property Let P(v) : End Property
End Class
Dim o
Set o = New C
WScript.Echo o.P '!! 438
'---- The wrong number of arguments for a method
Class C : Public Sub M(a) : End Sub : End Class
Dim o
Set o = New C
o.M 1, 2 '!! 450
'---- Is
Dim a
Set a = Nothing
WScript.Echo (a Is Nothing) '=> True
WScript.Echo (Nothing Is Nothing) '=> True
'---- Is with what is no object
Dim a
a = 5
WScript.Echo (a Is Nothing) '!! 424
'---- Exit Property
Class C
  Public Property Get P
    P = "early"
    Exit Property
    P = "late"
  End Property
End Class
Dim o
Set o = New C
WScript.Echo o.P '=> early
'---- A text grown in a field
Class C
  Private s
  Public Sub Add(t) : s = s & t : End Sub
  Public Property Get Text : Text = s : End Property
End Class
Dim o, i
Set o = New C
For i = 1 To 5 : o.Add i & "," : Next
WScript.Echo o.Text '=> 1,2,3,4,5,
'---- A variable may have the name of its class
Class Person : Public Name : End Class
Set person = New Person
person.Name = "one"
Set another = New Person
WScript.Echo person.Name, TypeName(another) '=> one Person
Sub S
  Set person = New Person
  WScript.Echo TypeName(person.Name)
End Sub
S '=> Empty
Sub T
  Dim person
  Set person = New Person
  WScript.Echo TypeName(person)
End Sub
T '=> Person
'---- Set through an indexed default property
Class Bag
  Private d
  Private Sub Class_Initialize : Set d = CreateObject("Scripting.Dictionary") : End Sub
  Public Default Property Get Item(k)
    If IsObject(d(k)) Then Set Item = d(k) Else Item = d(k)
  End Property
  Public Property Let Item(k, v) : d(k) = v : End Property
  Public Property Set Item(k, v) : Set d(k) = v : End Property
End Class
Dim b
Set b = New Bag
b("a") = 1
Set b("inner") = New Bag
b("inner")("x") = "nested"
WScript.Echo b("a"), b("inner")("x"), b.Item("inner").Item("x") '=> 1 nested nested
b("a") = b("a") + 10
WScript.Echo b("a") '=> 11
'---- A field goes by reference inside the class and by value from outside
Class D
  Public X
  Public Sub Run
    X = 1
    Inc X
    WScript.Echo X
    X = 5
    Inc Me.X
    WScript.Echo X
  End Sub
  Private Sub Inc(ByRef v) : v = v + 1 : End Sub
End Class
Dim o
Set o = New D
o.Run '=> 2
'=> 5
