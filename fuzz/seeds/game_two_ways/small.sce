GAMEVERSION: Version
BSCALE:  1
MAPSCALE:  11.8
GTURN: -1
RSEED:  17
========UNIT INFORMATION=========
---------NEW UNIT---------
UNIT NUMBER:  1
IMAGE:  3
NAME: 1-10 AR   
X:  120
Y:  240
STATUS:  2
RCP:  10.5
---------NEW UNIT---------
IMAGE:  0
========CONTROL MEASURES=========
PTYPE:  12
PTEXT: NAI 1: ford
========MOVEMENT NODES=========
MNUNIT:  1
MNX:  300
========EVENTS=========
PPTYPE:  1
PPVISIBLE:  1
BTOTAL:  12
