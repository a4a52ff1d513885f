// Scripts that keep whatever they can make, each in another way, until they are stopped.
#pragma once

#include <string_view>

namespace kestrun::vbs {

struct HostileScript {
  std::string_view name;
  std::string_view text;
};

// clang-format off
inline constexpr HostileScript kHostileScripts[] = {
    {"long texts", "ReDim a(100000)\nFor i = 0 To 100000 : a(i) = String(10000, \"x\") : Next"},
    {"short texts", "ReDim a(300000)\nFor i = 0 To 300000 : a(i) = \"x\" & i : Next"},
    {"texts of one letter", "ReDim a(300000)\nFor i = 0 To 300000 : a(i) = Chr(65) : Next"},
    {"parts of a text", "s = String(100, \"x\")\nReDim a(300000)\nFor i = 0 To 300000 : a(i) = Mid(s, 2, 20) : Next"},
    {"texts that grow", "ReDim a(1000)\nDo\nFor i = 0 To 1000 : a(i) = a(i) & String(40, \"x\") : Next\nLoop"},
    {"joined long texts", "ReDim a(1000)\ns = String(300000, \"x\")\nFor i = 0 To 1000 : a(i) = s & i : Next"},
    {"objects", "Class N\nPublic a, b\nEnd Class\nReDim a(300000)\nFor i = 0 To 300000 : Set a(i) = New N : Next"},
    {"objects without fields", "Class N\nEnd Class\nReDim a(300000)\nFor i = 0 To 300000 : Set a(i) = New N : Next"},
    {"objects in each other", "Class N\nPublic x\nPublic y(10)\nEnd Class\nSet p = Nothing\nDo\nSet q = New N\nSet q.x = p\nSet p = q\nLoop"},
    {"objects with an end", "Class N\nPublic x\nSub Class_Terminate\nx = \"gone\" & 1\nEnd Sub\nEnd Class\nReDim a(300000)\nFor i = 0 To 300000 : Set a(i) = New N : Next"},
    {"procedures", "Do\nn = n + 1\nExecuteGlobal \"Sub P\" & n & \" : x = x + 1 : y = \"\"abc\"\" : End Sub\"\nLoop"},
    {"procedures that are called", "Do\nn = n + 1\nExecuteGlobal \"Sub P : x = x + 1 : z = \"\"abc\"\" : End Sub\"\nP\nLoop"},
    {"classes", "Do\nn = n + 1\nExecuteGlobal \"Class P\" & n & vbLf & \"Public a, b\" & vbLf & \"Function F(x) : F = x : End Function\" & vbLf & \"End Class\"\nLoop"},
    {"variables", "Do\nn = n + 1\nExecute \"v\" & n & \" = 1\"\nLoop"},
    {"variables of procedures", "Sub R(n)\nFor j = 1 To 50 : Execute \"w\" & j & \" = 1\" : Next\nR n + 1\nEnd Sub\nR 1"},
    {"literals", "Do\nn = n + 1\nExecuteGlobal \"Sub P\" & n & \" : z = \"\"\" & String(5000, \"q\") & \"\"\" : End Sub\"\nLoop"},
    {"results of Eval", "ReDim a(300000)\nFor i = 0 To 300000 : a(i) = Eval(\"\"\"abc\" & i & \"\"\"\") : Next"},
    {"one long program", "s = \"x=1:\"\nFor i = 1 To 20 : s = s & s : Next\nExecuteGlobal s"},
    {"one long procedure", "t = \"y=1+2*(3-a(1)):\"\nFor i = 1 To 17 : t = t & t : Next\nExecuteGlobal \"Sub Q\" & vbLf & t & vbLf & \"End Sub\"\nQ"},
    {"small arrays", "ReDim a(300000)\nFor i = 0 To 300000 : a(i) = Array(1, 2, 3) : Next"},
    {"arrays of many dimensions", "ReDim a(300000)\nFor i = 0 To 300000 : ReDim b(1,1,1,1,1,1,1,1,1,1) : a(i) = b : Next"},
    {"large arrays", "ReDim a(30)\nFor i = 0 To 30 : ReDim b(200000) : a(i) = b : Next"},
    {"copies of an array", "Dim s(1000)\nReDim a(300000)\nFor i = 0 To 300000 : b = s : b(0) = i : a(i) = b : Next"},
    {"an array that grows", "Dim a()\nDo\nn = n + 1000\nReDim Preserve a(n)\na(n) = 1\nLoop"},
    {"an array that shrinks and grows", "ReDim a(700000)\nFor i = 1 To 20\nReDim Preserve a(50000)\nReDim Preserve a(700000)\nNext\nReDim Preserve a(4000000)"},
    {"recursion", "Function F(n)\nDim a(100)\na(1) = String(5000, \"x\")\nF = F(n + 1)\nEnd Function\nF 1"},
    {"items of a dictionary", "Set d = CreateObject(\"Scripting.Dictionary\")\nFor i = 0 To 1000000 : d(\"key\" & i) = i : Next"},
    {"dictionaries", "ReDim a(300000)\nFor i = 0 To 300000 : Set a(i) = CreateObject(\"Scripting.Dictionary\") : a(i)(1) = 2 : Next"},
    {"keys of a dictionary", "Set d = CreateObject(\"Scripting.Dictionary\")\nFor i = 0 To 10000 : d(i) = i : Next\nReDim a(100000)\nFor i = 0 To 100000 : a(i) = d.Keys : Next"},
    {"collections of matches", "Set r = New RegExp : r.Global = True : r.Pattern = \"(.)\"\ns = String(1000, \"x\")\nReDim a(100000)\nFor i = 0 To 100000 : Set a(i) = r.Execute(s) : Next"},
    {"one collection of matches", "Set r = New RegExp : r.Global = True : r.Pattern = \"(.)()()()\"\ns = String(1000000, \"x\")\nSet m = r.Execute(s)"},
    {"patterns", "ReDim a(300000)\nFor i = 0 To 300000 : Set a(i) = New RegExp : a(i).Pattern = \"([a-z]+)(\\w*)(.|\\d)+\" & i : a(i).Test \"abc\" : Next"},
    {"one long pattern", "s = \"(a|b)\"\nFor i = 1 To 18 : s = s & s : Next\nSet r = New RegExp\nr.Pattern = s\nr.Test \"a\""},
    {"Split", "s = String(100000, \",\")\nReDim a(100000)\nFor i = 0 To 100000 : a(i) = Split(s, \",\") : Next"},
    {"one Split", "a = Split(String(3000000, \",\"), \",\")"},
    {"Join", "ReDim b(10000)\nFor i = 0 To 10000 : b(i) = \"abcdefgh\" : Next\nReDim a(100000)\nFor i = 0 To 100000 : a(i) = Join(b) : Next"},
    {"Replace", "s = String(100000, \"x\")\nReDim a(100000)\nFor i = 0 To 100000 : a(i) = Replace(s, \"x\", \"abc\") : Next"},
    {"one Replace", "s = Replace(String(1000000, \"x\"), \"x\", \"0123456789012345678901234567890123456789\")"},
    {"Filter", "ReDim b(10000)\nFor i = 0 To 10000 : b(i) = \"abcdefgh\" : Next\nReDim a(100000)\nFor i = 0 To 100000 : a(i) = Filter(b, \"a\") : Next"},
    {"Escape", "s = String(100000, \" \")\nReDim a(100000)\nFor i = 0 To 100000 : a(i) = Escape(s) : Next"},
    {"bytes", "s = String(1000000, \"x\")\nReDim a(1000)\nFor i = 0 To 1000 : a(i) = MidB(s, 1, 2000000 - i * 2) : Next"},
    {"references to procedures", "Sub P\nEnd Sub\nReDim a(500000)\nFor i = 0 To 500000 : Set a(i) = GetRef(\"P\") : Next"},
    {"texts of errors", "s = String(60000, \"x\")\nReDim a(100000)\nFor i = 0 To 100000\nErr.Description = s & i\na(i) = Err.Description\nNext"},
    {"holes between kept texts", "ReDim a(200000)\nOn Error Resume Next\nFor r = 1 To 6\nErr.Clear\nn = 0\nsize = 30 * 4 ^ r\nDo\na(n) = String(size, \"x\")\nIf Err.Number <> 0 Or n = 200000 Then Exit Do\nn = n + 1\nLoop\nkeep = Int(4000 / size) * 2 + 2\nFor i = 0 To n\nIf i Mod keep <> 0 Then a(i) = Empty\nNext\nNext\nOn Error GoTo 0\nErr.Raise 7"},
};
// clang-format on

}  // namespace kestrun::vbs
