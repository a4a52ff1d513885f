'---- Fixed arrays
Dim a(3), b(1, 2)
WScript.Echo UBound(a), LBound(a), UBound(b, 1), UBound(b, 2) '=> 3 0 1 2
WScript.Echo TypeName(a), TypeName(a(0)), VarType(a) '=> Variant() Empty 8204
a(0) = "x" : a(3) = 4
WScript.Echo a(0) & a(3) '=> x4
b(1, 2) = 12
WScript.Echo b(1, 2) '=> 12
'---- Indexes are rounded to whole numbers
Dim a(5)
a(2) = "two" : a(4) = "four"
WScript.Echo a(1.5), a(2.5), a("4"), a(3.6) '=> two two four four
'---- An index that is too large
Dim a(3)
a(4) = 1 '!! 9
'---- An index below zero
Dim a(3)
WScript.Echo a(-1) '!! 9
'---- Too many indexes
Dim a(3)
WScript.Echo a(1, 1) '!! 9
'---- Too few indexes
Dim a(3, 3)
a(1) = 5 '!! 9
'---- An array that has no size yet
Dim a()
WScript.Echo UBound(a) '!! 9
'---- ReDim
Dim a()
ReDim a(2)
a(0) = 1
WScript.Echo UBound(a), a(0) '=> 2 1
ReDim a(4)
WScript.Echo UBound(a), TypeName(a(0)) '=> 4 Empty
a(4) = "kept"
ReDim Preserve a(6)
WScript.Echo UBound(a), a(4), TypeName(a(6)) '=> 6 kept Empty
ReDim Preserve a(4)
WScript.Echo UBound(a), a(4) '=> 4 kept
ReDim a(1, 1)
WScript.Echo UBound(a, 2) '=> 1
ReDim a(-1)
WScript.Echo UBound(a) '=> -1
'---- ReDim declares
ReDim fresh(3), other(1)
WScript.Echo UBound(fresh), UBound(other) '=> 3 1
'---- ReDim declares under Option Explicit
Option Explicit
ReDim fresh(3)
WScript.Echo UBound(fresh) '=> 3
Sub S
  ReDim inner(2)
  inner(1) = 5
  WScript.Echo inner(1)
End Sub
S '=> 5
'---- ReDim of a variable that holds something else
Dim v
v = 5
ReDim v(2)
WScript.Echo TypeName(v) '=> Variant()
'---- ReDim Preserve changes the last dimension only
Dim m()
ReDim m(1, 1)
m(0, 0) = "00" : m(1, 0) = "10" : m(0, 1) = "01" : m(1, 1) = "11"
ReDim Preserve m(1, 3)
WScript.Echo m(0, 0), m(1, 0), m(0, 1), m(1, 1), UBound(m, 2) '=> 00 10 01 11 3
ReDim Preserve m(2, 3) '!! 9
'---- ReDim Preserve keeps the number of dimensions
Dim m()
ReDim m(1)
ReDim Preserve m(1, 1) '!! 9
'---- ReDim of a fixed array
Dim a(3)
ReDim a(5) '!! 10
'---- ReDim with a size that is no size
ReDim a(-2) '!! 9
'---- Sizes can be expressions
Dim n
n = 2
ReDim a(n * 2 + 1)
WScript.Echo UBound(a) '=> 5
'---- Erase
Dim f(2), d()
f(1) = 5
Erase f
WScript.Echo UBound(f), TypeName(f(1)) '=> 2 Empty
ReDim d(3)
Erase d
On Error Resume Next
WScript.Echo UBound(d)
WScript.Echo Err.Number '=> 9
'---- Erase of what is no array
Dim v
v = 1
Erase v '!! 13
'---- Arrays are values
Dim a, b
a = Array(1, 2, 3)
b = a
b(0) = 100
WScript.Echo a(0), b(0) '=> 1 100
a(1) = 50
WScript.Echo a(1), b(1) '=> 50 2
'---- An array in an array is a copy
Dim inner, outer
inner = Array(1, 2)
outer = Array(inner, 3)
inner(0) = 99
WScript.Echo outer(0)(0) '=> 1
outer(0)(1) = 7
WScript.Echo outer(0)(1), inner(1) '=> 7 2
'---- Deep nesting
Dim a
a = Array(Array(Array("deep")))
WScript.Echo a(0)(0)(0) '=> deep
a(0)(0)(0) = "deeper"
WScript.Echo a(0)(0)(0) '=> deeper
'---- An element can be any value
Class C : Public V : End Class
Dim a(3)
Set a(0) = New C
a(0).V = 5
WScript.Echo a(0).V '=> 5
a(1) = Null
WScript.Echo IsNull(a(1)) '=> True
Set a(2) = Nothing
WScript.Echo (a(2) Is Nothing) '=> True
'---- A copy of a fixed array can change its size
Dim f(2), v
f(1) = "one"
v = f
ReDim Preserve v(5)
WScript.Echo v(1), UBound(v), UBound(f) '=> one 5 2
'---- An array whose element is passed cannot change its size
Dim a()
ReDim a(2)
a(1) = "held"
Sub S(x)
  ReDim a(9) '!! 10
End Sub
S a(1)
'---- An array in a For Each cannot change its size
Dim a, e
a = Array(1, 2)
For Each e In a
  ReDim a(5) '!! 10
Next
'---- Elements can be changed during For Each
Dim a, e, s
a = Array(1, 2, 3)
For Each e In a
  a(2) = "new"
  s = s & e & " "
Next
WScript.Echo s '=> 1 2 new 
'---- No value may replace a fixed array
Dim a(2)
a = 5 '!! 13
'---- Arrays of a class
Class C
  Public A(2)
  Private B()
  Public Sub Grow(n) : ReDim Preserve B(n) : B(n) = n * 10 : End Sub
  Public Function Get_(n) : Get_ = B(n) : End Function
End Class
Dim o
Set o = New C
o.A(1) = "one"
WScript.Echo o.A(1), UBound(o.A) '=> one 2
o.Grow 3
o.Grow 5
WScript.Echo o.Get_(3), o.Get_(5) '=> 30 50
'---- A variable that is no array
Dim v
v = 5
WScript.Echo v(0) '!! 13
'---- An element of Empty
Dim v
v(0) = 5 '!! 13
'---- Append to an element
Dim a(1), i
For i = 1 To 3 : a(0) = a(0) & i : Next
WScript.Echo a(0) '=> 123
'---- An array may hold itself as it was
Dim a
a = Array(1, 2)
a(0) = a
WScript.Echo a(0)(1), a(0)(0) '=> 2 1
'---- An array is too large to be had
Dim a()
ReDim a(2147483646) '!! 7
'---- Sums of elements
Dim a(5)
a(0) = 32767 : a(1) = 1 : a(2) = "y" : a(3) = Null : a(4) = 0.5
s = 0 : s = s + a(0) : WScript.Echo s, TypeName(s) '=> 32767 Integer
s = s + a(1) : WScript.Echo s, TypeName(s) '=> 32768 Long
s = s + a(4) : WScript.Echo s, TypeName(s) '=> 32768.5 Double
s = "5" : s = s + a(1) : WScript.Echo s, TypeName(s) '=> 6 Double
s = "x" : t = s : s = s + a(2) : s = s + a(2) : WScript.Echo s, t '=> xyy x
s = 1 : s = s + a(3) : WScript.Echo IsNull(s) '=> True
s = 1 : s = s + a("0") : WScript.Echo s '=> 32768
'---- Sums of elements through parameters
Sub AddAll(list, sum)
  For i = 0 To UBound(list) : sum = sum + list(i) : Next
End Sub
n = 0
AddAll Array(1, 2, 3), n
m = "a"
AddAll Array("b", "c"), m
WScript.Echo n, m '=> 6 abc
'---- A sum is read before the element
Class Meddler
  Public Default Property Get P : s = 100 : P = 5 : End Property
End Class
Dim a(0)
Set a(0) = New Meddler
s = 1
s = s + a(0)
WScript.Echo s '=> 6
'---- A sum past the end of the array
Dim a(1)
s = 1
s = s + a(2) '!! 9
'---- A sum into an array of fixed size
Dim a(1), f(1)
f = f + a(0) '!! 13
