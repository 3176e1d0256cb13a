// SPDX-License-Identifier: MIT
// A master airport list small enough to know by heart.
#pragma once

#include <QByteArray>

inline const QByteArray smallAirportList =
    "Canada|Alberta|Calgary International Airport|Calgary|CYYC|CYYC,N51* 06.83',W114* "
    "01.22',3557\r\n"
    "Canada|Alberta|Edmonton International Airport|Edmonton|CYEG|CYEG,N53* 18.58',W113* "
    "34.77',2373\r\n"
    "Canada|Ontario|Lester B. Pearson International Airport|Toronto|CYYZ|"
    "CYYZ,N43* 40.63',W79* 37.83',569\r\n"
    "Germany||Frankfurt Airport|Frankfurt am Main|EDDF|EDDF,N50* 01.60',E08* 32.58',364\r\n"
    "Germany||M\xFCnchen Airport|M\xFCnchen|EDDM|EDDM,N48* 21.22',E11* 47.17',1487\r\n"
    "Germany||Hamburg Airport|Hamburg|EDDH|EDDH,N53* 37.82',E09* 59.30',53\r\n"
    "Jamaica||Norman Manley International Airport|Kingston|MKJP|MKJP,N17* 56.15',W76* "
    "47.25',10\r\n";
