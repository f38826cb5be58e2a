#include "app/messagebox.h"

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
    box.setInformativeText(informative);
    box.setStandardButtons(buttons);
    box.setDefaultButton(defaultButton);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

bool MessageBox::confirmOverwrite(const QString &styleSheet, const QString &text)
{
    return ask(styleSheet, text, "Do you want to overwrite ?", QMessageBox::Yes | QMessageBox::No,
               QMessageBox::No)
           == QMessageBox::Yes;
}
