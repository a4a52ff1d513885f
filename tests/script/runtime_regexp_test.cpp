#include "script/vbscript/runtime/regexp.h"

#include "base/convert.h"
#include "base/text.h"
#include "script/runtime_fixture.h"
#include "script/vbscript/runtime/errors.h"

namespace kestrun::vbs {
namespace {

class RuntimeRegExpTest : public RuntimeTest {
 protected:
  Ref<RegExp> Make(std::string_view pattern, std::string_view switches = {}) {
    Ref<RegExp> expression = MakeRef<RegExp>(context);
    expression->set_pattern(Variant(pattern));
    expression->set_ignore_case(switches.find('i') != std::string_view::npos);
    expression->set_global(switches.find('g') != std::string_view::npos);
    expression->set_multiline(switches.find('m') != std::string_view::npos);
    return expression;
  }

  // "1:bc(c)(-)" for a match at 1 with its groups, a dash for one that took no part; blanks between matches.
  std::string Found(std::string_view pattern, std::string_view text, std::string_view switches = {}) {
    try {
      return Describe(Make(pattern, switches)->Execute(Variant(text)));
    } catch (const RuntimeError& failure) {
      return "error " + std::to_string(failure.number()) + " " + failure.description();
    }
  }

  static std::string Describe(const Variant& matches) {
    std::string shown;
    const int32_t count = ToLong(GetMember(*matches.object(), "Count"));
    for (int32_t at = 0; at < count; ++at) {
      const Variant match = GetMember(*matches.object(), "Item", {Variant(at)});
      shown += (at == 0 ? "" : " ") + ToText(GetMember(*match.object(), "FirstIndex")) + ":" + ToText(match);
      const Variant groups = GetMember(*match.object(), "SubMatches");
      for (int32_t group = 0; group < ToLong(GetMember(*groups.object(), "Count")); ++group) {
        const Variant text = GetMember(*groups.object(), "Item", {Variant(group)});
        shown += "(" + (text.Is(VarType::kEmpty) ? "-" : ToText(text)) + ")";
      }
    }
    return shown;
  }

  std::string Replaced(std::string_view pattern, std::string_view text, std::string_view replacement,
                       std::string_view switches = "g") {
    return ToText(Make(pattern, switches)->Replace(Variant(text), Variant(replacement)));
  }
};

TEST_F(RuntimeRegExpTest, PlainTextIsFoundWhereItStands) {
  EXPECT_EQ(Found("b", "abc"), "1:b");
  EXPECT_EQ(Found("bc", "abcabc"), "1:bc");
  EXPECT_EQ(Found("bc", "abcabc", "g"), "1:bc 4:bc");
  EXPECT_EQ(Found("x", "abc"), "");
  EXPECT_EQ(Found("", "ab", "g"), "0: 1: 2:");
  EXPECT_EQ(Found("B", "abc"), "");
  EXPECT_EQ(Found("B", "abc", "i"), "1:b");
  EXPECT_EQ(Found("Ä", "xä", "i"), "1:ä");
}

TEST_F(RuntimeRegExpTest, QuantifiersAreGreedyOrLazy) {
  EXPECT_EQ(Found("a*", "aaab"), "0:aaa");
  EXPECT_EQ(Found("a*?b", "aaab"), "0:aaab");
  EXPECT_EQ(Found("a+?", "aaab"), "0:a");
  EXPECT_EQ(Found("a??b", "ab"), "0:ab");
  EXPECT_EQ(Found("a{2}", "aaaa", "g"), "0:aa 2:aa");
  EXPECT_EQ(Found("a{2,}", "aaaa"), "0:aaaa");
  EXPECT_EQ(Found("a{2,3}", "aaaa"), "0:aaa");
  EXPECT_EQ(Found("a{2,3}?", "aaaa"), "0:aa");
  EXPECT_EQ(Found("a{0}b", "ab"), "1:b");
  EXPECT_EQ(Found("(ab){2}", "ababab"), "0:abab(ab)");
  EXPECT_EQ(Found("(ab)*c", "ababc"), "0:ababc(ab)");
  EXPECT_EQ(Found("(ab)*?c", "ababc"), "0:ababc(ab)");
  EXPECT_EQ(Found("(a|ab)(c|bcd)(d*)", "abcd"), "0:abcd(a)(bcd)()");
  EXPECT_EQ(Found("<.*>", "<a><b>"), "0:<a><b>");
  EXPECT_EQ(Found("<.*?>", "<a><b>", "g"), "0:<a> 3:<b>");
  EXPECT_EQ(Found("a.*c", "abcbcd"), "0:abcbc");
  EXPECT_EQ(Found("(?:a{2}){2}", "aaaaa"), "0:aaaa");
}

TEST_F(RuntimeRegExpTest, ABraceThatIsNoQuantifierIsACharacter) {
  EXPECT_EQ(Found("a{", "a{"), "0:a{");
  EXPECT_EQ(Found("a{x}", "a{x}"), "0:a{x}");
  EXPECT_EQ(Found("a{,2}", "a{,2}"), "0:a{,2}");
  EXPECT_EQ(Found("{", "{"), "0:{");
  EXPECT_EQ(Found("}", "}"), "0:}");
  EXPECT_EQ(Found("]", "]"), "0:]");
}

TEST_F(RuntimeRegExpTest, ClassesAndSets) {
  EXPECT_EQ(Found("\\d+", "ab123c"), "2:123");
  EXPECT_EQ(Found("\\D+", "ab123c", "g"), "0:ab 5:c");
  EXPECT_EQ(Found("\\w+", "_a1 -b", "g"), "0:_a1 5:b");
  EXPECT_EQ(Found("\\W", "a-b"), "1:-");
  EXPECT_EQ(Found("\\s", "a\tb"), "1:\t");
  EXPECT_EQ(Found("\\S+", " ab "), "1:ab");
  EXPECT_EQ(Found("[abc]+", "xxbcax"), "2:bca");
  EXPECT_EQ(Found("[^abc]+", "abxyc"), "2:xy");
  EXPECT_EQ(Found("[a-cx-z]+", "mbyn"), "1:by");
  EXPECT_EQ(Found("[-a]+", "b-a"), "1:-a");
  EXPECT_EQ(Found("[a-]+", "b-a"), "1:-a");
  EXPECT_EQ(Found("[\\d-x]+", "a5-x"), "1:5-x");
  EXPECT_EQ(Found("[\\]a]+", "b]a"), "1:]a");
  EXPECT_EQ(Found("[\\b]", "a\bb"), "1:\b");
  EXPECT_EQ(Found("[^\\d\\s]+", "1 ab 2"), "2:ab");
  EXPECT_EQ(Found("[\\W]", "ab!"), "2:!");
  EXPECT_EQ(Found("[]", "a"), "");
  EXPECT_EQ(Found("[^]", "a"), "0:a");
  EXPECT_EQ(Found("[A-Z]+", "abC", "i"), "0:abC");
  EXPECT_EQ(Found("[^a]", "A", "i"), "");
  EXPECT_EQ(Found(".", "\n"), "");
  EXPECT_EQ(Found(".", "\r"), "0:\r");
}

TEST_F(RuntimeRegExpTest, EscapesNameCharacters) {
  EXPECT_EQ(Found("\\x41", "A"), "0:A");
  EXPECT_EQ(Found("\\u20ac", "€"), "0:€");
  EXPECT_EQ(Found("\\101", "A"), "0:A");
  EXPECT_EQ(Found("\\0", std::string_view("\0", 1)), std::string("0:\0", 3));
  EXPECT_EQ(Found("\\cJ", "\n"), "0:\n");
  EXPECT_EQ(Found("\\t\\n\\r\\f\\v", "\t\n\r\f\v"), "0:\t\n\r\f\v");
  EXPECT_EQ(Found("\\.", "a."), "1:.");
  EXPECT_EQ(Found("\\\\", "a\\"), "1:\\");
  EXPECT_EQ(Found("\\x4", "x4"), "0:x4");
  EXPECT_EQ(Found("\\u20a", "u20a"), "0:u20a");
  EXPECT_EQ(Found("\\e", "e"), "0:e");
  EXPECT_EQ(Found("[\\x41-\\x43]+", "ABCD"), "0:ABC");
}

TEST_F(RuntimeRegExpTest, PlacesTakeNothing) {
  EXPECT_EQ(Found("^a", "ba"), "");
  EXPECT_EQ(Found("^a", "b\na"), "");
  EXPECT_EQ(Found("^a", "b\na", "m"), "2:a");
  EXPECT_EQ(Found("a$", "a\nb"), "");
  EXPECT_EQ(Found("a$", "a\nb", "m"), "0:a");
  EXPECT_EQ(Found("a$", "a\r\nb", "m"), "0:a");
  EXPECT_EQ(Found("^", "a\nb", "gm"), "0: 2:");
  EXPECT_EQ(Found("$", "ab", "g"), "2:");
  EXPECT_EQ(Found("\\bfoo\\b", "a foo."), "2:foo");
  EXPECT_EQ(Found("\\bfoo\\b", "afoo"), "");
  EXPECT_EQ(Found("\\Boo", "foo"), "1:oo");
  EXPECT_EQ(Found("\\b", "ab c", "g"), "0: 2: 3: 4:");
}

TEST_F(RuntimeRegExpTest, GroupsAndAlternatives) {
  EXPECT_EQ(Found("(a)(b)?", "ac"), "0:a(a)(-)");
  EXPECT_EQ(Found("(a|b)+", "abab"), "0:abab(b)");
  EXPECT_EQ(Found("(?:a|b)+c", "abac"), "0:abac");
  EXPECT_EQ(Found("a|b|", "c"), "0:");
  EXPECT_EQ(Found("(\\w+)@(\\w+)\\.com", "me@site.com"), "0:me@site.com(me)(site)");
  EXPECT_EQ(Found("((a)(b))", "ab"), "0:ab(ab)(a)(b)");
  EXPECT_EQ(Found("(a*)*", "b"), "0:(-)");
  EXPECT_EQ(Found("(a*)+", "aab"), "0:aa(aa)");
  EXPECT_EQ(Found("(?:)*x", "x"), "0:x");
  EXPECT_EQ(Found("(a?){3}", "aa"), "0:aa()");
  EXPECT_EQ(Found("(){3}", "a"), "0:()");
  EXPECT_EQ(Found("(){1000000000}a", "a"), "0:a()");
  EXPECT_EQ(Found("()", "a"), "0:()");
  EXPECT_EQ(Found("(|a)*b", "aab"), "0:aab(a)");
}

TEST_F(RuntimeRegExpTest, BackReferencesRepeatAGroup) {
  EXPECT_EQ(Found("(a)\\1", "aa"), "0:aa(a)");
  EXPECT_EQ(Found("(.)\\1", "abccd"), "2:cc(c)");
  EXPECT_EQ(Found("(a)\\1", "aA", "i"), "0:aA(a)");
  EXPECT_EQ(Found("(a)?\\1b", "b"), "0:b(-)");
  EXPECT_EQ(Found("<(\\w+)>.*</\\1>", "<b>x</b>"), "0:<b>x</b>(b)");
  EXPECT_EQ(Found("\\1(a)", "\1a"), std::string("0:\1a(a)")) << "no group was opened before: an octal escape";
  EXPECT_EQ(Found("(a)\\12", "aa2"), "0:aa2(a)");
  EXPECT_EQ(Found("(a)(b)(c)(d)(e)(f)(g)(h)(i)(j)\\10", "abcdefghijj"), "0:abcdefghijj(a)(b)(c)(d)(e)(f)(g)(h)(i)(j)");
  EXPECT_EQ(Found("\\8", "8"), "0:8");
}

TEST_F(RuntimeRegExpTest, LookAheadTakesNothing) {
  EXPECT_EQ(Found("a(?=b)", "acab"), "2:a");
  EXPECT_EQ(Found("a(?!b)", "abac"), "2:a");
  EXPECT_EQ(Found("(?=(a+))a*b\\1", "baaabac"), "3:aba(a)");
  EXPECT_EQ(Found("(?!foo)...", "foobar"), "1:oob");
  EXPECT_EQ(Found("(?=a)*b", "b"), "0:b");
  EXPECT_EQ(Found("(.*?)a(?!(a+)b\\2c)\\2(.*)", "baaabaac"), "0:baaabaac(ba)(-)(abaac)");
  EXPECT_EQ(Found("^(?!.*x).*$", "abc"), "0:abc");
  EXPECT_EQ(Found("^(?!.*x).*$", "axc"), "");
  EXPECT_EQ(Found("(?=(?=a)a)a", "a"), "0:a");
  EXPECT_EQ(Found("(?!(?!a))a", "a"), "0:a");
}

TEST_F(RuntimeRegExpTest, FaultyPatternsAreNamed) {
  EXPECT_EQ(Found("a**", "a"), "error 5018 Unexpected quantifier");
  EXPECT_EQ(Found("*a", "a"), "error 5018 Unexpected quantifier");
  EXPECT_EQ(Found("+", "a"), "error 5018 Unexpected quantifier");
  EXPECT_EQ(Found("?", "a"), "error 5018 Unexpected quantifier");
  EXPECT_EQ(Found("(?:*)", "a"), "error 5018 Unexpected quantifier");
  EXPECT_EQ(Found("^*", "a"), "error 5018 Unexpected quantifier");
  EXPECT_EQ(Found("\\b+", "a"), "error 5018 Unexpected quantifier");
  EXPECT_EQ(Found("a|*", "a"), "error 5018 Unexpected quantifier");
  EXPECT_EQ(Found("{2}", "a"), "error 5018 Unexpected quantifier");
  EXPECT_EQ(Found("[a", "a"), "error 5019 Expected ']' in regular expression");
  EXPECT_EQ(Found("[a\\", "a"), "error 5019 Expected ']' in regular expression");
  EXPECT_EQ(Found("(a", "a"), "error 5020 Expected ')' in regular expression");
  EXPECT_EQ(Found("(?=a", "a"), "error 5020 Expected ')' in regular expression");
  EXPECT_EQ(Found("a)", "a"), "error 5017 Syntax error in regular expression");
  EXPECT_EQ(Found("(?<a)", "a"), "error 5017 Syntax error in regular expression");
  EXPECT_EQ(Found("a\\", "a"), "error 5017 Syntax error in regular expression");
  EXPECT_EQ(Found("a{3,1}", "a"), "error 5017 Syntax error in regular expression");
  EXPECT_EQ(Found("[z-a]", "a"), "error 5021 Invalid range in character set");
  EXPECT_EQ(Found(std::string(100000, '('), "a"), "error 28 Out of stack space");
}

TEST_F(RuntimeRegExpTest, TestAnswersYesOrNo) {
  EXPECT_TRUE(Make("b")->Test(Variant("abc")));
  EXPECT_FALSE(Make("x")->Test(Variant("abc")));
  EXPECT_TRUE(Make("5")->Test(Variant(int32_t{152})));
  EXPECT_THROW(static_cast<void>(Make("x")->Test(Variant::Null())), RuntimeError);
}

TEST_F(RuntimeRegExpTest, ReplaceKnowsTheDollarForms) {
  EXPECT_EQ(Replaced("b", "abcb", "x"), "axcx");
  EXPECT_EQ(Replaced("b", "abcb", "x", ""), "axcb");
  EXPECT_EQ(Replaced("x", "abc", "y"), "abc");
  EXPECT_EQ(Replaced("(a)(b)", "ab", "$2$1"), "ba");
  EXPECT_EQ(Replaced("b", "abc", "[$&]"), "a[b]c");
  EXPECT_EQ(Replaced("b", "abc", "[$`]"), "a[a]c");
  EXPECT_EQ(Replaced("b", "abc", "[$']"), "a[c]c");
  EXPECT_EQ(Replaced("b", "abc", "[$_]"), "a[abc]c");
  EXPECT_EQ(Replaced("(a)(b)", "ab", "$+"), "b");
  EXPECT_EQ(Replaced("b", "abc", "$$"), "a$c");
  EXPECT_EQ(Replaced("b", "abc", "$"), "a$c");
  EXPECT_EQ(Replaced("b", "abc", "$1"), "a$1c");
  EXPECT_EQ(Replaced("(b)", "abc", "$12"), "ab2c");
  EXPECT_EQ(Replaced("(b)", "abc", "$01"), "abc");
  EXPECT_EQ(Replaced("(b)", "abc", "$0"), "a$0c");
  EXPECT_EQ(Replaced("(b)|x", "ax", "[$1]"), "a[]");
  EXPECT_EQ(Replaced("", "ab", "-"), "-a-b-");
  EXPECT_EQ(Replaced("x*", "axb", "-"), "-a--b-");
  EXPECT_EQ(Replaced("(\\d+)-(\\d+)", "10-20", "$2-$1"), "20-10");
}

TEST_F(RuntimeRegExpTest, MatchesCanBeWalkedAndIndexed) {
  const Variant matches = Make("(.)(x)?", "g")->Execute(Variant("ab"));
  EXPECT_EQ(matches.object()->TypeName(), "IMatchCollection2");
  const auto walk = matches.object()->Enumerate();
  Variant match;
  std::string seen;
  while (walk->Next(match)) seen += ToText(match) + ";";
  EXPECT_EQ(seen, "a;b;");
  EXPECT_EQ(match.object()->TypeName(), "IMatch2");
  EXPECT_EQ(ToText(GetMember(*match.object(), "Length")), "1");
  const Variant groups = GetMember(*match.object(), "SubMatches");
  EXPECT_EQ(groups.object()->TypeName(), "ISubMatches");
  EXPECT_TRUE(groups.object()->Enumerate()->Next(match));
  EXPECT_EQ(ToText(match), "b");
  for (const int32_t outside : {-1, 2}) {
    try {
      static_cast<void>(GetMember(*matches.object(), "Item", {Variant(outside)}));
      ADD_FAILURE();
    } catch (const RuntimeError& failure) {
      EXPECT_EQ(failure.number(), 5);
    }
  }
}

TEST_F(RuntimeRegExpTest, PropertiesHaveTheirDefaults) {
  const Ref<Object> expression = CreateScriptObject("regexp", context);
  EXPECT_EQ(Show(GetMember(*expression, "Pattern")), "String ");
  for (const char* name : {"IgnoreCase", "Global", "Multiline"}) {
    EXPECT_EQ(Show(GetMember(*expression, name)), "Boolean False") << name;
    PutMember(*expression, name, Variant(int32_t{1}));
    EXPECT_EQ(Show(GetMember(*expression, name)), "Boolean True") << name;
  }
  PutMember(*expression, "Pattern", Variant("a+"));
  EXPECT_EQ(Show(GetMember(*expression, "Pattern")), "String a+");
  EXPECT_EQ(Show(CallMember(*expression, "Replace", {Variant("baa"), Variant("x")})), "String bx");
}

TEST_F(RuntimeRegExpTest, AChangedSwitchCompilesThePatternAgain) {
  const Ref<RegExp> expression = Make("A");
  EXPECT_FALSE(expression->Test(Variant("a")));
  expression->set_ignore_case(true);
  EXPECT_TRUE(expression->Test(Variant("a")));
  expression->set_pattern(Variant("^b"));
  EXPECT_FALSE(expression->Test(Variant("a\nb")));
  expression->set_multiline(true);
  EXPECT_TRUE(expression->Test(Variant("a\nb")));
}

TEST_F(RuntimeRegExpTest, ExponentialPatternsEndWithTheTimeLimit) {
  context.step_limit = 1000000;
  EXPECT_THROW(static_cast<void>(Make("(a+)+b")->Test(Variant(std::string(40, 'a')))), OutOfTime);
  context.charged = 0;
  EXPECT_THROW(static_cast<void>(Make("(?:a|a)*b")->Test(Variant(std::string(40, 'a')))), OutOfTime);
  context.charged = 0;
  EXPECT_THROW(static_cast<void>(Make("(?:(?:a{1000}){1000}){1000}")->Test(Variant(std::string(10000000, 'a')))),
               OutOfTime);
}

TEST_F(RuntimeRegExpTest, ALongRunNeedsNoStack) {
  context.memory_limit = 1 << 20;
  std::string text(300000, 'a');
  text.push_back('b');
  EXPECT_TRUE(Make(".*b")->Test(Variant(text)));
  EXPECT_TRUE(Make("a*?b")->Test(Variant(text)));
}

TEST_F(RuntimeRegExpTest, ADeepBacktrackIsBoundedByTheMemoryBudget) {
  context.memory_limit = 1 << 20;
  try {
    static_cast<void>(Make("(?:a|b)*c")->Test(Variant(std::string(300000, 'a'))));
    ADD_FAILURE();
  } catch (const RuntimeError& failure) {
    EXPECT_EQ(failure.number(), 7);
  }
}

TEST(RuntimeRegExpLifetimeTest, AnExpressionWithoutItsEngineIsGone) {
  Ref<Object> expression;
  {
    TestContext context;
    expression = CreateScriptObject("VBScript.RegExp", context);
  }
  try {
    static_cast<void>(CallMember(*expression, "Test", {Variant("a")}));
    ADD_FAILURE();
  } catch (const RuntimeError& failure) {
    EXPECT_EQ(failure.number(), 424);
  }
}

}  // namespace
}  // namespace kestrun::vbs
