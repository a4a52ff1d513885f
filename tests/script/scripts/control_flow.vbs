'---- If in lines
Dim r
Function Kind(n)
  If n < 0 Then
    Kind = "negative"
  ElseIf n = 0 Then
    Kind = "zero"
  ElseIf n = 1 Then
    Kind = "one"
  Else
    Kind = "many"
  End If
End Function
WScript.Echo Kind(-5) '=> negative
WScript.Echo Kind(0) '=> zero
WScript.Echo Kind(1) '=> one
WScript.Echo Kind(2) '=> many
'---- If on one line
If True Then WScript.Echo "yes" '=> yes
If False Then WScript.Echo "no"
If False Then WScript.Echo "no" Else WScript.Echo "else" '=> else
If True Then WScript.Echo "a" : WScript.Echo "b" '=> a
'=> b
If False Then WScript.Echo "a" : WScript.Echo "b" Else WScript.Echo "c" : WScript.Echo "d" '=> c
'=> d
If True Then If False Then WScript.Echo "inner" Else WScript.Echo "inner else" '=> inner else
If True Then WScript.Echo "closed" End If '=> closed
If True Then : WScript.Echo "after colon" '=> after colon
If True Then
  WScript.Echo "x" : End If '=> x
'---- Conditions of every type
If 1 Then WScript.Echo "one" '=> one
If 0 Then WScript.Echo "no" Else WScript.Echo "zero" '=> zero
If -1 Then WScript.Echo "minus" '=> minus
If 0.4 Then WScript.Echo "fraction" '=> fraction
If Empty Then WScript.Echo "no" Else WScript.Echo "empty" '=> empty
If Null Then WScript.Echo "no" Else WScript.Echo "null" '=> null
If "True" Then WScript.Echo "text" '=> text
If "0" Then WScript.Echo "no" Else WScript.Echo "text zero" '=> text zero
If Not Null Then WScript.Echo "no" Else WScript.Echo "not null" '=> not null
If Null = Null Then WScript.Echo "no" Else WScript.Echo "null = null" '=> null = null
'---- A text that is no truth value
If "abc" Then WScript.Echo "no" '!! 13
'---- Else If on two words
If False Then
  WScript.Echo "no"
Else If True Then
  WScript.Echo "nested" '=> nested
End If
End If
'---- Select Case
Function Pick(v)
  Select Case v
    Case 1
      Pick = "one"
    Case 2, 3, 4
      Pick = "few"
    Case "a"
      Pick = "letter"
    Case Else
      Pick = "other"
  End Select
End Function
WScript.Echo Pick(1) '=> one
WScript.Echo Pick(2) '=> few
WScript.Echo Pick(3) '=> few
WScript.Echo Pick(4) '=> few
WScript.Echo Pick("a") '=> letter
WScript.Echo Pick(5) '=> other
WScript.Echo Pick(1.0) '=> one
'---- Select Case on one line and without a match
Select Case 5 : Case 5 : WScript.Echo "five" : Case Else : WScript.Echo "no" : End Select '=> five
Select Case 7
  Case 1
    WScript.Echo "no"
End Select
Select Case 8
End Select
WScript.Echo "end" '=> end
'---- Select Case True tries its cases in order
Dim tried
Function Say(text, answer)
  tried = tried & text
  Say = answer
End Function
Select Case True
  Case Say("a", False), Say("b", True), Say("c", True)
    WScript.Echo tried '=> ab
End Select
'---- Only the first matching case runs
Select Case 1
  Case 1
    WScript.Echo "first" '=> first
  Case 1
    WScript.Echo "second"
End Select
'---- The subject is evaluated once
Dim calls
Function Subject()
  calls = calls + 1
  Subject = 3
End Function
Select Case Subject()
  Case 1
  Case 2
  Case 3
    WScript.Echo calls '=> 1
End Select
'---- For counts up and down
Dim i, s
For i = 1 To 5 : s = s & i : Next
WScript.Echo s '=> 12345
WScript.Echo i '=> 6
s = ""
For i = 5 To 1 Step -1 : s = s & i : Next
WScript.Echo s '=> 54321
WScript.Echo i '=> 0
s = ""
For i = 1 To 10 Step 4 : s = s & i & " " : Next
WScript.Echo s & i '=> 1 5 9 13
s = ""
For i = 1 To 2 Step 0.5 : s = s & i & " " : Next
WScript.Echo s & i '=> 1 1.5 2 2.5
For i = 3 To 2 : WScript.Echo "no" : Next
WScript.Echo i '=> 3
For i = 2 To 3 Step -1 : WScript.Echo "no" : Next
WScript.Echo i '=> 2
'---- The bounds are taken once
Dim n, i, count
n = 3
For i = 1 To n
  n = 10
  count = count + 1
Next
WScript.Echo count '=> 3
'---- The variable can be changed in the loop
Dim i, s
For i = 1 To 10
  s = s & i & " "
  i = i + 2
Next
WScript.Echo s '=> 1 4 7 10 
'---- Types of the loop variable
Dim i
For i = 1 To 1 : WScript.Echo TypeName(i) : Next '=> Integer
For i = 100000 To 100000 : WScript.Echo TypeName(i) : Next '=> Long
For i = 1.5 To 2 : WScript.Echo TypeName(i) : Next '=> Double
For i = 32767 To 32768 : WScript.Echo TypeName(i) : Next '=> Integer
'=> Long
'---- Exit For leaves the inner loop only
Dim i, j, s
For i = 1 To 3
  For j = 1 To 3
    If j = 2 Then Exit For
    s = s & i & j & " "
  Next
Next
WScript.Echo s '=> 11 21 31 
'---- Do in all its forms
Dim n, s
n = 0 : s = ""
Do While n < 3 : n = n + 1 : s = s & n : Loop
WScript.Echo s '=> 123
n = 0 : s = ""
Do Until n = 3 : n = n + 1 : s = s & n : Loop
WScript.Echo s '=> 123
n = 5 : s = ""
Do : n = n + 1 : s = s & n : Loop While n < 3
WScript.Echo s '=> 6
n = 5 : s = ""
Do : n = n + 1 : s = s & n : Loop Until n > 7
WScript.Echo s '=> 678
n = 0
Do
  n = n + 1
  If n > 4 Then Exit Do
Loop
WScript.Echo n '=> 5
n = 0
While n < 4
  n = n + 1
Wend
WScript.Echo n '=> 4
Do While False : WScript.Echo "no" : Loop
Do Until True : WScript.Echo "no" : Loop
While False
  WScript.Echo "no"
Wend
'---- Exit Do leaves the Do around a While
Dim n
Do
  While True
    n = n + 1
    If n = 3 Then Exit Do
  Wend
Loop
WScript.Echo n '=> 3
'---- Exit For from inside a Do
Dim i
For i = 1 To 5
  Do
    If i = 3 Then Exit For
    Exit Do
  Loop
Next
WScript.Echo i '=> 3
'---- For Each over arrays
Dim e, s
For Each e In Array(1, "two", 3.5)
  s = s & e & ";"
Next
WScript.Echo s '=> 1;two;3.5;
For Each e In Array()
  WScript.Echo "no"
Next
Dim a(2)
a(0) = 1 : a(1) = 2 : a(2) = 3
For Each e In a
  e = e * 10
Next
WScript.Echo a(0) & a(1) & a(2) '=> 123
'---- For Each over an array of two dimensions runs the first index fastest
Dim m(1, 2), i, j, e, s
For i = 0 To 1
  For j = 0 To 2
    m(i, j) = i & j & " "
  Next
Next
For Each e In m : s = s & e : Next
WScript.Echo s '=> 00 10 01 11 02 12 
'---- Exit For from For Each
Dim e
For Each e In Array(1, 2, 3)
  If e = 2 Then Exit For
Next
WScript.Echo e '=> 2
'---- Nested For Each over one array
Dim a, x, y, s
a = Array("a", "b")
For Each x In a
  For Each y In a
    s = s & x & y & " "
  Next
Next
WScript.Echo s '=> aa ab ba bb 
'---- For Each over what is no collection
Dim e
For Each e In 5 '!! 451
Next
'---- With
Class Box
  Public Width
  Public Inner
  Public Function Area(h)
    Area = Width * h
  End Function
End Class
Dim b
Set b = New Box
With b
  .Width = 4
  WScript.Echo .Width '=> 4
  WScript.Echo .Area(3) '=> 12
  Set .Inner = New Box
  With .Inner
    .Width = 9
    WScript.Echo .Width '=> 9
  End With
  WScript.Echo .Inner.Width & .Width '=> 94
  WScript.Echo .Area(.Width) '=> 16
End With
'---- With keeps its object when the variable changes
Class Box
  Public V
End Class
Dim b
Set b = New Box
b.V = 1
With b
  Set b = Nothing
  WScript.Echo .V '=> 1
End With
'---- A blank before the dot begins an argument
Class Box
  Public V
End Class
Sub Show(x)
  WScript.Echo x
End Sub
Dim b
Set b = New Box
b.V = "shown"
With b
  Show .V '=> shown
End With
'---- Stop does nothing
Stop
WScript.Echo "on" '=> on
'---- A Case with a text that is no number does not match a number
Select Case 5
  Case "", "abc"
    WScript.Echo "no"
  Case "5"
    WScript.Echo "as a number" '=> as a number
End Select
