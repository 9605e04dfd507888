G0 X0. Y0.
X1.
X2.
X3.
X4.
