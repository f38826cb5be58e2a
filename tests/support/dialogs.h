#pragma once

#include <QMessageBox>
#include <QObject>
#include <QQueue>
#include <QTimer>

/**
 * Answers the dialogs that the program opens, in the order in which they are expected.
 *
 * Watches for modal dialogs while the program's own exec() runs. A dialog that nobody expected is rejected
 * and noted as a fault; so is one that was expected and never came. Nothing here can wait forever.
 */
class ExpectedDialogs final : public QObject
{
    Q_OBJECT

public:
    ExpectedDialogs();

    /** What a message box must look like, and which of its buttons to press. */
    struct Box
    {
        QString text;
        QString informative;
        QMessageBox::StandardButtons buttons = QMessageBox::Ok;
        QMessageBox::StandardButton defaultButton = QMessageBox::Ok;
        QMessageBox::StandardButton answer = QMessageBox::Ok; ///< NoButton leaves by the Escape key
        QString title = {};
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        bool isStyled = true;
    };

    /** What a file dialog must look like, and the path to choose in it; an empty path cancels. */
    struct File
    {
        QString caption;
        QString folder; ///< where it must start; empty where that does not matter
        QString path;
        QStringList nameFilters = {};
        bool showsFoldersOnly = false; ///< must be a dialog of the window that shows and takes folders only
    };

    void expect(const Box &box);
    void expect(const File &file);

    /**
     * Lets dialogs with this text or caption come, at any time and in any number, beside the expected ones.
     *
     * They are rejected, and that is no fault. Made for what stands behind the subject of a test.
     */
    void tolerate(const QString &text);

    /** What went wrong so far, the dialogs that never came included; empty if all is well. */
    QString faults() const;

private:
    struct Expected
    {
        bool isBox;
        Box box;
        File file;
    };

    void look();
    void answer(QMessageBox &box);
    void answer(class QFileDialog &dialog);
    void complain(const QString &what);

    QTimer m_timer;
    QQueue<Expected> m_expected;
    QStringList m_tolerated;
    QStringList m_faults;
};

Q_DECLARE_METATYPE(QMessageBox::StandardButton)
