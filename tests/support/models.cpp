#include "support/models.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDropEvent>
#include <QtTest>

#include <algorithm>

namespace {

/** Makes createIndex() of a final model callable. */
struct IndexMaker : QAbstractItemModel
{
    static QModelIndex make(const QAbstractItemModel &model, int row, int column)
    {
        QModelIndex (QAbstractItemModel::*const create)(int, int, void *) const = &IndexMaker::createIndex;
        return (model.*create)(row, column, nullptr);
    }
};

QStringList complaints;
QStringList meantComplaints;

void collectComplaint(QtMsgType /*type*/, const QMessageLogContext & /*context*/, const QString &message)
{
    const bool isMeant = std::any_of(meantComplaints.cbegin(), meantComplaints.cend(),
                                     [&message](const QString &part) { return message.contains(part); });
    if (!isMeant)
        complaints.append(message);
}

QString rowsTold(const QString &what, int first, int last, const QStringList &held)
{
    return QString("%1 %2 to %3: ").arg(what).arg(first).arg(last) + held.join(' ');
}

} // namespace

QModelIndex Models::lostIndex(const QAbstractItemModel &model, int row, int column)
{
    return IndexMaker::make(model, row, column);
}

QStringList Models::firstColumn(const QAbstractItemModel &model)
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts.append(model.index(row, 0).data().toString());
    return texts;
}

bool Models::drop(QAbstractItemView &view, const QMimeData &data, const QPoint &point, Qt::DropAction action)
{
    QDragEnterEvent enter(point, action, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view.viewport(), &enter);
    QDragMoveEvent move(point, action, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view.viewport(), &move);
    if (!move.isAccepted())
        return false;
    QDropEvent drop(point, action, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view.viewport(), &drop);
    return drop.isAccepted();
}

Models::RowLog::RowLog(const QAbstractItemModel &model)
{
    const auto noteAs = [this, &model](const char *what) {
        return [this, &model, what](const QModelIndex &parent, int first, int last) {
            note(model, what, parent, first, last);
        };
    };
    connect(&model, &QAbstractItemModel::rowsAboutToBeInserted, this, noteAs("before insert"));
    connect(&model, &QAbstractItemModel::rowsInserted, this, noteAs("after insert"));
    connect(&model, &QAbstractItemModel::rowsAboutToBeRemoved, this, noteAs("before remove"));
    connect(&model, &QAbstractItemModel::rowsRemoved, this, noteAs("after remove"));
}

QStringList Models::RowLog::of(const QString &change, int position, int count, const QStringList &before,
                               const QStringList &after)
{
    const int last = position + count - 1;
    return {rowsTold("before " + change, position, last, before),
            rowsTold("after " + change, position, last, after)};
}

void Models::RowLog::note(const QAbstractItemModel &model, const QString &what, const QModelIndex &parent,
                          int first, int last)
{
    lines.append((parent.isValid() ? "below a cell: " : "")
                 + rowsTold(what, first, last, firstColumn(model)));
}

Models::Complaints::Complaints(const QStringList &meant)
    : m_previous(qInstallMessageHandler(collectComplaint))
{
    complaints.clear();
    meantComplaints = meant;
}

Models::Complaints::~Complaints()
{
    qInstallMessageHandler(m_previous);
}

QStringList Models::Complaints::found()
{
    return complaints;
}
