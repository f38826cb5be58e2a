#pragma once

#include "app/mainwindow.h"

#include <QString>

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

} // namespace Window
