#include "gesture.h"

#include <QStringList>
#include <QUrl>

QString Gesture::line() const
{
    QString line = verb;
    for (auto word = words.cbegin(); word != words.cend(); ++word)
        line += " " + word.key() + "=" + QUrl::toPercentEncoding(word.value(), ",#/");
    return line;
}

Gesture Gesture::fromLine(const QString &line)
{
    const QStringList parts = line.split(' ', Qt::SkipEmptyParts);
    Gesture gesture{parts.value(0), {}};
    for (const QString &part : parts.mid(1)) {
        const QByteArray value = part.section('=', 1).toUtf8();
        gesture.words.insert(part.section('=', 0, 0), QUrl::fromPercentEncoding(value));
    }
    return gesture;
}
