O1(금형)
#101=5
G00 X#101
N10 G90 G54 G0 X0
T1 M6
N20 G1 X1 F100 ; 모서리
call 5
N30 X2
/N40 X3
(unfinished
N50 X4
