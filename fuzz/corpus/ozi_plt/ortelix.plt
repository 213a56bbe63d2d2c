OziExplorer Track Point File Version 2.1
WGS 84
Altitude is in Feet
Reserved 3
0,2,16711935,t,1,1,0,8421376
2
 50.123456, 8.123456, 0, 488, 38000.47760416667, 14.01.2004, 11:27:45
 50.200000, 8.200000, 0, -777, , , 
