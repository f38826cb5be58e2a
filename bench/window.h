#pragma once

#include "app/mainwindow.h"
#include "measure.h"

#include <QCoreApplication>
#include <QEvent>
#include <QMessageBox>
#include <QPointer>

/** The program's window, reached as its form and its meta-object allow. */
namespace Window {

/** A child of the window by object name; ends the benchmark where it is missing. */
template<typename T>
T *find(const MainWindow &window, const char *name)
{
    T *child = window.findChild<T *>(name);
    if (!child)
        qFatal("no %s named %s", T::staticMetaObject.className(), name);
    return child;
}

/** Calls a slot that tells whether it could do its work; ends the benchmark where it could not. */
template<typename... Arguments>
void call(MainWindow &window, const char *slot, Arguments... arguments)
{
    bool isDone = false;
    if (!QMetaObject::invokeMethod(&window, slot, Qt::DirectConnection, Q_RETURN_ARG(bool, isDone),
                                   arguments...)
        || !isDone)
        qFatal("%s could not do its work", slot);
}

/** Loads the show of a settings file. */
inline void load(MainWindow &window, const QString &path)
{
    call(window, "loadshowname", Q_ARG(QString, path));
}

/** As long as it lives, answers every message box as soon as it is seen. */
class Answers final : public QObject
{
public:
    Answers() { QCoreApplication::instance()->installEventFilter(this); }

    /** Processor seconds of this process when the last message box began to be built. */
    double boxBegan() const { return m_boxBegan; }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (qobject_cast<QMessageBox *>(watched)) {
            if (watched != m_box) // its parts come to it as its constructor makes them
                m_boxBegan = Measure::processorSeconds();
            m_box = watched;
            if (event->type() == QEvent::Show)
                QMetaObject::invokeMethod(watched, "accept", Qt::QueuedConnection);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QPointer<QObject> m_box;
    double m_boxBegan = 0;
};

} // namespace Window
