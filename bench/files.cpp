#include "files.h"

#include "measure.h"

#include <QDomDocument>
#include <QFile>

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return file.readAll();
}

void parse(const QString &path)
{
    QFile file(path);
    QDomDocument document;
    if (!file.open(QIODevice::ReadOnly) || !document.setContent(&file))
        qFatal("cannot parse %s", qPrintable(path));
}

double writeAtOnce(const QString &path, const QByteArray &bytes)
{
    QFile::remove(path);
    const double start = Measure::processorSeconds();
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
    file.close();
    return Measure::processorSeconds() - start;
}
