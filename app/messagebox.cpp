#include "app/messagebox.h"

#include <QLabel>

namespace {

constexpr int WidestText = 800; // pixels; longer texts are wrapped

/** The style sheet's least width of a label stands for its width, and would cut off a longer text. */
void makeRoomForText(QMessageBox &box)
{
    box.ensurePolished();
    if (auto *label = box.findChild<QLabel *>("qt_msgbox_label")) {
        label->ensurePolished();
        label->setMinimumWidth(qMax(label->minimumWidth(), qMin(label->sizeHint().width(), WidestText)));
    }
}

} // namespace

void MessageBox::notice(const QString &styleSheet, const QString &text, const QString &informative)
{
    ask(styleSheet, text, informative, QMessageBox::Ok, QMessageBox::Ok);
}

QMessageBox::StandardButton MessageBox::ask(const QString &styleSheet, const QString &text,
                                            const QString &informative, QMessageBox::StandardButtons buttons,
                                            QMessageBox::StandardButton defaultButton)
{
    QMessageBox box;
    box.setStyleSheet(styleSheet);
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.setAccessibleName(text); // there is no title that could be read out
    box.setInformativeText(informative);
    box.setStandardButtons(buttons);
    box.setDefaultButton(defaultButton);
    makeRoomForText(box);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

bool MessageBox::confirmOverwrite(const QString &styleSheet, const QString &text)
{
    return ask(styleSheet, text, "Do you want to overwrite ?", QMessageBox::Yes | QMessageBox::No,
               QMessageBox::No)
           == QMessageBox::Yes;
}
