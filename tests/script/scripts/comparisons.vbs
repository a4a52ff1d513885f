'---- A text and a number in variables: the number is less
Dim s, n, b
s = "5" : n = 5 : b = True
WScript.Echo s = n, s > n, n < s, s <> n '=> False True True True
n = 9 : s = "10"
WScript.Echo s > n '=> True
'---- Beside a number of the source a text is a number
s = "05"
WScript.Echo s = 5, 5 = s, s < 10, s = 5.0, s = -5 '=> True True True True False
Const five = 5
WScript.Echo s = five, s = vbCancel + 0 '=> True False
'---- A text that is none fails there
s = "five"
x = (s = 5) '!! 13
'---- An empty text too
s = ""
If s = 0 Then x = 2 '!! 13
'---- Beside a text of the source everything is a text
n = 5 : b = True
WScript.Echo n = "5", n = "05", "10" < n, b = "True", b = "-1" '=> True False True True False
WScript.Echo #1/2/2020# = "1/2/2020", "5" = 5, "true" = True '=> True True False
'---- True and False of the source turn no text
s = "True"
WScript.Echo s = True, s > True, True = s '=> False True False
'---- Booleans are numbers among numbers
WScript.Echo True = -1, False = 0, True < False, True >= 2 '=> True True True False
'---- A Single beside a Double
x = CSng(0.1) : y = 0.1
WScript.Echo x = y, x = 0.1, CDbl(x) = y, CSng(0.001 * 0.001) = 0.000001 '=> True True False True
'---- Case compares like =, but other texts just differ
s = "abc"
Select Case s
  Case 5 WScript.Echo "number"
  Case "abc" WScript.Echo "text" '=> text
End Select
Select Case 3
  Case "test" WScript.Echo "text"
  Case "3" WScript.Echo "digits" '=> digits
End Select
'---- Logic: two of a kind keep it
WScript.Echo TypeName(True And False), TypeName(CByte(3) Or CByte(4)), TypeName(5 Xor 3), TypeName(&H10000 And 1) '=> Boolean Byte Integer Long
'---- Logic: kinds among each other
WScript.Echo TypeName(True And 5), TypeName(CByte(1) Or 2), TypeName(Empty Or 5), TypeName(Empty And True) '=> Integer Integer Integer Integer
WScript.Echo TypeName(Empty And Empty), TypeName(Empty Xor Empty), TypeName(Empty Imp Null), TypeName(1.5 And 1) '=> Long Long Long Long
'---- Logic: texts are Longs
WScript.Echo TypeName("6" And 7), "6" And "3", TypeName("6" And "3"), TypeName("6" Or True), TypeName(Not "5") '=> Long 2 Long Long Long
WScript.Echo TypeName("True" And True), TypeName("True" Or "False"), TypeName("True" And 3), Not "#FALSE#" '=> Boolean Boolean Long True
WScript.Echo TypeName(Not Empty), Not Empty, TypeName(Not CByte(1)) '=> Integer -1 Byte
'---- Logic: a text that is no number
x = "abc" And 1 '!! 13
'---- Logic with Null
WScript.Echo Null And 0, TypeName(Null And True), Null Or "1", TypeName(Null Or "1"), TypeName(Null Xor 1) '=> 0 Null 1 Long Null
