#pragma once

#include <QString>
#include <QTemporaryDir>

/**
 * A home folder of its own, for this process and those it starts; its documents folder has a Pads folder.
 *
 * Must be there before the QApplication. Windows are painted, and no screen is needed for it.
 */
class Home final
{
public:
    Home();

    /** Where Pads Pages go. */
    QString padsFolder() const;

private:
    QTemporaryDir m_folder;
};
