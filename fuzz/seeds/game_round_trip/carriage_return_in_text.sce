GAMEVERSION: Version
PTYPE:   2
MAPSCALE:  11.8
GTURN: -1
RSEED:  17
=======Ã¬NIT INFORMATION=========
---------NEW UNIT---------
UNIT NUMBER:  1
IMAGE:  3
====
---------NEW UNIT---------
UNIT NUMBER:  1
IMAGE:  3
NAME:yASURES==±=========  1
QPVISIBLE:  1
BTOTAL:  12
