#pragma once

#include <QMessageBox>

/**
 * Puts questions and notices to the user. One box does without: that of loadshow(), which has no style.
 *
 * A box has no parent, no title and no icon; exec() runs it modal to the program. Texts are shown as they
 * are, so a name is never taken for rich text.
 */
namespace MessageBox {

/**
 * Tells the user something; the box has an OK button.
 *
 * @param styleSheet   style sheet of the box
 * @param text         what has happened
 * @param informative  what follows from it, may be empty
 */
void notice(const QString &styleSheet, const QString &text, const QString &informative = {});

/**
 * Asks the user something.
 *
 * @param styleSheet     style sheet of the box
 * @param text           what has come up
 * @param informative    the question, may be empty
 * @param buttons        the answers
 * @param defaultButton  the answer that Enter gives, one of the buttons
 * @return               the answer; leaving the box with Escape counts as Cancel or No where it has them
 */
QMessageBox::StandardButton ask(const QString &styleSheet, const QString &text, const QString &informative,
                                QMessageBox::StandardButtons buttons,
                                QMessageBox::StandardButton defaultButton);

/**
 * Asks whether a file may be overwritten; No is the default.
 *
 * @param styleSheet  style sheet of the box
 * @param text        which file exists
 * @return            true for Yes alone
 */
bool confirmOverwrite(const QString &styleSheet, const QString &text);

} // namespace MessageBox
