%
G00 X1
X2
