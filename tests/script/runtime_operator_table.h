// Every operator with every pair of types. A row holds the left operand and, from left to right, the outcome with each
// of the right operands: a letter for the type (Y Byte, I Integer, L Long, S Single, D Double, C Currency, T Date, $
// String, B Boolean) and the value, Null, or "!" and the number of an error. Blanks inside a value stand as "_".
#pragma once

#include <string_view>

namespace kestrun::vbs {

struct OperatorTable {
  std::string_view name;
  std::string_view rows;
};

inline constexpr std::string_view kOperandNames =
    "Empty Null Integer Long Single Double Currency Date String Boolean Byte Text Zero";

// clang-format off
inline constexpr OperatorTable kOperatorTables[] = {
    {"Add", R"t(
Empty    I:0        Null I:7        L:3        S:2.5                  D:1.25                C:4.5                  T:1/1/1900             $:6        I:-1         Y:5        $:abc    I:0
Null     Null       Null Null       Null       Null                   Null                  Null                   Null                   Null       Null         Null       Null     Null
Integer  I:7        Null I:14       L:10       S:9.5                  D:8.25                C:11.5                 T:1/8/1900             D:13       I:6          I:12       !13      I:7
Long     L:3        Null L:10       L:6        D:5.5                  D:4.25                C:7.5                  T:1/4/1900             D:9        L:2          L:8        !13      L:3
Single   S:2.5      Null S:9.5      D:5.5      S:5                    D:3.75                C:7                    T:1/3/1900_12:00:00_PM D:8.5      S:1.5        S:7.5      !13      S:2.5
Double   D:1.25     Null D:8.25     D:4.25     D:3.75                 D:2.5                 C:5.75                 T:1/2/1900_6:00:00_AM  D:7.25     D:0.25       D:6.25     !13      D:1.25
Currency C:4.5      Null C:11.5     C:7.5      C:7                    C:5.75                C:9                    T:1/5/1900_12:00:00_PM C:10.5     C:3.5        C:9.5      !13      C:4.5
Date     T:1/1/1900 Null T:1/8/1900 T:1/4/1900 T:1/3/1900_12:00:00_PM T:1/2/1900_6:00:00_AM T:1/5/1900_12:00:00_PM T:1/3/1900             T:1/7/1900 T:12/31/1899 T:1/6/1900 !13      T:1/1/1900
String   $:6        Null D:13       D:9        D:8.5                  D:7.25                C:10.5                 T:1/7/1900             $:66       D:5          D:11       $:6abc   D:6
Boolean  I:-1       Null I:6        L:2        S:1.5                  D:0.25                C:3.5                  T:12/31/1899           D:5        I:-2         I:4        !13      I:-1
Byte     Y:5        Null I:12       L:8        S:7.5                  D:6.25                C:9.5                  T:1/6/1900             D:11       I:4          Y:10       !13      I:5
Text     $:abc      Null !13        !13        !13                    !13                   !13                    !13                    $:abc6     !13          !13        $:abcabc !13
Zero     I:0        Null I:7        L:3        S:2.5                  D:1.25                C:4.5                  T:1/1/1900             D:6        I:-1         I:5        !13      I:0
)t"},
    {"Subtract", R"t(
Empty    I:0        Null I:-7         L:-3         S:-2.5        D:-1.25      C:-4.5                   T:12/28/1899           D:-6         I:1        I:-5         !13  I:0
Null     Null       Null Null         Null         Null          Null         Null                     Null                   Null         Null       Null         Null Null
Integer  I:7        Null I:0          L:4          S:4.5         D:5.75       C:2.5                    T:1/4/1900             D:1          I:8        I:2          !13  I:7
Long     L:3        Null L:-4         L:0          D:0.5         D:1.75       C:-1.5                   T:12/31/1899           D:-3         L:4        L:-2         !13  L:3
Single   S:2.5      Null S:-4.5       D:-0.5       S:0           D:1.25       C:-2                     T:12:00:00_PM          D:-3.5       S:3.5      S:-2.5       !13  S:2.5
Double   D:1.25     Null D:-5.75      D:-1.75      D:-1.25       D:0          C:-3.25                  T:6:00:00_PM           D:-4.75      D:2.25     D:-3.75      !13  D:1.25
Currency C:4.5      Null C:-2.5       C:1.5        C:2           C:3.25       C:0                      T:1/1/1900_12:00:00_PM C:-1.5       C:5.5      C:-0.5       !13  C:4.5
Date     T:1/1/1900 Null T:12/25/1899 T:12/29/1899 T:12:00:00_PM T:6:00:00_PM T:12/28/1899_12:00:00_PM D:0                    T:12/26/1899 T:1/2/1900 T:12/27/1899 !13  T:1/1/1900
String   D:6        Null D:-1         D:3          D:3.5         D:4.75       C:1.5                    T:1/3/1900             D:0          D:7        D:1          !13  D:6
Boolean  I:-1       Null I:-8         L:-4         S:-3.5        D:-2.25      C:-5.5                   T:12/27/1899           D:-7         I:0        I:-6         !13  I:-1
Byte     Y:5        Null I:-2         L:2          S:2.5         D:3.75       C:0.5                    T:1/2/1900             D:-1         I:6        Y:0          !13  I:5
Text     !13        Null !13          !13          !13           !13          !13                      !13                    !13          !13        !13          !13  !13
Zero     I:0        Null I:-7         L:-3         S:-2.5        D:-1.25      C:-4.5                   T:12/28/1899           D:-6         I:1        I:-5         !13  I:0
)t"},
    {"Multiply", R"t(
Empty    I:0  Null I:0    L:0    S:0     D:0      C:0     D:0   D:0   I:0     Y:0    !13  I:0
Null     Null Null Null   Null   Null    Null     Null    Null  Null  Null    Null   Null Null
Integer  I:0  Null I:49   L:21   S:17.5  D:8.75   C:31.5  D:14  D:42  I:-7    I:35   !13  I:0
Long     L:0  Null L:21   L:9    D:7.5   D:3.75   C:13.5  D:6   D:18  L:-3    L:15   !13  L:0
Single   S:0  Null S:17.5 D:7.5  S:6.25  D:3.125  D:11.25 D:5   D:15  S:-2.5  S:12.5 !13  S:0
Double   D:0  Null D:8.75 D:3.75 D:3.125 D:1.5625 D:5.625 D:2.5 D:7.5 D:-1.25 D:6.25 !13  D:0
Currency C:0  Null C:31.5 C:13.5 D:11.25 D:5.625  C:20.25 D:9   D:27  C:-4.5  C:22.5 !13  C:0
Date     D:0  Null D:14   D:6    D:5     D:2.5    D:9     D:4   D:12  D:-2    D:10   !13  D:0
String   D:0  Null D:42   D:18   D:15    D:7.5    D:27    D:12  D:36  D:-6    D:30   !13  D:0
Boolean  I:0  Null I:-7   L:-3   S:-2.5  D:-1.25  C:-4.5  D:-2  D:-6  I:1     I:-5   !13  I:0
Byte     Y:0  Null I:35   L:15   S:12.5  D:6.25   C:22.5  D:10  D:30  I:-5    Y:25   !13  I:0
Text     !13  Null !13    !13    !13     !13      !13     !13   !13   !13     !13    !13  !13
Zero     I:0  Null I:0    L:0    S:0     D:0      C:0     D:0   D:0   I:0     I:0    !13  I:0
)t"},
    {"Divide", R"t(
Empty    !6   Null D:0                  D:0                  S:0    D:0    D:0                  D:0     D:0                  D:0     D:0    !13  !6
Null     Null Null Null                 Null                 Null   Null   Null                 Null    Null                 Null    Null   Null Null
Integer  !11  Null D:1                  D:2.33333333333333   S:2.8  D:5.6  D:1.55555555555556   D:3.5   D:1.16666666666667   D:-7    D:1.4  !13  !11
Long     !11  Null D:0.428571428571429  D:1                  D:1.2  D:2.4  D:0.666666666666667  D:1.5   D:0.5                D:-3    D:0.6  !13  !11
Single   !11  Null S:0.3571429          D:0.833333333333333  S:1    D:2    D:0.555555555555556  D:1.25  D:0.416666666666667  S:-2.5  S:0.5  !13  !11
Double   !11  Null D:0.178571428571429  D:0.416666666666667  D:0.5  D:1    D:0.277777777777778  D:0.625 D:0.208333333333333  D:-1.25 D:0.25 !13  !11
Currency !11  Null D:0.642857142857143  D:1.5                D:1.8  D:3.6  D:1                  D:2.25  D:0.75               D:-4.5  D:0.9  !13  !11
Date     !11  Null D:0.285714285714286  D:0.666666666666667  D:0.8  D:1.6  D:0.444444444444444  D:1     D:0.333333333333333  D:-2    D:0.4  !13  !11
String   !11  Null D:0.857142857142857  D:2                  D:2.4  D:4.8  D:1.33333333333333   D:3     D:1                  D:-6    D:1.2  !13  !11
Boolean  !11  Null D:-0.142857142857143 D:-0.333333333333333 S:-0.4 D:-0.8 D:-0.222222222222222 D:-0.5  D:-0.166666666666667 D:1     D:-0.2 !13  !11
Byte     !11  Null D:0.714285714285714  D:1.66666666666667   S:2    D:4    D:1.11111111111111   D:2.5   D:0.833333333333333  D:-5    D:1    !13  !11
Text     !13  Null !13                  !13                  !13    !13    !13                  !13     !13                  !13     !13    !13  !13
Zero     !6   Null D:0                  D:0                  S:0    D:0    D:0                  D:0     D:0                  D:0     D:0    !13  !6
)t"},
    {"IntegerDivide", R"t(
Empty    !11  Null I:0  L:0  L:0  L:0  L:0  L:0  L:0  I:0  Y:0  !13  !11
Null     Null Null Null Null Null Null Null Null Null Null Null Null Null
Integer  !11  Null I:1  L:2  L:3  L:7  L:1  L:3  L:1  I:-7 I:1  !13  !11
Long     !11  Null L:0  L:1  L:1  L:3  L:0  L:1  L:0  L:-3 L:0  !13  !11
Single   !11  Null L:0  L:0  L:1  L:2  L:0  L:1  L:0  L:-2 L:0  !13  !11
Double   !11  Null L:0  L:0  L:0  L:1  L:0  L:0  L:0  L:-1 L:0  !13  !11
Currency !11  Null L:0  L:1  L:2  L:4  L:1  L:2  L:0  L:-4 L:0  !13  !11
Date     !11  Null L:0  L:0  L:1  L:2  L:0  L:1  L:0  L:-2 L:0  !13  !11
String   !11  Null L:0  L:2  L:3  L:6  L:1  L:3  L:1  L:-6 L:1  !13  !11
Boolean  !11  Null I:0  L:0  L:0  L:-1 L:0  L:0  L:0  I:1  I:0  !13  !11
Byte     !11  Null I:0  L:1  L:2  L:5  L:1  L:2  L:0  I:-5 Y:1  !13  !11
Text     !13  Null !13  !13  !13  !13  !13  !13  !13  !13  !13  !13  !13
Zero     !11  Null I:0  L:0  L:0  L:0  L:0  L:0  L:0  I:0  I:0  !13  !11
)t"},
    {"Modulo", R"t(
Empty    !11  Null I:0  L:0  L:0  L:0  L:0  L:0  L:0  I:0  Y:0  !13  !11
Null     Null Null Null Null Null Null Null Null Null Null Null Null Null
Integer  !11  Null I:0  L:1  L:1  L:0  L:3  L:1  L:1  I:0  I:2  !13  !11
Long     !11  Null L:3  L:0  L:1  L:0  L:3  L:1  L:3  L:0  L:3  !13  !11
Single   !11  Null L:2  L:2  L:0  L:0  L:2  L:0  L:2  L:0  L:2  !13  !11
Double   !11  Null L:1  L:1  L:1  L:0  L:1  L:1  L:1  L:0  L:1  !13  !11
Currency !11  Null L:4  L:1  L:0  L:0  L:0  L:0  L:4  L:0  L:4  !13  !11
Date     !11  Null L:2  L:2  L:0  L:0  L:2  L:0  L:2  L:0  L:2  !13  !11
String   !11  Null L:6  L:0  L:0  L:0  L:2  L:0  L:0  L:0  L:1  !13  !11
Boolean  !11  Null I:-1 L:-1 L:-1 L:0  L:-1 L:-1 L:-1 I:0  I:-1 !13  !11
Byte     !11  Null I:5  L:2  L:1  L:0  L:1  L:1  L:5  I:0  Y:0  !13  !11
Text     !13  Null !13  !13  !13  !13  !13  !13  !13  !13  !13  !13  !13
Zero     !11  Null I:0  L:0  L:0  L:0  L:0  L:0  L:0  I:0  I:0  !13  !11
)t"},
    {"Power", R"t(
Empty    D:1  Null D:0                D:0        D:0                D:0                D:0                D:0      D:0              !5                  D:0            !13  D:1
Null     Null Null Null               Null       Null               Null               Null               Null     Null             Null                Null           Null Null
Integer  D:1  Null D:823543           D:343      D:129.641814242165 D:11.3860359318845 D:6352.44889786608 D:49     D:117649         D:0.142857142857143 D:16807        !13  D:1
Long     D:1  Null D:2187             D:27       D:15.5884572681199 D:3.94822203885748 D:140.296115413079 D:9      D:729            D:0.333333333333333 D:243          !13  D:1
Single   D:1  Null D:610.3515625      D:15.625   D:9.88211768802619 D:3.14358357420734 D:61.7632355501637 D:6.25   D:244.140625     D:0.4               D:97.65625     !13  D:1
Double   D:1  Null D:4.76837158203125 D:1.953125 D:1.74692810742171 D:1.32171407930071 D:2.72957516784642 D:1.5625 D:3.814697265625 D:0.8               D:3.0517578125 !13  D:1
Currency D:1  Null D:37366.9453125    D:91.125   D:42.9567369570828 D:6.55413891804887 D:869.873923380926 D:20.25  D:8303.765625    D:0.222222222222222 D:1845.28125   !13  D:1
Date     D:1  Null D:128              D:8        D:5.65685424949238 D:2.37841423000544 D:22.6274169979695 D:4      D:64             D:0.5               D:32           !13  D:1
String   D:1  Null D:279936           D:216      D:88.1816307401944 D:9.39050748043972 D:3174.538706647   D:36     D:46656          D:0.166666666666667 D:7776         !13  D:1
Boolean  D:1  Null D:-1               D:-1       !5                 !5                 !5                 D:1      D:1              D:-1                D:-1           !13  D:1
Byte     D:1  Null D:78125            D:125      D:55.9016994374947 D:7.4767439061061  D:1397.54248593737 D:25     D:15625          D:0.2               D:3125         !13  D:1
Text     !13  Null !13                !13        !13                !13                !13                !13      !13              !13                 !13            !13  !13
Zero     D:1  Null D:0                D:0        D:0                D:0                D:0                D:0      D:0              !5                  D:0            !13  D:1
)t"},
    {"Concatenate", R"t(
Empty    $:         $:         $:7         $:3         $:2.5         $:1.25         $:4.5         $:1/1/1900         $:6         $:True         $:5         $:abc         $:0
Null     $:         Null       $:7         $:3         $:2.5         $:1.25         $:4.5         $:1/1/1900         $:6         $:True         $:5         $:abc         $:0
Integer  $:7        $:7        $:77        $:73        $:72.5        $:71.25        $:74.5        $:71/1/1900        $:76        $:7True        $:75        $:7abc        $:70
Long     $:3        $:3        $:37        $:33        $:32.5        $:31.25        $:34.5        $:31/1/1900        $:36        $:3True        $:35        $:3abc        $:30
Single   $:2.5      $:2.5      $:2.57      $:2.53      $:2.52.5      $:2.51.25      $:2.54.5      $:2.51/1/1900      $:2.56      $:2.5True      $:2.55      $:2.5abc      $:2.50
Double   $:1.25     $:1.25     $:1.257     $:1.253     $:1.252.5     $:1.251.25     $:1.254.5     $:1.251/1/1900     $:1.256     $:1.25True     $:1.255     $:1.25abc     $:1.250
Currency $:4.5      $:4.5      $:4.57      $:4.53      $:4.52.5      $:4.51.25      $:4.54.5      $:4.51/1/1900      $:4.56      $:4.5True      $:4.55      $:4.5abc      $:4.50
Date     $:1/1/1900 $:1/1/1900 $:1/1/19007 $:1/1/19003 $:1/1/19002.5 $:1/1/19001.25 $:1/1/19004.5 $:1/1/19001/1/1900 $:1/1/19006 $:1/1/1900True $:1/1/19005 $:1/1/1900abc $:1/1/19000
String   $:6        $:6        $:67        $:63        $:62.5        $:61.25        $:64.5        $:61/1/1900        $:66        $:6True        $:65        $:6abc        $:60
Boolean  $:True     $:True     $:True7     $:True3     $:True2.5     $:True1.25     $:True4.5     $:True1/1/1900     $:True6     $:TrueTrue     $:True5     $:Trueabc     $:True0
Byte     $:5        $:5        $:57        $:53        $:52.5        $:51.25        $:54.5        $:51/1/1900        $:56        $:5True        $:55        $:5abc        $:50
Text     $:abc      $:abc      $:abc7      $:abc3      $:abc2.5      $:abc1.25      $:abc4.5      $:abc1/1/1900      $:abc6      $:abcTrue      $:abc5      $:abcabc      $:abc0
Zero     $:0        $:0        $:07        $:03        $:02.5        $:01.25        $:04.5        $:01/1/1900        $:06        $:0True        $:05        $:0abc        $:00
)t"},
    {"And", R"t(
Empty    L:0 L:0  I:0  L:0  L:0  L:0  L:0  L:0  L:0  I:0    I:0  !13 I:0
Null     L:0 Null Null Null Null Null Null Null Null Null   Null !13 I:0
Integer  I:0 Null I:7  L:3  L:2  L:1  L:4  L:2  L:6  I:7    I:5  !13 I:0
Long     L:0 Null L:3  L:3  L:2  L:1  L:0  L:2  L:2  L:3    L:1  !13 L:0
Single   L:0 Null L:2  L:2  L:2  L:0  L:0  L:2  L:2  L:2    L:0  !13 L:0
Double   L:0 Null L:1  L:1  L:0  L:1  L:0  L:0  L:0  L:1    L:1  !13 L:0
Currency L:0 Null L:4  L:0  L:0  L:0  L:4  L:0  L:4  L:4    L:4  !13 L:0
Date     L:0 Null L:2  L:2  L:2  L:0  L:0  L:2  L:2  L:2    L:0  !13 L:0
String   L:0 Null L:6  L:2  L:2  L:0  L:4  L:2  L:6  L:6    L:4  !13 L:0
Boolean  I:0 Null I:7  L:3  L:2  L:1  L:4  L:2  L:6  B:True I:5  !13 I:0
Byte     I:0 Null I:5  L:1  L:0  L:1  L:4  L:0  L:4  I:5    Y:5  !13 I:0
Text     !13 !13  !13  !13  !13  !13  !13  !13  !13  !13    !13  !13 !13
Zero     I:0 I:0  I:0  L:0  L:0  L:0  L:0  L:0  L:0  I:0    I:0  !13 I:0
)t"},
    {"Or", R"t(
Empty    L:0  Null   I:7  L:3  L:2  L:1  L:4  L:2  L:6  I:-1   I:5  !13 I:0
Null     Null Null   I:7  L:3  L:2  L:1  L:4  L:2  L:6  B:True Y:5  !13 Null
Integer  I:7  I:7    I:7  L:7  L:7  L:7  L:7  L:7  L:7  I:-1   I:7  !13 I:7
Long     L:3  L:3    L:7  L:3  L:3  L:3  L:7  L:3  L:7  L:-1   L:7  !13 L:3
Single   L:2  L:2    L:7  L:3  L:2  L:3  L:6  L:2  L:6  L:-1   L:7  !13 L:2
Double   L:1  L:1    L:7  L:3  L:3  L:1  L:5  L:3  L:7  L:-1   L:5  !13 L:1
Currency L:4  L:4    L:7  L:7  L:6  L:5  L:4  L:6  L:6  L:-1   L:5  !13 L:4
Date     L:2  L:2    L:7  L:3  L:2  L:3  L:6  L:2  L:6  L:-1   L:7  !13 L:2
String   L:6  L:6    L:7  L:7  L:6  L:7  L:6  L:6  L:6  L:-1   L:7  !13 L:6
Boolean  I:-1 B:True I:-1 L:-1 L:-1 L:-1 L:-1 L:-1 L:-1 B:True I:-1 !13 I:-1
Byte     I:5  Y:5    I:7  L:7  L:7  L:5  L:5  L:7  L:7  I:-1   Y:5  !13 I:5
Text     !13  !13    !13  !13  !13  !13  !13  !13  !13  !13    !13  !13 !13
Zero     I:0  Null   I:7  L:3  L:2  L:1  L:4  L:2  L:6  I:-1   I:5  !13 I:0
)t"},
    {"Xor", R"t(
Empty    L:0  Null I:7  L:3  L:2  L:1  L:4  L:2  L:6  I:-1    I:5  !13  I:0
Null     Null Null Null Null Null Null Null Null Null Null    Null Null Null
Integer  I:7  Null I:0  L:4  L:5  L:6  L:3  L:5  L:1  I:-8    I:2  !13  I:7
Long     L:3  Null L:4  L:0  L:1  L:2  L:7  L:1  L:5  L:-4    L:6  !13  L:3
Single   L:2  Null L:5  L:1  L:0  L:3  L:6  L:0  L:4  L:-3    L:7  !13  L:2
Double   L:1  Null L:6  L:2  L:3  L:0  L:5  L:3  L:7  L:-2    L:4  !13  L:1
Currency L:4  Null L:3  L:7  L:6  L:5  L:0  L:6  L:2  L:-5    L:1  !13  L:4
Date     L:2  Null L:5  L:1  L:0  L:3  L:6  L:0  L:4  L:-3    L:7  !13  L:2
String   L:6  Null L:1  L:5  L:4  L:7  L:2  L:4  L:0  L:-7    L:3  !13  L:6
Boolean  I:-1 Null I:-8 L:-4 L:-3 L:-2 L:-5 L:-3 L:-7 B:False I:-6 !13  I:-1
Byte     I:5  Null I:2  L:6  L:7  L:4  L:1  L:7  L:3  I:-6    Y:0  !13  I:5
Text     !13  Null !13  !13  !13  !13  !13  !13  !13  !13     !13  !13  !13
Zero     I:0  Null I:7  L:3  L:2  L:1  L:4  L:2  L:6  I:-1    I:5  !13  I:0
)t"},
    {"Eqv", R"t(
Empty    L:-1 Null I:-8 L:-4 L:-3 L:-2 L:-5 L:-3 L:-7 I:0    I:-6  !13  I:-1
Null     Null Null Null Null Null Null Null Null Null Null   Null  Null Null
Integer  I:-8 Null I:-1 L:-5 L:-6 L:-7 L:-4 L:-6 L:-2 I:7    I:-3  !13  I:-8
Long     L:-4 Null L:-5 L:-1 L:-2 L:-3 L:-8 L:-2 L:-6 L:3    L:-7  !13  L:-4
Single   L:-3 Null L:-6 L:-2 L:-1 L:-4 L:-7 L:-1 L:-5 L:2    L:-8  !13  L:-3
Double   L:-2 Null L:-7 L:-3 L:-4 L:-1 L:-6 L:-4 L:-8 L:1    L:-5  !13  L:-2
Currency L:-5 Null L:-4 L:-8 L:-7 L:-6 L:-1 L:-7 L:-3 L:4    L:-2  !13  L:-5
Date     L:-3 Null L:-6 L:-2 L:-1 L:-4 L:-7 L:-1 L:-5 L:2    L:-8  !13  L:-3
String   L:-7 Null L:-2 L:-6 L:-5 L:-8 L:-3 L:-5 L:-1 L:6    L:-4  !13  L:-7
Boolean  I:0  Null I:7  L:3  L:2  L:1  L:4  L:2  L:6  B:True I:5   !13  I:0
Byte     I:-6 Null I:-3 L:-7 L:-8 L:-5 L:-2 L:-8 L:-4 I:5    Y:255 !13  I:-6
Text     !13  Null !13  !13  !13  !13  !13  !13  !13  !13    !13   !13  !13
Zero     I:-1 Null I:-8 L:-4 L:-3 L:-2 L:-5 L:-3 L:-7 I:0    I:-6  !13  I:-1
)t"},
    {"Imp", R"t(
Empty    L:-1 L:-1  I:-1 L:-1 L:-1 L:-1 L:-1 L:-1 L:-1 I:-1   I:-1  !13 I:-1
Null     Null Null  I:7  L:3  L:2  L:1  L:4  L:2  L:6  B:True Y:5   !13 Null
Integer  I:-8 I:-8  I:-1 L:-5 L:-6 L:-7 L:-4 L:-6 L:-2 I:-1   I:-3  !13 I:-8
Long     L:-4 L:-4  L:-1 L:-1 L:-2 L:-3 L:-4 L:-2 L:-2 L:-1   L:-3  !13 L:-4
Single   L:-3 L:-3  L:-1 L:-1 L:-1 L:-3 L:-3 L:-1 L:-1 L:-1   L:-3  !13 L:-3
Double   L:-2 L:-2  L:-1 L:-1 L:-2 L:-1 L:-2 L:-2 L:-2 L:-1   L:-1  !13 L:-2
Currency L:-5 L:-5  L:-1 L:-5 L:-5 L:-5 L:-1 L:-5 L:-1 L:-1   L:-1  !13 L:-5
Date     L:-3 L:-3  L:-1 L:-1 L:-1 L:-3 L:-3 L:-1 L:-1 L:-1   L:-3  !13 L:-3
String   L:-7 L:-7  L:-1 L:-5 L:-5 L:-7 L:-3 L:-5 L:-1 L:-1   L:-3  !13 L:-7
Boolean  I:0  Null  I:7  L:3  L:2  L:1  L:4  L:2  L:6  B:True I:5   !13 I:0
Byte     I:-6 Y:250 I:-1 L:-5 L:-6 L:-5 L:-2 L:-6 L:-2 I:-1   Y:255 !13 I:-6
Text     !13  !13   !13  !13  !13  !13  !13  !13  !13  !13    !13   !13 !13
Zero     I:-1 I:-1  I:-1 L:-1 L:-1 L:-1 L:-1 L:-1 L:-1 I:-1   I:-1  !13 I:-1
)t"},
};
// clang-format on

}  // namespace kestrun::vbs
