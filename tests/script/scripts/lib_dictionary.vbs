'---- Items by key
Dim d
Set d = CreateObject("Scripting.Dictionary")
d.Add "one", 1
d("two") = 2
d.Item("three") = 3
WScript.Echo TypeName(d), d.Count, d("one"), d.Item("two"), d("three") '=> Dictionary 3 1 2 3
WScript.Echo d.Exists("one"), d.Exists("four"), Join(d.Keys, ","), d.Items()(1) '=> True False one,two,three 2
For Each k In d
  WScript.Echo k & "=" & d(k)
Next '=> one=1
'=> two=2
'=> three=3
d.Remove "two"
WScript.Echo Join(d.Keys, ",") '=> one,three
d.Key("one") = "uno"
WScript.Echo d("uno"), d.Exists("one") '=> 1 False
d.RemoveAll
WScript.Echo d.Count '=> 0
'---- Reading a missing key adds it
Set d = CreateObject("Scripting.Dictionary")
WScript.Echo IsEmpty(d("x")), d.Count '=> True 1
'---- Counting words
Set d = CreateObject("Scripting.Dictionary")
For Each w In Split("a b a c a b")
  d(w) = d(w) + 1
Next
For Each w In d.Keys
  WScript.Echo w & d(w)
Next '=> a3
'=> b2
'=> c1
'---- Case counts unless told otherwise
Set d = CreateObject("Scripting.Dictionary")
d.Add "A", 1
WScript.Echo d.Exists("a"), d.CompareMode '=> False 0
d.RemoveAll
d.CompareMode = vbTextCompare
d.Add "A", 1
WScript.Echo d.Exists("a"), d("a"), d.CompareMode '=> True 1 1
'---- The mode changes only while it is empty
Set d = CreateObject("Scripting.Dictionary")
d.Add 1, 1
d.CompareMode = 1 '!! 5
'---- Keys of several types
Set d = CreateObject("Scripting.Dictionary")
d.Add 1, "number"
d.Add "1", "text"
d.Add True, "truth"
WScript.Echo d(1), d(1.0), d(CByte(1)), d("1"), d(True), d.Count '=> number number number text truth 3
'---- Objects as items
Set d = CreateObject("Scripting.Dictionary")
Set d("inner") = CreateObject("Scripting.Dictionary")
d("inner")("x") = 5
WScript.Echo d("inner")("x"), TypeName(d("inner")) '=> 5 Dictionary
'---- Arrays as items
Set d = CreateObject("Scripting.Dictionary")
d("list") = Array(1, 2, 3)
WScript.Echo UBound(d("list")), d("list")(2) '=> 2 3
'---- A key that is there
Set d = CreateObject("Scripting.Dictionary")
d.Add "a", 1
d.Add "a", 2 '!! 457
'---- A key that is not there
Set d = CreateObject("Scripting.Dictionary")
d.Remove "a" '!! 32811
'---- An array is no key
Set d = CreateObject("Scripting.Dictionary")
d.Add Array(1), 1 '!! 5
'---- The errors' words
On Error Resume Next
Set d = CreateObject("Scripting.Dictionary")
d.Add "a", 1
d.Add "a", 2
WScript.Echo Err.Number, Err.Description '=> 457 This key is already associated with an element of this collection
Err.Clear
d.Remove "b"
WScript.Echo Err.Number, Err.Description '=> 32811 Element not found
