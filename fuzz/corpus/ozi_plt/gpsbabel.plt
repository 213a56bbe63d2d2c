OziExplorer Track Point File Version 2.1
WGS 84
Altitude is in Feet
Reserved 3
0,2,255,T1,0,0,2,8421376
0
50.123456,8.123456,1,490.2,38000.4776042,,
50.200000,8.200000,0,-777.0,,,
