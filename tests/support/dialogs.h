#pragma once

#include <QColor>
#include <QMessageBox>
#include <QObject>
#include <QQueue>
#include <QTimer>

#include <variant>

class QColorDialog;
class QFileDialog;

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

    /** What a file dialog of the window must look like, and the path to choose in it; an empty path cancels. */
    struct File
    {
        QString caption;
        QString folder; ///< where it must start; empty where that does not matter
        QString path;
        QStringList nameFilters = {};
        bool showsFoldersOnly = false; ///< must show and take folders only
    };

    /** What a colour dialog without options must look like, and the colour to choose in it; an invalid one cancels. */
    struct Color
    {
        QString title;
        QColor initial;
        QColor answer;
    };

    void expect(const Box &box);
    void expect(const File &file);
    void expect(const Color &color);

    /**
     * Lets dialogs with this text or caption come, at any time and in any number, beside the expected ones.
     *
     * They are rejected, and that is no fault. Made for what stands behind the subject of a test.
     */
    void tolerate(const QString &text);

    /** Leaves all dialogs from now on to somebody else. */
    void standAside();

    /** What went wrong so far, the dialogs that never came included; empty if all is well. */
    QString faults() const;

private:
    using Expected = std::variant<Box, File, Color>;

    void look();
    void answer(QMessageBox &box);
    void answer(QFileDialog &dialog);
    void answer(QColorDialog &dialog);
    void complain(const QString &what);

    QTimer m_timer;
    QQueue<Expected> m_expected;
    QStringList m_tolerated;
    QStringList m_faults;
};

Q_DECLARE_METATYPE(QMessageBox::StandardButton)
