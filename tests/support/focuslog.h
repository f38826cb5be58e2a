#pragma once

#include <QApplication>
#include <QFocusEvent>
#include <QList>
#include <QPair>
#include <QStringList>

/** Notes which widgets take the focus, and why. */
class FocusLog final : public QObject
{
public:
    FocusLog() { qApp->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::FocusIn && watched->isWidgetType())
            taken.append({watched->objectName(), static_cast<QFocusEvent *>(event)->reason()});
        return false;
    }

    /** The object names alone, in their order. */
    QStringList names() const
    {
        QStringList names;
        for (const auto &widget : taken)
            names.append(widget.first);
        return names;
    }

    QList<QPair<QString, Qt::FocusReason>> taken;
};
