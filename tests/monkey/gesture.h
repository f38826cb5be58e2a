#pragma once

#include <QMap>
#include <QString>

/** One thing that a user does, as it stands in a line of a log: "drop-pad button=3 row=2 col=0". */
struct Gesture
{
    QString verb;
    QMap<QString, QString> words;

    QString text(const char *key) const { return words.value(key); }
    int number(const char *key) const { return words.value(key).toInt(); }

    /** The line; what would break it up is percent-encoded. */
    QString line() const;
    static Gesture fromLine(const QString &line);
};
