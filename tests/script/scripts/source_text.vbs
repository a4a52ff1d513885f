'---- Comments
' a whole line
WScript.Echo "a" ' behind a statement '=> a
Rem a remark
WScript.Echo "b" : Rem behind a colon '=> b
REM
'
Dim x ' "quotes" in a comment
Rem it's not a text: "
WScript.Echo "it's" '=> it's
'---- Colons
WScript.Echo 1 : WScript.Echo 2 '=> 1
'=> 2
: : WScript.Echo 3 : : '=> 3
'---- Lines that go on
WScript.Echo "a" & _
  "b" & _
  "c" '=> abc
Dim _
  x
x = _
 5
WScript.Echo x '=> 5
If x = 5 _
  Then WScript.Echo "five" '=> five
'---- Letter case does not matter
dIM Value : VALUE = 3
wscript.ECHO value '=> 3
SUB Foo : WScript.Echo "foo" : eND sUB
FOO '=> foo
'---- Escaped names
Dim [my name], [Dim], [a.b]
[my name] = 1 : [Dim] = 2 : [a.b] = 3
WScript.Echo [my name] + [Dim] + [a.b] '=> 6
Sub [If] : WScript.Echo "if" : End Sub
[If] '=> if
Dim plain : plain = 4
WScript.Echo [plain] '=> 4
'---- Words that are names in most places
Dim property, step, default, explicit
property = 1 : step = 2 : default = 3 : explicit = 4
WScript.Echo property + step + default + explicit '=> 10
'---- Reserved words are names behind a dot
Class C
  Public [End], [Next]
End Class
Dim o
Set o = New C
o.End = 1 : o.Next = 2
WScript.Echo o.End + o.Next '=> 3
'---- Numbers
WScript.Echo TypeName(1), TypeName(32767), TypeName(32768), TypeName(2147483647), TypeName(2147483648) '=> Integer Integer Long Long Double
WScript.Echo TypeName(1.0), TypeName(1e3), TypeName(.5), TypeName(5.) '=> Double Double Double Double
WScript.Echo 1.5, .5, 5., 1e3, 1E-2, 1e+2 '=> 1.5 0.5 5 1000 0.01 100
WScript.Echo &H10, &hFF, &O17, &o7, &17 '=> 16 255 15 7 15
WScript.Echo &HFFFF, &H8000, &H7FFF, &H10000, &HFFFFFFFF '=> -1 -32768 32767 65536 -1
WScript.Echo &HFFFF&, &H8000&, TypeName(&HFFFF&), TypeName(&HFFFF) '=> 65535 32768 Long Integer
WScript.Echo &O177777, &O200000 '=> -1 65536
WScript.Echo -32768, TypeName(-32768), TypeName(-1) '=> -32768 Long Integer
'---- Texts
WScript.Echo "", "a""b", """", "'" '=>  a"b " '
WScript.Echo Len(""""""), "tab	in" '=> 2 tab	in
'---- Dates
WScript.Echo TypeName(#1/2/2003#), Year(#1/2/2003#), Month(#1/2/2003#), Hour(#13:45#) '=> Date 2003 1 13
WScript.Echo #2003-01-02# = DateSerial(2003, 1, 2) '=> True
'---- Literals
WScript.Echo True, False, TypeName(Empty), TypeName(Null), TypeName(Nothing) '=> True False Empty Null Nothing
'---- Constants
Const A = 1, B = -2, C = "text", D = &HFF, E = #1/1/2000#, F = True, G = (5), H = 1.5
WScript.Echo A, B, C, D, Year(E), F, G, H '=> 1 -2 text 255 2000 True 5 1.5
Sub S
  Const A = "local"
  WScript.Echo A
End Sub
S '=> local
Public Const P = 7
Private Const Q = 8
WScript.Echo P + Q '=> 15
WScript.Echo Early '=> early
Const Early = "early"
'---- Library constants
WScript.Echo vbCr = Chr(13), vbTab = Chr(9), Len(vbCrLf), vbTrue, vbSunday '=> True True 2 -1 1
Dim vbRed : vbRed = "mine"
WScript.Echo vbRed '=> mine
'---- Dim of many
Dim a, b(2), c()
WScript.Echo TypeName(a), TypeName(b), TypeName(c) '=> Empty Variant() Variant()
Public p1, p2
Private q1
p1 = 1 : q1 = 2
WScript.Echo p1 + q1 '=> 3
'---- A variable with the name of a builtin
Dim left, date
left = 5 : date = 6
WScript.Echo left + date '=> 11
'---- A procedure with the name of a builtin
Function UCase(s) : UCase = "mine:" & s : End Function
WScript.Echo UCase("a") '=> mine:a
'---- Precedence
WScript.Echo 2 + 3 * 4, (2 + 3) * 4, 2 * 3 + 4 '=> 14 20 10
WScript.Echo -2 ^ 2, 2 ^ 3 ^ 2, 2 ^ -1 '=> 4 64 0.5
WScript.Echo 10 - 5 - 2, 100 / 10 / 2, 2 * 10 Mod 3 '=> 3 5 2
WScript.Echo 7 \ 2 * 2, 7 Mod 4 \ 2, 10 \ 3 Mod 2 '=> 1 1 1
WScript.Echo 1 + 2 & 3 + 4, "a" & 1 + 1 '=> 37 a2
WScript.Echo 1 + 1 = 2, Not 1 = 2, 1 < 2 = True '=> True True True
WScript.Echo True Or False And False, (True Or False) And False '=> True False
WScript.Echo Not True Or True, Not (True Or True) '=> True False
WScript.Echo True Xor True Or True, False Imp False And False '=> False True
WScript.Echo 1 Or 2 And 4, 1 Eqv 1 Imp 0 '=> 1 0
WScript.Echo 5 - -3, 5 + -3, 5 * -3, - - 5 '=> 8 2 -15 5
WScript.Echo "a" < "b" And 1 < 2, 3 > 2 > 1 '=> True False
WScript.Echo 6 / 2 * 3, -7 \ 2, -7 Mod 3, 7 Mod -3 '=> 9 -3 -1 1
'---- Operators without blanks
Dim a:a=5
WScript.Echo a+1,a-1,a*2,a/2,a\2,a&"x",a>3,a<>5,a>=5,a<=4 '=> 6 4 10 2.5 2 5x True False True False
WScript.Echo 1=1,2><1,1=>1,1=<0 '=> True True True False
'---- Not a continuation
Dim a_
a_ = 1
WScript.Echo a_ '=> 1
'---- HTML comments hide a line
<!-- hidden
WScript.Echo "seen" '=> seen
--> hidden too
'---- Unicode text
WScript.Echo "Grüße 地図 é😀", Len("é"), Len("😀") '=> Grüße 地図 é😀 1 2
'---- The last line needs no end
WScript.Echo "end" '=> end
