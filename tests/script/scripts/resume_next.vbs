'---- If: a condition that fails enters its branch
On Error Resume Next
If 1 / 0 Then WScript.Echo "then" Else WScript.Echo "else" '=> then
If 1 / 0 Then
  WScript.Echo "block", Err.Number '=> block 11
End If
If False Then
  WScript.Echo "first"
ElseIf 1 / 0 Then
  WScript.Echo "second" '=> second
Else
  WScript.Echo "third"
End If
If Not (1 / 0) Then WScript.Echo "not" '=> not
If 1 / 0 = 1 Or True Then WScript.Echo "or" '=> or
'---- If: a failing statement of a branch stays in the branch
On Error Resume Next
If True Then
  x = 1 / 0
  WScript.Echo "still in" '=> still in
Else
  WScript.Echo "else"
End If
'---- Select Case: a subject that fails leaves the statement
On Error Resume Next
Select Case 1 / 0
  Case 0 WScript.Echo "zero"
  Case Else WScript.Echo "else"
End Select
WScript.Echo "behind", Err.Number '=> behind 11
'---- Select Case: a value that fails goes on in its branch
On Error Resume Next
Select Case 3
  Case 1 WScript.Echo "one"
  Case 1 / 0 WScript.Echo "failed" '=> failed
  Case 3 WScript.Echo "three"
  Case Else WScript.Echo "else"
End Select
WScript.Echo "behind", Err.Number '=> behind 11
Err.Clear
Select Case 3
  Case 1, 1 / 0, 3 WScript.Echo "listed" '=> listed
  Case Else WScript.Echo "else"
End Select
WScript.Echo "behind", Err.Number '=> behind 11
'---- Select Case: a value behind the one that matches is not looked at
On Error Resume Next
Select Case 3
  Case 3, 1 / 0 WScript.Echo "three" '=> three
End Select
WScript.Echo Err.Number '=> 0
'---- Select Case: a failing statement of a branch stays in the branch
On Error Resume Next
Select Case 1
  Case 1
    x = 1 / 0
    WScript.Echo "still in" '=> still in
  Case Else
    WScript.Echo "else"
End Select
'---- Do Loop While: a condition that fails leaves the loop
On Error Resume Next
n = 0
Do
  n = n + 1
Loop While 1 / 0
WScript.Echo n, Err.Number '=> 1 11
'---- Do Loop Until: a condition that fails leaves the loop
On Error Resume Next
n = 0
Do
  n = n + 1
Loop Until 1 / 0
WScript.Echo n, Err.Number '=> 1 11
'---- Do Loop While: a condition that fails later leaves the loop there
On Error Resume Next
n = 3
Do
  n = n - 1
Loop While 6 \ n > 0
WScript.Echo n, Err.Number '=> 0 11
'---- Do While: a condition that fails lets the body run, but not for ever
On Error Resume Next
n = 0
Do While 1 / 0
  n = n + 1
Loop
WScript.Echo n, Err.Number '=> 2 11
'---- Do Until: a condition that fails lets the body run, but not for ever
On Error Resume Next
n = 0
Do Until 1 / 0
  n = n + 1
Loop
WScript.Echo n, Err.Number '=> 2 11
'---- While Wend: a condition that fails lets the body run, but not for ever
On Error Resume Next
n = 0
While CInt("none") > 0
  n = n + 1
Wend
WScript.Echo n, Err.Number '=> 2 13
'---- Do While: the body may mend what the condition failed at
On Error Resume Next
d = 0 : n = 0
Do While 6 / d > 1
  d = d + 1
  n = n + 1
Loop
WScript.Echo d, n '=> 6 6
'---- Do While: the failures are counted anew each time the loop begins
On Error Resume Next
n = 0
For i = 1 To 3
  Do While 1 / 0
    n = n + 1
  Loop
Next
WScript.Echo n '=> 6
'---- Do While: in a procedure, with an Exit
Function F
  On Error Resume Next
  Do While 1 / 0
    F = F + 1
    Exit Do
  Loop
End Function
WScript.Echo F() '=> 1
'---- Do: a failing statement of the body does not end the loop
On Error Resume Next
n = 0
Do
  x = 1 / 0
  n = n + 1
Loop While n < 3
WScript.Echo n '=> 3
'---- For: a first value that fails
On Error Resume Next
n = 0 : i = "old"
For i = 1 / 0 To 5
  n = n + 1
Next
WScript.Echo i, n, Err.Number, Err.Description '=> old 1 92 For loop not initialized
'---- For: a last value that fails
On Error Resume Next
n = 0 : i = "old"
For i = 1 To 1 / 0
  n = n + 1
Next
WScript.Echo i, n, Err.Number '=> old 1 92
'---- For: a step that fails
On Error Resume Next
n = 0 : i = "old"
For i = 1 To 5 Step 1 / 0
  n = n + 1
Next
WScript.Echo i, n, Err.Number '=> old 1 92
'---- For: values that are no numbers
On Error Resume Next
n = 0
For i = "a" To 5 : WScript.Echo Err.Number : n = n + 1 : Next '=> 13
For i = 1 To "a" : WScript.Echo Err.Number : n = n + 1 : Next '=> 13
For i = 1 To 5 Step "a" : WScript.Echo Err.Number : n = n + 1 : Next '=> 13
For i = Null To 5 : WScript.Echo Err.Number : n = n + 1 : Next '=> 94
For i = 1 To Null : WScript.Echo Err.Number : n = n + 1 : Next '=> 94
For i = 1 To 5 Step Null : WScript.Echo Err.Number : n = n + 1 : Next '=> 94
For i = 1 To Nothing : WScript.Echo Err.Number : n = n + 1 : Next '=> 91
WScript.Echo n, Err.Number '=> 7 92
'---- For: Exit For leaves a loop whose head has failed
On Error Resume Next
For i = 1 To 1 / 0
  Exit For
Next
WScript.Echo Err.Number '=> 11
'---- For: a variable that its body makes no number leaves the loop
On Error Resume Next
n = 0
For i = 1 To 5
  n = n + 1
  i = "word"
Next
WScript.Echo n, Err.Number '=> 1 13
n = 0 : Err.Clear
For i = 1 To 5
  n = n + 1
  i = Null
Next
WScript.Echo n '=> 1
'---- For: the head's numbers fail again and again inside another loop
On Error Resume Next
n = 0
For j = 1 To 3
  For i = 1 To 1 / 0
    n = n + 1
  Next
Next
WScript.Echo n, j, Err.Number '=> 3 4 92
'---- For: without a handler the head's own error counts
For i = 1 To 1 / 0 '!! 11
Next
'---- For: in a procedure without a handler the caller goes on behind the call
Sub S
  For i = 1 To 1 / 0
    WScript.Echo "never"
  Next
  WScript.Echo "never"
End Sub
On Error Resume Next
S
WScript.Echo Err.Number '=> 11
'---- For Each: an expression that fails
On Error Resume Next
n = 0 : e = "old"
For Each e In 1 / 0
  n = n + 1
Next
WScript.Echo e, n, Err.Number, Err.Description '=> old 1 451 Object not a collection
'---- For Each: what is no collection
On Error Resume Next
n = 0 : e = "old"
For Each e In Empty : n = n + 1 : Next
WScript.Echo e, n, Err.Number '=> old 1 451
Err.Clear
For Each e In "text" : n = n + 1 : Next
WScript.Echo e, n, Err.Number '=> old 2 451
Err.Clear
For Each e In Nothing : n = n + 1 : Next
WScript.Echo e, n, Err.Number '=> old 3 451
'---- For Each: behind a collection the variable is Empty
Dim d, e
Set d = CreateObject("Scripting.Dictionary")
d.Add "a", 1
For Each e In d
  WScript.Echo e '=> a
Next
WScript.Echo TypeName(e) '=> Empty
'---- For Each: behind an array the variable keeps the last element
Dim e
For Each e In Array(1, 2)
Next
WScript.Echo e '=> 2
'---- For Each: a loop that is left keeps the variable
Dim d, e
Set d = CreateObject("Scripting.Dictionary")
d.Add "a", 1
d.Add "b", 2
For Each e In d
  Exit For
Next
WScript.Echo e '=> a
'---- For Each: a failing statement of the body does not end the loop
On Error Resume Next
n = 0
For Each e In Array(1, 2, 3)
  x = 1 / 0
  n = n + 1
Next
WScript.Echo n '=> 3
'---- With: an object that fails
On Error Resume Next
With 1 / 0
  WScript.Echo "in", Err.Number '=> in 11
  .x = 1
  WScript.Echo Err.Number '=> 424
End With
WScript.Echo "behind" '=> behind
'---- With: the object of an earlier With is not the one that fails
Class C : Public V : End Class
Sub S
  On Error Resume Next
  With New C : .V = 1 : End With
  With 1 / 0
    .V = 2
    WScript.Echo Err.Number '=> 424
  End With
End Sub
S
'---- Assignments: the target keeps its value
On Error Resume Next
Dim a(1)
x = "old" : a(0) = "old"
x = 1 / 0
a(0) = 1 / 0
a(1 / 0) = 5
a(7) = 5
Set x = 5
Set x = 1 / 0
WScript.Echo x, a(0) '=> old old
'---- Assignments: to what takes no value
On Error Resume Next
Const c = 1
Sub S : End Sub
Execute "c = 2"
WScript.Echo Err.Number '=> 501
Err.Clear
S = 1
WScript.Echo Err.Number '=> 501
'---- Calls: an argument that fails keeps the procedure from being called
Sub S(a, b) : WScript.Echo "called" : End Sub
On Error Resume Next
S 1, 1 / 0
S 1 / 0, 1
Call S(1 / 0, 1)
x = Left("abc", 1 / 0)
WScript.Echo "behind", x, Err.Number '=> behind  11
'---- ReDim and Erase: the array stays as it was
On Error Resume Next
ReDim a(2)
a(2) = "kept"
ReDim a(1 / 0)
ReDim a(-5)
ReDim Preserve a(1, 1)
Erase x
WScript.Echo UBound(a), a(2) '=> 2 kept
'---- Exit and the ends of procedures
Function F
  On Error Resume Next
  F = 1
  x = 1 / 0
End Function
Function G
  On Error Resume Next
  G = 1
  Exit Function
  G = 2
End Function
WScript.Echo F(), G() '=> 1 1
'---- Execute and Eval: the statement that executes the text goes on behind itself
On Error Resume Next
Execute "x = 1 : x = 1 / 0 : x = 2"
WScript.Echo x, Err.Number '=> 1 11
Err.Clear
Execute "x ="
WScript.Echo Err.Number '=> 1023
Err.Clear
y = Eval("1 / 0")
WScript.Echo TypeName(y), Err.Number '=> Empty 11
