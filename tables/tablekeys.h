#pragma once

#include <QObject>

class QAbstractItemView;

/** Ctrl+C, Ctrl+V and Delete in a table, while no editor is open in it. */
class TableKeys final : public QObject
{
    Q_OBJECT

public:
    /** Watches a view, and lives as long as it. */
    explicit TableKeys(QAbstractItemView *view);

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void copyPressed();
    void pastePressed();
    void deletePressed();

private:
    QAbstractItemView *m_view;
};
