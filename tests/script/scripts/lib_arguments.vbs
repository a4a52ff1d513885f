'---- Every builtin with each kind of value in each place
Class Plain
End Class
Class Valued
  Public Default Property Get Value : Value = 1 : End Property
End Class
Dim plain_object, valued_object
Set plain_object = New Plain
Set valued_object = New Valued

Function Outcome(form, argument)
  Dim value
  On Error Resume Next
  value = Eval(Replace(form, "?", argument))
  If Err.Number <> 0 Then
    Outcome = " !" & Err.Number
  Else
    Outcome = " " & TypeName(value) & ":" & value
  End If
End Function

' With Null, Empty, True, Nothing, an object without a value, an object whose value is 1, and a text.
Sub Try(form)
  Dim argument, line
  For Each argument In Array("Null", "Empty", "True", "Nothing", "plain_object", "valued_object", """x""")
    line = line & Outcome(form, argument)
  Next
  WScript.Echo Mid(line, 2)
End Sub

Try "Abs(?)" '=> Null: Integer:0 Integer:1 !91 !438 Integer:1 !13
Try "Asc(?)" '=> !94 !5 Integer:84 !91 !438 Integer:49 Integer:120
Try "AscB(?)" '=> !94 !5 Byte:84 !91 !438 Byte:49 Byte:120
Try "AscW(?)" '=> !94 !5 Integer:84 !91 !438 Integer:49 Integer:120
Try "Atn(?)" '=> !94 Double:0 Double:-0.785398163397448 !91 !438 Double:0.785398163397448 !13
Try "CBool(?)" '=> !94 Boolean:False Boolean:True !91 !438 Boolean:True !13
Try "CByte(?)" '=> !94 Byte:0 Byte:255 !91 !438 Byte:1 !13
Try "CCur(?)" '=> !94 Currency:0 Currency:-1 !91 !438 Currency:1 !13
Try "CDate(?)" '=> !94 Date:12:00:00 AM Date:12/29/1899 !91 !438 Date:12/31/1899 !13
Try "CDbl(?)" '=> !94 Double:0 Double:-1 !91 !438 Double:1 !13
Try "Asc(Chr(?))" '=> !94 Integer:0 !5 !91 !438 Integer:1 !13
Try "AscW(ChrW(?))" '=> !94 Integer:0 Integer:-1 !91 !438 Integer:1 !13
Try "CInt(?)" '=> !94 Integer:0 Integer:-1 !91 !438 Integer:1 !13
Try "CLng(?)" '=> !94 Long:0 Long:-1 !91 !438 Long:1 !13
Try "Cos(?)" '=> !94 Double:1 Double:0.54030230586814 !91 !438 Double:0.54030230586814 !13
Try "CSng(?)" '=> !94 Single:0 Single:-1 !91 !438 Single:1 !13
Try "CStr(?)" '=> !94 String: String:True !91 !438 String:1 String:x
Try "DateAdd(?, 1, #1/2/2020#)" '=> !94 !5 !5 !91 !438 !5 !5
Try "DateAdd(""d"", ?, #1/2/2020#)" '=> !94 Date:1/2/2020 Date:1/1/2020 !91 !438 Date:1/3/2020 !13
Try "DateAdd(""d"", 1, ?)" '=> Null: Date:12/31/1899 Date:12:00:00 AM !91 !438 Date:1/1/1900 !13
Try "DateDiff(?, #1/2/2020#, #1/3/2020#)" '=> !94 !5 !5 !91 !438 !5 !5
Try "DateDiff(""d"", ?, #1/3/1900#)" '=> Null: Long:4 Long:5 !91 !438 Long:3 !13
Try "DateDiff(""d"", #1/3/1900#, ?)" '=> Null: Long:-4 Long:-5 !91 !438 Long:-3 !13
Try "DateDiff(""ww"", #1/2/2020#, #1/9/2020#, ?)" '=> !94 Long:1 !5 !91 !438 Long:1 !13
Try "DateDiff(""ww"", #1/2/2020#, #1/9/2020#, 1, ?)" '=> !94 Long:1 !5 !91 !438 Long:1 !13
Try "DatePart(?, #1/2/2020#)" '=> !94 !5 !5 !91 !438 !5 !5
Try "DatePart(""yyyy"", ?)" '=> Null: Integer:1899 Integer:1899 !91 !438 Integer:1899 !13
Try "DatePart(""ww"", #1/2/2020#, ?)" '=> !94 Integer:1 !5 !91 !438 Integer:1 !13
Try "DatePart(""ww"", #1/2/2020#, 1, ?)" '=> !94 Integer:1 !5 !91 !438 Integer:1 !13
Try "DateSerial(?, 1, 1)" '=> !94 Date:1/1/2000 !5 !91 !438 Date:1/1/2001 !13
Try "DateSerial(2020, ?, 1)" '=> !94 Date:12/1/2019 Date:11/1/2019 !91 !438 Date:1/1/2020 !13
Try "DateSerial(2020, 1, ?)" '=> !94 Date:12/31/2019 Date:12/30/2019 !91 !438 Date:1/1/2020 !13
Try "DateValue(?)" '=> !94 Date:12:00:00 AM Date:12/29/1899 !91 !438 Date:12/31/1899 !13
Try "Day(?)" '=> Null: Integer:30 Integer:29 !91 !438 Integer:31 !13
Try "Exp(?)" '=> !94 Double:1 Double:0.367879441171442 !91 !438 Double:2.71828182845905 !13
Try "Fix(?)" '=> Null: Integer:0 Integer:-1 !91 !438 Integer:1 !13
Try "FormatCurrency(?)" '=> !13 String:$0.00 String:($1.00) !91 !438 String:$1.00 !13
Try "FormatCurrency(1, ?)" '=> !94 String:$1 String:$1.00 !91 !438 String:$1.0 !13
Try "FormatCurrency(1, 0, ?)" '=> !94 String:$1 String:$1 !91 !438 !5 !13
Try "FormatCurrency(1, 0, 0, ?)" '=> !94 String:$1 String:$1 !91 !438 !5 !13
Try "FormatCurrency(1, 0, 0, 0, ?)" '=> !94 String:$1 String:$1 !91 !438 !5 !13
Try "FormatDateTime(?)" '=> !13 String:12:00:00 AM String:12/29/1899 !91 !438 String:12/31/1899 !13
Try "FormatDateTime(2, ?)" '=> !94 String:1/1/1900 !5 !91 !438 String:Monday, January 1, 1900 !13
Try "FormatNumber(?)" '=> !13 String:0.00 String:-1.00 !91 !438 String:1.00 !13
Try "FormatNumber(1, ?)" '=> !94 String:1 String:1.00 !91 !438 String:1.0 !13
Try "FormatPercent(?)" '=> !13 String:0.00% String:-100.00% !91 !438 String:100.00% !13
Try "FormatPercent(1, ?)" '=> !94 String:100% String:100.00% !91 !438 String:100.0% !13
Try "Hex(?)" '=> Null: String:0 String:FFFF !91 !438 String:1 !13
Try "Hour(?)" '=> Null: Integer:0 Integer:0 !91 !438 Integer:0 !13
Try "InStr(?, ""b"")" '=> Null: Long:0 Long:0 !91 !438 Long:0 Long:0
Try "InStr(""True"", ?)" '=> Null: Long:1 Long:1 !91 !438 Long:0 Long:0
Try "InStr(?, ""ab"", ""b"")" '=> !94 !5 !5 !91 !438 Long:2 !13
Try "InStr(1, ""ab"", ""b"", ?)" '=> !94 Long:2 !5 !91 !438 Long:2 !13
Try "InStrB(""ab"", ?)" '=> Null: Long:1 Long:0 !91 !438 Long:0 Long:0
Try "InStrRev(?, ""e"")" '=> !94 Long:0 Long:4 !91 !438 Long:0 Long:0
Try "InStrRev(""True"", ?)" '=> !94 Long:4 Long:1 !91 !438 Long:0 Long:0
Try "InStrRev(""ab"", ""b"", ?)" '=> !94 !5 Long:2 !91 !438 Long:0 !13
Try "InStrRev(""ab"", ""b"", -1, ?)" '=> !94 Long:2 !5 !91 !438 Long:2 !13
Try "Int(?)" '=> Null: Integer:0 Integer:-1 !91 !438 Integer:1 !13
Try "IsArray(?)" '=> Boolean:False Boolean:False Boolean:False Boolean:False Boolean:False Boolean:False Boolean:False
Try "IsDate(?)" '=> Boolean:False Boolean:False Boolean:False Boolean:False Boolean:False Boolean:False Boolean:False
Try "IsEmpty(?)" '=> Boolean:False Boolean:True Boolean:False Boolean:False Boolean:False Boolean:False Boolean:False
Try "IsNull(?)" '=> Boolean:True Boolean:False Boolean:False Boolean:False Boolean:False Boolean:False Boolean:False
Try "IsNumeric(?)" '=> Boolean:False Boolean:True Boolean:True Boolean:False Boolean:False Boolean:True Boolean:False
Try "IsObject(?)" '=> Boolean:False Boolean:False Boolean:False Boolean:True Boolean:True Boolean:True Boolean:False
Try "LBound(?)" '=> !13 !13 !13 !13 !13 !13 !13
Try "LBound(Array(1), ?)" '=> !94 !9 !9 !91 !438 Long:0 !13
Try "LCase(?)" '=> Null: String: String:true !91 !438 String:1 String:x
Try "Left(?, 1)" '=> Null: String: String:T !91 !438 String:1 String:x
Try "Left(""ab"", ?)" '=> !94 String: !5 !91 !438 String:a !13
Try "LeftB(?, 2)" '=> Null: String: String:T !91 !438 String:1 String:x
Try "Len(?)" '=> Null: Long:0 Long:4 !91 !438 Long:1 Long:1
Try "LenB(?)" '=> Null: Long:0 Long:8 !91 !438 Long:2 Long:2
Try "Log(?)" '=> !94 !5 !5 !91 !438 Double:0 !13
Try "LTrim(?)" '=> Null: String: String:True !91 !438 String:1 String:x
Try "Mid(?, 1)" '=> Null: String: String:True !91 !438 String:1 String:x
Try "Mid(""ab"", ?)" '=> !94 !5 !5 !91 !438 String:ab !13
Try "Mid(""ab"", 1, ?)" '=> !94 String: !5 !91 !438 String:a !13
Try "Minute(?)" '=> Null: Integer:0 Integer:0 !91 !438 Integer:0 !13
Try "Month(?)" '=> Null: Integer:12 Integer:12 !91 !438 Integer:12 !13
Try "MonthName(?)" '=> !94 !5 !5 !91 !438 String:January !13
Try "MonthName(1, ?)" '=> !94 String:January String:Jan !91 !438 String:Jan !13
Try "Oct(?)" '=> Null: String:0 String:177777 !91 !438 String:1 !13
Try "Replace(?, ""e"", ""x"")" '=> !94 String: String:Trux !91 !438 String:1 String:x
Try "Replace(""True"", ?, ""x"")" '=> !94 String:True String:x !91 !438 String:True String:True
Try "Replace(""ab"", ""b"", ?)" '=> !94 String:a String:aTrue !91 !438 String:a1 String:ax
Try "Replace(""ab"", ""b"", ""x"", ?)" '=> !94 !5 !5 !91 !438 String:ax !13
Try "Replace(""ab"", ""b"", ""x"", 1, ?)" '=> !94 String:ab String:ax !91 !438 String:ax !13
Try "Replace(""ab"", ""b"", ""x"", 1, 1, ?)" '=> !94 String:ax !5 !91 !438 String:ax !13
Try "RGB(?, 0, 0)" '=> !94 Long:0 !5 !91 !438 Long:1 !13
Try "RGB(0, ?, 0)" '=> !94 Long:0 !5 !91 !438 Long:256 !13
Try "RGB(0, 0, ?)" '=> !94 Long:0 !5 !91 !438 Long:65536 !13
Try "Right(?, 1)" '=> Null: String: String:e !91 !438 String:1 String:x
Try "Right(""ab"", ?)" '=> !94 String: !5 !91 !438 String:b !13
Try "Round(?)" '=> !94 Integer:0 Boolean:True !91 !438 Integer:1 !13
Try "Round(1.5, ?)" '=> !94 Double:2 !5 !91 !438 Double:1.5 !13
Try "RTrim(?)" '=> Null: String: String:True !91 !438 String:1 String:x
Try "Second(?)" '=> Null: Integer:0 Integer:0 !91 !438 Integer:0 !13
Try "Sgn(?)" '=> !94 Integer:0 Integer:-1 !91 !438 Integer:1 !13
Try "Sin(?)" '=> !94 Double:0 Double:-0.841470984807897 !91 !438 Double:0.841470984807897 !13
Try "Space(?)" '=> !94 String: !5 !91 !438 String:  !13
Try "UBound(Split(?))" '=> !94 Long:-1 Long:0 !91 !438 Long:0 Long:0
Try "UBound(Split(""a b"", ?))" '=> !94 Long:0 Long:0 !91 !438 Long:0 Long:0
Try "UBound(Split(""a b"", "" "", ?))" '=> !94 Long:-1 Long:1 !91 !438 Long:0 !13
Try "UBound(Split(""a b"", "" "", -1, ?))" '=> !94 Long:1 !5 !91 !438 Long:1 !13
Try "Sqr(?)" '=> !94 Double:0 !5 !91 !438 Double:1 !13
Try "StrComp(?, ""a"")" '=> Null: Integer:-1 Integer:-1 !91 !438 Integer:-1 Integer:1
Try "StrComp(""a"", ?)" '=> Null: Integer:1 Integer:1 !91 !438 Integer:1 Integer:-1
Try "StrComp(""a"", ""b"", ?)" '=> !94 Integer:-1 !5 !91 !438 Integer:-1 !13
Try "String(?, ""a"")" '=> Null: String: !5 !91 !438 String:a !13
Try "AscW(String(2, ?))" '=> !94 Integer:0 Integer:255 !91 !438 Integer:1 Integer:120
Try "StrReverse(?)" '=> !94 String: String:eurT !91 !438 String:1 String:x
Try "Tan(?)" '=> !94 Double:0 Double:-1.5574077246549 !91 !438 Double:1.5574077246549 !13
Try "TimeSerial(?, 0, 0)" '=> !94 Date:12:00:00 AM Date:12/29/1899 11:00:00 PM !91 !438 Date:1:00:00 AM !13
Try "TimeSerial(0, ?, 0)" '=> !94 Date:12:00:00 AM Date:12/29/1899 11:59:00 PM !91 !438 Date:12:01:00 AM !13
Try "TimeSerial(0, 0, ?)" '=> !94 Date:12:00:00 AM Date:12/29/1899 11:59:59 PM !91 !438 Date:12:00:01 AM !13
Try "TimeValue(?)" '=> !94 Date:12:00:00 AM Date:12:00:00 AM !91 !438 Date:12:00:00 AM !13
Try "Trim(?)" '=> Null: String: String:True !91 !438 String:1 String:x
Try "TypeName(?)" '=> String:Null String:Empty String:Boolean String:Nothing String:Plain String:Valued String:String
Try "UBound(?)" '=> !13 !13 !13 !13 !13 !13 !13
Try "UBound(Array(1), ?)" '=> !94 !9 !9 !91 !438 Long:0 !13
Try "UCase(?)" '=> Null: String: String:TRUE !91 !438 String:1 String:X
Try "VarType(?)" '=> Integer:1 Integer:0 Integer:11 Integer:9 Integer:9 Integer:2 Integer:8
Try "Weekday(?)" '=> Null: Integer:7 Integer:6 !91 !438 Integer:1 !13
Try "Weekday(#1/2/2020#, ?)" '=> !94 Integer:5 !5 !91 !438 Integer:5 !13
Try "WeekdayName(?)" '=> !94 !5 !5 !91 !438 String:Sunday !13
Try "WeekdayName(1, ?)" '=> !94 String:Sunday String:Sun !91 !438 String:Sun !13
Try "WeekdayName(1, True, ?)" '=> !94 String:Sun !5 !91 !438 String:Sun !13
Try "Year(?)" '=> Null: Integer:1899 Integer:1899 !91 !438 Integer:1899 !13
Try "Join(?)" '=> !13 !13 !13 !13 !13 !13 !13
Try "Join(Array(1, 2), ?)" '=> !94 String:12 String:1True2 !91 !438 String:112 String:1x2
Try "UBound(Filter(?, ""a""))" '=> !13 !13 !13 !13 !13 !13 !13
Try "UBound(Filter(Array(""a""), ?))" '=> !94 Long:0 Long:-1 !91 !438 Long:-1 Long:-1
Try "UBound(Filter(Array(""a""), ""a"", ?))" '=> !94 Long:-1 Long:0 !91 !438 Long:0 !13
Try "UBound(Filter(Array(""a""), ""a"", True, ?))" '=> !94 Long:0 !5 !91 !438 Long:0 !13
Try "Eval(?)" '=> Null: Empty: Boolean:True !91 !438 Integer:1 Empty:
