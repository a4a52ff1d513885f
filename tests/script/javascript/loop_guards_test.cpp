#include "script/javascript/loop_guards.h"

#include <gtest/gtest.h>

namespace kestrun {
namespace {

std::string Guarded(std::string_view source) { return GuardedSource(source, "T()").text(); }

TEST(LoopGuardsTest, LoopsThatMayRunForEverAskForTheTime) {
  EXPECT_EQ(Guarded("while (a) b;"), "while (T(),a) b;");
  EXPECT_EQ(Guarded("do { } while(a)"), "do { } while(T(),a)");
  EXPECT_EQ(Guarded("for (i = 0; i < 3; i++) ;"), "for (i = 0;T(), i < 3; i++) ;");
  EXPECT_EQ(Guarded("for (var i = f(1, 2); g(i); h(i)) { }"), "for (var i = f(1, 2);T(), g(i); h(i)) { }");
}

TEST(LoopGuardsTest, AConditionThatIsLeftOutIsTrue) {
  EXPECT_EQ(Guarded("for (;;) ;"), "for (;T(),true;) ;");
  EXPECT_EQ(Guarded("for (;/* ever */;) ;"), "for (;T(),/* ever */true;) ;");
}

TEST(LoopGuardsTest, LoopsWithinLoopsAskToo) {
  EXPECT_EQ(Guarded("for(;a;) for(;;) while(b) ;"), "for(;T(),a;) for(;T(),true;) while(T(),b) ;");
}

TEST(LoopGuardsTest, FunctionsAskWhenTheyBegin) {
  EXPECT_EQ(Guarded("function f(n) { return f(n - 1) + { }; }"), "function f(n) {T(); return f(n - 1) + { }; }");
  EXPECT_EQ(Guarded("a = function() /* b */ {};"), "a = function() /* b */ {T();};");
  EXPECT_EQ(Guarded("functions = { function_: 1 };"), "functions = { function_: 1 };");
}

TEST(LoopGuardsTest, LoopsOverAnObjectsMembersEndByThemselves) {
  EXPECT_EQ(Guarded("for (a in b) c;"), "for (a in b) c;");
}

TEST(LoopGuardsTest, TextsCommentsAndRegularExpressionsStay) {
  for (const char* source : {"a = 'while (b) c';", "a = \"it\\\"s while (b)\";", "// while (a)\r\nb;",
                             "/* for (;;) */ b;", "a = /while (b[/(]) \\/ c/;", "meanwhile (a); a.whiles(b);"}) {
    EXPECT_EQ(Guarded(source), source);
  }
}

TEST(LoopGuardsTest, ASlashBehindAValueDivides) {
  EXPECT_EQ(Guarded("a = b / c; while (d / e) f;"), "a = b / c; while (T(),d / e) f;");
  EXPECT_EQ(Guarded("a = (b) / 2; while (c) d = e[0] / 2;"), "a = (b) / 2; while (T(),c) d = e[0] / 2;");
}

TEST(LoopGuardsTest, PlacesAreThoseOfTheSource) {
  const GuardedSource source("a;\r\nwhile (b) c;\n  while(d) e;", "T()");
  EXPECT_EQ(source.OriginalColumn(1, 1), 1);
  EXPECT_EQ(source.OriginalColumn(2, 8), 8);
  EXPECT_EQ(source.OriginalColumn(2, 12), 8);  // b
  EXPECT_EQ(source.OriginalColumn(2, 15), 11);
  EXPECT_EQ(source.OriginalColumn(3, 13), 9);  // d
}

TEST(LoopGuardsTest, CutSourceIsTakenAsItIs) {
  for (const char* source : {"", "'", "/*", "/", "for (", "a = /b", "\\", ";;)))("}) EXPECT_EQ(Guarded(source), source);
  EXPECT_EQ(Guarded("while("), "while(T(),");
}

TEST(LoopGuardsTest, TheNamesOfTheLanguageAreKnown) {
  EXPECT_TRUE(IsJavaScript("JScript"));
  EXPECT_TRUE(IsJavaScript("javascript"));
  EXPECT_FALSE(IsJavaScript("vbscript"));
  EXPECT_FALSE(IsJavaScript(""));
}

}  // namespace
}  // namespace kestrun
