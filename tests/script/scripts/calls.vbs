'---- Statements that begin like an argument list
Sub S(a, b) : WScript.Echo a & "," & b : End Sub
Sub P(a) : WScript.Echo a : End Sub
Dim x : x = 3
S (1), 2 '=> 1,2
S (x + 1) * 2, 3 '=> 8,3
P (1) + 2 '=> 3
P -1 '=> -1
P "a" & "b" '=> ab
P Not True '=> False
P (1) & (2) '=> 12
S 1, -1 '=> 1,-1
S -x, +x '=> -3,3
P(x) '=> 3
S _
  1, _
  2 '=> 1,2
P 1 = 1 '=> True
P x Mod 2 '=> 1
P .5 '=> 0.5
P 2^-1 '=> 0.5
P [x] '=> 3
P Array(1, 2)(1) '=> 2
Call P(-x) '=> -3
If x = 3 Then P 1 : P 2 Else P 3 '=> 1
'=> 2
'---- The same for methods
Class C
  Public A(3)
  Public Sub M(a, b) : WScript.Echo a & "," & b : End Sub
  Public Sub N(a) : WScript.Echo a : End Sub
  Public Function Self() : Set Self = Me : End Function
End Class
Dim o, x : Set o = New C : x = 3
o.M (1), 2 '=> 1,2
o.M (x) * 2, (x) '=> 6,3
o.N (1) '=> 1
o.N -1 '=> -1
o.N(2) '=> 2
o.Self.N 3 '=> 3
o.Self().Self.N 4 '=> 4
o.A(1) = 5
o.N o.A(1) '=> 5
o.N o.A(1) + 1 '=> 6
o.N (o.A(1)) '=> 5
Call o.Self.M(1, 2) '=> 1,2
Call o.N(7) '=> 7
'---- A statement that is only a name
Dim said
Sub Bare : said = said & "bare " : End Sub
Class C : Public Sub M : said = said & "method " : End Sub : End Class
Dim o : Set o = New C
Bare
Bare()
Call Bare
Call Bare()
o.M
o.M()
Call o.M
WScript.Echo said '=> bare bare bare bare method method method 
'---- Dictionaries through their default member
Dim d : Set d = CreateObject("Scripting.Dictionary")
d.Add "a", Array(1, 2)
WScript.Echo d("a")(1), d.Item("a")(0) '=> 2 1
d("n") = 1
d("n") = d("n") + 1
WScript.Echo d("n"), d.Count '=> 2 2
WScript.Echo d.Keys()(0), d.Items()(1) '=> a 2
Set d("self") = d
WScript.Echo d("self")("n") '=> 2
d.Remove "self"
