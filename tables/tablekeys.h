#pragma once

#include <QObject>

class QAbstractItemView;

/** Ctrl+C, Ctrl+V and Delete in a table. Its editors take them for themselves. */
class TableKeys final : public QObject
{
    Q_OBJECT

public:
    /** Watches a view, and lives as long as it. */
    explicit TableKeys(QAbstractItemView *view);

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void copyPressed();   ///< Ctrl+C, or what the system has for it
    void pastePressed();  ///< Ctrl+V, likewise
    void deletePressed(); ///< Delete without Ctrl, Shift or Alt
};
