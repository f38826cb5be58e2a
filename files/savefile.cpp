#include "files/savefile.h"

#include "files/path.h"

#include <QBuffer>
#include <QFileInfo>
#include <QSaveFile>
#include <QTextStream>

namespace {

constexpr int MostLinks = 40; // as many as systems follow

/** The text as it is to lie on the disk, which then has to take it but once. */
QByteArray bytesFrom(const std::function<void(QTextStream &)> &write)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly | QIODevice::Text);
    QTextStream out(&buffer);
    write(out);
    out.flush();
    return bytes;
}

/** What a path leads to, be it there or not; still a link where links lead in a circle. */
QFileInfo behindLinks(const QString &path)
{
    QFileInfo target(path);
    if (target.exists())
        return QFileInfo(target.canonicalFilePath());
    for (int link = 0; link < MostLinks && target.isSymLink(); ++link)
        target.setFile(target.symLinkTarget());
    return target;
}

bool writeAt(QFileDevice &file, qint64 position, const QByteArray &bytes)
{
    return file.seek(position) && file.write(bytes) == bytes.size();
}

/**
 * Writes a file that is there in its place. What goes beyond its old end is written first: where the disk has no room
 * for that, the old file needs but be cut off there.
 */
bool writeOver(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered))
        return false;
    const qint64 oldSize = file.size();
    const QByteArray old = file.read(bytes.size());
    if (writeAt(file, old.size(), bytes.mid(old.size())) && writeAt(file, 0, bytes.left(old.size()))
        && file.resize(bytes.size()))
        return true;
    writeAt(file, 0, old);
    file.resize(oldSize);
    return false;
}

} // namespace

bool saveText(const QString &path, const std::function<void(QTextStream &)> &write)
{
    if (!isPath(path))
        return false;
    const QFileInfo target = behindLinks(path);
    if (target.isSymLink() || (target.exists() && !target.isFile()))
        return false;

    const QByteArray bytes = bytesFrom(write);
    QSaveFile file(target.filePath());
    const bool isReplaceable = file.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    if (isReplaceable && file.write(bytes) != bytes.size())
        return false;
    return (isReplaceable && file.commit()) || writeOver(target.filePath(), bytes);
}
