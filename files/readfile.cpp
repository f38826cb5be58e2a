#include "files/readfile.h"

#include <QFile>
#include <QFileInfo>

std::optional<QByteArray> readFile(const QString &path, qint64 longest)
{
    QFile file(path);
    // What is no file, such as a pipe, could keep the program waiting.
    if (!QFileInfo(path).isFile() || file.size() > longest || !file.open(QIODevice::ReadOnly))
        return {};
    return file.read(qMin(file.size(), longest));
}
