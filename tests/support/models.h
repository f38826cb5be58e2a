#pragma once

#include <QAbstractItemModel>
#include <QStringList>

class QAbstractItemView;
class QMimeData;
class QPoint;

/** What the tests of the three tables share. */
namespace Models {

/** An index of a cell that the model's own index() would refuse. */
QModelIndex lostIndex(const QAbstractItemModel &model, int row, int column);

/** The texts of the first column. */
QStringList firstColumn(const QAbstractItemModel &model);

/** Drops data at a point of a view's viewport through its own events; whether the view took it. */
bool drop(QAbstractItemView &view, const QMimeData &data, const QPoint &point,
          Qt::DropAction action = Qt::CopyAction);

/** Notes what a model tells of rows that come and go, and what its first column holds by then. */
class RowLog final : public QObject
{
public:
    explicit RowLog(const QAbstractItemModel &model);

    /** What it has to be for one change of a number of rows at a position, of the top level. */
    static QStringList of(const QString &change, int position, int count, const QStringList &before,
                          const QStringList &after);

    QStringList lines;

private:
    void note(const QAbstractItemModel &model, const QString &what, const QModelIndex &parent, int first,
              int last);
};

/** Collects what a model tester finds, but for the ways in which a table is meant to depart from the contract. */
class Complaints final
{
public:
    /** @param meant  parts of the complaints that do not count */
    explicit Complaints(const QStringList &meant);
    ~Complaints();
    Q_DISABLE_COPY(Complaints)

    static QStringList found();

private:
    QtMessageHandler m_previous;
};

} // namespace Models
