#pragma once

#include <QMap>
#include <QString>

/**
 * A page, a button, a device, a mapper, a key or a table cell: named texts.
 *
 * Numbers and colours are texts too, and value() of a name that is not there is the empty text.
 */
using Record = QMap<QString, QString>;
