'---- Text functions by their names in any case
WScript.Echo len("abc"), LEN("abc"), Len(""), lenb("ab") '=> 3 3 0 4
WScript.Echo Left("abcdef", 2) & Mid("abcdef", 3, 2) & Right("abcdef", 2) '=> abcdef
WScript.Echo UCase("abc") & LCase("XYZ") '=> ABCxyz
WScript.Echo "[" & Trim("  a b  ") & "][" & LTrim("  a") & "][" & RTrim("b  ") & "]" '=> [a b][a][b]
WScript.Echo InStr("hello", "l"), InStrRev("hello", "l"), InStr(4, "hello", "l"), InStr("hello", "z") '=> 3 4 4 0
WScript.Echo InStr(1, "HELLO", "ell", vbTextCompare), InStr(1, "HELLO", "ell", vbBinaryCompare) '=> 2 0
WScript.Echo Replace("a.b.c", ".", "-"), Replace("a.b.c", ".", "", 1, 1), Replace("aBAb", "b", "x", 1, -1, 1) '=> a-b-c ab.c axAx
WScript.Echo StrReverse("abc") & String(3, "*") & "[" & Space(2) & "]" & String(2, 65) '=> cba***[  ]AA
WScript.Echo StrComp("a", "A"), StrComp("a", "A", 1), StrComp("a", "b"), StrComp("b", "a") '=> 1 0 -1 1
WScript.Echo Asc("A"), AscW("A"), Chr(66), ChrW(67), AscB("A"), ChrB(68) '=> 65 65 B C 65 D
WScript.Echo Hex(255), Oct(8), Escape("a b"), Unescape("a%20b") '=> FF 10 a%20b a b
'---- Functions as statements
Len "abc"
Call UCase("abc")
WScript.Echo "done" '=> done
'---- A text argument of any type
WScript.Echo Len(1234), Len(True), Len(1.5), Left(98765, 2), UCase(Empty) & "|" '=> 4 4 3 98 |
'---- Null goes through
WScript.Echo IsNull(Len(Null)), IsNull(Left(Null, 1)), IsNull(UCase(Null)), IsNull(Trim(Null)), IsNull(InStr(Null, "a")) '=> True True True True True
WScript.Echo IsNull(StrComp(Null, "a")), IsNull(Mid(Null, 1)), IsNull(Hex(Null)), IsNull(Abs(Null)) '=> True True True True
'---- Null where it cannot go through
x = StrReverse(Null) '!! 94
'---- Null in Replace
x = Replace(Null, "a", "b") '!! 94
'---- A negative count
x = Left("abc", -1) '!! 5
'---- A start below one
x = Mid("abc", 0) '!! 5
'---- A start of zero
x = InStr(0, "abc", "a") '!! 5
'---- An unknown way to compare
x = InStr(1, "abc", "a", 7) '!! 5
'---- An empty text has no code
x = Asc("") '!! 5
'---- A code out of range
x = Chr(256) '!! 5
'---- Repeating nothing
x = String(3, "") '!! 5
'---- A count that is no number
x = Left("abc", "x") '!! 13
'---- Too few arguments
x = Left("abc") '!! 450
'---- Too many arguments
x = Len("a", "b") '!! 450
'---- Split, Join and Filter
Dim parts
parts = Split("one two three")
WScript.Echo UBound(parts), parts(0), parts(2) '=> 2 one three
WScript.Echo Join(parts), Join(parts, ""), Join(Split("a,b,c", ","), "-") '=> one two three onetwothree a-b-c
WScript.Echo Join(Filter(parts, "o")), Join(Filter(parts, "o", False)), UBound(Filter(parts, "zzz")) '=> one two three -1
WScript.Echo UBound(Split("")), UBound(Split("abc", "")), UBound(Split("a,b,c", ",", 2)) '=> -1 0 1
parts(1) = "changed"
WScript.Echo Join(parts, ",") '=> one,changed,three
For Each part In Split("x y")
  WScript.Echo part
Next '=> x
'=> y
'---- Split a text only where it is split
x = Split(Null) '!! 94
'---- Join needs a list
x = Join("abc") '!! 13
'---- Join needs one dimension
Dim table(1, 1)
x = Join(table) '!! 5
'---- A long text built in steps
Dim text, i
For i = 1 To 10000
  text = text & "ab"
Next
WScript.Echo Len(text), Mid(text, 9999, 2), InStrRev(text, "a") '=> 20000 ab 19999
'---- Line ends and other characters by name
WScript.Echo Len(vbCrLf), Asc(vbCr), Asc(vbLf), Asc(vbTab), Len(vbNewLine), Len(vbNullString), Asc(vbNullChar) '=> 2 13 10 9 2 0 0
WScript.Echo Escape("a" & vbTab & "b" & vbFormFeed & vbVerticalTab) '=> a%09b%0C%0B
'---- A list that changes while it is joined
Dim shared
Class Meddler
  Public Default Property Get Text
    ReDim shared(0)
    Text = "x"
  End Property
End Class
shared = Array(New Meddler, "b", "c")
WScript.Echo Join(shared, "-"), UBound(shared) '=> x-b-c 0
shared = Array(New Meddler, "xb", "c")
WScript.Echo Join(Filter(shared, "x"), "-"), UBound(shared) '=> x-xb 0
'---- Objects stand for their default property in every argument
Class Box
  Public Default Property Get Value
    Value = "hello"
  End Property
End Class
Set b = New Box
WScript.Echo Len(b), UCase(b), Mid(b, 2, 3), InStr(b, "l"), Replace(b, "l", "L"), b & "!", StrReverse(b) '=> 5 HELLO ell 3 heLLo hello! olleh
WScript.Echo TypeName(b), VarType(b), IsObject(b), IsNumeric(b), IsDate(b), b = "hello" '=> Box 8 True False False True
