#pragma once

#include <QElapsedTimer>
#include <QPersistentModelIndex>
#include <QTableView>

/**
 * One of the window's tables: works on what is on show and can be used, by mouse and by keys.
 *
 * It has no meta-object of its own, so that it is a QTableView to everybody else.
 */
class TableView final : public QTableView
{
public:
    using QTableView::QTableView;

    /**
     * Goes to the next cell on show whose text begins with what was typed, row by row; capitals do not matter.
     *
     * @param typed  letters; they go on with those typed shortly before. One letter again and again goes from
     *               match to match. Without a match, nothing moves; an empty text ends the search.
     */
    void keyboardSearch(const QString &typed) override;

protected:
    bool event(QEvent *event) override;
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void focusInEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    bool isUsable(const QModelIndex &cell) const;
    QModelIndex firstUsable() const;
    bool isSearching() const;
    void goTo(const QModelIndex &cell);
    void askForMenu();

    QPersistentModelIndex m_pressed;
    QString m_typed;
    QElapsedTimer m_sinceTyped;
};
