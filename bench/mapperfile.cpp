#include "mapperfile.h"

#include <QFile>
#include <QTextStream>

void writeMapper(const QString &path, const QString &device, int rows)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("cannot write %s", qPrintable(path));
    QTextStream out(&file);
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        << "<mapper device=\"" << device << "\" author=\"Somebody\" version=\"840\" date=\"1-2-2026\">\n";
    for (int row = 0; row < rows; ++row)
        out << "\t<map value=\"BTN_" << row << "\" action=\"var &apos;$os2l&apos; ? os2l_button &apos;Scene "
            << row << "&apos; : deck " << row % 4 + 1 << " pad " << row % 16 + 1 << "\"/>\n";
    out << "</mapper>\n";
}
