'---- 1024 End of nothing
x = 5 : End '!! 1024@9
'---- 1002 a date that is none
x = #no date# '!! 1002@5
'---- 1024 Option Explicit behind something else
Option Explicit
Option Explicit '!! 1024@1
'---- 1002 a Sub inside a loop
Do
Sub S '!! 1002@1
'---- 1002 a Sub inside a Sub
Sub S
Sub T '!! 1002@1
'---- 1002 a Class inside an If
If True Then
Class C '!! 1002@1
'---- 1005 Expected '('
ReDim a '!! 1005
'---- 1006 Expected ')'
x = (1 + 2 '!! 1006
'---- 1006 in a call
x = Len("a" '!! 1006
'---- 1007 Expected ']'
[abc = 1 '!! 1007
'---- 1010 Expected identifier
Dim 5 '!! 1010@5
'---- 1010 a reserved word
Dim If '!! 1010@5
'---- 1010 behind a dot
x = a. '!! 1010
'---- 1010 a Sub's name
Sub 1 '!! 1010@5
'---- 1010 a Class's name
Class '!! 1010
'---- 1010 New without a class
Set x = New '!! 1010
'---- 1011 Expected '='
For i 1 To 2 '!! 1011@7
'---- 1011 in Const
Const a 5 '!! 1011@9
'---- 1011 in Set
Set x 5 '!! 1011@7
'---- 1012 Expected 'If'
If True Then
End Sub '!! 1012@5
'---- 1013 Expected 'To'
For i = 1 '!! 1013
'---- 1014 Expected 'End'
Sub S
x = 1
'!! 1014
'---- 1015 Expected 'Function'
Function F
End Sub '!! 1015@5
'---- 1016 Expected 'Sub'
Sub S
End Function '!! 1016@5
'---- 1017 Expected 'Then'
If True '!! 1017
'---- 1017 in ElseIf
If True Then
ElseIf False '!! 1017
End If
'---- 1018 Expected 'Wend'
While True
'!! 1018
'---- 1019 Expected 'Loop'
Do
'!! 1019
'---- 1020 Expected 'Next'
For i = 1 To 2
'!! 1020
'---- 1020 in For Each
For Each e In a
'!! 1020
'---- 1021 Expected 'Case'
Select x '!! 1021@8
'---- 1022 Expected 'Select'
Select Case 1
Case 1
End If '!! 1022@5
'---- 1023 Expected expression
x = '!! 1023
'---- 1023 an operator without its right side
x = 1 + '!! 1023
'---- 1023 an operator without its left side
x = * 1 '!! 1023@5
'---- 1023 in a list
x = F(1, *) '!! 1023@10
'---- 1024 Expected statement
5 '!! 1024@1
'---- 1024 a text
"abc" '!! 1024@1
'---- 1025 Expected end of statement
x = 1 2 '!! 1025@7
'---- 1025 behind Next
For i = 1 To 2
Next i '!! 1025@6
'---- 1025 behind End Sub
Sub S
End Sub x '!! 1025@9
'---- 1025 a number that runs into a name
x = 1abc '!! 1025@6
'---- 1025 in an expression
x = a b '!! 1025@7
'---- 1026 Expected integer constant
Dim a(n) '!! 1026@7
'---- 1026 with a fraction
Dim a(1.5) '!! 1026@7
'---- 1026 with a sign
Dim a(-1) '!! 1026@7
'---- 1028 Expected 'While', 'Until' or end of statement
Do x '!! 1028@4
'---- 1029 Expected 'With'
With x
End If '!! 1029@5
'---- 1031 Invalid number
x = 1e '!! 1031@5
'---- 1032 Invalid character
x = 5 ? 3 '!! 1032@7
'---- 1032 at the start
@x = 1 '!! 1032@1
'---- 1037 Invalid use of 'Me' keyword
Set Me = x '!! 1037@5
'---- 1037 in an assignment
Me = 5 '!! 1037@1
'---- 1038 'loop' without 'do'
x = 1
Loop '!! 1038@1
'---- 1039 Invalid 'exit' statement
Exit Do '!! 1039
'---- 1039 Exit For outside a For
Do
Exit For '!! 1039
Loop
'---- 1039 Exit Sub at the top level
Exit Sub '!! 1039
'---- 1039 Exit Function in a Sub
Sub S
Exit Function '!! 1039
End Sub
'---- 1039 Exit Sub in a Function
Function F
Exit Sub '!! 1039
End Function
'---- 1039 Exit Property in a Sub
Sub S
Exit Property '!! 1039
End Sub
'---- 1039 Exit without a word
Exit '!! 1039
'---- 1040 Invalid 'for' loop control variable
For a(1) = 1 To 2 '!! 1040@5
'---- 1040 a member
For a.b = 1 To 2 '!! 1040@5
'---- 1041 Name redefined
Dim a
Dim a '!! 1041@5
'---- 1041 in one list
Dim a, a '!! 1041@8
'---- 1041 in another letter case
Dim abc, ABC '!! 1041@10
'---- 1041 a constant
Dim a
Const a = 1 '!! 1041@7
'---- 1041 a parameter twice
Sub S(a, a) '!! 1041@10
'---- 1041 a local with a parameter's name
Sub S(a)
Dim a '!! 1041@5
'---- 1041 two classes
Class C
End Class
Class C '!! 1041@7
'---- 1041 members of a class
Class C
Public A
Public A '!! 1041@8
'---- 1041 two methods of a class
Class C
Sub M
End Sub
Sub M '!! 1041@5
End Sub
End Class
'---- 1041 two getters
Class C
Property Get P
End Property
Property Get P '!! 1041@14
End Property
End Class
'---- 1044 Cannot use parentheses when calling a Sub
S(1, 2) '!! 1044
'---- 1044 for a method
o.M(1, 2) '!! 1044
'---- 1044 with a left-out argument
S(1, ) '!! 1044
'---- 1045 Expected literal constant
Const a = b '!! 1045@11
'---- 1045 a call
Const a = Len("x") '!! 1045@11
'---- 1025 an expression in Const
Const a = 1 + 2 '!! 1025@13
'---- 1046 Expected 'In'
For Each e '!! 1046
'---- 1047 Expected 'Class'
Class C
End Sub '!! 1047@5
'---- 1048 Must be defined inside a Class
Public Property Get P '!! 1048@8
'---- 1048 Default outside a class
Public Default Sub S '!! 1048@8
'---- 1049 Expected Let or Set or Get in property declaration
Class C
Property P '!! 1049@10
'---- 1050 Expected 'Property'
Class C
Property Get P
End Sub '!! 1050@5
'---- 1051 Number of arguments must be consistent across properties specification
Class C
Property Get P(a)
End Property
Property Let P(v) '!! 1051
End Property
End Class
'---- 1052 Cannot have multiple default property/method in a Class
Class C
Public Default Property Get A
End Property
Public Default Property Get B '!! 1052
End Property
End Class
'---- 1053 Class initialize or terminate do not have arguments
Class C
Sub Class_Initialize(a) '!! 1053
End Sub
End Class
'---- 1054 Property set or let must have at least one argument
Class C
Property Let P '!! 1054
End Property
End Class
'---- 1055 Unexpected 'Next'
x = 1
Next '!! 1055@1
'---- 1056 'Default' can be specified only on 'Property' or 'Function' or 'Sub'
Class C
Public Default x '!! 1056@16
'---- 1057 'Default' specification must also specify 'Public'
Class C
Private Default Function F '!! 1057@9
'---- 1057 without a word
Class C
Default Function F '!! 1057@1
'---- 1058 'Default' specification can only be on Property Get
Class C
Public Default Property Let P(v) '!! 1058
End Property
End Class
'---- Nothing of a broken module runs
WScript.Echo "never"
x = = 1 '!! 1023@5
'---- Lines are counted through continuations
x = 1 + _
 2 + _
 * 3 '!! 1023@2
'---- Columns count characters
x = "Grüße 地図" 5 '!! 1025@16
'---- Tabs count one
	x = * '!! 1023@6

'---- 1041 a variable twice
Dim x
Dim x '!! 1041@5
'---- 1041 a variable and a constant
Dim x
Const x = 1 '!! 1041@7
'---- 1041 a variable and a procedure
Dim x
Sub x '!! 1041@5
End Sub
'---- 1041 a procedure and a variable
Sub x
End Sub
Dim x '!! 1041@5
'---- 1041 a procedure and a class
Function x
End Function
Class x '!! 1041@7
End Class
'---- 1041 a class twice
Class x
End Class
Class x '!! 1041@7
End Class
'---- 1041 a class and a procedure
Class x
End Class
Sub x '!! 1041@5
End Sub
'---- 1041 a parameter and a local variable
Sub S(a)
Dim a '!! 1041@5
End Sub
'---- A procedure may be defined again
Sub S : WScript.Echo 1 : End Sub
Function S : WScript.Echo 2 : End Function
S '=> 2
'---- 1048 a Property outside of a class
x = 1
Property Get P '!! 1048@1
'---- 1048 a public one
Public Property Let P(x) '!! 1048@8
'---- Property is a name like others
Property = 5
WScript.Echo Property '=> 5
'---- 1055 Next inside an open If
For i = 1 To 2
If True Then
Next '!! 1055@1
'---- 1055 Next inside an open Do
For i = 1 To 2
Do
Next '!! 1055@1
'---- 1038 Loop inside an open If
Do
If True Then
Loop '!! 1038@1
'---- 1038 Loop for a While
While True
Loop '!! 1038@1
'---- 1019 Wend for a Do
Do
Wend '!! 1019@1
'---- 1020 Loop's end for a For
For i = 1 To 2
Wend '!! 1020@1
'---- 1014 Wend inside an open If
If True Then
Wend '!! 1014@1
'---- 1014 Case inside an open If
If True Then
Case 1 '!! 1014@1
'---- 1014 a second Else
If True Then
Else
Else '!! 1014@1
'---- 1024 Else of nothing
Else '!! 1024@1
'---- 1024 End If of nothing
End If '!! 1024@1
'---- 1024 Wend of nothing
Wend '!! 1024@1
'---- 1024 Case of nothing
Case 1 '!! 1024@1
'---- 1024 a word that begins no statement
Then x = 1 '!! 1024@1
'---- 1025 End If behind a statement
If 0 > 1 Then
    x = 0 End If '!! 1025@11
'---- 1025 End If behind a statement of a later line
If True Then
Else
    x = 0 End If '!! 1025@11
'---- 1025 Wend behind a statement
While False
    x = 0 Wend '!! 1025@11
'---- 1025 Loop behind a statement
Do
    x = 0 Loop '!! 1025@11
'---- 1025 End Select behind a statement
Select Case 42
    Case 42
        x = True End Select '!! 1025@18
'---- 1025 End Class behind the name
Class C End Class '!! 1025@9
'---- 1025 End Class behind a continued name
Class C _
End Class '!! 1025@1
'---- 1025 a Sub without parentheses on one line
Sub S x = 1 End Sub '!! 1025@7
'---- 1025 a type in a declaration
Dim x As Integer '!! 1025@7
'---- 1025 a variable behind Next
For i = 1 To 2
Next i '!! 1025@6
'---- 1025 an expression in a constant
Const x = 1 + 2 '!! 1025@13
'---- 1044 parentheses around two arguments
strcomp("x", "y") '!! 1044
'---- 1045 a constant that is no literal
Const x = y '!! 1045@11
'---- 1045 a constant without a value
Const x = '!! 1045
'---- 1045 a constant that is negated
Const x = Not True '!! 1045@11
'---- 1045 a constant that is made
Const x = New C '!! 1045@11
'---- 1045 a constant that is computed
Const x = -f(1) '!! 1045@12
'---- 1026 a bound that is no number
Dim a(n) '!! 1026@7
'---- 1028 behind Loop
Do
Loop x '!! 1028@6
'---- 1031 a number with too many digits
x = &H123456789 '!! 1031@5
'---- 1023 ReDim without bounds
ReDim a() '!! 1023@9
'---- 1010 Call of a number
Call 5 '!! 1010@6
'---- 1010 Set of a number
Set 5 = x '!! 1010@5
'---- 1010 Erase of a number
Erase 5 '!! 1010@7
'---- 1014 Case behind Case Else
Select Case 1
Case Else
Case 1 '!! 1014@1
'---- 1025 a range in a Case
Select Case 1
Case 1 To 3 '!! 1025@8
'---- 1044 the place behind the list
strcomp("x", "y") '!! 1044@19
