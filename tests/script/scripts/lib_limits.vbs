'---- A text longer than any text may be
x = Space(2000000000) '!! 14
'---- A character repeated too often
x = String(500000000, "x") '!! 14
'---- A replacement that grows beyond all bounds
x = Replace(Space(1000000), " ", String(1000, "x")) '!! 14
'---- A pattern's replacement that grows beyond all bounds
Set re = New RegExp
re.Global = True
re.Pattern = " "
x = re.Replace(Space(1000000), String(1000, "x")) '!! 14
'---- A list joined beyond all bounds
Dim list(99), i
For i = 0 To 99
  list(i) = Space(1000000)
Next
x = Join(list) '!! 14
'---- The error can be handled
On Error Resume Next
x = Space(2000000000)
WScript.Echo Err.Number, Err.Description '=> 14 Out of string space
