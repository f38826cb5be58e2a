#pragma once

#include <QStringList>

class QAbstractItemModel;
class QTextStream;

/** What a Pads Page file is made from. */
struct PadsPage
{
    QString name;                   ///< name of the page, written unescaped
    QStringList banks;              ///< names of the banks; a missing one is empty
    int padsPerBank;                ///< 8 or 16
    const QAbstractItemModel &pads; ///< the pads table: eight rows of two columns for each bank
};

/**
 * Writes a Pads Page for VirtualDJ's Pads folder.
 *
 * The page carries all banks that hold a Live Button: every text, colour and action asks the variable
 * "dmxbank", which the page's first parameter cycles. The banks in use are numbered from 0 without gaps.
 * A bank whose Live Buttons all lie on pads 9 to 16 is in use on a page of 8 pads too.
 *
 * @param out   stream to write to, in its own codec; names go out unescaped
 * @param page  what to write
 */
void writePadsPage(QTextStream &out, const PadsPage &page);
