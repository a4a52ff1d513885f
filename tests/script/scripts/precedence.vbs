'---- Precedence and associativity, with the least parentheses that each expression needs
WScript.Echo CLng(8 Eqv 9) '=> -2
WScript.Echo CLng(Not 1 Xor Not 9) '=> 8
WScript.Echo CLng(0 < 8 Eqv 8 And 1) '=> 0
WScript.Echo CLng(1 + 8 * 6 Or (3 = 1) \ (7 >= 4)) '=> 49
WScript.Echo CLng(-(Not 5 >= 5)) '=> 0
WScript.Echo CLng(-3 - (Not -4)) '=> -6
WScript.Echo CLng((6 - 6 Eqv 0 - 3) And 3) '=> 2
WScript.Echo CLng(3 Imp -(7 + 1)) '=> -4
WScript.Echo CLng(8 <= 5 > (8 < 8) And 3 <> 6 < 5 * 0) '=> 0
WScript.Echo CLng(5 \ 5 <> 1) '=> 0
WScript.Echo CLng((1 Xor 6 Imp 2 * 6) * ((2 Xor 2) - (Not 9))) '=> -40
WScript.Echo CLng(-(8 + 0)) '=> -8
WScript.Echo CLng(-3 Mod 3) '=> 0
WScript.Echo CLng((5 And 8 Mod 2) >= (2 Imp 2 Imp 9)) '=> 0
WScript.Echo CLng(-8 * 3) '=> -24
WScript.Echo CLng((8 <= 3) * -1 <> (1 > 2 < 2 + 4) Xor (Not -3) < 6) '=> 0
WScript.Echo CLng(-(8 > 1 Imp 3 Imp -(Not 2))) '=> 1
WScript.Echo CLng((Not 0) * -1 <= (Not 4)) '=> 0
WScript.Echo CLng(8 >= 6 <= (0 And 8)) '=> -1
WScript.Echo CLng(3 <= (4 = 5 <> (0 Eqv 0))) '=> 0
WScript.Echo CLng(6 \ ((3 <> 5) - 2)) '=> -2
WScript.Echo CLng(4 And Not (7 Eqv 2) > 7) '=> 4
WScript.Echo CLng(3 > 5 >= 5) '=> 0
WScript.Echo CLng(Not Not 0 Xor (9 And 6 Xor 2 * 4)) '=> 8
WScript.Echo CLng((0 < 5 Imp (7 < 4) \ 1) And (Not (4 Xor 3) Xor 4 * 0 \ (9 Xor 2))) '=> 0
WScript.Echo CLng(-(3 Or 7) > (4 <> 1) \ (Not 7)) '=> 0
WScript.Echo CLng((1 <> 9) \ 8) '=> 0
WScript.Echo CLng(-(6 * 0 Or 7)) '=> -7
WScript.Echo CLng((5 >= -(4 > 5)) Mod 6) '=> -1
WScript.Echo CLng((4 Eqv 2) <= (3 >= 5)) '=> -1
WScript.Echo CLng(((Not (4 And 7)) <> 8) - 7) '=> -8
WScript.Echo CLng(--(1 \ 8) Or Not 9) '=> -10
WScript.Echo CLng(1 Mod 1 And 8) '=> 0
WScript.Echo CLng(4 Imp 8 * 3 >= (Not 6)) '=> -1
WScript.Echo CLng((Not 3 - 0) + (3 > 3 Xor 1 > 9) Xor -(-6 Eqv 0)) '=> 7
WScript.Echo CLng(5 = 3 >= 8 = (Not 5 + 7)) '=> 0
WScript.Echo CLng(5 >= 4 Eqv (4 Eqv 5) Eqv 3 Xor 7) '=> 5
WScript.Echo CLng(7 * 4) '=> 28
WScript.Echo CLng((3 = 6 Xor 0) >= ((4 Xor 9) = 1)) '=> -1
WScript.Echo CLng(2 \ ((9 <= 4 Or 7 <> 3) < 3)) '=> -2
WScript.Echo CLng((7 Or 0) < 7 <> (Not 4) \ (Not 9)) '=> 0
WScript.Echo CLng((9 Imp 5 Eqv 5) = 3) '=> 0
WScript.Echo CLng(4 + 0) '=> 4
WScript.Echo CLng(Not 6) '=> -7
WScript.Echo CLng(Not 4) '=> -5
WScript.Echo CLng(9 Xor 2 Eqv 9 - 3 Eqv -(6 = 5)) '=> 13
WScript.Echo CLng(9 - 7 Eqv 6 > 4) '=> 2
WScript.Echo CLng(8 Xor 0 And 1) '=> 8
WScript.Echo CLng(5 < (9 >= 4) = (9 <> 4 <= 0 + 3)) '=> 0
WScript.Echo CLng((5 Eqv 7) = (4 Or 8) <= (5 And 5) + (9 = 0)) '=> -1
WScript.Echo CLng(9 < 0 + 2 >= (0 Eqv 8 + 3)) '=> -1
WScript.Echo CLng(3 = (6 <= 4 Xor Not 8) <> (0 Eqv 8) * 2 \ (Not Not 8)) '=> -1
WScript.Echo CLng(-((Not 6) * (2 \ 3) Eqv (4 Eqv 8 Mod 4))) '=> -4
WScript.Echo CLng(8 <> 4) '=> -1
WScript.Echo CLng(7 * 8 - 3 Mod 9 = (Not 2) - 0) '=> 0
WScript.Echo CLng(0 Imp 8 <> 1 Xor 1 - 3) '=> -1
WScript.Echo CLng(Not (7 > 1 Xor 3)) '=> 3
WScript.Echo CLng(9 >= 8 Eqv (6 Imp 0) Imp (Not 9) + (9 Xor 4)) '=> 7
WScript.Echo CLng((Not 2 Imp 9 <= 2) > (-1 < (5 Or 5))) '=> -1
WScript.Echo CLng(3 + 4 Xor 6 = 3) '=> 7
WScript.Echo CLng(2 >= 7 And 2 < 5) '=> 0
WScript.Echo CLng((5 < 3 >= (2 Or 1) And 2) <> (--3 > (8 < 4 Imp -9))) '=> -1
WScript.Echo CLng((0 + 4 - (1 Imp 6)) \ (-4 + (6 < 7))) '=> -1
WScript.Echo CLng(-(7 Mod 4) < (6 <= 4) * (0 * 4)) '=> -1
WScript.Echo CLng((6 > 0 Xor 9) * ((0 Imp 3) And 9 <= 1)) '=> 0
WScript.Echo CLng(-(9 = 9 <> (Not 8))) '=> 1
WScript.Echo CLng(2 < 7 Or Not 7) '=> -1
WScript.Echo CLng((5 Imp 7 > 5) = (5 Xor Not 9)) '=> 0
WScript.Echo CLng((Not 7) >= (3 Eqv 6)) '=> 0
WScript.Echo CLng((8 <= 0 <> 6 * 5) + ((5 Or 3) + (0 Xor 6))) '=> 12
WScript.Echo CLng(Not Not 7) '=> 7
WScript.Echo CLng((3 Xor 0) - (1 = 2)) '=> 3
WScript.Echo CLng(-(Not 2)) '=> 3
WScript.Echo CLng(0 > (6 Or 9 Eqv 0 Xor 6)) '=> -1
WScript.Echo CLng(7 Or -0) '=> 7
WScript.Echo CLng(-(Not 1)) '=> 2
WScript.Echo CLng((5 Eqv 5) = 2 * 2) '=> 0
WScript.Echo CLng(4 \ 9 Mod (9 >= 0)) '=> 0
WScript.Echo CLng(Not (Not 6) < (9 <= 0) <> (3 Xor 6 Xor 7 >= 8)) '=> 0
WScript.Echo CLng(-7 * -9 And 4) '=> 4
WScript.Echo CLng((Not -1 And 0) <= (1 Or 4 Xor (8 Xor 6)) \ 2) '=> -1
WScript.Echo CLng(4 < (Not Not 0)) '=> 0
WScript.Echo CLng(2 * (Not 4)) '=> -10
WScript.Echo CLng(-(-0 \ (2 Eqv 3) Or 9)) '=> -9
WScript.Echo CLng(-(Not (7 Xor 5))) '=> 3
WScript.Echo CLng(3 + -(2 \ 4)) '=> 3
WScript.Echo CLng(-((2 Or 8 Or 3) >= (6 + 4 Or (6 Or 4)))) '=> 0
WScript.Echo CLng(Not (2 > 5 And 4 <> 9 Imp 2)) '=> 0
WScript.Echo CLng(-1) '=> -1
WScript.Echo CLng(-3) '=> -3
WScript.Echo CLng(Not (7 > 1 Eqv 7)) '=> -8
WScript.Echo CLng((5 Eqv 8 + 7) = (Not 6 >= 9)) '=> 0
WScript.Echo CLng(-(8 Imp 8)) '=> 1
WScript.Echo CLng(-(3 Imp 8 \ 3)) '=> 2
WScript.Echo CLng(1 <= -(2 - 0 And 9 Mod 9)) '=> 0
WScript.Echo CLng((6 >= 9) + (8 - 0)) '=> 8
WScript.Echo CLng((Not 1) Mod (0 Or 9)) '=> -2
WScript.Echo CLng((Not 8) <= (6 < 3) > (0 > 3 > -8)) '=> 0
WScript.Echo CLng(3 + (0 > 1 <= (1 + 8 Eqv 6 And 5))) '=> 3
WScript.Echo CLng((-6 And 6 * 9) * 4) '=> 200
WScript.Echo CLng(--(5 < 3 Xor (0 Imp 0))) '=> -1
WScript.Echo CLng((7 + 0) Mod (6 Or 5) > (6 * 7 And 8 >= 1)) '=> 0
WScript.Echo CLng(8 >= 6 Or 8 <> 3 Xor Not -9) '=> -9
WScript.Echo CLng(Not 8) '=> -9
WScript.Echo CLng(2 <> 7 Or 9 And 3) '=> -1
WScript.Echo CLng(-(2 Imp (0 Eqv 9) \ (4 + 2))) '=> 1
WScript.Echo CLng(Not 3 + 7) '=> -11
WScript.Echo CLng(3 * 2 Mod -(8 + (1 Xor 6))) '=> 6
WScript.Echo CLng((Not 2 Eqv -3) \ (2 < 5 And 9 - 3)) '=> 0
WScript.Echo CLng(8 + 3 <= (1 And 8) < 4) '=> -1
WScript.Echo CLng((1 Or 8) < (3 > 1) Xor Not 4 - 5) '=> 0
WScript.Echo CLng(-((Not 7) + (1 + 2)) And (Not 2) < (Not 4 And 9 < 7)) '=> 5
WScript.Echo CLng(-(9 Eqv 9) + (5 Or (6 Xor 6))) '=> 6
WScript.Echo CLng(2 <= (3 <= 0)) '=> 0
WScript.Echo CLng(-(3 * 3) <> 7) '=> -1
WScript.Echo CLng(2 > (2 = 9 Or 3 - 1)) '=> 0
WScript.Echo CLng(-(1 > 7)) '=> 0
WScript.Echo CLng(1 >= ((Not Not 6) <= (1 = 4 = (5 = 5)))) '=> -1
WScript.Echo CLng((9 Eqv 0 - 3) + ((2 Xor 3) = 7)) '=> 11
WScript.Echo CLng((8 >= 7) + (6 And 9)) '=> -1
WScript.Echo CLng(Not 9 > 9) '=> -1
WScript.Echo CLng((-9 \ (5 Mod 8) Imp 2 <= (3 Or 4)) And -((8 Or 9) < (7 Xor 2))) '=> 0
WScript.Echo CLng(3 = 9 Or Not 5) '=> -6
WScript.Echo CLng(Not 9) '=> -10
WScript.Echo CLng(-1) '=> -1
WScript.Echo CLng(5 + (-5 Imp 7 + 0)) '=> 12
WScript.Echo CLng(-((9 Imp 7) <= 0)) '=> 1
WScript.Echo CLng((Not -8) <= (Not Not 9) <= (5 Xor 5) \ (9 And 9) - 2) '=> 0
WScript.Echo CLng(((8 + 3 Xor 5 - 0) < (5 < 2) * 0) + (((4 And 4) > (1 >= 3)) - (Not 9))) '=> 9
WScript.Echo CLng(-4 * (3 <= 0) Mod ((3 Or 3) <> (1 Eqv 1))) '=> 0
WScript.Echo CLng(Not (5 <> 5 Imp Not 7)) '=> 0
WScript.Echo CLng(6 = (Not (0 Imp 5) - (6 Eqv 9))) '=> 0
WScript.Echo CLng((9 And 9) + (7 <= 0) Xor (2 <= 4) \ 7) '=> 9
WScript.Echo CLng(3 + (9 Imp 2)) '=> -7
WScript.Echo CLng(-(8 = 0 And 7 \ 3)) '=> 0
WScript.Echo CLng((Not 6 Or 9 < 6) <> (0 < (5 < 3))) '=> -1
WScript.Echo CLng(2 <= 4 = 3 * 2 > (Not 3) \ (7 Eqv 2)) '=> 0
WScript.Echo CLng((Not -5 And 2) > ((9 Eqv 3) - (0 Imp 2)) Mod ((5 Eqv 1) Mod -7)) '=> 0
WScript.Echo CLng(Not ((5 Xor 3) Or 1 < 4)) '=> 0
WScript.Echo CLng(-8) '=> -8
WScript.Echo CLng(6 <= 6 >= (6 And 6) Eqv (9 <= 6 Imp 1 Or 9)) '=> 0
WScript.Echo CLng(Not 8 \ 5) '=> -2
WScript.Echo CLng(Not 5 - 1 < (1 >= 8) >= (8 + 9 <= (1 And 8))) '=> 0
WScript.Echo CLng(-(5 Eqv 6) + 2 Mod (5 + 8)) '=> 6
WScript.Echo CLng(Not (8 = 2 Or 2)) '=> -3
WScript.Echo CLng((3 <= 4) + 2) '=> 1
WScript.Echo CLng(2 * 1 \ (3 Imp 3)) '=> -2
WScript.Echo CLng(3 \ (1 Imp 0 \ 3) > (5 And 5 And 0 Eqv 8)) '=> -1
WScript.Echo CLng(Not 0 Mod 4 > 8 Mod 4) '=> -1
WScript.Echo CLng(Not (5 And 5) \ (5 Eqv 0)) '=> -1
WScript.Echo CLng(3 >= (9 <> 9)) '=> -1
WScript.Echo CLng(3 <> (Not 6) > 4 >= (2 Xor 5 - 3)) '=> -1
WScript.Echo CLng((7 <> 4) * (3 Xor 2)) '=> -1
WScript.Echo CLng((Not 5 And 5 >= 2 Or 4) < 8 \ 2) '=> -1
WScript.Echo CLng(Not Not -(2 + 5)) '=> -7
WScript.Echo CLng(Not 7) '=> -8
WScript.Echo CLng(-(5 Or 7)) '=> -7
WScript.Echo CLng((3 And 8) <> (1 Imp 0)) '=> -1
WScript.Echo CLng(4 = ((9 Xor 3) Or (3 Eqv 1)) <> (9 \ 2 = 6 Eqv Not -8)) '=> -1
WScript.Echo CLng((Not 7) >= 8) '=> 0
WScript.Echo CLng(0 Xor (7 = 7 Xor 4)) '=> -5
WScript.Echo CLng(9 > 8 = (4 Xor 3)) '=> 0
WScript.Echo CLng(0 < 4 - 5 = (4 - 7 < (2 <> 6)) > (Not 3)) '=> -1
WScript.Echo CLng(4 - (Not 5 > 4) + ((0 + 0 Eqv 8 Or 6) - ((5 Eqv 7) And 4))) '=> -15
WScript.Echo CLng(-(4 < 8)) '=> 1
WScript.Echo CLng(7 - 5 Xor 9 = 7) '=> 2
WScript.Echo CLng((2 Eqv 4) And -4) '=> -8
WScript.Echo CLng(-4 + (7 >= 6)) '=> -5
WScript.Echo CLng(1 <= 3 >= 2 Mod 5) '=> 0
WScript.Echo CLng(((-7 > (Not 9)) + ((8 Xor 1) + 1 Mod 4)) Mod 2) '=> 1
WScript.Echo CLng(5 >= 2 >= -8) '=> -1
WScript.Echo CLng(Not (7 Eqv 3)) '=> 4
WScript.Echo CLng((3 Imp 2) <> 8 >= (6 - 8 <= (5 Eqv 8))) '=> 0
WScript.Echo CLng((9 \ 6) * 3) '=> 3
WScript.Echo CLng((0 Mod 7 Eqv 5 And 7) >= (Not (1 And 8))) '=> 0
WScript.Echo CLng(6 Mod 2 <> (2 And 0) <= 9) '=> -1
WScript.Echo CLng(7 And Not 9 < (3 Eqv 1)) '=> 7
WScript.Echo CLng(Not 3) '=> -4
WScript.Echo CLng(Not -0 Mod (2 Or 2)) '=> -1
WScript.Echo CLng((Not (8 Xor 8)) - (7 > 6 Xor 0 <> 2)) '=> -1
WScript.Echo CLng((3 Or (1 Or 5) Xor 9 > (0 <> 1)) <> 1) '=> -1
WScript.Echo CLng(((0 Xor 0) <> (Not 2)) Mod (4 Eqv 4 <= 5)) '=> -1
WScript.Echo CLng(Not 9 * 5) '=> -46
WScript.Echo CLng(Not (5 < 1) + -5) '=> 4
WScript.Echo CLng(-((3 Xor 3) < (4 Imp 6)) Or 3 - 5 = (Not 3) = (4 - 1 And 1)) '=> 0
WScript.Echo CLng((7 = 1 Or 3 >= 0) <= (4 >= 9 Or 3)) '=> -1
WScript.Echo CLng(-(2 <= 0)) '=> 0
WScript.Echo CLng(4 < 2 Eqv 4 = -1) '=> -1
WScript.Echo CLng(-(-3 Imp 7 < 4)) '=> -2
WScript.Echo CLng(Not -(6 Xor 1)) '=> 6
WScript.Echo CLng(-(4 Or (Not 3) >= 1 - 0)) '=> -4
WScript.Echo CLng((4 Or 7 And Not 4) = (0 <= (7 Imp 0) Or -5 * 5)) '=> 0
WScript.Echo CLng((Not 7) = (Not 3)) '=> 0
WScript.Echo CLng(1 <> 6 <> 2) '=> -1
WScript.Echo CLng(3 * 9 Xor -7) '=> -30
WScript.Echo CLng(2 >= (9 Imp 5) <= (4 Imp 2 - 4)) '=> -1
WScript.Echo CLng((1 Or (4 Xor 2)) <= (7 Or 3) - (8 + 8) < 1) '=> -1
WScript.Echo CLng(-(1 <= 0 < (0 >= 7))) '=> 0
WScript.Echo CLng((Not 2 - 3) < (3 And 3) - -8 = 6) '=> 0
WScript.Echo CLng(((7 >= (6 = 5)) + 4) \ (2 <= 1 <> (3 Eqv 0) < (0 <= (Not 3)))) '=> -3
WScript.Echo CLng(1 < 1) '=> 0
WScript.Echo CLng((0 >= 1) Mod (9 Xor 0)) '=> 0
WScript.Echo CLng(-(6 Mod 4 Eqv 7 Xor 1)) '=> 5
WScript.Echo CLng(-(9 < 1)) '=> 0
WScript.Echo CLng(-9) '=> -9
WScript.Echo CLng((Not 3 > 7) >= (2 <= 2 <> 7)) '=> -1
WScript.Echo CLng(9 > (8 >= 3) > 3) '=> 0
WScript.Echo CLng((1 > 1) + 7 Mod 1) '=> 0
WScript.Echo CLng((5 \ 9 Mod 7) \ 4) '=> 0
WScript.Echo CLng(Not 8 Mod 1) '=> -1
WScript.Echo CLng(Not Not (8 And 1)) '=> 0
WScript.Echo CLng(2 Mod (5 >= 1)) '=> 0
WScript.Echo CLng((7 > 6) - (3 And 7) Xor 8) '=> -12
WScript.Echo CLng(Not (2 >= 5 And (0 Eqv 3))) '=> -1
WScript.Echo CLng(5 <= 4 >= 4 - 1) '=> 0
WScript.Echo CLng(6 >= 6 And -8 Eqv (2 >= 8 Eqv Not 8)) '=> 15
WScript.Echo CLng(((5 Xor (3 Imp 5)) <> 1) \ (Not 9 > 7 > (5 > 9))) '=> 1
WScript.Echo CLng(3 < 3 Xor 9 Or 0) '=> 9
WScript.Echo CLng(Not 9 + 2 Mod 6 And Not 8 * 8 >= 2) '=> 0
WScript.Echo CLng(8 = -(Not 8)) '=> 0
WScript.Echo CLng(2 <> 2 <> 2 Mod 9) '=> -1
WScript.Echo CLng((3 = 8 Xor 3 = 9) <> 3) '=> -1
WScript.Echo CLng((7 Eqv 0) <> (Not 1)) '=> -1
WScript.Echo CLng(9 + 6 <> -3 >= --4) '=> 0
WScript.Echo CLng((3 = 1 <> (6 Xor 1)) * ((7 And 9) + (Not 7))) '=> 7
WScript.Echo CLng(((2 Imp 5) = (9 >= 9)) - (4 = 1 = 0)) '=> 1
WScript.Echo CLng((7 >= 1) + (0 <= 5) <= (Not (4 Imp 5))) '=> -1
WScript.Echo CLng(-(Not 0)) '=> 1
WScript.Echo CLng((2 Xor 6) Or Not 7) '=> -4
WScript.Echo CLng((2 Eqv 0) = (2 = 3)) '=> 0
WScript.Echo CLng(6 + (2 = 2) \ (7 Eqv 8)) '=> 6
WScript.Echo CLng(6 >= 8 Imp 7 And 2) '=> -1
WScript.Echo CLng(5 Mod 7 <> (5 = 6)) '=> -1
WScript.Echo CLng(2 >= 9 >= (1 <= 7) Imp Not 6 And 0 Mod 1) '=> 0
WScript.Echo CLng(7 <= (Not 7)) '=> 0
WScript.Echo CLng((Not 0) \ (4 Xor 5) < (8 = 4 And -3)) '=> -1
WScript.Echo CLng(3 \ 1 - (0 >= 6) > (-1 <> (2 = 7)) <= 7 + ((Not 6) = (7 And 9))) '=> -1
WScript.Echo CLng((Not -4) = (8 <> 2) + (4 > 3)) '=> 0
WScript.Echo CLng(3 Or 1 Xor 9 <> 0) '=> -4
WScript.Echo CLng(0 = 9 Imp -3) '=> -1
WScript.Echo CLng(-(6 >= 6)) '=> 1
WScript.Echo CLng((0 Imp 0) And 2 - 5) '=> -3
WScript.Echo CLng(-2 + 1) '=> -1
WScript.Echo CLng((3 And 0 Imp 1 < 7) Or (7 Eqv 8) * (Not 2)) '=> -1
WScript.Echo CLng(-4 \ (8 Or 6) Xor 2 * (8 > 0)) '=> -2
WScript.Echo CLng(-(7 \ 3)) '=> -2
WScript.Echo CLng((3 >= 0) + 1 Mod 2) '=> 0
WScript.Echo CLng(7 <= (9 Xor 7) Or 1) '=> -1
WScript.Echo CLng(5 Xor 5 <= 2 Eqv 7 <= (Not 1) Imp -(6 Or 1) < (Not 5)) '=> -1
WScript.Echo CLng(9 \ 8 >= 8) '=> 0
WScript.Echo CLng(((8 And 0) < (0 = 8)) + -(8 + 7)) '=> -15
WScript.Echo CLng(7 <= 0 = 7 Mod 4 >= ((3 Eqv 5) = 2)) '=> -1
WScript.Echo CLng(-(1 Or 4)) '=> -5
WScript.Echo CLng((Not 2 >= 0) = -9 <= (1 >= 0 < (8 Xor 7) <> 3)) '=> 0
WScript.Echo CLng(3 + 6) '=> 9
WScript.Echo CLng((4 > 7 Eqv (0 Imp 6)) >= (2 - 1 = 1 \ 4)) '=> -1
WScript.Echo CLng(1 Xor 0) '=> 1
WScript.Echo CLng((8 = (9 >= 9 <> (9 Xor 5))) + (1 >= (Not 3) + (4 - 3))) '=> -1
WScript.Echo CLng((Not 6 >= 0) + ((Not 2) <> (9 And 2))) '=> -1
WScript.Echo CLng(-(8 <> 9) * (9 >= 2 < 8 \ 2)) '=> -1
