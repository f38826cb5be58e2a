#include "support/dialogs.h"

#include "app/stylesheets.h"

#include <QAccessible>
#include <QApplication>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QtTest>

namespace {

constexpr int WidestText = 800; // pixels; a box need not become wider

QString titleOf(const ExpectedDialogs::Box &box)
{
    return box.text;
}

QString titleOf(const ExpectedDialogs::File &file)
{
    return file.caption;
}

QString titleOf(const ExpectedDialogs::Color &color)
{
    return color.title;
}

} // namespace

ExpectedDialogs::ExpectedDialogs()
{
    connect(&m_timer, &QTimer::timeout, this, &ExpectedDialogs::look);
    m_timer.setSingleShot(true);
    m_timer.start(0);
}

void ExpectedDialogs::expect(const Box &box)
{
    m_expected.enqueue(box);
}

void ExpectedDialogs::expect(const File &file)
{
    m_expected.enqueue(file);
}

void ExpectedDialogs::expect(const Color &color)
{
    m_expected.enqueue(color);
}

void ExpectedDialogs::tolerate(const QString &text)
{
    m_tolerated += text;
}

void ExpectedDialogs::standAside()
{
    m_timer.stop();
}

QString ExpectedDialogs::faults() const
{
    QStringList faults = m_faults;
    for (const Expected &expected : m_expected)
        faults += "never came: " + std::visit([](const auto &dialog) { return titleOf(dialog); }, expected);
    return faults.join("; ");
}

void ExpectedDialogs::complain(const QString &what)
{
    m_faults += what;
}

void ExpectedDialogs::look()
{
    // Started anew before an answer, not after it: the answer may open the next dialog.
    m_timer.start(0);
    QWidget *modal = QApplication::activeModalWidget();
    if (!modal || !modal->isVisible())
        return;
    auto *dialog = qobject_cast<QDialog *>(modal);
    auto *box = qobject_cast<QMessageBox *>(modal);
    auto *fileDialog = qobject_cast<QFileDialog *>(modal);
    auto *colorDialog = qobject_cast<QColorDialog *>(modal);

    const QString text = box ? box->text() : modal->windowTitle();
    const bool isTolerated = m_tolerated.contains(text);
    const bool isExpected = !isTolerated && !m_expected.isEmpty()
                            && ((box && std::holds_alternative<Box>(m_expected.head()))
                                || (fileDialog && std::holds_alternative<File>(m_expected.head()))
                                || (colorDialog && std::holds_alternative<Color>(m_expected.head())));
    if (!isExpected) {
        if (!isTolerated)
            complain("not expected: " + text);
        if (dialog)
            dialog->reject();
        else
            modal->close();
        return;
    }
    if (box)
        answer(*box);
    else if (fileDialog)
        answer(*fileDialog);
    else
        answer(*colorDialog);
}

void ExpectedDialogs::answer(QMessageBox &box)
{
    const auto expected = std::get<Box>(m_expected.dequeue());
    if (box.text() != expected.text)
        complain("text \"" + box.text() + "\" instead of \"" + expected.text + "\"");
    if (box.informativeText() != expected.informative)
        complain("informative text \"" + box.informativeText() + "\" instead of \"" + expected.informative
                 + "\"");
    if (box.standardButtons() != expected.buttons)
        complain("other buttons on: " + box.text());
    if (box.standardButton(box.defaultButton()) != expected.defaultButton)
        complain("other default button on: " + box.text());
    if (box.windowTitle() != expected.title)
        complain("title \"" + box.windowTitle() + "\" on: " + box.text());
    if (QAccessible::queryAccessibleInterface(&box)->text(QAccessible::Name).isEmpty())
        complain("nothing to be read out for: " + box.text());
    if (box.icon() != expected.icon)
        complain("other icon on: " + box.text());
    if (box.parentWidget())
        complain("a parent on: " + box.text());
    if (box.styleSheet() != QString(expected.isStyled ? StyleSheet::messageBox : ""))
        complain("other style sheet on: " + box.text());
    if (expected.isStyled && box.textFormat() != Qt::PlainText) // else a name may count as rich text
        complain("other text format on: " + box.text());

    // The style gives labels a least width. A small screen makes the library wrap what a large one then cuts
    // off, so that width is what tells.
    const auto *label = box.findChild<QLabel *>("qt_msgbox_label");
    if (expected.isStyled
        && (!label
            || label->minimumWidth() < qMin(label->fontMetrics().size(0, box.text()).width(), WidestText)))
        complain("too little room for: " + box.text());

    if (QAbstractButton *button = box.button(expected.answer))
        button->click();
    else
        QTest::keyClick(&box, Qt::Key_Escape);
}

void ExpectedDialogs::answer(QFileDialog &dialog)
{
    const auto expected = std::get<File>(m_expected.dequeue());
    if (dialog.windowTitle() != expected.caption)
        complain("caption \"" + dialog.windowTitle() + "\" instead of \"" + expected.caption + "\"");
    if (!expected.folder.isEmpty() && dialog.directory().absolutePath() != expected.folder)
        complain("starts in " + dialog.directory().absolutePath() + " instead of " + expected.folder);
    if (!expected.nameFilters.isEmpty() && dialog.nameFilters() != expected.nameFilters)
        complain("filters " + dialog.nameFilters().join(", "));
    if (!qobject_cast<QMainWindow *>(dialog.parentWidget()))
        complain("no dialog of the window: " + dialog.windowTitle());
    const bool isForFiles =
        dialog.fileMode() == QFileDialog::AnyFile || dialog.fileMode() == QFileDialog::ExistingFile;
    if (expected.showsFoldersOnly && (isForFiles || !dialog.testOption(QFileDialog::ShowDirsOnly)))
        complain("no dialog for folders: " + dialog.windowTitle());

    if (expected.path.isEmpty()) {
        dialog.reject();
        return;
    }
    auto *name = dialog.findChild<QLineEdit *>("fileNameEdit");
    if (!name) {
        complain("no name field on: " + dialog.windowTitle());
        dialog.reject();
        return;
    }
    name->setText(QDir::toNativeSeparators(expected.path));
    static_cast<QDialog &>(dialog).accept();
}

void ExpectedDialogs::answer(QColorDialog &dialog)
{
    const auto expected = std::get<Color>(m_expected.dequeue());
    if (dialog.windowTitle() != expected.title)
        complain("title \"" + dialog.windowTitle() + "\" instead of \"" + expected.title + "\"");
    if (dialog.currentColor() != expected.initial)
        complain("starts with " + dialog.currentColor().name() + " instead of " + expected.initial.name());
    if (dialog.options())
        complain("options on: " + dialog.windowTitle());

    if (!expected.answer.isValid()) {
        QTest::keyClick(&dialog, Qt::Key_Escape);
        return;
    }
    dialog.setCurrentColor(expected.answer);
    auto *buttons = dialog.findChild<QDialogButtonBox *>();
    if (!buttons || !buttons->button(QDialogButtonBox::Ok)) {
        complain("no OK on: " + dialog.windowTitle());
        dialog.reject();
        return;
    }
    buttons->button(QDialogButtonBox::Ok)->click();
}
