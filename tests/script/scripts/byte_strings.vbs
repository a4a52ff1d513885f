'---- An odd number of bytes
WScript.Echo LenB("abc"), LenB(LeftB("abc", 3)), LenB(MidB("abc", 2, 3)), LenB(RightB("abc", 5)) '=> 6 3 3 5
WScript.Echo LenB(ChrB(65)), Len(ChrB(65)), AscB(ChrB(65)), Len(LeftB("abc", 3)) '=> 1 0 65 1
'---- Bytes join bytes
s = ChrB(65) & ChrB(0)
WScript.Echo s, LenB(s), s = "A" '=> A 2 True
s = ""
For Each code In Array(72, 0, 105, 0)
  s = s & ChrB(code)
Next
WScript.Echo s, LenB(s) '=> Hi 4
s = "A" & ChrB(66)
WScript.Echo LenB(s), LenB(s & s), AscB(RightB(s, 1)) '=> 3 6 66
'---- Searching byte by byte
WScript.Echo InStrB("ab", "b"), InStrB("ab", ChrB(0)), InStrB(3, "ab", ChrB(0)), InStrB("ab", ChrB(99)) '=> 3 2 4 0
'---- A byte too many
x = ChrB(256) '!! 5
