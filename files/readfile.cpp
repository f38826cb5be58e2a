#include "files/readfile.h"

#include "files/path.h"

#include <QFileInfo>

std::optional<QByteArray> readFile(const QString &path, qint64 longest)
{
    QFile file(path);
    // What is no file, such as a pipe, could keep the program waiting.
    if (!isPath(path) || !QFileInfo(path).isFile() || file.size() > longest
        || !file.open(QIODevice::ReadOnly))
        return {};
    return file.read(qMin(file.size(), longest));
}
