'---- New RegExp
Dim re
Set re = New RegExp
WScript.Echo TypeName(re), re.Pattern = "", re.Global, re.IgnoreCase, re.Multiline '=> IRegExp2 True False False False
re.Pattern = "(\d+)-(\d+)"
re.Global = True
WScript.Echo re.Test("a 10-20 b"), re.Test("none") '=> True False
Dim m, ms
Set ms = re.Execute("10-20 and 3-4")
WScript.Echo TypeName(ms), ms.Count, ms(0), ms(1).Value, ms.Item(1).FirstIndex, ms(1).Length '=> IMatchCollection2 2 10-20 3-4 10 3
WScript.Echo ms(0).SubMatches(0), ms(0).SubMatches(1), ms(0).SubMatches.Count '=> 10 20 2
WScript.Echo ms(0) Is ms(0), ms(1) Is ms.Item(1), ms(0) Is ms(1) '=> True True False
For Each m In ms
  WScript.Echo m & ":" & m.SubMatches.Item(1)
Next '=> 10-20:20
'=> 3-4:4
For Each s In ms(0).SubMatches
  WScript.Echo s
Next '=> 10
'=> 20
WScript.Echo re.Replace("10-20 and 3-4", "$2-$1") '=> 20-10 and 4-3
'---- CreateObject gives the same
Set re = CreateObject("VBScript.RegExp")
re.Pattern = "ab"
re.IgnoreCase = True
WScript.Echo re.Replace("xABab", "-"), re.Execute("xABab").Count '=> x-ab 1
'---- A With block and a pattern of lines
With New RegExp
  .Pattern = "^\w"
  .Multiline = True
  .Global = True
  WScript.Echo .Replace("one" & vbLf & "two", "*") = "*ne" & vbLf & "*wo" '=> True
End With
'---- A group that took no part
Set re = New RegExp
re.Pattern = "(a)|(b)"
Set ms = re.Execute("b")
WScript.Echo IsEmpty(ms(0).SubMatches(0)), ms(0).SubMatches(1) '=> True b
'---- A faulty pattern is named when it is used
Set re = New RegExp
re.Pattern = "(a"
WScript.Echo "set" '=> set
re.Test "a" '!! 5020
'---- A quantifier without anything in front
Set re = New RegExp
re.Pattern = "*"
re.Test "a" '!! 5018
'---- An open set
Set re = New RegExp
re.Pattern = "[a"
re.Test "a" '!! 5019
'---- A reversed range
Set re = New RegExp
re.Pattern = "[z-a]"
re.Test "a" '!! 5021
'---- A parenthesis too many
Set re = New RegExp
re.Pattern = "a)"
re.Test "a" '!! 5017
'---- A match that there is not
Set re = New RegExp
re.Pattern = "a"
WScript.Echo re.Execute("a")(1) '!! 5
'---- The error's words
On Error Resume Next
Set re = New RegExp
re.Pattern = "a**"
re.Test "a"
WScript.Echo Err.Number, Err.Description '=> 5018 Unexpected quantifier
Err.Clear
re.Pattern = "["
re.Test "a"
WScript.Echo Err.Number, Err.Description '=> 5019 Expected ']' in regular expression
'---- Trimming with patterns
Set re = New RegExp
re.Global = True
re.Pattern = "^\s+|\s+$"
WScript.Echo "[" & re.Replace("  a b  ", "") & "]" '=> [a b]
re.Pattern = "\s+"
WScript.Echo re.Replace("a  b   c", " ") '=> a b c
re.Pattern = "([^,]+),?"
WScript.Echo re.Execute("a,b,c").Count '=> 3
