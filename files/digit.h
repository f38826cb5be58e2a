#pragma once

#include <QChar>

/** Value of a digit from 0 to 9, a to f or A to F; -1 for any other sign, and for one that the base does not have. */
inline int digitOf(QChar sign, int base)
{
    int value = -1;
    if (sign >= '0' && sign <= '9')
        value = sign.unicode() - '0';
    else if (sign.toLower() >= 'a' && sign.toLower() <= 'f')
        value = sign.toLower().unicode() - 'a' + 10;
    return value < base ? value : -1;
}
