#pragma once

#include <QString>
#include <QTemporaryDir>

/**
 * A home folder of its own, for this process and those it starts; its documents folder has VirtualDJ's folders.
 *
 * Must be there before the QApplication. Windows are painted, and no screen is needed for it.
 */
class Home final
{
public:
    Home();

    /** Makes it the home folder again, where another one has been made since. */
    void moveIn() const;

    /** Where Pads Pages go. */
    QString padsFolder() const;
    /** Where mappers go. */
    QString mappersFolder() const;

private:
    QTemporaryDir m_folder;
};
